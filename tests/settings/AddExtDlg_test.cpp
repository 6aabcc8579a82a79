#include "settings/ConfigPage.h"

#include "tests/support/Fixture.h"
#include "tests/support/Ids.h"

namespace tests {
namespace {

using settings::CAddExtDlg;

class AddExtDlgTest : public WorldTest {
  protected:
    int Run(const std::function<void()>& script) { return Show(dialog_, script); }
    CAddExtDlg dialog_{world_->Screen(), nullptr};
};

TEST_F(AddExtDlgTest, StartsEmptyAndInTheField) {
    const int result = Run([this] {
        EXPECT_EQ(user_.Text(extid::Asked), L"");
        EXPECT_EQ(dialog_.Focus(), &dialog_.Find(extid::Asked));
        user_.Type(extid::Asked, L"doc");
        user_.PressCloseBox();
    });
    EXPECT_EQ(result, ui::IdCancel);
    EXPECT_EQ(dialog_.Extension(), L"");
}

TEST_F(AddExtDlgTest, TrimsBlanksAndTurnsToLowerCase) {
    const std::vector<std::pair<std::wstring, std::wstring>> cases{
        {L"  P7S ", L"p7s"},
        {L"xml", L"xml"},
        {L"A B", L"a b"},
        {L"@[Z`{", L"@[z`{"},
        {L"\x00C4\x00D6\x00DF", L"\x00E4\x00F6\x00DF"},              // umlauts; sharp s has no capital
        {L"\x0410\x042F\x0401\x0407", L"\x0430\x044F\x0451\x0457"},  // Cyrillic
        {L"\x0391\x03A3\x039C", L"\x03B1\x03C3\x03BC"},              // Greek
        {L"\x0100\x017D", L"\x0101\x017E"},                          // Latin with marks
        {L"\x0178\x0386\x0531", L"\x00FF\x03AC\x0561"},              // their small letters are far away
    };
    for (const auto& [typed, extension] : cases) {
        Run([this, &typed = typed] {
            user_.Type(extid::Asked, typed);
            user_.Press(Key::Enter);
        });
        EXPECT_EQ(dialog_.Extension(), extension);
    }
}

TEST_F(AddExtDlgTest, NothingButBlanksDoesNothing) {
    Run([this] {
        user_.Click(ui::IdOk);
        user_.Type(extid::Asked, L"   ");
        user_.Click(ui::IdOk);
        EXPECT_FALSE(dialog_.HasEnded());
        EXPECT_EQ(user_.Text(extid::Asked), L"   ");
        user_.Press(Key::Escape);
    });
    EXPECT_EQ(dialog_.Extension(), L"");
}

}  // namespace
}  // namespace tests
