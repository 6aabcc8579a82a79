// The buttons of the rule editor that fetch folders, files, recipients and signer lists, and its numbers.
#include <gtest/gtest.h>

#include "tests/editors/RuleEditor.h"

namespace tests {
namespace {

class RuleEditorActions : public RuleEditorTest {};

TEST_F(RuleEditorActions, EachFolderButtonFillsItsField) {
    const std::vector<std::pair<int, int>> buttons{{ruleid::PickPathIn, ruleid::PathIn},
                                                   {ruleid::PickPathOut, ruleid::PathOut},
                                                   {ruleid::PickPathError, ruleid::PathError}};
    for (const auto& [button, field] : buttons) {
        Edit(PlainRule(L"HASH"), [this, button = button, field = field](ui::Dialog& dialog) {
            user_.Type(ruleid::Description, L"typed");
            Seen expected = Look(dialog);
            user_.ExpectFolderPicker(std::nullopt);
            user_.Click(button);
            EXPECT_EQ(Look(dialog), expected);
            user_.ExpectFolderPicker(L"C:\\windows");
            user_.Click(button);
            expected[field] = L"C:\\windows";
            EXPECT_EQ(Look(dialog), expected);
            Leave();
        });
    }
}

TEST_F(RuleEditorActions, MovingPicksASecondFolder) {
    Edit(PlainRule(L"MOVE"), [this](ui::Dialog&) {
        user_.Type(ruleid::ActionField, L"C:\\typed");
        user_.ExpectFolderPicker(std::nullopt);
        user_.Click(ruleid::ActionButton);
        EXPECT_EQ(user_.Text(ruleid::ActionField), L"C:\\typed");
        user_.ExpectFolderPicker(L"C:\\windows");
        user_.Click(ruleid::ActionButton);
        EXPECT_EQ(user_.LastPickedFrom(), L"C:\\typed");
        EXPECT_EQ(user_.Text(ruleid::ActionField), L"C:\\windows");
        Leave();
    });
}

TEST_F(RuleEditorActions, TheExecutablesPickerStartsAtTheOneThatIsThere) {
    Edit(PlainRule(L"EXEC"), [this](ui::Dialog&) {
        const auto proposed = [this](const std::wstring& typed) {
            user_.Type(ruleid::ActionField, typed);
            user_.ExpectFilePicker(ui::FilePickerKind::Open, std::nullopt);
            user_.Click(ruleid::ActionButton);
            return user_.LastFilePicker().initialPath;
        };
        EXPECT_EQ(proposed(L"C:\\windows\\notepad.exe"), L"");
        files_.AddFile(L"C:\\windows\\notepad.exe", "");
        EXPECT_EQ(proposed(L"C:\\windows\\notepad.exe"), L"C:\\windows\\notepad.exe");
        EXPECT_EQ(proposed(L"C:\\windows\\notepad.exe /quiet"), L"");
        Leave();
    });
}

TEST_F(RuleEditorActions, ExecutingPicksAFile) {
    Edit(PlainRule(L"EXEC"), [this](ui::Dialog&) {
        user_.ExpectFilePicker(ui::FilePickerKind::Open, std::nullopt);
        user_.Click(ruleid::ActionButton);
        EXPECT_EQ(user_.Text(ruleid::ActionField), L"");
        const ui::FilePicker& picker = user_.LastFilePicker();
        EXPECT_EQ(picker.filterName, L"All files (*.*)");
        EXPECT_EQ(picker.filterPattern, L"*.*");
        EXPECT_TRUE(picker.furtherFilters.empty());
        EXPECT_EQ(picker.defaultExtension, L"*.*");
        EXPECT_EQ(picker.initialPath, L"");
        user_.ExpectFilePicker(ui::FilePickerKind::Open, L"C:\\windows\\notepad.exe");
        user_.Click(ruleid::ActionButton);
        EXPECT_EQ(user_.Text(ruleid::ActionField), L"C:\\windows\\notepad.exe");
        Leave();
    });
}

TEST_F(RuleEditorActions, FolderFieldsTakeADroppedFolder) {
    Edit(PlainRule(L"MOVE"), [this](ui::Dialog&) {
        for (const int field : {ruleid::PathIn, ruleid::PathOut, ruleid::PathError, ruleid::ActionField}) {
            user_.Drop(field, L"D:\\Exchange\\" + std::to_wstring(field));
            EXPECT_EQ(user_.Text(field), L"D:\\Exchange\\" + std::to_wstring(field));
        }
        Leave();
    });
    Edit(PlainRule(L"HASH"), [this](ui::Dialog& dialog) {
        const Seen before = Look(dialog);
        user_.Drop(ruleid::ActionField, L"D:\\Exchange");  // only shows a number here
        user_.Drop(ruleid::Description, L"D:\\Exchange");
        EXPECT_EQ(Look(dialog), before);
        Leave();
    });
}

TEST_F(RuleEditorActions, RecipientsAreChosenFromThoseThereAre) {
    for (const wchar_t* code : {L"ENCR", L"LENC", L"SGEN"}) {
        const auto rule = Edit(FullRule(code), [this](ui::Dialog& dialog) {
            certificates_.recipients.reset();
            user_.Click(ruleid::ActionButton);
            EXPECT_EQ(certificates_.OpenedFor().back(), "Bank");
            EXPECT_EQ(certificates_.lastOwner, &dialog);
            EXPECT_EQ(certificates_.givenRecipients, FullRule(L"ENCR").Certificates);
            EXPECT_EQ(user_.Text(ruleid::ActionField), L"3");
            certificates_.recipients = {L"CN=Anna"};
            user_.Click(ruleid::ActionButton);
            EXPECT_EQ(user_.Text(ruleid::ActionField), L"1");
            user_.Click(ui::IdOk);
        });
        ASSERT_TRUE(rule);
        EXPECT_EQ(rule->Certificates, std::vector<std::wstring>{L"CN=Anna"});
    }
}

TEST_F(RuleEditorActions, SignerListsAreEditedFromThoseThereAre) {
    const std::vector<config::SignerListEntry> changed{{L"all", {L"CN=Dora", L"CN=Egon"}}};
    for (const wchar_t* code : {L"CHCK", L"CHKX", L"DCHK", L"RESG", L"DCCX"}) {
        const auto rule = Edit(FullRule(code), [&](ui::Dialog& dialog) {
            certificates_.signerLists.reset();
            user_.Click(ruleid::ActionButton);
            EXPECT_EQ(certificates_.lastOwner, &dialog);
            EXPECT_EQ(certificates_.givenLists, FullRule(L"CHCK").SignerLists);
            EXPECT_EQ(user_.Text(ruleid::ActionField), L"2");
            certificates_.signerLists = changed;
            user_.Click(ruleid::ActionButton);
            EXPECT_EQ(certificates_.OpenedFor().back(), "Bank");
            EXPECT_EQ(user_.Text(ruleid::ActionField), L"1");
            user_.Click(ui::IdOk);
        });
        ASSERT_TRUE(rule);
        EXPECT_EQ(rule->SignerLists, changed);
    }
}

TEST_F(RuleEditorActions, NumbersTakeDigitsOnly) {
    const auto rule = Edit(PlainRule(L"PACK"), [this](ui::Dialog&) {
        user_.Type(ruleid::NumberA, L"-1x2");
        EXPECT_EQ(user_.Text(ruleid::NumberA), L"12");
        user_.Type(ruleid::NumberB, L"99999999999");
        EXPECT_EQ(user_.Text(ruleid::NumberB), L"2147483647");
        user_.Type(ruleid::NumberC, L"7");
        user_.Type(ruleid::NumberC, L"");
        EXPECT_EQ(user_.Text(ruleid::NumberC), L"0");
        user_.Type(ruleid::NumberC, L"\b57");
        EXPECT_EQ(user_.Text(ruleid::NumberC), L"57");
        user_.Click(ui::IdOk);
    });
    ASSERT_TRUE(rule);
    EXPECT_EQ(rule->ArchCount, 12);
    EXPECT_EQ(rule->ArchSize, 2147483647);
    EXPECT_EQ(rule->ArchTimeout, 57);
}

// What is longer could not be read back.
TEST_F(RuleEditorActions, TextsTakeNoMoreThanTheRegistryGivesBack) {
    const std::wstring pasted(600, L'x');
    const std::wstring longest(519, L'x');
    Edit(PlainRule(L"MOVE"), [&](ui::Dialog& dialog) {
        for (const int field : {ruleid::Description, ruleid::PathIn, ruleid::PathOut, ruleid::PathError,
                                ruleid::ActionField, ruleid::TextA, ruleid::TextB, ruleid::TextC, ruleid::TextD}) {
            user_.Paste(field, pasted);
            EXPECT_EQ(user_.Text(field), longest) << field;
        }
        user_.Drop(ruleid::PathIn, L"C:\\" + pasted);
        EXPECT_EQ(user_.Text(ruleid::PathIn), L"C:\\" + pasted);
        user_.Press(Key::Escape);
        EXPECT_TRUE(dialog.HasEnded());
    });
}

// No key and no clipboard brings a sign into such a field, but a window message can.
TEST_F(RuleEditorActions, ANegativeNumberBecomesZero) {
    Edit(PlainRule(L"EXEC"), [this](ui::Dialog&) {
        auto& number = user_.Get<ui::Edit>(ruleid::NumberA);
        number.SetText(L"-17");
        number.UserTyped(L"-17");
        EXPECT_EQ(user_.Text(ruleid::NumberA), L"0");
        Leave();
    });
}

TEST_F(RuleEditorActions, TypingANumberLeavesTheOtherFieldsAsTyped) {
    Edit(PlainRule(L"PACK"), [this](ui::Dialog&) {
        user_.Type(ruleid::TextD, L" name ");
        user_.Type(ruleid::PathIn, L"half a pa");
        user_.Type(ruleid::NumberB, L"123");
        EXPECT_EQ(user_.Text(ruleid::TextD), L" name ");
        EXPECT_EQ(user_.Text(ruleid::PathIn), L"half a pa");
        EXPECT_EQ(user_.Text(ruleid::NumberB), L"123");
        Leave();
    });
}

}  // namespace
}  // namespace tests
