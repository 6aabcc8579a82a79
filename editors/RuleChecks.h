// What has to be right before the rule editor accepts a form.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "editors/RuleForm.h"
#include "platform/Machine.h"

namespace editors {

enum class FormField { Operation, PathIn, PathOut, PathError, Masks, ActionButton, ActionPath };

// Why a form is not accepted, and how that is shown.
struct Refusal {
    enum class Shown { MessageBox, ErrorBox, Report, Silence };

    FormField field = FormField::Operation;  // the one to be put right
    Shown shown = Shown::MessageBox;
    std::wstring text{};
    ui::Icon icon = ui::Icon::None;  // of an error box: the picture on the button that sets the field
    uint32_t code = 0;               // of a report: the system's code
    std::wstring path{};             // of a report: what could not be found
    bool operator==(const Refusal&) const = default;
};

// The first check that the form fails; nothing when it passes them all. Asks the machine for a folder only
// when every check before has passed.
std::optional<Refusal> Validate(const RuleForm& form, platform::Files& files);

}  // namespace editors
