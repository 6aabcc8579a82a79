// What reports call the values that the program keeps in the registry.
#pragma once

#include <set>
#include <string>

namespace tests {

// "integer", "multistring" or "string". path: of the value, its key before it.
inline std::wstring ValueKind(const std::wstring& path) {
    static const std::set<std::wstring> lists{L"ExtExt",         L"ServerTSP",  L"ZCSProfile",    L"NotUseLDAP",
                                              L"NotCopyToLocal", L"AutoUseTSP", L"AutoVerifyTSP", L"NoTSPisError",
                                              L"UseAIA",         L"NotAddCert", L"NotLoadCrl",    L"CrlUpdatePeriod",
                                              L"LastCrlUpdate"};
    static const std::set<std::wstring> integers{
        L"Window_top",        L"Window_bottom", L"Window_left",     L"Window_right",       L"Log filesize",
        L"Verify File",       L"Verify x file", L"Verify det file", L"Verify resign file", L"Handler timeout",
        L"Rename conf files", L"ArchCount",     L"ArchSize",        L"ArchTimeout",        L"ExecTimeout",
        L"Mask num",          L"Ext num",       L"Is on",           L"In format det",      L"Out format det",
        L"ZipFile",           L"Signer Num"};
    const std::wstring name = path.substr(path.rfind(L'\\') + 1);
    if (integers.contains(name)) return L"integer";
    // ZCSProfile is a list in a profile and a string in a rule.
    const bool inRule = path.find(L"\\rules\\") != std::wstring::npos;
    return lists.contains(name) && !inRule ? L"multistring" : L"string";
}

}  // namespace tests
