// What holds for every form of the program: whatever can be used says what it is called, also to those who do
// not see it, and the Tab key goes through it in the order in which it is read.
#include <map>
#include <set>
#include <string>
#include <utility>

#include "app/AboutDlg.h"
#include "editors/AddCSProfDlg.h"
#include "editors/AddMask.h"
#include "editors/AddProfile.h"
#include "errors/ErrBox.h"
#include "settings/AddExtDlg.h"
#include "settings/ConfigPage.h"
#include "settings/ConflictDlg.h"
#include "tests/app/CertificateJourney.h"
#include "ui/Names.h"

namespace tests {
namespace {

constexpr int addProfile = 1031, logSettings = 1022, configurationsCommand = 32822, aboutCommand = 16;

class AllForms : public CertificateJourney {
  protected:
    using Size = std::pair<int, int>;  // in dialog units
    using Names = std::set<std::wstring>;
    // By captions; the names are those of controls that do not show theirs.
    using Forms = std::map<std::wstring, std::pair<Size, Names>>;

    AllForms() { SeedEncryptingRule(); }

    void Check(ui::Dialog& form) {
        ++seen_;
        for (const ui::Control* control : form.Controls()) {
            if (!control->TakesFocus() || !control->IsVisible()) continue;
            const std::wstring name = ui::SpokenName(form, *control);
            EXPECT_FALSE(name.empty())
                << testing::PrintToString(form.Caption()) << ", control " << control->Id();
            if (ui::NeedsNamePlate(form, *control)) forms_[form.Caption()].second.insert(name);
        }
        const ui::Size size = form.Style().size;
        forms_[form.Caption()].first = {size.width, size.height};
        CheckReadingOrder(form);
    }
    // Of two neighbours the second lies further down or further to the right, or they share a place.
    void CheckReadingOrder(const ui::Dialog& form) {
        const ui::Control* before = nullptr;
        for (const ui::Control* control : form.Controls()) {
            if (!control->TakesFocus() || !control->IsVisible()) continue;
            const bool follows = before == nullptr || control->Bounds().y > before->Bounds().y ||
                                 control->Bounds().x > before->Bounds().x;
            EXPECT_TRUE(follows) << testing::PrintToString(form.Caption()) << ", control " << control->Id();
            before = control;
        }
    }

    // Opens with the next gesture, is looked at, worked with and left.
    template <class Form>
    void Expect(const Script& script = [] {}) {
        user_.Expect<Form>([this, script](Form& form) {
            Check(form);
            script();
            user_.PressCloseBox();
        });
    }

    size_t seen_ = 0;
    Forms forms_;  // that were looked at
};

TEST_F(AllForms, OfTheMainWindow) {
    RunProgram([this] {
        Check(user_.Top());
        Expect<editors::CAddProfile>([this] {
            Expect<editors::CAddCSProfDlg>();
            user_.Click(1098);
        });
        user_.Click(addProfile);
        Expect<settings::CConflictDlg>();
        user_.Click(logSettings);
        Expect<settings::CConfigPage>([this] {
            Expect<settings::CAddExtDlg>();
            user_.Click(261);
        });
        user_.ChooseMenu(configurationsCommand);
        Expect<app::CAboutDlg>();
        user_.ChooseSystemMenu(aboutCommand);
        Expect<errors::WarningBox>();
        user_.RightClickCell(mainid::Rules, 0, 8);
        user_.PressCloseBox();
    });
    EXPECT_EQ(seen_, 8U);
    EXPECT_EQ(forms_,
              (Forms{{L"ZEMA AC QLD Service - configuration",
                      {{613, 193}, {L"Number of CS profiles", L"Opened profile", L"Profiles", L"Rules"}}},
                     {L"Add profile", {{394, 270}, {L"CS profiles", L"TSP server"}}},
                     {L"Add CS profile", {{200, 50}, {}}},
                     {L"Log path", {{264, 75}, {L"Log path"}}},
                     {L"Configurations", {{290, 204}, {}}},
                     {L"Add additional extension:", {{200, 50}, {}}},
                     {L"About programm...", {{299, 75}, {}}},
                     {L"Extra", {{320, 185}, {L"Extra"}}}}));
}

TEST_F(AllForms, OfTheRuleEditorInEachOfItsShapes) {
    WithTheRule([this] {
        for (int operation = 0; operation < 24; ++operation) {
            user_.Choose(1042, operation);
            Check(user_.Top());
        }
        Expect<editors::AddMask>();
        user_.Click(1124);
        Expect<errors::ErrBox>();
        user_.Type(1045, L"");
        user_.Click(ui::IdOk);
    });
    EXPECT_EQ(seen_, 26U);
    const Names namesInTheEditor{L"Operation", L"Input folder", L"Output folder", L"Error folder", L"Masks",
                                 // The field of the action button.
                                 L"Recipients", L"Signer lists", L"Second Output folder", L"Executable file",
                                 // The rows of further options.
                                 L"Delete extension:", L"Add extension:", L"Accounting format:",
                                 L"File count:", L"Archive size (KB.):", L"Archivation timeout (min.):",
                                 L"Execution timeout (min.):"};
    EXPECT_EQ(forms_, (Forms{{L"Edit rule", {{394, 224}, namesInTheEditor}},
                             {L"Mask", {{200, 50}, {L"Mask"}}},
                             {L"Error", {{220, 62}, {}}}}));
}

TEST_F(AllForms, OfRecipients) {
    WithTheRule([this] {
        Expect<certs::CPreEncryptDlg>([this] {
            Expect<certs::CFilterDlg>();
            user_.Click(fromLdap);
        });
        user_.Click(actionButton);
    });
    EXPECT_EQ(seen_, 2U);
    EXPECT_EQ(forms_, (Forms{{L"Add recipients", {{400, 290}, {L"Recipients", L"Subjects"}}},
                             {L"Filter", {{260, 100}, {}}}}));
}

TEST_F(AllForms, OfSigners) {
    WithTheRule([this] {
        user_.Choose(1042, 6);
        Expect<certs::SignerList>([this] {
            Expect<certs::CPreEncryptDlg>();
            user_.Click(signersid::Add);
        });
        user_.Click(actionButton);
    });
    EXPECT_EQ(seen_, 2U);
    EXPECT_EQ(forms_, (Forms{{L"Signer lists", {{290, 162}, {L"Signer lists"}}},
                             {L"Add list", {{400, 290}, {L"Signers", L"Subjects"}}}}));
}

TEST_F(AllForms, TheFieldOfTheActionButtonIsCalledWhatItHolds) {
    const auto name = [this] { return ui::SpokenName(user_.Top(), user_.Top().Find(actionField)); };
    WithTheRule([&] {
        EXPECT_EQ(name(), L"Recipients");
        user_.Choose(1042, 6);
        EXPECT_EQ(name(), L"Signer lists");
        user_.Choose(1042, 8);
        EXPECT_EQ(name(), L"Second Output folder");
        user_.Choose(1042, 23);
        EXPECT_EQ(name(), L"Executable file");
    });
}

}  // namespace
}  // namespace tests
