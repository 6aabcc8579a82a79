#include "tests/app/CertificateJourney.h"

#include <algorithm>
#include <span>

#include "app/BrisgateApp.h"
#include "config/Operations.h"
#include "demo/FileContent.h"
#include "editors/MaskList.h"

namespace tests {
namespace {

constexpr char encryptingRule[] = R"(
[HKEY_LOCAL_MACHINE\SOFTWARE\TALVERON\morcelservice\Alpha\rules\Rule 0]
Operation = "ENCR"
Path In = "C:\In"
Path Out = "C:\Out"
Path Error = "C:\Error"
ZCSProfile = "Office"
Mask num = 1
M0 = "*.txt"
Ext num = 2
C0 = "CN=Anna Keller,O=Kontor,C=DE"
C1 = "CN=Boris Petrov,O=Bank,C=RU"
Is on = 1
)";

}  // namespace

CertificateJourney::CertificateJourney() {
    library_.Serve({.Certificates = {
                        {.OwnerName = "CN=Clara Weiss,O=Atelier,C=FR"},
                        {.OwnerName = "CN=Anna Keller,O=Kontor,C=DE"},
                        {.OwnerName = "CN=Boris Petrov,O=Bank,C=RU"},
                        {.OwnerName = "CN=Boris Petrov,O=Bank,C=RU", .SecondText = "renewed"},
                        {.InNetwork = true, .OwnerName = "CN=Ivan Orlov,O=Bank,C=RU"},
                        {.InNetwork = true, .OwnerName = "CN=Ivana Horvat,O=Jadran,C=HR"},
                        {.InNetwork = true, .OwnerName = "CN=Peter, CN=Ivan,O=Jadran,C=HR"},
                    }});
}

void CertificateJourney::SeedProfile(const std::string& settings) {
    Seed(
        "[HKEY_CURRENT_USER\\SOFTWARE\\TALVERON\\morcel\\Profiles\\1]\n"
        "ProfileName = \"Office\"\nBasePath = \"C:\\Keys\"\n"
        "[HKEY_LOCAL_MACHINE\\SOFTWARE\\TALVERON\\morcelservice\\Alpha\\rules]\n"
        "[HKEY_LOCAL_MACHINE\\SOFTWARE\\TALVERON\\morcelservice\\Alpha]\n"
        "ZCSProfile = { \"Office\" }\nNotUseLDAP = { \"0\" }\nCrlUpdatePeriod = { \"6\" }\n" +
        settings);
}

void CertificateJourney::SeedEncryptingRule(const std::string& settings) {
    SeedProfile(settings);
    Seed(encryptingRule);
}

void CertificateJourney::RunProgram(const Script& script) {
    user_.Expect<app::CBrisgateDlg>([&script](app::CBrisgateDlg&) { script(); });
    platform::memory::MemoryGuide guide;
    app::CBrisgateApp(program_, screen_, guide).InitInstance();
    EXPECT_EQ(library_.OpenContexts(), 0U);
}

void CertificateJourney::WithTheRule(const Script& script) {
    RunProgram([&] {
        user_.Expect<editors::CAddRule>([&](editors::CAddRule&) {
            script();
            user_.Click(ui::IdCancel);
        });
        user_.DoubleClickRow(id::Rules, 0);
        user_.PressCloseBox();
    });
}

void CertificateJourney::AddRule(const std::wstring& operation, const Script& script) {
    user_.Expect<editors::CAddRule>([&](editors::CAddRule&) {
        user_.Choose(ruleid::Operation, static_cast<int>(config::OperationIndex(operation).value()));
        for (const int folder : {ruleid::PathIn, ruleid::PathOut, ruleid::PathError})
            user_.Paste(folder, files_->Folder());
        user_.Expect<editors::AddMask>([this](editors::AddMask&) {
            user_.Type(ruleid::MaskCombo, L"*.txt");
            user_.Click(ui::IdOk);
        });
        user_.Click(ruleid::AddMask);
        script();
        user_.Click(ui::IdOk);
    });
    user_.Click(id::AddRule);
}

void CertificateJourney::EditFirstRule(const Script& script) {
    user_.Expect<editors::CAddRule>([&](editors::CAddRule&) {
        script();
        user_.Click(ui::IdOk);
    });
    user_.DoubleClickRow(id::Rules, 0);
}

void CertificateJourney::SaveAndLeave() {
    user_.Click(id::Save);
    user_.PressCloseBox();
}

void CertificateJourney::OpenPicker(const Script& script) {
    user_.Expect<certs::CPreEncryptDlg>([&script](certs::CPreEncryptDlg&) { script(); });
    user_.Click(ruleid::ActionButton);
}

void CertificateJourney::OpenSignerLists(const Script& script) {
    user_.Expect<certs::SignerList>([&script](certs::SignerList&) { script(); });
    user_.Click(ruleid::ActionButton);
}

void CertificateJourney::SearchLdap(int field, const std::wstring& sample) {
    user_.Expect<certs::CFilterDlg>([this, field, sample](certs::CFilterDlg&) {
        user_.Choose(pickid::FilterField, field);
        user_.Type(pickid::FilterSample, sample);
        user_.Click(ui::IdOk);
    });
    user_.Click(pickid::FromLdap);
}

void CertificateJourney::OpenGroup(const std::wstring& path) {
    user_.ExpectFilePicker(ui::FilePickerKind::Open, path);
    user_.Click(pickid::FromGroup);
}

void CertificateJourney::SaveGroup(const std::optional<std::wstring>& path) {
    user_.ExpectFilePicker(ui::FilePickerKind::Save, path);
    user_.Click(pickid::Save);
}

void CertificateJourney::Check(const Names& candidates) {
    const Names shown = Candidates();
    for (const std::wstring& name : candidates) {
        const auto place = std::find(shown.begin(), shown.end(), name);
        if (place == shown.end()) {
            ADD_FAILURE() << testing::PrintToString(name) << " is no candidate";
        } else {
            user_.ClickCheckBox(pickid::Candidates, static_cast<size_t>(place - shown.begin()));
        }
    }
}

void CertificateJourney::Choose(const Names& candidates) {
    user_.Click(pickid::Clear);
    Check(candidates);
    user_.Click(pickid::Choose);
}

void CertificateJourney::ExpectWarningBox(const std::wstring& text, ui::Icon icon, const std::wstring& caption) {
    user_.Expect<errors::WarningBox>([=, this](errors::WarningBox& box) {
        EXPECT_EQ(user_.Text(boxid::WarningText), text);
        EXPECT_EQ(box.Icon(), icon);
        EXPECT_EQ(box.Caption(), caption);
        user_.Click(ui::IdCancel);
    });
}

}  // namespace tests
