// The rule editor's form as the model holds it: what the user has put in, and what OK makes of it.
#pragma once

#include <optional>
#include <string>

#include "tests/model/Configuration.h"

namespace tests::model {

struct EditorForm {
    std::wstring operation = L"ENCR";
    Texts csProfiles;
    int store = 0;  // an index of the CS profiles
    // Everything that goes straight into the rule under its name. What the operation does not use stays
    // behind.
    Rule values;

    // As the editor opens on the rule; one without an operation is a new one.
    EditorForm(const Rule& rule, const Texts& storeProfilesOfProfile);

    bool Is(const wchar_t* operations) const { return IsOneOf(operation, operations); }
    bool HasRecipients() const { return Is(L"ENCR LENC SGEN"); }
    bool HasSigners() const { return Is(L"CHCK CHKX DCHK RESG DCCX"); }
    bool HasArchive() const { return OffersNoArchive() || Is(L"ARCH UNAR"); }
    bool OffersNoArchive() const { return Is(L"ENCR DECR LENC LDEC SGEN DCCX"); }
    bool HasStoreProfile() const { return !Is(L"MOVE DELE B64E B64D ARCH UNAR PACK UNPK EXEC"); }
    // The values that the operation asks for by itself: texts and numbers under their names.
    Texts OwnTexts() const;
    Texts OwnNumbers() const;

    // Leaves only what goes over to the other operation; what it asks for by itself has to be put in anew.
    void ChangeOperation(const std::wstring& code);

    // Why OK would refuse the form.
    enum class Telling { ErrorBox, MessageBox, Report };
    struct Refusal {
        Telling telling;
        std::wstring text;  // of a report its beginning
    };
    std::optional<Refusal> FirstRefusal(const Texts& existingFolders) const;

    Rule Finished() const;

  private:
    std::wstring StoreName(int index) const;
    static std::optional<Refusal> CheckFolder(const std::wstring& folder, const Texts& existingFolders);
};

}  // namespace tests::model
