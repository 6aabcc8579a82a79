// Random configurations that loading can give: what is saved of them is what is loaded again.
#pragma once

#include <cstdint>
#include <random>
#include <set>
#include <string>
#include <vector>

#include "config/Operations.h"
#include "tests/config/GoldenModel.h"
#include "text/Case.h"

namespace tests {

class RandomModel {
  public:
    explicit RandomModel(uint32_t seed) : random_(seed) {}

    // With the CS profiles of GoldenLibrary.
    config::Configuration Next() {
        config::Configuration configuration;
        configuration.Settings = Settings();
        configuration.CsProfiles = GoldenCsProfiles();
        for (const std::wstring& name : Names(1, 4)) configuration.Profiles.push_back(Profile(name));
        return configuration;
    }

  private:
    using Texts = std::vector<std::wstring>;

    size_t Below(size_t limit) { return random_() % limit; }
    // Small, or anything that 32 bits hold.
    int32_t Number() { return static_cast<int32_t>(Below(2) == 0 ? Below(3) : static_cast<uint32_t>(random_())); }
    // Any code units but zero.
    std::wstring Text(size_t shortest, size_t longest) {
        std::wstring text(shortest + Below(longest - shortest + 1), L' ');
        for (wchar_t& unit : text) unit = static_cast<wchar_t>(Below(3) == 0 ? 1 + Below(0xFFFF) : 32 + Below(95));
        return text;
    }
    std::wstring Text() {
        const size_t kind = Below(10);
        if (kind == 0) return {};
        return kind == 1 ? Text(519, 519) : Text(0, 30);
    }
    Texts List(size_t shortest, size_t longest, size_t shortestText) {
        Texts texts(shortest + Below(longest - shortest + 1));
        for (std::wstring& text : texts) text = Text(shortestText, 20);
        return texts;
    }
    std::vector<int32_t> Numbers(size_t shortest) {
        std::vector<int32_t> numbers(shortest + Below(4));
        for (int32_t& number : numbers) number = Number();
        return numbers;
    }
    // Different names of keys, also without regard to case, in the registry's order. No underscore: it stands
    // between capitals and small letters, and not all registries agree on which of them are compared.
    Texts Names(size_t fewest, size_t most) {
        std::set<std::wstring> upper;
        const size_t count = fewest + Below(most - fewest + 1);
        while (upper.size() < count) {
            std::wstring name(1 + Below(6), L' ');
            for (wchar_t& unit : name) unit = L"ABCXYZ019-. \x0416\x00C4"[Below(14)];
            if (name.front() != L' ' && name.back() != L' ') upper.insert(name);
        }
        Texts names(upper.begin(), upper.end());
        for (std::wstring& name : names)
            for (wchar_t& unit : name)
                if (unit >= L'A' && unit <= L'Z' && Below(2) == 0) unit = static_cast<wchar_t>(unit + 32);
        return names;
    }

    config::GlobalSettings Settings();
    config::ServiceProfile Profile(const std::wstring& name);
    config::Rule Rule();

    std::mt19937 random_;
};

inline config::GlobalSettings RandomModel::Settings() {
    config::GlobalSettings settings;
    for (int32_t* number : {&settings.WindowTop, &settings.WindowBottom, &settings.WindowLeft, &settings.WindowRight})
        *number = Number();
    for (std::wstring* text :
         {&settings.SigExt, &settings.DsigExt, &settings.EncExt, &settings.B64Ext, &settings.HashExt,
          &settings.VerifyFileExt, &settings.ZIPArchiveExt, &settings.GZIPArchiveExt, &settings.LogPath})
        *text = Text();
    settings.ExtExt = List(0, 5, 1);
    settings.LogFilesize = 400 + static_cast<int32_t>(Below(1'000'000));
    return settings;
}

inline config::ServiceProfile RandomModel::Profile(const std::wstring& name) {
    config::ServiceProfile profile;
    profile.Name = name;
    profile.ServerTSP = List(0, 4, 1);
    profile.ZCSProfile = List(0, 4, 1);
    for (auto* list : {&profile.NotUseLDAP, &profile.NotCopyToLocal, &profile.AutoUseTSP, &profile.AutoVerifyTSP,
                       &profile.NoTSPisError, &profile.UseAIA, &profile.NotAddCert, &profile.NotLoadCrl})
        *list = Numbers(0);
    profile.CrlUpdatePeriod = Numbers(profile.NotLoadCrl.size());  // loading fills it up to that length
    for (int32_t* number : {&profile.VerifyFile, &profile.VerifyXFile, &profile.VerifyDetFile,
                            &profile.VerifyResignFile, &profile.HandlerTimeout, &profile.RenameConfFiles})
        *number = Number();
    const size_t rules = Below(4) == 0 ? 10 + Below(15) : Below(4);
    for (size_t i = 0; i < rules; ++i) profile.Rules.push_back(Rule());
    return profile;
}

inline config::Rule RandomModel::Rule() {
    config::Rule rule;
    rule.Operation = config::Operations()[Below(config::Operations().size())].code;
    for (config::Rule::Text* text : {&rule.PathIn, &rule.PathOut, &rule.PathError, &rule.Descryption, &rule.DelExt,
                                     &rule.AddExt, &rule.Folders, &rule.Copyfolders, &rule.ArchName, &rule.ExecName})
        *text = Text();
    // Not empty: what is empty may be taken from the first certificate.
    rule.ResignProfile = Below(2) == 0 ? L"Archive keys" : Text(1, 20);
    rule.PathOut2 = Text(1, 20);
    rule.ZCSProfile = Below(2) == 0 ? L"Bank keys" : Text();
    rule.Certificates = List(0, 4, 0);
    rule.Masks = List(1, 4, 0);
    for (int32_t* number : {&rule.IsOn, &rule.InFormatDet, &rule.OutFormatDet, &rule.ArchCount, &rule.ArchSize,
                            &rule.ArchTimeout, &rule.ExecTimeout})
        *number = Number();
    rule.ZipFile = 1 + static_cast<int32_t>(Below(2));
    for (const std::wstring& name : Names(0, 3)) rule.SignerLists.push_back({name, List(0, 4, 0)});
    return rule;
}

}  // namespace tests
