// The way from the rule editor's form to the finished rule.
#pragma once

#include <string>
#include <vector>

#include "config/Records.h"
#include "editors/RuleForm.h"

namespace editors {

// The rule that a form without fault describes: switched on, and empty in every field that its operation does
// not use, whatever the form still holds.
config::Rule CommittedRule(const RuleForm& form, const std::vector<std::wstring>& storeProfiles);

}  // namespace editors
