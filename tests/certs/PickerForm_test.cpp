// What the certificate picker looks like, and how it is sized.
#include "certs/NameFields.h"
#include "tests/certs/CertsTest.h"
#include "tests/support/Overlap.h"

namespace tests {
namespace {

using certs::CPreEncryptDlg;

class PickerForm : public CertsTest {
  protected:
    static void CheckPlaces(const ui::Dialog& dialog) {
        std::vector<const ui::Control*> shown;
        for (const ui::Control* control : dialog.Controls())
            if (control->IsVisible()) shown.push_back(control);
        for (const ui::Control* control : shown) {
            const ui::Rect& bounds = control->Bounds();
            EXPECT_GT(bounds.width, 0) << control->Id();
            EXPECT_GT(bounds.height, 0) << control->Id();
            EXPECT_LE(bounds.x + bounds.width, dialog.ClientSize().width) << control->Id();
            EXPECT_LE(bounds.y + bounds.height, dialog.ClientSize().height) << control->Id();
            for (const ui::Control* other : shown)
                EXPECT_FALSE(control != other && Overlap(bounds, other->Bounds()))
                    << control->Id() << " and " << other->Id();
        }
    }
};

TEST_F(PickerForm, ForRecipients) {
    PickRecipients({L"CN=B", L"", L"CN=A"}, [this](CPreEncryptDlg& picker) {
        EXPECT_EQ(picker.Icon(), ui::Icon::Recipients);
        EXPECT_EQ(
            user_.Get<ui::ListView>(pickid::Candidates).Columns(),
            (std::vector<ui::Column>{{L"Subjects", user_.Get<ui::ListView>(pickid::Candidates).Columns()[0].width}}));
        EXPECT_EQ(user_.Get<ui::ListView>(pickid::Chosen).Columns().at(0).header, L"Recipients");
        EXPECT_EQ(Shown(pickid::Candidates), Names{});
        EXPECT_EQ(Shown(pickid::Chosen), (Names{L"CN=B", L"CN=A"}));
        EXPECT_EQ(user_.Get<ui::ComboBox>(pickid::SortField).Items(), certs::OfferedFieldLabels());
        EXPECT_EQ(user_.Get<ui::ComboBox>(pickid::SortField).SelectedItem(), L"Common name (CN)");
        EXPECT_EQ(user_.Text(pickid::Filter), L"");
        EXPECT_EQ(user_.Get<ui::IconButton>(pickid::Choose).Icon(), ui::Icon::MoveDown);
        EXPECT_EQ(user_.Get<ui::IconButton>(pickid::Remove).Icon(), ui::Icon::MoveUp);
        Leave();
    });
    EXPECT_TRUE(search_.asked.empty());
}

TEST_F(PickerForm, ForANewSignerListAndForAnExistingOne) {
    for (const auto& [name, caption] :
         {std::pair{std::wstring(), L"Add list"}, std::pair{std::wstring(L"clerks"), L"Edit list"}}) {
        PickSigners(name, {L"CN=A"}, [&](CPreEncryptDlg& picker) {
            EXPECT_EQ(picker.Caption(), caption);
            EXPECT_EQ(picker.Icon(), ui::Icon::Signers);
            EXPECT_TRUE(user_.CanUse(pickid::Name));
            EXPECT_EQ(user_.Text(pickid::Name), name);
            EXPECT_EQ(user_.Get<ui::ListView>(pickid::Candidates).Columns().at(0).header, L"Subjects");
            EXPECT_EQ(user_.Get<ui::ListView>(pickid::Chosen).Columns().at(0).header, L"Signers");
            EXPECT_EQ(Shown(pickid::Chosen), Names{L"CN=A"});
            Leave();
        });
    }
}

TEST_F(PickerForm, LdapCanBeOutOfUse) {
    certs::CPreEncryptDlg picker(forms_, nullptr, search_, settings_, {});
    picker.SetLdapUsable(false);
    Run(picker, [this](CPreEncryptDlg&) {
        EXPECT_FALSE(user_.CanUse(pickid::FromLdap));
        EXPECT_TRUE(user_.CanUse(pickid::FromLocalStore));
        Leave();
    });
}

TEST_F(PickerForm, TabVisitsTheControlsInReadingOrder) {
    std::vector<int> order{pickid::SortField, pickid::Filter,   pickid::Candidates, pickid::FromLocalStore,
                           pickid::FromGroup, pickid::FromLdap, pickid::SelectAll,  pickid::Clear,
                           pickid::DeleteAll, pickid::Save,     pickid::Choose,     pickid::Remove,
                           pickid::Chosen,    ui::IdOk,         ui::IdCancel};
    PickRecipients({L"CN=A"}, [&](CPreEncryptDlg&) {
        EXPECT_EQ(user_.TabOrder(), order);
        user_.Press(Key::Escape);
    });
    order.insert(order.end() - 2, pickid::Name);
    PickSigners(L"", {L"CN=A"}, [&](CPreEncryptDlg&) {
        EXPECT_EQ(user_.TabOrder(), order);
        user_.PressCloseBox();
    });
}

// What comes first where nobody is chosen is a look into the store: Enter is enough.
TEST_F(PickerForm, BeginsAtTheLocalStoreWhileNobodyIsChosen) {
    search_.localNames = {L"CN=B"};
    for (const Names& nobody : {Names{}, Names{L""}}) {
        const auto script = [this](CPreEncryptDlg& picker) {
            EXPECT_EQ(picker.Focus(), &picker.Find(pickid::FromLocalStore));
            user_.Press(Key::Enter);
            EXPECT_EQ(Shown(pickid::Candidates), Names{L"CN=B"});
            Leave();
        };
        PickRecipients(nobody, script);
        PickSigners(L"", nobody, script);
    }
    const auto script = [this](CPreEncryptDlg& picker) {
        EXPECT_EQ(picker.Focus(), &picker.Find(pickid::SortField));
        Leave();
    };
    PickRecipients({L"CN=A"}, script);
    PickSigners(L"clerks", {L"CN=A"}, script);
}

TEST_F(PickerForm, TheArrowsKeepToTheMiddle) {
    PickRecipients({}, [this](CPreEncryptDlg& picker) {
        for (const ui::Size growth : {ui::Size{0, 0}, ui::Size{50, 0}, ui::Size{-40, 10}}) {
            if (growth != ui::Size{}) user_.Resize(growth);
            const ui::Rect left = picker.Find(pickid::Choose).Bounds();
            const ui::Rect right = picker.Find(pickid::Remove).Bounds();
            EXPECT_NEAR(left.x + right.x + right.width, picker.ClientSize().width, 2);
            EXPECT_EQ(left.y, right.y);
            EXPECT_LT(left.x + left.width, right.x);
        }
        Leave();
    });
}

TEST_F(PickerForm, NothingOverlapsNorLeavesTheWindowAtItsSmallest) {
    PickSigners(L"", {}, [this](CPreEncryptDlg& picker) {
        CheckPlaces(picker);
        user_.Resize({-2000, -2000});
        EXPECT_EQ(user_.OuterSize(), (ui::Size{540, 434}));
        CheckPlaces(picker);
        user_.Resize({300, 200});
        CheckPlaces(picker);
        Leave();
    });
}

TEST_F(PickerForm, ColumnsAreAsWideAsTheirListWithoutAScrollBar) {
    PickRecipients({L"CN=A"}, [this](CPreEncryptDlg& picker) {
        const int scrollBar = machine_.ScreenMetrics.VerticalScrollBarWidth(picker.Dpi());
        for (int round = 0; round < 3; ++round) {
            for (const int id : {pickid::Candidates, pickid::Chosen}) {
                const auto& list = user_.Get<ui::ListView>(id);
                EXPECT_EQ(list.Columns()[0].width, list.ClientWidth() - scrollBar);
            }
            user_.Resize({37, 11});
        }
        Leave();
    });
}

TEST_F(PickerForm, ADoubleClickShowsTheWholeNameInLines) {
    const Names chosen{L"CN=Egon,Email=e@x,C=RU"};
    PickRecipients(chosen, [this](CPreEncryptDlg& picker) {
        AddLocal({L"CN=A,O=B,C=RU", L"CN=A, B,o=C"});
        user_.ExpectBox(L"CN=A\nO=B\nC=RU", ui::box::Ok | ui::box::InformationIcon, ui::IdOk, L"Subject");
        user_.DoubleClickRow(pickid::Candidates, 0);
        EXPECT_EQ(notes_.owners.back(), &picker);
        user_.ExpectBox(L"CN=A, B\no=C", ui::box::Ok | ui::box::InformationIcon, ui::IdOk, L"Subject");
        user_.DoubleClickRow(pickid::Candidates, 1);
        user_.ExpectBox(L"CN=Egon\nEmail=e@x\nC=RU", ui::box::Ok | ui::box::InformationIcon, ui::IdOk, L"Recipient");
        user_.DoubleClickRow(pickid::Chosen, 0);
        for (const int list : {pickid::Candidates, pickid::Chosen})
            user_.Get<ui::ListView>(list).UserDoubleClicked({});  // beside the rows: no box
        Leave();
    });
    PickSigners(L"", chosen, [this](CPreEncryptDlg&) {
        user_.ExpectBox(L"CN=Egon\nEmail=e@x\nC=RU", ui::box::Ok | ui::box::InformationIcon, ui::IdOk, L"Signer");
        user_.DoubleClickRow(pickid::Chosen, 0);
        Leave();
    });
}

TEST_F(PickerForm, KeysSelectMarkAndShowNames) {
    PickRecipients({}, [this](CPreEncryptDlg&) {
        AddLocal({L"CN=A,C=RU", L"CN=B", L"CN=C"});
        const auto& list = user_.Get<ui::ListView>(pickid::Candidates);
        user_.ClickRow(pickid::Candidates, 0);
        user_.ExpectBox(L"CN=A\nC=RU", ui::box::Ok | ui::box::InformationIcon, ui::IdOk, L"Subject");
        user_.Press(Key::F10, Held::Shift);
        user_.Press(Key::A, Held::Control);
        user_.Press(Key::Space);
        EXPECT_EQ(list.Checks(), std::vector<bool>(3, true));
        user_.Press(Key::Space);
        EXPECT_EQ(list.Checks(), std::vector<bool>(3, false));
        user_.ClickRow(pickid::Candidates, 1);
        user_.Press(Key::Space);
        EXPECT_EQ(list.Checks(), (std::vector<bool>{false, true, false}));
        Leave();
    });
}

}  // namespace
}  // namespace tests
