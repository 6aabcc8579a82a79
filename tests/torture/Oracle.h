// What the program has to tell, worked out from the calls it made and their answers alone.
#pragma once

#include <span>
#include <string>
#include <vector>

#include "platform/Machine.h"
#include "tests/torture/Faults.h"
#include "tests/torture/Hand.h"

namespace tests::torture {

struct Prescribed {
    std::vector<Report> reports;
    bool loadingEnds = false;  // and the program with it
    bool savingEnds = false;   // before anything was written: the changes count as unsaved
    int pickers = 0;           // how often a context was opened and not given up again before the picker came
    // Something failed of which nobody is told, and which makes a difference all the same: a value that is
    // missing, a search that finds nothing, half a file.
    bool quietDifference = false;
    // Where descriptions could not be had either, what stands in their place is not looked at.
    bool descriptionsKnown = true;
};

// messages: describes the system's codes. goesOn: the user goes on without what failed.
Prescribed PrescribedFor(std::span<const Call> calls, const platform::SystemMessages& messages, bool goesOn);

// The same, without the descriptions of codes.
std::vector<Report> WithoutDescriptions(std::vector<Report> reports);

}  // namespace tests::torture
