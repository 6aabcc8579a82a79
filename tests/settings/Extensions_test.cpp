#include "settings/ConfigPage.h"

#include <gtest/gtest.h>

namespace tests {
namespace {

TEST(Extensions, AreTheSameWithoutRegardToCase) {
    const std::vector<std::wstring> held{L"XML", L"\x0436", L"tar gz"};
    EXPECT_TRUE(settings::HoldsExtension(held, L"xml"));
    EXPECT_TRUE(settings::HoldsExtension(held, L"XmL"));
    EXPECT_TRUE(settings::HoldsExtension(held, L"\x0416"));
    EXPECT_TRUE(settings::HoldsExtension(held, L"Tar GZ"));
    EXPECT_FALSE(settings::HoldsExtension(held, L"xm"));
    EXPECT_FALSE(settings::HoldsExtension(held, L"xmll"));
    EXPECT_FALSE(settings::HoldsExtension({}, L"xml"));
}

}  // namespace
}  // namespace tests
