// The wait dialog as a window: painted before the program is blocked, gone afterwards.
#include <windows.h>

#include "crypto/OpenCryptoContext.h"
#include "errors/MessageBoxes.h"
#include "tests/crypto/CryptoTest.h"

namespace tests {
namespace {

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
