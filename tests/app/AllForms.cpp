#include "tests/app/AllForms.h"

#include <utility>

#include "app/AboutDlg.h"
#include "crypto/OpenCryptoContext.h"
#include "editors/AddCSProfDlg.h"
#include "editors/AddMask.h"
#include "editors/AddProfile.h"
#include "errors/MessageBoxes.h"
#include "settings/ConfigPage.h"
#include "settings/ConflictDlg.h"
#include "ui/Choices.h"

namespace tests {
namespace {

constexpr int operations = 24, checkSignature = 6, execute = 23;  // places in the list of operations
constexpr int operationList = 1042, addMask = 1124, maskField = 1095, actionColumn = 8;
constexpr int addProfile = 1031, logSettings = 1022, configurationsCommand = 32822, aboutCommand = 16;

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
        user_.DoubleClickRow(mainid::Rules, 0);
        user_.PressCloseBox();
    });
}

void AllForms::VisitSettings() {
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
    user_.RightClickCell(mainid::Rules, 0, actionColumn);
}

void AllForms::VisitProfileEditor() {
    Expect<editors::CAddProfile>([this] {
        Expect<editors::CAddCSProfDlg>();
        user_.Click(1098);
    });
    user_.Click(addProfile);
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
        user_.Choose(operationList, 0);
        for (const int folder : {1045, 1046, 1047}) {
            BeRefused();
            user_.Paste(folder, files_->Folder());
        }
        user_.Expect<editors::AddMask>([this](editors::AddMask& form) {
            look_(form, {});
            user_.Type(maskField, L"*.txt");
            user_.Click(ui::IdOk);
        });
        user_.Click(addMask);
        BeRefused();
        user_.Choose(operationList, execute);
        user_.Paste(actionField, L"");
        BeRefused();
    });
    user_.Click(mainid::AddRule);
}

void AllForms::BeRefused() {
    Expect<errors::ErrBox>();
    user_.Click(ui::IdOk);
}

void AllForms::VisitOperations() {
    for (int operation = 0; operation < operations; ++operation) {
        user_.Choose(operationList, operation);
        look_(user_.Top(), user_.Get<ui::ComboBox>(operationList).SelectedItem());
    }
}

void AllForms::VisitRecipients() {
    user_.Choose(operationList, 0);
    Expect<certs::CPreEncryptDlg>([this] {
        Expect<certs::CFilterDlg>();
        user_.Click(fromLdap);
    });
    user_.Click(actionButton);
}

void AllForms::VisitSigners() {
    user_.Choose(operationList, checkSignature);
    Expect<certs::SignerList>([this] {
        Expect<certs::CPreEncryptDlg>();
        user_.Click(signersid::Add);
    });
    user_.Click(actionButton);
}

}  // namespace tests
