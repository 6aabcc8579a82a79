// What a report says and to whom, whatever failed.
#include "errors/ErrorReport.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>

#include "tests/errors/ReporterTest.h"
#include "ui/Dialog.h"

namespace {

using errors::CodeText;
using errors::ReportMode;
using ErrorReport = tests::ReporterTest;

const errors::Failure refusedWrite{
    .code = 5, .operation = L"Writing integer value '%s' into register", .argument = L"Is on"};
const wchar_t refusedWriteText[] = L"Writing integer value 'Is on' into register.\r\nError 0x5 - Access is denied.";

TEST(CodeTextOf, SystemAndLibraryCodes) {
    EXPECT_EQ(CodeText(0), L"Error 0x0");
    EXPECT_EQ(CodeText(5), L"Error 0x5");
    EXPECT_EQ(CodeText(0x3FA), L"Error 0x3FA");
    EXPECT_EQ(CodeText(0xDFFFFFFF), L"Error 0xDFFFFFFF");
    EXPECT_EQ(CodeText(0xFFFFFFFF), L"Error 0xFFFFFFFF");
    EXPECT_EQ(CodeText(0x20000000), L"KSEAL error 0x20000000");
    EXPECT_EQ(CodeText(0x20000005), L"KSEAL error 0x20000005");
    EXPECT_EQ(CodeText(0xABCDEF12), L"KSEAL error 0xABCDEF12");
    EXPECT_EQ(CodeText(0xFFFFFFF7), L"KSEAL error 0xFFFFFFF7");
    EXPECT_EQ(CodeText(0xFFFFFFFE), L"KSEAL error 0xFFFFFFFE");
}

TEST_F(ErrorReport, ShowsOperationCodeAndDescriptionInOneBox) {
    EXPECT_EQ(reporter_.ErrorReport({}, refusedWrite), 5U);
    const std::vector<tests::ScriptedUser::Box> expected{
        {refusedWriteText, L"ZEMA AC QLD Service - configuration", ui::box::Ok | ui::box::ErrorIcon}};
    EXPECT_EQ(user_.boxes, expected);
}

TEST_F(ErrorReport, PutsTheArgumentInPlaceOfTheConversion) {
    struct Case {
        const wchar_t* operation;
        const wchar_t* argument;
        const wchar_t* text;
    };
    const Case cases[] = {
        {L"Create (open) register key %s", L"HKEY_LOCAL_MACHINE\\SOFTWARE\\a",
         L"Create (open) register key HKEY_LOCAL_MACHINE\\SOFTWARE\\a"},
        {L"Search register key %s subkeys", L"X", L"Search register key X subkeys"},
        {L"Memory allocation", L"ExtExt", L"Memory allocation"},
        {L"Writing file %s", L"100%s %d%%", L"Writing file 100%s %d%%"},
        {L"Reading '%s'", L"", L"Reading ''"},
        {L"%s", L"Only this", L"Only this"},
        {L"", L"", L""},
    };
    for (const Case& c : cases)
        EXPECT_EQ(Shown({.code = 5, .operation = c.operation, .argument = c.argument}),
                  std::wstring(c.text) + L".\r\nError 0x5 - Access is denied.");
}

TEST_F(ErrorReport, TheModeDecidesWhatBecomesOfIt) {
    struct Case {
        ReportMode mode;
        size_t boxes;
        bool fillsOutText;
    };
    const Case cases[] = {{ReportMode::Silent, 0, false},        {ReportMode::Show, 1, true},
                          {ReportMode::Collect, 0, true},        {ReportMode::ShowAndCollect, 1, true},
                          {static_cast<ReportMode>(5), 1, true}, {static_cast<ReportMode>(4), 0, true}};
    for (const Case& c : cases) {
        user_.boxes.clear();
        std::wstring outText = L"before";
        EXPECT_EQ(reporter_.ErrorReport({.mode = c.mode}, refusedWrite, &outText), 5U);
        EXPECT_EQ(user_.boxes.size(), c.boxes) << static_cast<uint32_t>(c.mode);
        EXPECT_EQ(outText, c.fillsOutText ? refusedWriteText : L"before") << static_cast<uint32_t>(c.mode);
    }
}

TEST_F(ErrorReport, SilenceLeavesTheLibrarysErrorsWhereTheyAre) {
    int somewhere = 0;
    const platform::kseal::Context context = &somewhere;
    library_.AddError(context, {"e", "f", 1, "d"});
    EXPECT_EQ(reporter_.ErrorReport({.mode = ReportMode::Silent},
                                    {.code = 0x20000005, .operation = L"a", .argument = L"", .context = context}),
              0x20000005U);
    EXPECT_EQ(library_.WaitingErrors(context), 1U);
}

TEST_F(ErrorReport, FormerOutTextIsShownBehindTheReportAndThenReplaced) {
    std::wstring outText = L"\r\nEarlier.";
    reporter_.ErrorReport({}, refusedWrite, &outText);
    EXPECT_EQ(user_.boxes.at(0).text, std::wstring(refusedWriteText) + L"\r\nEarlier.");
    EXPECT_EQ(outText, refusedWriteText);
}

TEST_F(ErrorReport, BoxesBelongToTheDialogOnlyWhileItIsOpen) {
    ui::Dialog dialog(screen_, nullptr, {.size = {100, 50}});
    reporter_.ErrorReport({.owner = &dialog}, refusedWrite);
    EXPECT_EQ(screen_.LastOwner(), nullptr);
    dialog.OpenModeless();
    reporter_.ErrorReport({.owner = &dialog}, refusedWrite);
    EXPECT_EQ(screen_.LastOwner(), &dialog);
    reporter_.ErrorReport({}, refusedWrite);
    EXPECT_EQ(screen_.LastOwner(), nullptr);
}

TEST_F(ErrorReport, MinusNineToMinusOneAreBadParameters) {
    for (uint32_t code = 0xFFFFFFF7; code != 0; ++code) {
        machine_.SystemMessages.SetSystemText(code, L"never shown");
        library_.SetErrorText(code, "never shown");
        EXPECT_EQ(Description(code), L"Bad parameter.") << std::hex << code;
    }
    library_.SetErrorText(0xFFFFFFF6, "Minus ten");
    EXPECT_EQ(Description(0xFFFFFFF6), L"Minus ten.");
    EXPECT_EQ(Shown({.code = 0xFFFFFFFF, .operation = L"a", .argument = L""}),
              L"a.\r\nError 0xFFFFFFFF - Bad parameter.");
}

TEST_F(ErrorReport, SystemCodesAreDescribedByTheSystemThenByWininet) {
    platform::memory::MemorySystemMessages& messages = machine_.SystemMessages;
    messages.SetSystemText(100, L"From the system.\r\n");
    messages.SetInternetText(100, L"never shown");
    messages.SetInternetText(12007, L"The server name or address could not be resolved\r\n");
    library_.SetErrorText(100, "never shown");
    EXPECT_EQ(Description(100), L"From the system.");
    EXPECT_EQ(Description(12007), L"The server name or address could not be resolved.");
    EXPECT_EQ(Description(99999), L"Error description not found.");
    EXPECT_EQ(Description(0xDFFFFFFF), L"Error description not found.");
}

TEST_F(ErrorReport, LibraryCodesAreDescribedByTheLibraryAlone) {
    for (const uint32_t code : {0U, 0x20000005U, 0xA0000001U, 0xFFFFFFF6U}) {
        machine_.SystemMessages.SetSystemText(code, L"never shown");
        machine_.SystemMessages.SetInternetText(code, L"never shown");
        EXPECT_EQ(Description(code), L"Error description not found.") << std::hex << code;
        library_.SetErrorText(code, "No such certificate.\r\n");
        EXPECT_EQ(Description(code), L"No such certificate.") << std::hex << code;
    }
    EXPECT_EQ(Shown({.code = 0, .operation = L"Opening", .argument = L""}),
              L"Opening.\r\nError 0x0 - No such certificate.");
}

TEST_F(ErrorReport, LibraryTextsAreInTheAnsiCodePage) {
    machine_.CodePage.Choose(platform::memory::AnsiCodePage::Cyrillic1251);
    library_.SetErrorText(0x20000001, "\xCA\xEB\xFE\xF7");
    EXPECT_EQ(Description(0x20000001), L"\x041A\x043B\x044E\x0447.");
}

TEST_F(ErrorReport, EndsOfDescriptionsAreCutOff) {
    struct Case {
        const wchar_t* stored;
        const wchar_t* shown;
    };
    const Case cases[] = {
        {L"Access is denied.\r\n", L"Access is denied."},        {L"Access is denied", L"Access is denied."},
        {L"Access is denied...\n\r.\r\n", L"Access is denied."}, {L"First.\r\nSecond.\r\n", L"First.\r\nSecond."},
        {L"Blank at the end. ", L"Blank at the end. ."},         {L"...", L"."},
    };
    for (const Case& c : cases) {
        machine_.SystemMessages.SetSystemText(200, c.stored);
        EXPECT_EQ(Description(200), c.shown);
        const std::wstring stored = c.stored;
        library_.SetErrorText(0x20000002, std::string(stored.begin(), stored.end()));
        EXPECT_EQ(Description(0x20000002), c.shown);
    }
}

}  // namespace
