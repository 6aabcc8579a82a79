// The library's error stack, as a part of a report and as a text of its own.
#include <gtest/gtest.h>

#include <string>

#include "errors/ErrorReport.h"
#include "tests/errors/ReporterTest.h"

namespace {

using errors::ErrorStackText;

int here = 0;
int there = 0;
const platform::kseal::Context context = &here;
const platform::kseal::Context otherContext = &there;

class ErrorStack : public tests::ReporterTest {
  protected:
    ErrorStack() {
        library_.SetErrorText(0x20000010, "Search failed.\r\n");
        machine_.SystemMessages.SetSystemText(5, L"Access is denied.\r\n");
    }
    void AddTwo() {
        library_.AddError(context, {"no answer", "ldap.c", 112, "host=a"});
        library_.AddError(context, {"timeout", "sock.c", -7, ""});
    }
    size_t Waiting() const { return library_.WaitingErrors(context); }
};

TEST_F(ErrorStack, FollowsTheDescriptionOfALibraryCode) {
    AddTwo();
    EXPECT_EQ(Shown({.code = 0x20000010, .operation = L"Search %s", .argument = L"x", .context = context}),
              L"Search x.\r\nKSEAL error 0x20000010 - Search failed\r\n"
              L"no answer,\r\nfile: ldap.c, line 112, data: host=a.\r\n"
              L"timeout,\r\nfile: sock.c, line -7, data: .");
    EXPECT_EQ(Waiting(), 0U);
}

TEST_F(ErrorStack, FollowsTheDescriptionOfTheCodeZero) {
    library_.AddError(context, {"e", "f", 1, "d"});
    EXPECT_EQ(Description(0, context), L"Error description not found\r\ne,\r\nfile: f, line 1, data: d.");
}

TEST_F(ErrorStack, IsNotAskedForWithoutAContext) {
    library_.AddError(nullptr, {"e", "f", 1, "d"});
    AddTwo();
    EXPECT_EQ(Description(0x20000010), L"Search failed.");
    EXPECT_EQ(Waiting(), 2U);
    EXPECT_EQ(library_.WaitingErrors(nullptr), 1U);
}

TEST_F(ErrorStack, AddsNothingWhenItIsEmpty) {
    EXPECT_EQ(Description(0x20000010, context), L"Search failed.");
}

TEST_F(ErrorStack, DoesNotBelongToSystemCodesAndBadParameters) {
    AddTwo();
    EXPECT_EQ(Description(5, context), L"Access is denied.");
    EXPECT_EQ(Description(0xFFFFFFF9, context), L"Bad parameter.");
    EXPECT_EQ(Waiting(), 2U);
}

TEST_F(ErrorStack, PerCentSignsAndForeignLettersInItStay) {
    machine_.CodePage.Choose(platform::memory::AnsiCodePage::Cyrillic1251);
    library_.AddError(context, {"%s \xCA", "%d", 1, "100%"});
    library_.AddError(otherContext, {"%s \xCA", "%d", 1, "100%"});
    EXPECT_EQ(Description(0x20000010, context), L"Search failed\r\n%s \x041A,\r\nfile: %d, line 1, data: 100%.");
    EXPECT_EQ(ErrorStackText(machine_.Machine, otherContext),
              L"KSEAL stek, error number 1\r\nError: %s \x041A\r\nFile: %d\r\nData: 100%\r\n");
}

TEST_F(ErrorStack, AsATextNumbersItsEntriesAndLeavesTheLinesOut) {
    AddTwo();
    EXPECT_EQ(ErrorStackText(machine_.Machine, context),
              L"KSEAL stek, error number 1\r\nError: no answer\r\nFile: ldap.c\r\nData: host=a\r\n"
              L"KSEAL stek, error number 2\r\nError: timeout\r\nFile: sock.c\r\nData: \r\n");
    EXPECT_EQ(Waiting(), 0U);
}

TEST_F(ErrorStack, AsATextIsEmptyWithoutEntries) {
    library_.AddError(otherContext, {"e", "f", 1, "d"});
    EXPECT_EQ(ErrorStackText(machine_.Machine, context), L"");
    EXPECT_EQ(library_.WaitingErrors(otherContext), 1U);
}

}  // namespace
