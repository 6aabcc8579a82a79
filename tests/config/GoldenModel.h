// The configuration of GoldenTree.h as records.
#pragma once

#include "config/Records.h"

namespace tests {

inline config::GlobalSettings GoldenSettings() {
    config::GlobalSettings settings;
    settings.WindowTop = 11;
    settings.WindowBottom = 722;
    settings.WindowLeft = 33;
    settings.WindowRight = 1244;
    settings.SigExt = L"s1";
    settings.DsigExt = L"s2";
    settings.EncExt = L"s3";
    settings.B64Ext = L"s4";
    settings.HashExt = L"s5";
    settings.VerifyFileExt = L"s6";
    settings.ZIPArchiveExt = L"s7";
    settings.GZIPArchiveExt = L"s8";
    settings.ExtExt = {L"csv", L"edi"};
    settings.LogPath = L"D:\\Log";
    settings.LogFilesize = 8000;
    return settings;
}

inline config::Rule GoldenResignRule() {
    config::Rule rule;
    rule.Operation = L"RESG";
    rule.PathIn = L"C:\\In";
    rule.PathOut = L"C:\\Out";
    rule.PathOut2 = L"C:\\Out2";
    rule.PathError = L"C:\\Error";
    rule.DelExt = L"del";
    rule.AddExt = L"add";
    rule.Folders = L"%Y";
    rule.Copyfolders = L"%M";
    rule.ArchCount = 21;
    rule.ArchSize = 22;
    rule.ArchTimeout = 23;
    rule.ArchName = L"arch";
    rule.ExecName = L"C:\\run.exe";
    rule.ExecTimeout = 24;
    rule.Masks = {L"*.xml", L"*.edi"};
    rule.Certificates = {L"CN=First, O=\"Bank\"", L"CN=Second"};
    rule.IsOn = 1;
    rule.ZCSProfile = L"Bank keys";
    rule.ResignProfile = L"Archive keys";
    rule.InFormatDet = 1;
    rule.OutFormatDet = 2;
    rule.Descryption = L"\x041E\x0442\x0447\x0451\x0442\x044B \xD83D\xDE00";
    rule.ZipFile = 2;
    rule.SignerLists = {{L"Chiefs", {L"CN=Chief", L"CN=Deputy"}}, {L"Nobody", {}}};
    return rule;
}

inline config::Rule GoldenExecRule() {
    config::Rule rule;
    rule.Operation = L"EXEC";
    rule.PathIn = L"E:\\In";
    rule.PathOut = L"E:\\Out";
    rule.PathOut2 = L"E:\\Out2";
    rule.PathError = L"E:\\Error";
    rule.DelExt = L"d";
    rule.AddExt = L"a";
    rule.Folders = L"%D";
    rule.Copyfolders = L"%H";
    rule.ArchCount = 31;
    rule.ArchSize = 32;
    rule.ArchTimeout = 33;
    rule.ArchName = L"a.zip";
    rule.ExecName = L"E:\\run.exe";
    rule.ExecTimeout = 34;
    rule.Masks = {L"*.*"};
    rule.Certificates = {L"CN=Third"};
    rule.IsOn = 1;
    rule.ZCSProfile = L"Archive keys";
    rule.ResignProfile = L"Bank keys";
    rule.InFormatDet = 3;
    rule.OutFormatDet = 4;
    rule.Descryption = L"Run";
    rule.ZipFile = 1;
    rule.SignerLists = {{L"Auditors", {L"CN=Auditor"}}};
    return rule;
}

inline config::Rule GoldenDeleteRule() {
    config::Rule rule;
    rule.Operation = L"DELE";
    rule.Masks = {L""};
    return rule;
}

inline config::ServiceProfile GoldenExchange() {
    config::ServiceProfile profile;
    profile.Name = L"Exchange";
    profile.ServerTSP = {L"http://tsp.example", L"0"};
    profile.ZCSProfile = {L"Bank keys", L"Archive keys"};
    profile.NotUseLDAP = {1, 0};
    profile.NotCopyToLocal = {0, 1};
    profile.AutoUseTSP = {1, 1};
    profile.AutoVerifyTSP = {0, 2};
    profile.NoTSPisError = {1, 3};
    profile.UseAIA = {4, 0};
    profile.NotAddCert = {5, 1};
    profile.NotLoadCrl = {1, 6};
    profile.CrlUpdatePeriod = {24, 168};
    profile.VerifyFile = 1;
    profile.VerifyXFile = 2;
    profile.VerifyDetFile = 3;
    profile.VerifyResignFile = 4;
    profile.HandlerTimeout = 60;
    profile.RenameConfFiles = 1;
    profile.Rules = {GoldenResignRule(), GoldenExecRule(), GoldenDeleteRule()};
    return profile;
}

inline std::vector<config::CsProfile> GoldenCsProfiles() {
    return {{L"Bank keys", L"pse://signed/D:\\Bank\\local.pse", L"file://D:\\Bank\\local.gdbm"},
            {L"Archive keys", L"pse://signed/C:\\Keys\\local.pse", L"file://C:\\Keys\\local.gdbm"}};
}

inline config::Configuration GoldenModel() {
    config::ServiceProfile reports;
    reports.Name = L"Reports";
    return {GoldenSettings(), {GoldenExchange(), reports}, GoldenCsProfiles()};
}

}  // namespace tests
