#include "tests/app/AllForms.h"

#include <utility>

#include "app/AboutDlg.h"
#include "config/Operations.h"
#include "crypto/OpenCryptoContext.h"
#include "editors/AddProfile.h"
#include "editors/MaskList.h"
#include "errors/MessageBoxes.h"
#include "settings/ConfigPage.h"
#include "settings/ConflictDlg.h"
#include "ui/Choices.h"

namespace tests {
namespace {

constexpr int checkSignature = 6, execute = 23;  // places in the list of operations
constexpr int actionColumn = 8;

}  // namespace

void AllForms::Tour(Look look) {
    look_ = std::move(look);
    RunProgram([this] {
        look_(user_.Top(), {});
        VisitSettings();
        VisitProfileEditor();
        VisitWaitForm();
        VisitNewRule();
        user_.Expect<editors::CAddRule>([this](editors::CAddRule&) {
            VisitOperations();
            VisitRecipients();
            VisitSigners();
            user_.Click(ui::IdCancel);
        });
        user_.DoubleClickRow(id::Rules, 0);
        user_.PressCloseBox();
    });
}

void AllForms::VisitSettings() {
    Expect<settings::CConflictDlg>();
    user_.Click(id::LogPath);
    Expect<settings::CConfigPage>([this] {
        Expect<settings::CAddExtDlg>();
        user_.Click(extid::Add);
    });
    user_.ChooseMenu(command::Configurations);
    Expect<app::CAboutDlg>();
    user_.ChooseSystemMenu(command::About);
    Expect<errors::WarningBox>();
    user_.RightClickCell(id::Rules, 0, actionColumn);
}

void AllForms::VisitProfileEditor() {
    Expect<editors::CAddProfile>([this] {
        Expect<editors::CAddCSProfDlg>();
        user_.Click(profileid::Add);
    });
    user_.Click(id::AddProfile);
}

// It comes and goes by itself while the user waits.
void AllForms::VisitWaitForm() {
    crypto::AwaitDlg wait(screen_, user_.Top());
    wait.OpenModeless();
    look_(wait, {});
}

// A rule is given what it lacks, one thing after the other.
void AllForms::VisitNewRule() {
    Expect<editors::CAddRule>([this] {
        user_.Choose(ruleid::Operation, 0);
        for (const int folder : {ruleid::PathIn, ruleid::PathOut, ruleid::PathError}) {
            BeRefused();
            user_.Paste(folder, files_->Folder());
        }
        user_.Expect<editors::AddMask>([this](editors::AddMask& form) {
            look_(form, {});
            user_.Type(ruleid::MaskCombo, L"*.txt");
            user_.Click(ui::IdOk);
        });
        user_.Click(ruleid::AddMask);
        BeRefused();
        user_.Choose(ruleid::Operation, execute);
        user_.Paste(ruleid::ActionField, L"");
        BeRefused();
    });
    user_.Click(id::AddRule);
}

void AllForms::BeRefused() {
    Expect<errors::ErrBox>();
    user_.Click(ui::IdOk);
}

void AllForms::VisitOperations() {
    for (int operation = 0; operation < static_cast<int>(config::Operations().size()); ++operation) {
        user_.Choose(ruleid::Operation, operation);
        look_(user_.Top(), user_.Get<ui::ComboBox>(ruleid::Operation).SelectedItem());
    }
}

void AllForms::VisitRecipients() {
    user_.Choose(ruleid::Operation, 0);
    Expect<certs::CPreEncryptDlg>([this] {
        Expect<certs::CFilterDlg>();
        user_.Click(pickid::FromLdap);
    });
    user_.Click(ruleid::ActionButton);
}

void AllForms::VisitSigners() {
    user_.Choose(ruleid::Operation, checkSignature);
    Expect<certs::SignerList>([this] {
        Expect<certs::CPreEncryptDlg>();
        user_.Click(signersid::Add);
    });
    user_.Click(ruleid::ActionButton);
}

}  // namespace tests
