// Makes recorded registry calls again, straight on the system: not a line of the program around them.
#pragma once

#include "bench/RecordedSession.h"

namespace bench {

void ReplayDirectly(const RecordedSession& session);

}  // namespace bench
