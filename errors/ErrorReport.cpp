#include "errors/ErrorReport.h"

#include "errors/LibraryErrors.h"
#include "errors/MessageBoxes.h"
#include "text/Format.h"
#include "text/Trim.h"

namespace errors {
namespace {

constexpr uint32_t libraryBit = 0x20000000;
constexpr uint32_t allOnes = 0xFFFFFFFF;
constexpr uint32_t firstBadParameter = 0xFFFFFFF7;  // -9; -9 to -1 are refused arguments
constexpr wchar_t noDescription[] = L"Error description not found";
constexpr wchar_t lineEnds[] = L".\r\n";

bool IsLibraryCode(uint32_t code) {
    return code == 0 || (code & libraryBit) != 0;
}

std::wstring WithArgument(std::wstring_view operation, std::wstring_view argument) {
    std::wstring text(operation);
    const size_t place = text.find(L"%s");
    if (place != std::wstring::npos) text.replace(place, 2, argument);
    return text;
}

}  // namespace

std::wstring CodeText(uint32_t code) {
    const bool library = (code & libraryBit) != 0 && code != allOnes;
    return text::Format(library ? L"KSEAL error 0x%X" : L"Error 0x%X", code);
}

uint32_t ErrorReporter::ErrorReport(const ReportContext& context, const Failure& failure, std::wstring* outText) const {
    if (context.mode == ReportMode::Silent) return failure.code;
    ++count_;
    const std::wstring report = Compose(failure);
    if ((static_cast<uint32_t>(context.mode) & static_cast<uint32_t>(ReportMode::Show)) != 0) {
        const std::wstring shown = outText == nullptr ? report : report + *outText;
        PlainMessageBox(screen_, context.owner, shown, ui::box::Ok | ui::box::ErrorIcon);
    }
    if (outText != nullptr) *outText = report;
    return failure.code;
}

std::wstring ErrorReporter::Compose(const Failure& failure) const {
    return WithArgument(failure.operation, failure.argument) + L".\r\n" + CodeText(failure.code) + L" - " +
           Describe(failure) + L".";
}

std::wstring ErrorReporter::Description(uint32_t code) const {
    return Describe({.code = code, .operation = {}, .argument = {}});
}

std::wstring ErrorReporter::Describe(const Failure& failure) const {
    if (failure.code >= firstBadParameter) return L"Bad parameter";
    const std::wstring description =
        IsLibraryCode(failure.code) ? DescribeLibraryCode(failure) : DescribeSystemCode(failure.code);
    return std::wstring(text::TrimRight(description, lineEnds));
}

std::wstring ErrorReporter::DescribeLibraryCode(const Failure& failure) const {
    const platform::CodePage& codePage = machine_.CodePage;
    std::wstring description = codePage.ToWide(LibraryErrorText(machine_.CryptoLibrary, failure.code));
    if (description.empty()) description = noDescription;
    description = text::TrimRight(description, lineEnds);
    if (failure.context == nullptr) return description;

    description += L"\r\n";
    for (const LibraryErrorEntry& entry : TakeLibraryErrors(machine_.CryptoLibrary, failure.context))
        description += text::Format(L"%s,\r\nfile: %s, line %d, data: %s.\r\n", codePage.ToWide(entry.errorText),
                                    codePage.ToWide(entry.sourceFile), entry.line, codePage.ToWide(entry.data));
    return description;
}

std::wstring ErrorReporter::DescribeSystemCode(uint32_t code) const {
    std::wstring description = machine_.SystemMessages.SystemText(code);
    if (description.empty()) description = machine_.SystemMessages.InternetText(code);
    return description.empty() ? noDescription : description;
}

std::wstring ErrorStackText(const platform::Machine& machine, platform::kseal::Context context) {
    const platform::CodePage& codePage = machine.CodePage;
    std::wstring stack;
    int number = 0;
    for (const LibraryErrorEntry& entry : TakeLibraryErrors(machine.CryptoLibrary, context))
        stack += text::Format(L"KSEAL stek, error number %d\r\nError: %s\r\nFile: %s\r\nData: %s\r\n", ++number,
                              codePage.ToWide(entry.errorText), codePage.ToWide(entry.sourceFile),
                              codePage.ToWide(entry.data));
    return stack;
}

}  // namespace errors
