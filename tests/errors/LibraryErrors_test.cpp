// What is asked of the library after a failure, and how little it can be trusted to answer well.
#include "errors/LibraryErrors.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "demo/StandInLibrary.h"
#include "platform/memory/MemoryCryptoLibrary.h"

namespace {

using errors::LibraryErrorEntry;
using errors::LibraryErrorText;
using errors::TakeLibraryErrors;
using Entries = std::vector<LibraryErrorEntry>;

class LibraryErrorsTest : public testing::Test {
  protected:
    LibraryErrorsTest() { library_.Install(exports_); }

    demo::StandInLibrary standIn_;
    platform::kseal::Exports exports_ = demo::StandInLibrary::Exports();
    platform::memory::MemoryCryptoLibrary library_;
};

TEST_F(LibraryErrorsTest, WithoutALibraryThereAreNeither) {
    library_.Remove();
    standIn_.SetErrorText(5, "never shown");
    standIn_.AddError(nullptr, {"never", "shown", 1, ""});
    EXPECT_EQ(LibraryErrorText(library_, 5), "");
    EXPECT_TRUE(TakeLibraryErrors(library_, nullptr).empty());
    EXPECT_EQ(standIn_.WaitingErrors(nullptr), 1U);
}

TEST_F(LibraryErrorsTest, TextsEndAtTheirEndOrAtThatOfTheBuffer) {
    standIn_.SetErrorText(1, std::string("short\0hidden", 12));
    standIn_.SetErrorText(2, std::string(1023, 'a'));
    standIn_.SetErrorText(3, std::string(5000, 'b'));
    EXPECT_EQ(LibraryErrorText(library_, 1), "short");
    EXPECT_EQ(LibraryErrorText(library_, 2), std::string(1023, 'a'));
    EXPECT_EQ(LibraryErrorText(library_, 3), std::string(1024, 'b'));
    EXPECT_EQ(LibraryErrorText(library_, 4), "");
}

TEST_F(LibraryErrorsTest, TheBufferIsEmptyAndTheAnswerOfNoInterest) {
    static bool empty = false;
    exports_.GetErrorText = [](uint32_t, char* buffer, uint32_t size) {
        empty = size == 1024 && std::count(buffer, buffer + size, '\0') == size;
        buffer[0] = 'x';
        return 0xFFFFFFFFU;
    };
    library_.Install(exports_);
    EXPECT_EQ(LibraryErrorText(library_, 1), "x");
    EXPECT_TRUE(empty);
}

TEST_F(LibraryErrorsTest, EntriesAreTakenInTheirOrderAndTheirTextsReleased) {
    const Entries entries{{"no answer", "ldap.c", 112, "host=a"}, {"", "", -7, ""}};
    for (const LibraryErrorEntry& entry : entries) standIn_.AddError(&library_, entry);
    EXPECT_EQ(TakeLibraryErrors(library_, &library_), entries);
    EXPECT_TRUE(TakeLibraryErrors(library_, &library_).empty());
    EXPECT_EQ(standIn_.OpenTexts(), 0U);
    EXPECT_EQ(standIn_.WrongReleases(), 0U);
}

TEST_F(LibraryErrorsTest, AStackWithoutAnEndIsCutOff) {
    static size_t asked = 0;
    exports_.GetErrorLineEx = [](platform::kseal::Context, char**, char**, int32_t* line, char**) {
        *line = static_cast<int32_t>(++asked);
        return uint32_t{0};
    };
    library_.Install(exports_);
    const Entries taken = TakeLibraryErrors(library_, nullptr);
    EXPECT_EQ(taken.size(), errors::MostLibraryErrors);
    EXPECT_EQ(asked, errors::MostLibraryErrors);
    EXPECT_EQ(taken.back().line, static_cast<int32_t>(errors::MostLibraryErrors));
}

TEST_F(LibraryErrorsTest, WhatComesWithoutAnEntryIsNotTheEditors) {
    exports_.GetErrorLineEx = [](platform::kseal::Context, char** text, char** file, int32_t*, char** data) {
        static char garbage = 'x';
        *text = *file = *data = &garbage;
        return uint32_t{1};
    };
    library_.Install(exports_);
    EXPECT_TRUE(TakeLibraryErrors(library_, nullptr).empty());
    EXPECT_EQ(standIn_.WrongReleases(), 0U);
}

}  // namespace
