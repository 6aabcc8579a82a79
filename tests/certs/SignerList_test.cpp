#include "certs/SignerList.h"

#include "demo/StandInLibrary.h"
#include "tests/certs/CertsTest.h"

namespace tests {
namespace {

using certs::CPreEncryptDlg;
using certs::SignerList;
using config::SignerListEntry;
using Lists = std::vector<SignerListEntry>;

class SignerListTest : public CertsTest {
  protected:
    SignerListTest() {
        world_->CryptoLibrary().Install(demo::StandInLibrary::Exports());
        settings_.NotLoadCrl = 1;
        Serve({"CN=Dora", "CN=Egon", "CN=Fritz"});
        lists_ = {{L"chiefs", {L"CN=Dora"}}, {L"", {L"CN=Nobody"}}, {L"clerks", {L"CN=Egon", L"CN=Fritz"}}};
    }
    // Nothing when the user gave up.
    std::optional<Lists> Edit(const std::function<void(SignerList&)>& script) {
        SignerList form(forms_, nullptr, L"Office", settings_, lists_);
        user_.Expect<SignerList>(script);
        const bool accepted = form.DoModal() == ui::IdOk;
        EXPECT_EQ(library_.OpenContexts(), 0U);
        return accepted ? std::optional(form.Lists()) : std::nullopt;
    }
    void ExpectPicker(const Script& script) { user_.Expect<CPreEncryptDlg>(script); }
    std::vector<Names> Rows() const {
        std::vector<Names> rows;
        for (size_t row = 0; row < user_.RowCount(signersid::List); ++row)
            rows.push_back(user_.Row(signersid::List, row));
        return rows;
    }

    // Only these have certificates.
    void Serve(const std::vector<std::string>& names) {
        demo::StandInOwners owners;
        for (const std::string& name : names) owners.Certificates.push_back({.OwnerName = name});
        library_.Serve(owners);
    }

    demo::StandInLibrary library_;
};

TEST_F(SignerListTest, ShowsTheListsThatHaveANameInTheirOrder) {
    EXPECT_EQ(Edit([this](SignerList& form) {
                  EXPECT_EQ(form.Icon(), ui::Icon::Signers);
                  EXPECT_EQ(Rows(), (std::vector<Names>{{L"chiefs", L"1"}, {L"clerks", L"2"}}));
                  EXPECT_EQ(user_.Get<ui::ListView>(signersid::List).Columns()[0].header, L"List name");
                  EXPECT_EQ(user_.Get<ui::ListView>(signersid::List).Columns()[1].header, L"Signers");
                  user_.Click(ui::IdOk);
              }),
              lists_);
}

TEST_F(SignerListTest, AddsAListThroughThePicker) {
    const auto result = Edit([this](SignerList& form) {
        ExpectPicker([this, &form](CPreEncryptDlg& picker) {
            EXPECT_EQ(library_.OpenContexts(), 1U);
            EXPECT_EQ(picker.Parent(), &form);
            EXPECT_EQ(picker.Caption(), L"Add list");
            EXPECT_EQ(user_.Text(pickid::Name), L"");
            EXPECT_EQ(Shown(pickid::Chosen), Names{});
            Serve({"CN=Hugo", "CN=Fritz", "CN=Dora"});
            user_.Click(pickid::FromLocalStore);
            Check(pickid::Candidates, {0, 1});
            ExpectWarningBox(L"Warning:",
                             L"Following signers are used in other lists and had been excluded:\r\n\r\n"
                             L"Signer\r\n\"CN=Fritz\"\r\nis used in list\r\n\"clerks\"\r\n\r\n",
                             ui::Icon::Warning);
            user_.Click(pickid::Choose);
            user_.Type(pickid::Name, L"chiefs");
            ExpectHint(L"List with this name already exists");
            user_.Click(ui::IdOk);
            user_.Type(pickid::Name, L"guests");
            user_.Click(ui::IdOk);
        });
        user_.Click(signersid::Add);
        EXPECT_EQ(Rows(), (std::vector<Names>{{L"chiefs", L"1"}, {L"clerks", L"2"}, {L"guests", L"1"}}));
        user_.Click(ui::IdOk);
    });
    Lists expected = lists_;
    expected.push_back({L"guests", {L"CN=Hugo"}});
    EXPECT_EQ(result, expected);
    EXPECT_EQ(library_.Calls().front(), "Initialize \"Office\" 0x80000045");
}

TEST_F(SignerListTest, EditsTheFirstSelectedList) {
    const auto result = Edit([this](SignerList&) {
        user_.ClickRow(signersid::List, 1);
        ExpectPicker([this](CPreEncryptDlg& picker) {
            EXPECT_EQ(picker.Caption(), L"Edit list");
            EXPECT_EQ(user_.Text(pickid::Name), L"clerks");
            EXPECT_EQ(Shown(pickid::Chosen), (Names{L"CN=Egon", L"CN=Fritz"}));
            Check(pickid::Chosen, {0});
            user_.Click(pickid::Remove);
            user_.Type(pickid::Name, L"staff");
            user_.Click(ui::IdOk);
        });
        user_.Click(signersid::Edit);
        EXPECT_EQ(Rows(), (std::vector<Names>{{L"chiefs", L"1"}, {L"staff", L"1"}}));
        user_.ClickRow(signersid::List, 1);
        user_.ClickRow(signersid::List, 0, Held::Control);
        ExpectPicker([this](CPreEncryptDlg&) {
            EXPECT_EQ(user_.Text(pickid::Name), L"chiefs");
            Leave();
        });
        user_.Click(signersid::Edit);
        user_.Click(ui::IdOk);
    });
    EXPECT_EQ(result, (Lists{lists_[0], lists_[1], {L"staff", {L"CN=Fritz"}}}));
}

TEST_F(SignerListTest, APickerThatWasLeftChangesNothing) {
    EXPECT_EQ(Edit([this](SignerList&) {
                  ExpectPicker([this](CPreEncryptDlg&) {
                      user_.Type(pickid::Name, L"guests");
                      user_.Press(Key::Escape);
                  });
                  user_.Click(signersid::Add);
                  user_.ClickRow(signersid::List, 0);
                  ExpectPicker([this](CPreEncryptDlg&) {
                      Check(pickid::Chosen, {0});
                      user_.Click(pickid::Remove);
                      Leave();
                  });
                  user_.Click(signersid::Edit);
                  EXPECT_EQ(Rows(), (std::vector<Names>{{L"chiefs", L"1"}, {L"clerks", L"2"}}));
                  user_.Click(ui::IdOk);
              }),
              lists_);
}

TEST_F(SignerListTest, WithoutAContextNothingHappens) {
    library_.SetAnswer(demo::StandInCall::Initialize, demo::StandInLibrary::NoOwners);
    const auto expectFailure = [this] {
        user_.Expect<errors::WarningBox>([this](errors::WarningBox&) { user_.Press(Key::Escape); });
    };
    EXPECT_EQ(Edit([&](SignerList&) {
                  expectFailure();
                  user_.Click(signersid::Add);
                  user_.ClickRow(signersid::List, 0);
                  expectFailure();
                  user_.Click(signersid::Edit);
                  user_.Click(ui::IdOk);
              }),
              lists_);
}

TEST_F(SignerListTest, ThePickerKnowsWhetherLdapCanBeUsed) {
    for (const bool usable : {true, false}) {
        settings_.NotUseLDAP = usable ? 0 : 1;
        Edit([this, usable](SignerList&) {
            ExpectPicker([this, usable](CPreEncryptDlg&) {
                EXPECT_EQ(user_.CanUse(pickid::FromLdap), usable);
                Leave();
            });
            user_.Click(signersid::Add);
            Leave();
        });
    }
}

TEST_F(SignerListTest, EditAndDeleteNeedASelectedRow) {
    EXPECT_EQ(Edit([this](SignerList&) {
                  user_.Click(signersid::Edit);
                  user_.Click(signersid::Delete);
                  user_.Click(ui::IdOk);
              }),
              lists_);
    EXPECT_TRUE(library_.Calls().empty());
}

TEST_F(SignerListTest, DeletesTheSelectedListsAfterAQuestion) {
    lists_.push_back({L"guests", {}});
    lists_.push_back({L"clerks", {L"CN=Hugo"}});  // edited by hand: the name twice
    const auto result = Edit([this](SignerList& form) {
        user_.ClickRow(signersid::List, 1);
        user_.ClickRow(signersid::List, 2, Held::Shift);
        ExpectQuestion(L"Delete 2 list(s)?", ui::IdNo);
        user_.Click(signersid::Delete);
        EXPECT_EQ(notes_.owners.back(), &form);
        EXPECT_EQ(user_.RowCount(signersid::List), 4U);
        ExpectQuestion(L"Delete 2 list(s)?", ui::IdYes);
        user_.Click(signersid::Delete);
        EXPECT_EQ(Rows(), (std::vector<Names>{{L"chiefs", L"1"}}));
        user_.Click(ui::IdOk);
    });
    EXPECT_EQ(result, (Lists{lists_[0], lists_[1]}));
}

TEST_F(SignerListTest, KeysAddEditDeleteAndShowOne) {
    Edit([this](SignerList&) {
        const auto expectPicker = [this](const wchar_t* caption) {
            ExpectPicker([this, caption](CPreEncryptDlg& picker) {
                EXPECT_EQ(picker.Caption(), caption);
                Leave();
            });
        };
        user_.ClickRow(signersid::List, 1);
        expectPicker(L"Add list");
        user_.Press(Key::Insert);
        expectPicker(L"Edit list");
        user_.Press(Key::F2);
        ExpectQuestion(L"Delete 1 list(s)?", ui::IdNo);
        user_.Press(Key::Delete);
        std::wstring byMouse;
        std::wstring byKey;
        for (std::wstring* text : {&byMouse, &byKey}) {
            user_.Expect<errors::WarningBox>([this, text](errors::WarningBox&) {
                *text = user_.Text(boxid::WarningText);
                user_.Press(Key::Escape);
            });
            text == &byMouse ? user_.DoubleClickRow(signersid::List, 1) : user_.Press(Key::Menu);
        }
        EXPECT_NE(byKey, L"");
        EXPECT_EQ(byKey, byMouse);
        user_.Click(ui::IdCancel);
    });
}

TEST_F(SignerListTest, ExitDiscardsEveryChange) {
    const Lists before = lists_;
    EXPECT_EQ(Edit([&](SignerList& form) {
                  ExpectPicker([this](CPreEncryptDlg&) {
                      Serve({"CN=Hugo", "CN=Egon", "CN=Fritz"});
                      user_.Click(pickid::FromLocalStore);
                      Check(pickid::Candidates, {0});
                      user_.Click(pickid::Choose);
                      user_.Type(pickid::Name, L"guests");
                      user_.Click(ui::IdOk);
                  });
                  user_.Click(signersid::Add);
                  user_.ClickRow(signersid::List, 1);
                  ExpectPicker([this](CPreEncryptDlg&) {
                      user_.Type(pickid::Name, L"staff");
                      user_.Click(ui::IdOk);
                  });
                  user_.Click(signersid::Edit);
                  user_.ClickRow(signersid::List, 0);
                  ExpectQuestion(L"Delete 1 list(s)?", ui::IdYes);
                  user_.Click(signersid::Delete);
                  EXPECT_EQ(form.Lists(), (Lists{before[1], {L"staff", before[2].Signers}, {L"guests", {L"CN=Hugo"}}}));
                  Leave();
              }),
              std::nullopt);
    EXPECT_EQ(lists_, before);
}

TEST_F(SignerListTest, ADoubleClickShowsTheMembers) {
    lists_.push_back({L"empty", {}});
    Edit([this](SignerList&) {
        ExpectWarningBox(L"Signer list", L"List name: clerks\r\n\r\nSigner 1:\r\nCN=Egon\r\n\r\nSigner 2:\r\nCN=Fritz",
                         ui::Icon::Information);
        user_.DoubleClickRow(signersid::List, 1);
        ExpectWarningBox(L"Signer list", L"List name: empty", ui::Icon::Information);
        user_.DoubleClickRow(signersid::List, 2);
        user_.Get<ui::ListView>(signersid::List).UserDoubleClicked({});  // beside the rows: no box
        Leave();
    });
}

TEST_F(SignerListTest, ColumnsShareTheWidthOfTheList) {
    Edit([this](SignerList& form) {
        const int scrollBar = machine_.ScreenMetrics.VerticalScrollBarWidth(form.Dpi());
        for (int round = 0; round < 2; ++round) {
            const auto& list = user_.Get<ui::ListView>(signersid::List);
            for (const ui::Column& column : list.Columns())
                EXPECT_EQ(column.width, (list.ClientWidth() - scrollBar) / 2);
            user_.Resize({61, 20});
        }
        Leave();
    });
}

TEST_F(SignerListTest, HasASmallestSize) {
    Edit([this](SignerList&) {
        user_.Resize({-2000, -2000});
        EXPECT_EQ(user_.OuterSize(), (ui::Size{150, 75}));
        Leave();
    });
}

TEST_F(SignerListTest, TabVisitsTheListAndTheButtons) {
    Edit([this](SignerList&) {
        EXPECT_EQ(user_.TabOrder(), (std::vector<int>{signersid::List, signersid::Add, signersid::Edit,
                                                      signersid::Delete, ui::IdOk, ui::IdCancel}));
        user_.Press(Key::Escape);
    });
}

}  // namespace
}  // namespace tests
