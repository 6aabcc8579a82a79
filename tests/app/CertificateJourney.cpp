#include "tests/app/CertificateJourney.h"

#include <algorithm>
#include <span>

#include "app/BrisgateApp.h"
#include "config/Operations.h"
#include "demo/FileContent.h"
#include "editors/AddMask.h"

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

void CertificateJourney::PutFile(const std::wstring& path, std::string_view content) {
    platform::FileHandle file = platform::FileHandle::None;
    uint32_t written = 0;
    ASSERT_EQ(files_->Files().Create(path, file), 0U);
    EXPECT_EQ(files_->Files().Write(file, std::as_bytes(std::span(content)), written), 0U);
    EXPECT_EQ(files_->Files().Close(file), 0U);
}

std::string CertificateJourney::Content(const std::wstring& path) {
    return demo::FileContent(files_->Files(), path);
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
        user_.DoubleClickRow(mainid::Rules, 0);
        user_.PressCloseBox();
    });
}

void CertificateJourney::AddRule(const std::wstring& operation, const Script& script) {
    user_.Expect<editors::CAddRule>([&](editors::CAddRule&) {
        user_.Choose(1042, static_cast<int>(config::OperationIndex(operation).value()));
        for (const int folder : {1045, 1046, 1047}) user_.Paste(folder, files_->Folder());
        user_.Expect<editors::AddMask>([this](editors::AddMask&) {
            user_.Type(1095, L"*.txt");
            user_.Click(ui::IdOk);
        });
        user_.Click(1124);
        script();
        user_.Click(ui::IdOk);
    });
    user_.Click(mainid::AddRule);
}

void CertificateJourney::EditFirstRule(const Script& script) {
    user_.Expect<editors::CAddRule>([&](editors::CAddRule&) {
        script();
        user_.Click(ui::IdOk);
    });
    user_.DoubleClickRow(mainid::Rules, 0);
}

void CertificateJourney::SaveAndLeave() {
    user_.Click(mainid::Save);
    user_.PressCloseBox();
}

void CertificateJourney::OpenPicker(const Script& script) {
    user_.Expect<certs::CPreEncryptDlg>([&script](certs::CPreEncryptDlg&) { script(); });
    user_.Click(actionButton);
}

void CertificateJourney::OpenSignerLists(const Script& script) {
    user_.Expect<certs::SignerList>([&script](certs::SignerList&) { script(); });
    user_.Click(actionButton);
}

void CertificateJourney::SearchLdap(int field, const std::wstring& sample) {
    user_.Expect<certs::CFilterDlg>([this, field, sample](certs::CFilterDlg&) {
        user_.Choose(1202, field);
        user_.Type(1204, sample);
        user_.Click(ui::IdOk);
    });
    user_.Click(fromLdap);
}

void CertificateJourney::OpenGroup(const std::wstring& path) {
    user_.ExpectFilePicker(ui::FilePickerKind::Open, path);
    user_.Click(fromGroup);
}

void CertificateJourney::SaveGroup(const std::optional<std::wstring>& path) {
    user_.ExpectFilePicker(ui::FilePickerKind::Save, path);
    user_.Click(save);
}

void CertificateJourney::Check(const Names& candidates) {
    const Names shown = Candidates();
    for (const std::wstring& name : candidates) {
        const auto place = std::find(shown.begin(), shown.end(), name);
        if (place == shown.end()) {
            ADD_FAILURE() << testing::PrintToString(name) << " is no candidate";
        } else {
            user_.ClickCheckBox(candidateList, static_cast<size_t>(place - shown.begin()));
        }
    }
}

void CertificateJourney::Choose(const Names& candidates) {
    user_.Click(clear);
    Check(candidates);
    user_.Click(choose);
}

void CertificateJourney::ExpectWarningBox(const std::wstring& text, ui::Icon icon,
                                          const std::wstring& caption) {
    user_.Expect<errors::WarningBox>([=, this](errors::WarningBox& box) {
        EXPECT_EQ(user_.Text(1160), text);
        EXPECT_EQ(box.Icon(), icon);
        EXPECT_EQ(box.Caption(), caption);
        user_.Click(ui::IdCancel);
    });
}

CertificateJourney::Names CertificateJourney::Shown(int list) const {
    Names names;
    for (size_t row = 0; row < user_.RowCount(list); ++row) names.push_back(user_.Row(list, row).at(0));
    return names;
}

}  // namespace tests
