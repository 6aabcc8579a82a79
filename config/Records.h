// The configuration as it is held in memory. Every record is a plain value with its defaults stated at the
// member and, below it, one list of the fields that the registry keeps, in the order in which they are read
// and written.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "text/CompactText.h"

namespace config {

using Flag = int32_t;                 // 0: off, anything else: on; the editor writes 1
using CertificateRef = std::wstring;  // a certificate owner's name as the library gives it; opaque

// A folder, a path or a CS profile of a rule that is not set may stand as this text as well as empty.
inline constexpr std::wstring_view NotSet = L"0";

struct SignerListEntry {
    std::wstring Name;  // also the name of its registry key
    std::vector<CertificateRef> Signers;
    bool operator==(const SignerListEntry&) const = default;
};

// There are many rules, and each leaves most of its texts empty.
struct Rule {
    using Text = text::CompactText;
    Text ZCSProfile;     // the CS profile whose certificates the rule uses
    Text ResignProfile;  // RESG: the CS profile of the new signature
    Text Operation;      // a code of the operation table
    Text PathIn;
    Text PathOut;
    Text PathOut2;  // MOVE
    Text PathError;
    Text Mask;  // the single mask of the older format; read, never written
    Text Descryption;
    Text DelExt;
    Text AddExt;
    Text Folders;
    Text Copyfolders;
    Text ArchName;
    Text ExecName;
    std::vector<CertificateRef> Certificates;  // recipients
    std::vector<std::wstring> Masks;
    Flag IsOn = 0;
    int32_t InFormatDet = 0;   // 0: attached signature, else detached
    int32_t OutFormatDet = 0;  // likewise
    std::vector<SignerListEntry> SignerLists;
    int32_t ZipFile = 0;      // 0: none, 1: ZIP, 2: GZIP
    int32_t ArchCount = 0;    // files
    int32_t ArchSize = 0;     // KB
    int32_t ArchTimeout = 0;  // minutes
    int32_t ExecTimeout = 0;  // minutes
    bool operator==(const Rule&) const = default;
};

// An archive has a kind: rules of before there was a choice mean ZIP.
inline void SetLegacyArchiveKind(Rule& rule) {
    if ((rule.Operation == L"ARCH" || rule.Operation == L"UNAR") && rule.ZipFile == 0) rule.ZipFile = 1;
}

// Everything a rule's key holds; its signer lists have keys of their own. Besides texts and numbers a visitor
// meets the masks (their number, then one value each), the number of certificates and, after what the service
// is given of the CS profiles, their values.
template <class AnyRule, class Visitor>
void VisitRule(AnyRule& rule, Visitor& visit) {
    visit.Text(L"Operation", rule.Operation);
    visit.Text(L"Path In", rule.PathIn);
    visit.Text(L"Path Out", rule.PathOut);
    visit.Text(L"Path Out 2", rule.PathOut2);
    visit.Text(L"Path Error", rule.PathError);
    visit.Text(L"DelExt", rule.DelExt);
    visit.Text(L"AddExt", rule.AddExt);
    visit.Text(L"Folders", rule.Folders);
    visit.Text(L"Copyfolders", rule.Copyfolders);
    visit.Number(L"ArchCount", rule.ArchCount);
    visit.Number(L"ArchSize", rule.ArchSize);
    visit.Number(L"ArchTimeout", rule.ArchTimeout);
    visit.Text(L"ArchName", rule.ArchName);
    visit.Text(L"ExecName", rule.ExecName);
    visit.Number(L"ExecTimeout", rule.ExecTimeout);
    visit.Masks(L"Mask num", L"M", rule);
    visit.Count(L"Ext num", rule.Certificates);
    visit.Number(L"Is on", rule.IsOn);
    visit.Text(L"ZCSProfile", rule.ZCSProfile);
    visit.Text(L"ResignProfile", rule.ResignProfile);
    visit.Number(L"In format det", rule.InFormatDet);
    visit.Number(L"Out format det", rule.OutFormatDet);
    visit.Text(L"Descryption", rule.Descryption);
    visit.Number(L"ZipFile", rule.ZipFile);
    visit.StoresOf(rule);
    visit.Values(L"C", rule.Certificates);
}

template <class AnyList, class Visitor>
void VisitSignerList(AnyList& list, Visitor& visit) {
    visit.Count(L"Signer Num", list.Signers);
    visit.Values(L"S", list.Signers);
}

// The lists from ServerTSP to CrlUpdatePeriod are parallel: entry i of each belongs to the CS profile named
// by entry i of ZCSProfile. A configuration edited by hand may hold lists of unequal length.
struct ServiceProfile {
    std::wstring Name;  // also the name of its registry key
    std::vector<Rule> Rules;
    std::vector<std::wstring> ServerTSP;  // time-stamp server; "0": none
    std::vector<std::wstring> ZCSProfile;
    std::vector<Flag> NotUseLDAP;
    std::vector<Flag> NotCopyToLocal;
    std::vector<Flag> AutoUseTSP;
    std::vector<Flag> AutoVerifyTSP;
    std::vector<Flag> NoTSPisError;
    std::vector<Flag> UseAIA;
    std::vector<Flag> NotAddCert;
    std::vector<Flag> NotLoadCrl;
    std::vector<int32_t> CrlUpdatePeriod;  // hours
    Flag VerifyFile = 0;
    Flag VerifyXFile = 0;
    Flag VerifyDetFile = 0;
    Flag VerifyResignFile = 0;
    int32_t HandlerTimeout = 15;  // seconds
    Flag RenameConfFiles = 0;
    bool operator==(const ServiceProfile&) const = default;
};

template <class AnyProfile, class Visitor>
void VisitProfile(AnyProfile& profile, Visitor& visit) {
    visit.List(L"ServerTSP", profile.ServerTSP);
    visit.List(L"ZCSProfile", profile.ZCSProfile);
    visit.List(L"NotUseLDAP", profile.NotUseLDAP);
    visit.List(L"NotCopyToLocal", profile.NotCopyToLocal);
    visit.List(L"AutoUseTSP", profile.AutoUseTSP);
    visit.List(L"AutoVerifyTSP", profile.AutoVerifyTSP);
    visit.List(L"NoTSPisError", profile.NoTSPisError);
    visit.List(L"UseAIA", profile.UseAIA);
    visit.List(L"NotAddCert", profile.NotAddCert);
    visit.List(L"NotLoadCrl", profile.NotLoadCrl);
    visit.List(L"CrlUpdatePeriod", profile.CrlUpdatePeriod);
    visit.Number(L"Verify File", profile.VerifyFile);
    visit.Number(L"Verify x file", profile.VerifyXFile);
    visit.Number(L"Verify det file", profile.VerifyDetFile);
    visit.Number(L"Verify resign file", profile.VerifyResignFile);
    visit.Number(L"Handler timeout", profile.HandlerTimeout);
    visit.Number(L"Rename conf files", profile.RenameConfFiles);
}

struct GlobalSettings {
    int32_t WindowTop = 0;  // the main window's normal rectangle on the screen, in pixels
    int32_t WindowBottom = 0;
    int32_t WindowLeft = 0;
    int32_t WindowRight = 0;
    std::wstring SigExt = L"p7s";
    std::wstring DsigExt = L"p7d";
    std::wstring EncExt = L"p7e";
    std::wstring B64Ext = L"b64";
    std::wstring HashExt = L"hsh";
    std::wstring VerifyFileExt = L"vrf";
    std::wstring ZIPArchiveExt = L"zip";
    std::wstring GZIPArchiveExt = L"gz";
    std::vector<std::wstring> ExtExt;
    std::wstring LogPath;
    int32_t LogFilesize = 4000;  // KB; never below 400 after loading
    bool operator==(const GlobalSettings&) const = default;
};

inline constexpr int32_t SmallestLogFilesize = 400;  // KB

template <class AnySettings, class Visitor>
void VisitSettings(AnySettings& settings, Visitor& visit) {
    visit.Number(L"Window_top", settings.WindowTop);
    visit.Number(L"Window_bottom", settings.WindowBottom);
    visit.Number(L"Window_left", settings.WindowLeft);
    visit.Number(L"Window_right", settings.WindowRight);
    visit.Text(L"SigExt", settings.SigExt);
    visit.Text(L"DsigExt", settings.DsigExt);
    visit.Text(L"EncExt", settings.EncExt);
    visit.Text(L"B64Ext", settings.B64Ext);
    visit.Text(L"HashExt", settings.HashExt);
    visit.Text(L"VerifyFileExt", settings.VerifyFileExt);
    visit.Text(L"ZIPArchiveExt", settings.ZIPArchiveExt);
    visit.Text(L"GZIPArchiveExt", settings.GZIPArchiveExt);
    visit.PlainList(L"ExtExt", settings.ExtExt);
    visit.Text(L"LogPath", settings.LogPath);
    visit.Number(L"Log filesize", settings.LogFilesize);
}

// A CS profile of the cryptographic library: where its certificates lie. The editor only ever reads them.
struct CsProfile {
    std::wstring ProfileName;  // its identity everywhere in the editor; need not be unique
    std::wstring Store0;       // location of the personal store
    std::wstring Store1;       // location of the local certificate store
    bool operator==(const CsProfile&) const = default;
};

// The profiles' names in their order.
inline std::vector<std::wstring> CsProfileNames(const std::vector<CsProfile>& profiles) {
    std::vector<std::wstring> names;
    names.reserve(profiles.size());
    for (const CsProfile& profile : profiles) names.push_back(profile.ProfileName);
    return names;
}

// Everything the editor holds in memory, as the main dialog owns it.
struct Configuration {
    GlobalSettings Settings;
    std::vector<ServiceProfile> Profiles;  // in the registry's order
    std::vector<CsProfile> CsProfiles;     // likewise; never changed by the editor
    bool operator==(const Configuration&) const = default;
};

}  // namespace config
