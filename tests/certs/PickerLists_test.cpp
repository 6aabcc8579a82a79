// The two lists of the certificate picker: filtering, sorting, checking, choosing and removing.
#include "tests/certs/CertsTest.h"

namespace tests {
namespace {

using certs::CPreEncryptDlg;

class PickerLists : public CertsTest {
  protected:
    ui::SortArrow Arrow(int list) const { return user_.Get<ui::ListView>(list).Columns()[0].arrow; }
};

TEST_F(PickerLists, TheFilterShowsMatchingNamesAsTheUserTypes) {
    PickRecipients({L"CN=Z"}, [this](CPreEncryptDlg&) {
        AddLocal({L"CN=IVANOV", L"CN=Petrov", L"CN=Sidorov,O=Ivan"});
        Check(pickid::Candidates, {0});
        user_.Type(pickid::Filter, L"ivan");
        EXPECT_EQ(Shown(pickid::Candidates), (Names{L"CN=IVANOV", L"CN=Sidorov,O=Ivan"}));
        EXPECT_EQ(Checks(pickid::Candidates), (std::vector{false, false}));  // filled anew
        AddLocal({L"CN=Boris", L"CN=Ivanna"});
        EXPECT_EQ(Shown(pickid::Candidates), (Names{L"CN=IVANOV", L"CN=Sidorov,O=Ivan", L"CN=Ivanna"}));
        user_.Type(pickid::Filter, L"");
        EXPECT_EQ(user_.RowCount(pickid::Candidates), 5U);
        EXPECT_EQ(Shown(pickid::Chosen), Names{L"CN=Z"});
        Leave();
    });
}

TEST_F(PickerLists, SelectAllAndClearMeanTheRowsShown) {
    PickRecipients({}, [this](CPreEncryptDlg&) {
        AddLocal({L"CN=Anna", L"CN=Boris", L"CN=Hanna"});
        user_.Type(pickid::Filter, L"anna");
        user_.Click(pickid::SelectAll);
        EXPECT_EQ(Checks(pickid::Candidates), (std::vector{true, true}));
        user_.Click(pickid::Choose);
        EXPECT_EQ(Shown(pickid::Chosen), (Names{L"CN=Anna", L"CN=Hanna"}));
        user_.Click(pickid::Clear);
        EXPECT_EQ(Checks(pickid::Candidates), (std::vector{false, false}));
        Leave();
    });
}

TEST_F(PickerLists, RowsAreCheckedWithTheSpaceBarToo) {
    PickRecipients({}, [this](CPreEncryptDlg&) {
        AddLocal({L"CN=A", L"CN=B"});
        user_.ClickRow(pickid::Candidates, 1);
        user_.Press(Key::Space);
        EXPECT_EQ(Checks(pickid::Candidates), (std::vector{false, true}));
        user_.Press(Key::Up);
        user_.Press(Key::Space);
        EXPECT_EQ(Checks(pickid::Candidates), (std::vector{true, true}));
        user_.ClickCheckBox(pickid::Candidates, 1);
        EXPECT_EQ(Checks(pickid::Candidates), (std::vector{true, false}));
        Leave();
    });
}

TEST_F(PickerLists, DeleteAllEmptiesTheListAfterAQuestion) {
    PickRecipients({L"CN=Z"}, [this](CPreEncryptDlg& picker) {
        user_.Click(pickid::DeleteAll);  // nothing to delete, nothing to ask
        AddLocal({L"CN=A", L"CN=B"});
        user_.Type(pickid::Filter, L"x");
        user_.Click(pickid::DeleteAll);
        user_.Type(pickid::Filter, L"a");
        ExpectQuestion(L"Delete all list items?", ui::IdNo);
        user_.Click(pickid::DeleteAll);
        EXPECT_EQ(notes_.owners.back(), &picker);
        EXPECT_EQ(Shown(pickid::Candidates), Names{L"CN=A"});
        ExpectQuestion(L"Delete all list items?", ui::IdYes);
        user_.Click(pickid::DeleteAll);
        EXPECT_EQ(Shown(pickid::Candidates), Names{});
        user_.Type(pickid::Filter, L"");
        EXPECT_EQ(Shown(pickid::Candidates), Names{});  // those that were not shown are gone, too
        EXPECT_EQ(Shown(pickid::Chosen), Names{L"CN=Z"});
        AddLocal({L"CN=B"});
        EXPECT_EQ(Shown(pickid::Candidates), Names{L"CN=B"});
        Leave();
    });
}

TEST_F(PickerLists, TheHeaderSortsUpFirstAndThenInTurn) {
    PickRecipients({L"CN=2", L"CN=1"}, [this](CPreEncryptDlg&) {
        AddLocal({L"CN=C", L"CN=A", L"CN=b", L"CN=B"});
        EXPECT_EQ(Arrow(pickid::Candidates), ui::SortArrow::None);
        user_.ClickHeader(pickid::Candidates, 0);
        EXPECT_EQ(Shown(pickid::Candidates), (Names{L"CN=A", L"CN=B", L"CN=C", L"CN=b"}));
        EXPECT_EQ(Arrow(pickid::Candidates), ui::SortArrow::Up);
        EXPECT_EQ(Shown(pickid::Chosen), (Names{L"CN=2", L"CN=1"}));  // each list has its own direction
        EXPECT_EQ(Arrow(pickid::Chosen), ui::SortArrow::None);
        user_.ClickHeader(pickid::Candidates, 0);
        EXPECT_EQ(Shown(pickid::Candidates), (Names{L"CN=b", L"CN=C", L"CN=B", L"CN=A"}));
        EXPECT_EQ(Arrow(pickid::Candidates), ui::SortArrow::Down);
        user_.ClickHeader(pickid::Chosen, 0);
        EXPECT_EQ(Shown(pickid::Chosen), (Names{L"CN=1", L"CN=2"}));
        EXPECT_EQ(Arrow(pickid::Chosen), ui::SortArrow::Up);
        user_.ClickHeader(pickid::Candidates, 0);
        EXPECT_EQ(Arrow(pickid::Candidates), ui::SortArrow::Up);
        Leave();
    });
}

TEST_F(PickerLists, AnotherFieldSortsTheCandidatesInTheSameDirection) {
    PickRecipients({L"CN=2,O=1", L"CN=1,O=2"}, [this](CPreEncryptDlg&) {
        AddLocal({L"CN=A,O=2", L"CN=B", L"CN=C,O=1"});
        user_.Choose(pickid::SortField, 7);
        EXPECT_EQ(Shown(pickid::Candidates), (Names{L"CN=B", L"CN=C,O=1", L"CN=A,O=2"}));
        EXPECT_EQ(Arrow(pickid::Candidates), ui::SortArrow::None);
        user_.ClickHeader(pickid::Candidates, 0);
        EXPECT_EQ(Arrow(pickid::Candidates), ui::SortArrow::Up);
        user_.ClickHeader(pickid::Candidates, 0);
        EXPECT_EQ(Shown(pickid::Candidates), (Names{L"CN=A,O=2", L"CN=C,O=1", L"CN=B"}));
        user_.Choose(pickid::SortField, 0);
        EXPECT_EQ(Shown(pickid::Candidates), (Names{L"CN=C,O=1", L"CN=B", L"CN=A,O=2"}));
        EXPECT_EQ(Arrow(pickid::Candidates), ui::SortArrow::Down);
        EXPECT_EQ(Shown(pickid::Chosen), (Names{L"CN=2,O=1", L"CN=1,O=2"}));
        user_.Choose(pickid::SortField, 7);
        user_.ClickHeader(pickid::Chosen, 0);
        EXPECT_EQ(Shown(pickid::Chosen), (Names{L"CN=2,O=1", L"CN=1,O=2"}));
        Leave();
    });
}

TEST_F(PickerLists, ChecksAndSelectionGoWithTheirRows) {
    PickRecipients({}, [this](CPreEncryptDlg&) {
        AddLocal({L"CN=C", L"CN=A", L"CN=B"});
        Check(pickid::Candidates, {0, 2});
        user_.ClickRow(pickid::Candidates, 0);
        user_.ClickRow(pickid::Candidates, 1, Held::Control);
        user_.ClickHeader(pickid::Candidates, 0);
        EXPECT_EQ(Checks(pickid::Candidates), (std::vector{false, true, true}));
        const auto& list = user_.Get<ui::ListView>(pickid::Candidates);
        EXPECT_EQ(list.SelectedRows(), (std::vector<size_t>{0, 2}));
        EXPECT_EQ(list.FocusedRow(), 0U);
        user_.Click(pickid::Choose);
        EXPECT_EQ(Shown(pickid::Chosen), (Names{L"CN=B", L"CN=C"}));
        Leave();
    });
}

TEST_F(PickerLists, FillingGivesUpTheSortedOrder) {
    PickRecipients({}, [this](CPreEncryptDlg&) {
        AddLocal({L"CN=B", L"CN=A"});
        user_.ClickHeader(pickid::Candidates, 0);
        AddLocal({L"CN=0"});
        EXPECT_EQ(Shown(pickid::Candidates), (Names{L"CN=B", L"CN=A", L"CN=0"}));
        EXPECT_EQ(Arrow(pickid::Candidates), ui::SortArrow::Up);
        Leave();
    });
}

TEST_F(PickerLists, CheckedCandidatesAreChosenOnce) {
    PickRecipients({L"CN=B"}, [this](CPreEncryptDlg&) {
        AddLocal({L"CN=C", L"CN=B", L"CN=A", L"cn=b"});
        Check(pickid::Candidates, {0, 1, 3});
        user_.Click(pickid::Choose);
        EXPECT_EQ(Shown(pickid::Chosen), (Names{L"CN=B", L"CN=C", L"cn=b"}));
        EXPECT_EQ(Shown(pickid::Candidates), (Names{L"CN=C", L"CN=B", L"CN=A", L"cn=b"}));
        EXPECT_EQ(Checks(pickid::Candidates), (std::vector{true, true, false, true}));
        user_.Click(pickid::Choose);
        EXPECT_EQ(Shown(pickid::Chosen), (Names{L"CN=B", L"CN=C", L"cn=b"}));
        Leave();
    });
}

TEST_F(PickerLists, ChoosingFillsTheLowerListAnew) {
    PickRecipients({L"CN=B", L"CN=A"}, [this](CPreEncryptDlg&) {
        user_.ClickHeader(pickid::Chosen, 0);
        Check(pickid::Chosen, {0});
        user_.Click(pickid::Choose);  // nothing is checked above
        EXPECT_EQ(Shown(pickid::Chosen), (Names{L"CN=B", L"CN=A"}));
        EXPECT_EQ(Checks(pickid::Chosen), (std::vector{false, false}));
        Leave();
    });
}

TEST_F(PickerLists, CheckedRowsOfTheLowerListAreRemoved) {
    const auto result = PickRecipients({L"CN=C", L"CN=A", L"CN=D", L"CN=B"}, [this](CPreEncryptDlg&) {
        user_.Click(pickid::Remove);
        EXPECT_EQ(user_.RowCount(pickid::Chosen), 4U);
        user_.ClickHeader(pickid::Chosen, 0);
        Check(pickid::Chosen, {1, 3});
        user_.Click(pickid::Remove);
        EXPECT_EQ(Shown(pickid::Chosen), (Names{L"CN=A", L"CN=C"}));  // still in the order shown
        EXPECT_EQ(Checks(pickid::Chosen), (std::vector{false, false}));
        user_.Click(pickid::Choose);
        EXPECT_EQ(Shown(pickid::Chosen), (Names{L"CN=C", L"CN=A"}));
        user_.Click(ui::IdOk);
    });
    EXPECT_EQ(result, (Names{L"CN=C", L"CN=A"}));
}

TEST_F(PickerLists, EveryEqualNameIsRemoved) {
    const auto result = PickRecipients({L"CN=A", L"CN=B", L"CN=A"}, [this](CPreEncryptDlg&) {
        Check(pickid::Chosen, {0});
        user_.Click(pickid::Remove);
        EXPECT_EQ(Shown(pickid::Chosen), (Names{L"CN=B", L"CN=A"}));  // only the checked row goes at once
        user_.Click(pickid::Choose);
        EXPECT_EQ(Shown(pickid::Chosen), Names{L"CN=B"});
        user_.Click(ui::IdOk);
    });
    EXPECT_EQ(result, Names{L"CN=B"});
}

TEST_F(PickerLists, SignersOfOtherListsAreExcluded) {
    lists_ = {{L"chiefs", {L"CN=B", L"CN=X"}}, {L"own", {L"CN=A", L"CN=C"}}, {L"", {L"CN=D"}}};
    PickSigners(L"own", {L"CN=A", L"CN=B"}, [this](CPreEncryptDlg& picker) {
        AddLocal({L"CN=C", L"CN=D", L"CN=E"});
        user_.Click(pickid::SelectAll);
        user_.Expect<errors::WarningBox>([this, &picker](errors::WarningBox& box) {
            EXPECT_EQ(box.Parent(), &picker);
            EXPECT_EQ(box.Caption(), L"Warning:");
            EXPECT_EQ(box.Icon(), ui::Icon::Warning);
            EXPECT_EQ(user_.Text(boxid::WarningText),
                      L"Following signers are used in other lists and had been excluded:\r\n\r\n"
                      L"Signer\r\n\"CN=B\"\r\nis used in list\r\n\"chiefs\"\r\n\r\n"
                      L"Signer\r\n\"CN=D\"\r\nis used in list\r\n\"\"\r\n\r\n");
            user_.Press(Key::Enter);
        });
        user_.Click(pickid::Choose);
        EXPECT_EQ(Shown(pickid::Chosen), (Names{L"CN=A", L"CN=C", L"CN=E"}));
        Leave();
    });
}

// While a list has no name of its own yet, one without a name counts as the same.
TEST_F(PickerLists, ANewListExcludesTheSignersOfEveryNamedList) {
    lists_ = {{L"chiefs", {L"CN=B"}}, {L"", {L"CN=D"}}};
    PickSigners(L"", {}, [this](CPreEncryptDlg&) {
        AddLocal({L"CN=B", L"CN=D"});
        user_.Click(pickid::SelectAll);
        user_.Type(pickid::Name, L"chiefs");  // what is typed does not matter
        ExpectWarningBox(L"Warning:",
                         L"Following signers are used in other lists and had been excluded:\r\n\r\n"
                         L"Signer\r\n\"CN=B\"\r\nis used in list\r\n\"chiefs\"\r\n\r\n",
                         ui::Icon::Warning);
        user_.Click(pickid::Choose);
        EXPECT_EQ(Shown(pickid::Chosen), Names{L"CN=D"});
        Leave();
    });
}

TEST_F(PickerLists, AHundredThousandNamesAreNoBurden) {
    Names names;
    for (int i = 0; i < 100'000; ++i) names.push_back(L"CN=User " + std::to_wstring(i) + L",O=Office");
    const auto result = PickRecipients({}, [&](CPreEncryptDlg&) {
        AddLocal(names);
        user_.Click(pickid::SelectAll);
        user_.Click(pickid::Choose);
        EXPECT_EQ(user_.RowCount(pickid::Chosen), 100'000U);
        user_.ClickHeader(pickid::Chosen, 0);
        Check(pickid::Chosen, {1});
        user_.Click(pickid::Remove);
        EXPECT_EQ(user_.RowCount(pickid::Chosen), 99'999U);
        user_.Paste(pickid::Filter, L"USER 99999,");
        EXPECT_EQ(Shown(pickid::Candidates), Names{L"CN=User 99999,O=Office"});
        Leave();
    });
    EXPECT_EQ(result, std::nullopt);
}

}  // namespace
}  // namespace tests
