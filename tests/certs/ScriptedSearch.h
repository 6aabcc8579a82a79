// Certificate stores whose content a test decides, and what was asked of them.
#pragma once

#include <string>
#include <vector>

#include "crypto/CertificateSearch.h"

namespace tests {

class ScriptedSearch final : public crypto::CertificateSearch {
  public:
    std::vector<std::wstring> localNames;
    std::vector<std::wstring> foundNames;          // whatever the pattern
    std::vector<std::wstring> withoutCertificate;  // every other owner has one
    bool fails = false;                            // every search, as if it had been reported
    std::wstring failsFor;                         // the search for this owner's certificates

    std::vector<std::wstring> asked;  // "local", a pattern, or the name of an owner
    const ui::Dialog* lastParent = nullptr;

    bool FindAllLocalNames(ui::Dialog& parent, crypto::NameList& names) override {
        return Answer(parent, L"local", localNames, names);
    }
    bool FindOwnerNames(ui::Dialog& parent, const std::wstring& pattern, crypto::NameList& names) override {
        return Answer(parent, pattern, foundNames, names);
    }
    bool FindCertificatesByName(ui::Dialog& parent, const std::wstring& name,
                                crypto::OwnerCertificates& found) override {
        asked.push_back(name);
        lastParent = &parent;
        found = {};
        if (fails || name == failsFor) return false;
        for (const std::wstring& without : withoutCertificate)
            if (without == name) return true;
        found = {{L"certificate"}, {L"01"}};
        return true;
    }

  private:
    bool Answer(ui::Dialog& parent, const std::wstring& question, const std::vector<std::wstring>& answer,
                crypto::NameList& names) {
        asked.push_back(question);
        lastParent = &parent;
        names.Clear();
        if (fails) return false;
        for (const std::wstring& name : answer) names.Add(name);
        return true;
    }
};

}  // namespace tests
