// What a user sees of opening a context in real windows, and what can be done in them while the library is at
// work and while the program says that it failed.
#include <windows.h>

#include <algorithm>

#include "certs/PreEncryptDlg.h"
#include "certs/SignerList.h"
#include "crypto/OpenCryptoContext.h"
#include "errors/MessageBoxes.h"
#include "tests/crypto/CryptoTest.h"
#include "tests/support/Ids.h"
#include "tests/support/win32/Input.h"
#include "tests/support/win32/Win32Robot.h"

namespace tests {
namespace {

class WaitingForLibrary : public CryptoTest {
  protected:
    WaitingForLibrary() {
        Seed("[HKEY_LOCAL_MACHINE\\SOFTWARE\\TALVERON\\morcelservice]\nLogPath = \"\"\n");
        settings_.NotUseLDAP = 0;
    }
    void Open() { crypto::OpenCryptoContext(services_, opener_, csProfile_, settings_); }
    void ExpectModalFailure(const std::wstring& operation, const std::wstring& question) {
        const std::wstring code = operation.starts_with(L"Conneting") ? L"0x20000010" : L"0x20000004";
        user_.ExpectOwnerless<errors::WarningBox>([this, operation](errors::WarningBox&) {
            EXPECT_TRUE(user_.Text(boxid::WarningText).starts_with(operation));
            EXPECT_FALSE(IsWindowEnabled(WindowOf(opener_)));
            user_.Click(ui::IdCancel);
        });
        user_.ExpectBox(L"It failed (" + code + L").\r\n" + question, boxes::OkOrCancel, ui::IdOk);
    }

    std::wstring csProfile_ = L"Office";
    crypto::PickerSettings settings_;
};

// Neither while the context is opened nor while it is closed.
TEST_F(WaitingForLibrary, ASecondClickOpensNoSecondContext) {
    certs::SignerList form(services_, nullptr, csProfile_, settings_, {});
    user_.Expect<certs::SignerList>([&](certs::SignerList&) {
        library_.OnCall([&form](const std::string&) {
            const HWND button = GetDlgItem(WindowOf(form), signersid::Add);
            const POINT at = input::CenterOf(button);
            PostMessageW(button, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(at.x, at.y));
            PostMessageW(button, WM_LBUTTONUP, 0, MAKELPARAM(at.x, at.y));
        });
        user_.Expect<certs::CPreEncryptDlg>([this](certs::CPreEncryptDlg&) { user_.Click(ui::IdCancel); });
        user_.Click(signersid::Add);
        library_.OnCall([](const std::string&) {});
        user_.Click(ui::IdCancel);
    });
    form.DoModal();
    EXPECT_EQ(library_.Calls().front(), "Initialize \"Office\" 0x80000040");
    EXPECT_EQ(library_.Calls().back(), "Uninitialize");
    EXPECT_EQ(std::ranges::count(library_.Calls(), library_.Calls().front()), 1);
}

TEST_F(WaitingForLibrary, TheBoxAboutTheNetworkStoreLetsNothingElseTakeInput) {
    library_.SetAnswer(demo::StandInCall::FindCert, failed);
    settings_.NotLoadCrl = 1;
    InDialog(
        [this] {
            Open();
            EXPECT_TRUE(IsWindowEnabled(WindowOf(opener_)));
            EXPECT_EQ(GetActiveWindow(), WindowOf(opener_));
        },
        [this] { ExpectModalFailure(L"Conneting to network store (LDAP)", L"Continue without LDAP?"); });
}

TEST_F(WaitingForLibrary, TheBoxAboutRevocationListsLetsNothingElseTakeInput) {
    library_.Serve({.CrlDiagnostic = "no list"});
    library_.SetErrorText(demo::StandInLibrary::CrlNotLoaded, "It failed.\r\n");
    settings_.NotUseLDAP = 1;
    settings_.CrlUpdatePeriod = 1;
    InDialog(
        [this] {
            Open();
            EXPECT_TRUE(IsWindowEnabled(WindowOf(opener_)));
            EXPECT_EQ(GetActiveWindow(), WindowOf(opener_));
        },
        [this] { ExpectModalFailure(L"Connetion to CRL distribution point", L"Continue without loading CRL?"); });
}

HWND WaitWindow() {
    return FindWindowW(L"#32770", errors::ProgramTitle);
}

bool IsPainted(HWND window) {
    return GetUpdateRect(window, nullptr, FALSE) == FALSE;
}

using AwaitDlgWindowTest = CryptoTest;

TEST_F(AwaitDlgWindowTest, IsPaintedWhileTheContextIsOpenedAndGoneAfterwards) {
    crypto::PickerSettings settings;
    settings.NotUseLDAP = 1;
    settings.NotLoadCrl = 1;
    bool looked = false;
    library_.OnCall([&](const std::string& call) {
        if (!call.starts_with("Initialize")) return;
        looked = true;
        const HWND wait = WaitWindow();
        ASSERT_NE(wait, nullptr);
        EXPECT_TRUE(IsWindowVisible(wait));
        EXPECT_TRUE(IsPainted(wait));
        const HWND text = GetWindow(wait, GW_CHILD);
        ASSERT_NE(text, nullptr);
        EXPECT_TRUE(IsPainted(text));
        EXPECT_EQ(GetWindow(text, GW_HWNDNEXT), nullptr);

        RECT own{};
        RECT parent{};
        GetWindowRect(wait, &own);
        GetWindowRect(GetWindow(wait, GW_OWNER), &parent);
        EXPECT_EQ(own.left, parent.left + (parent.right - parent.left) / 2 - (own.right - own.left) / 2);
        EXPECT_EQ(own.top, parent.top + (parent.bottom - parent.top) / 2 - (own.bottom - own.top) / 2);
    });
    InDialog([&] {
        const auto context = crypto::OpenCryptoContext(services_, opener_, L"Office", settings);
        EXPECT_TRUE(context);
        EXPECT_EQ(WaitWindow(), nullptr);
    });
    EXPECT_TRUE(looked);
}

}  // namespace
}  // namespace tests
