// The base of tests of reports: a machine whose texts are known, and a user who reads the boxes.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <string>

#include "demo/StandInLibrary.h"
#include "errors/ErrorReport.h"
#include "platform/memory/MemoryMachine.h"
#include "tests/support/ScriptedUser.h"
#include "ui/memory/MemoryScreen.h"

namespace tests {

class ReporterTest : public testing::Test {
  protected:
    ReporterTest() { machine_.CryptoLibrary.Install(demo::StandInLibrary::Exports()); }
    void TearDown() override {
        EXPECT_EQ(library_.OpenTexts(), 0U) << "a text of the library was not released";
        EXPECT_EQ(library_.WrongReleases(), 0U);
    }
    // What one report shows.
    std::wstring Shown(const errors::Failure& failure) {
        user_.boxes.clear();
        reporter_.ErrorReport({}, failure);
        if (user_.boxes.size() != 1) ADD_FAILURE() << user_.boxes.size() << " boxes instead of one";
        return user_.boxes.empty() ? std::wstring() : user_.boxes.front().text;
    }
    // The part behind operation and code.
    std::wstring Description(uint32_t code, platform::kseal::Context context = nullptr) {
        const std::wstring shown = Shown({.code = code, .operation = L"a", .argument = L"", .context = context});
        const std::wstring before = L"a.\r\n" + errors::CodeText(code) + L" - ";
        if (!shown.starts_with(before)) ADD_FAILURE() << "no description: " << testing::PrintToString(shown);
        return shown.substr(before.size());
    }

    demo::StandInLibrary library_;
    platform::memory::MemoryMachine machine_;
    ScriptedUser user_;
    ui::memory::MemoryScreen screen_{machine_.ScreenMetrics, user_};
    const errors::ErrorReporter reporter_{machine_.Machine, screen_};
};

}  // namespace tests
