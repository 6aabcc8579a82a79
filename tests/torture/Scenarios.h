// What a user does while calls fail.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "tests/torture/World.h"

namespace tests::torture {

enum class Kind {
    Load,     // all faults before the main window shows
    Save,     // faults while saving what has been changed
    Command,  // faults while a command runs
};

using Notes = std::vector<std::wstring>;

struct Scenario {
    const char* name;
    Kind kind;
    std::string trees;
    // Before the program starts: files, answers, what is done in dialogs. What is to be seen there is noted.
    std::function<void(World&, Notes& notes)> prepare;
    // In the main window, and nothing fails yet.
    std::function<void(Hand&)> before;
    std::function<void(Hand&)> work;
    // The work is one command: afterwards the configuration is as it was, or as it is to be.
    bool oneStep = false;
};

// For scenarios that need nothing before, or are one command.
inline void Nothing(World& /*world*/, Notes& /*notes*/) {}
inline constexpr bool OneStep = true;

// Those in which the machine is asked for much, and those in which the program mostly works by itself.
const std::vector<Scenario>& Scenarios();
const std::vector<Scenario>& InnerScenarios();

enum class Ending { Leave, SaveAgain };

struct Outcome {
    bool started = false;  // the main window was there
    std::vector<Call> calls;
    std::vector<Report> reports;
    std::vector<std::wstring> rows;  // of the main window's two lists, when the work was done
    Notes notes;                     // of the scenario
    bool unsaved = false;            // leaving asks; only known at the ending Leave
    std::string trees;               // after a save in which nothing fails, where there were unsaved changes
    std::string files;               // those that the scenario exchanges
    size_t memoryBoxes = 0;
    size_t pickers = 0;  // how many were opened
};

// As a test may be called: without blanks and commas.
inline std::string NameInTests(std::string name) {
    std::erase_if(name, [](char c) { return c == ' ' || c == ','; });
    return name;
}

struct Torment {
    Faults::Plan plan{};
    Ending ending = Ending::Leave;
    bool works = true;   // or only what comes before
    bool goesOn = true;  // when asked
    // Allocations of the program to be refused.
    size_t firstRefused = static_cast<size_t>(-1);
    size_t lastRefused = static_cast<size_t>(-1);
    size_t* allocations = nullptr;  // where wanted: how many there were
};

Outcome Play(const Scenario& scenario, const Torment& run);

}  // namespace tests::torture
