// Where the candidates of the certificate picker come from, and where they can be kept.
#include "certs/FilterDlg.h"
#include "tests/certs/CertsTest.h"

namespace tests {
namespace {

using certs::CFilterDlg;
using certs::CPreEncryptDlg;
using ui::FilePickerKind;

class PickerSources : public CertsTest {
  protected:
    enum class Outcome { Names, Nothing };
    // Searches LDAP; field: an item of the form's list.
    void SearchLdap(int field, const std::wstring& sample, Outcome outcome = Outcome::Names) {
        user_.Expect<CFilterDlg>([this, field, sample](CFilterDlg&) {
            user_.Choose(pickid::FilterField, field);
            user_.Type(pickid::FilterSample, sample);
            user_.Press(Key::Enter);
        });
        if (outcome == Outcome::Nothing) ExpectHint(L"No certificates found for your request");
        user_.Click(pickid::FromLdap);
    }
    void OpenGroup(const std::optional<std::wstring>& path) {
        user_.ExpectFilePicker(FilePickerKind::Open, path);
        user_.Click(pickid::FromGroup);
    }
    void SaveGroup(const std::optional<std::wstring>& path) {
        user_.ExpectFilePicker(FilePickerKind::Save, path);
        user_.Click(pickid::Save);
    }
    // The path that the next picker for opening would show at first.
    std::wstring LastPath() {
        OpenGroup(std::nullopt);
        return notes_.pickers.back().initialPath;
    }

    const std::wstring file_ = Path(L"friends.grx");
};

TEST_F(PickerSources, TheLocalStore) {
    PickRecipients({}, [this](CPreEncryptDlg& picker) {
        AddLocal({L"CN=B", L"CN=A"});
        EXPECT_EQ(Shown(pickid::Candidates), (Names{L"CN=B", L"CN=A"}));
        EXPECT_EQ(search_.lastParent, &picker);
        AddLocal({L"CN=C", L"CN=B", L"cn=b"});
        EXPECT_EQ(Shown(pickid::Candidates), (Names{L"CN=B", L"CN=A", L"CN=C", L"cn=b"}));
        Leave();
    });
    EXPECT_EQ(search_.asked, (Names{L"local", L"local"}));
}

TEST_F(PickerSources, AFailedSearchLeavesTheListAsItWas) {
    Put(file_, "CN=F\r\n");
    PickRecipients({}, [this](CPreEncryptDlg&) {
        AddLocal({L"CN=B"});
        OpenGroup(file_);
        Check(pickid::Candidates, {1});
        search_.fails = true;
        AddLocal({L"CN=A"});
        search_.foundNames = {L"CN=A"};
        SearchLdap(0, L"*");
        EXPECT_EQ(Shown(pickid::Candidates), (Names{L"CN=B", L"CN=F"}));
        EXPECT_EQ(Checks(pickid::Candidates), (std::vector{false, true}));
        EXPECT_EQ(LastPath(), file_);
        Leave();
    });
}

TEST_F(PickerSources, LdapIsAskedForTheFieldAndTheSample) {
    search_.foundNames = {L"CN=Ivan,O=Bank,EMAIL=i@bank"};
    PickRecipients({}, [this](CPreEncryptDlg&) {
        SearchLdap(0, L" Iv* ");
        SearchLdap(7, L"bank");
        SearchLdap(15, L"*");
        SearchLdap(16, L"CN=x*");
        Leave();
    });
    EXPECT_EQ(search_.asked, (Names{L"CN=Iv*", L"O=bank", L"EMAIL=*", L"CN=x*"}));
}

TEST_F(PickerSources, WhatLdapFindsIsNarrowedToWhatWasMeant) {
    search_.foundNames = {L"CN=Ivan,O=Bank", L"CN=Petr,O=Ivan", L"CN=IVANOV", L"OU=Ivan", L"CN=Ivan, Petr"};
    PickRecipients({}, [this](CPreEncryptDlg&) {
        SearchLdap(0, L"ivan*");
        EXPECT_EQ(Shown(pickid::Candidates), (Names{L"CN=Ivan,O=Bank", L"CN=IVANOV", L"CN=Ivan, Petr"}));
        SearchLdap(16, L"ivan*");  // the entire name: whatever was found
        EXPECT_EQ(Shown(pickid::Candidates),
                  (Names{L"CN=Ivan,O=Bank", L"CN=IVANOV", L"CN=Ivan, Petr", L"CN=Petr,O=Ivan", L"OU=Ivan"}));
        Leave();
    });
}

TEST_F(PickerSources, ASearchThatComesToNothingIsTold) {
    Put(file_, "CN=F\r\n");
    PickRecipients({}, [this](CPreEncryptDlg& picker) {
        OpenGroup(file_);
        Check(pickid::Candidates, {0});
        SearchLdap(16, L"x", Outcome::Nothing);
        EXPECT_EQ(notes_.owners.back(), &picker);
        search_.foundNames = {L"CN=Ivan"};
        SearchLdap(0, L"x", Outcome::Nothing);
        EXPECT_EQ(Shown(pickid::Candidates), Names{L"CN=F"});
        EXPECT_EQ(Checks(pickid::Candidates), std::vector{true});
        EXPECT_EQ(LastPath(), file_);
        Leave();
    });
}

TEST_F(PickerSources, TheFilterFormBeginsWithTheFieldAndTheSampleOfTheSearchBefore) {
    PickRecipients({}, [this](CPreEncryptDlg& picker) {
        const auto look = [&](std::optional<size_t> field, const std::wstring& sample) {
            user_.Expect<CFilterDlg>([this, &picker, field, sample](CFilterDlg& form) {
                EXPECT_EQ(form.Parent(), &picker);
                EXPECT_EQ(user_.Text(pickid::FilterSample), sample);
                EXPECT_EQ(user_.Get<ui::ComboBox>(pickid::FilterField).Selected(), field);
                user_.Choose(pickid::FilterField, 7);
                user_.Type(pickid::FilterSample, L"never accepted");
                Leave();
            });
            user_.Click(pickid::FromLdap);
        };
        look(std::nullopt, L"");
        SearchLdap(3, L"  ru*", Outcome::Nothing);
        look(3, L"ru*");
        search_.fails = true;
        SearchLdap(16, L"de");
        look(16, L"de");
        user_.Expect<CFilterDlg>([this](CFilterDlg&) { user_.Press(Key::Enter); });
        user_.Click(pickid::FromLdap);
        Leave();
    });
    EXPECT_EQ(search_.asked, (Names{L"C=ru*", L"de", L"de"}));
}

TEST_F(PickerSources, AGroupsFile) {
    Put(file_, "CN=B\r\nIvanov\r\nCN=A\r\nCN=lost");
    settings_.GroupFilesFolder = L"C:\\groups";
    PickRecipients({L"CN=Z"}, [this](CPreEncryptDlg& picker) {
        AddLocal({L"CN=A", L"CN=C"});
        OpenGroup(file_);
        EXPECT_EQ(notes_.owners.back(), &picker);
        EXPECT_EQ(notes_.pickers.back().initialPath, L"");
        EXPECT_EQ(notes_.pickers.back().initialFolder, L"C:\\groups");
        EXPECT_EQ(notes_.pickers.back().filterName, L"User groups files (*.grx)");
        EXPECT_EQ(Shown(pickid::Candidates), (Names{L"CN=A", L"CN=C", L"CN=B"}));
        EXPECT_EQ(Shown(pickid::Chosen), Names{L"CN=Z"});
        OpenGroup(file_);  // nothing comes twice
        EXPECT_EQ(notes_.pickers.back().initialPath, file_);
        EXPECT_EQ(Shown(pickid::Candidates), (Names{L"CN=A", L"CN=C", L"CN=B"}));
        Leave();
    });
}

TEST_F(PickerSources, AGroupsFileThatCannotBeReadAddsNothing) {
    Put(file_, "CN=B\r\n");
    PickRecipients({}, [this](CPreEncryptDlg&) {
        AddLocal({L"CN=A"});
        Check(pickid::Candidates, {0});
        for (const auto& [step, operation, journal] : ReadingSteps) {
            watched_.faults = {{step, Fault}};
            user_.ExpectFilePicker(FilePickerKind::Open, file_);
            ExpectReport(operation + file_, Fault);
            user_.Click(pickid::FromGroup);
            EXPECT_EQ(Shown(pickid::Candidates), Names{L"CN=A"});
            EXPECT_EQ(Checks(pickid::Candidates), std::vector{true});
        }
        EXPECT_EQ(LastPath(), file_);  // chosen, though not read
        Leave();
    });
}

TEST_F(PickerSources, GivingUpInAPickerChangesNothing) {
    PickRecipients({}, [this](CPreEncryptDlg&) {
        AddLocal({L"CN=A"});
        Check(pickid::Candidates, {0});
        OpenGroup(std::nullopt);
        SaveGroup(std::nullopt);
        EXPECT_EQ(Checks(pickid::Candidates), std::vector{true});
        EXPECT_EQ(LastPath(), L"");
        Leave();
    });
    EXPECT_EQ(TakeJournal(), Journal{});
}

TEST_F(PickerSources, TheStoresMakeThePickerForgetTheFile) {
    Put(file_, "CN=B\r\n");
    search_.foundNames = {L"CN=D"};
    PickRecipients({}, [this](CPreEncryptDlg&) {
        OpenGroup(file_);
        EXPECT_EQ(LastPath(), file_);
        AddLocal({L"CN=C"});
        EXPECT_EQ(LastPath(), L"");
        OpenGroup(file_);
        SearchLdap(0, L"*");
        EXPECT_EQ(LastPath(), L"");
        OpenGroup(file_);
        ExpectQuestion(L"Delete all list items?", ui::IdYes);
        user_.Click(pickid::DeleteAll);
        EXPECT_EQ(LastPath(), L"");
        Leave();
    });
}

TEST_F(PickerSources, TheCheckedRowsAreSavedAsTheyAreShown) {
    PickRecipients({}, [this](CPreEncryptDlg& picker) {
        AddLocal({L"CN=C", L"CN=A, B", L"CN=D", L"CN=B"});
        user_.ClickHeader(pickid::Candidates, 0);
        Check(pickid::Candidates, {0, 1, 3});
        SaveGroup(file_);
        EXPECT_EQ(notes_.owners.back(), &picker);
        EXPECT_EQ(Content(file_), "CN=A, B\r\nCN=B\r\nCN=D\r\n");
        EXPECT_EQ(notes_.pickers.back().initialPath, L"New group.grx");
        EXPECT_EQ(Checks(pickid::Candidates), (std::vector{true, true, false, true}));
        EXPECT_EQ(LastPath(), file_);
        Check(pickid::Candidates, {0, 3});
        SaveGroup(file_);  // over the older one
        EXPECT_EQ(notes_.pickers.back().initialPath, file_);
        EXPECT_EQ(Content(file_), "CN=B\r\n");
        Leave();
    });
}

TEST_F(PickerSources, OnlyShownRowsAreSaved) {
    PickRecipients({}, [this](CPreEncryptDlg&) {
        AddLocal({L"CN=Anna", L"CN=Boris", L"CN=Hanna"});
        user_.Type(pickid::Filter, L"ann");
        user_.Click(pickid::SelectAll);
        SaveGroup(file_);
        EXPECT_EQ(Content(file_), "CN=Anna\r\nCN=Hanna\r\n");
        Leave();
    });
}

TEST_F(PickerSources, SavingNeedsACheckedRow) {
    PickRecipients({}, [this](CPreEncryptDlg&) {
        AddLocal({L"CN=A"});
        ExpectHint(L"No users selected.");
        user_.Click(pickid::Save);
        Leave();
    });
    PickSigners(L"", {}, [this](CPreEncryptDlg&) {
        ExpectHint(L"No signers selected.");
        user_.Click(pickid::Save);
        Leave();
    });
    EXPECT_TRUE(notes_.pickers.empty());
    EXPECT_EQ(TakeJournal(), Journal{});
}

TEST_F(PickerSources, AFileThatCannotBeWrittenIsReported) {
    settings_.GroupFilesFolder = files_->Folder() + L"\\/";
    PickRecipients({}, [this](CPreEncryptDlg&) {
        AddLocal({L"CN=A"});
        Check(pickid::Candidates, {0});
        std::wstring proposal = Path(L"New group.grx");
        for (const auto& [step, operation, journal] : WritingSteps) {
            watched_.faults = {{step, Fault}};
            user_.ExpectFilePicker(FilePickerKind::Save, file_);
            ExpectReport(operation + file_, Fault);
            user_.Click(pickid::Save);
            EXPECT_EQ(notes_.pickers.back().initialPath, proposal);
            EXPECT_EQ(Checks(pickid::Candidates), std::vector{true});
            proposal = file_;
        }
        Leave();
    });
}

TEST_F(PickerSources, AGroupSavedOnceCanBeOpenedAgain) {
    PickRecipients({}, [this](CPreEncryptDlg&) {
        AddLocal({L"CN=A", L"CN=B"});
        user_.Click(pickid::SelectAll);
        SaveGroup(file_);
        Leave();
    });
    PickRecipients({}, [this](CPreEncryptDlg&) {
        OpenGroup(file_);
        EXPECT_EQ(Shown(pickid::Candidates), (Names{L"CN=A", L"CN=B"}));
        Leave();
    });
}

}  // namespace
}  // namespace tests
