// The message boxes that scenarios meet time and again: their buttons and icons, and the question on leaving.
#pragma once

#include <cstdint>

#include "ui/Screen.h"

namespace tests::boxes {

inline constexpr uint32_t Question = ui::box::YesNo | ui::box::QuestionIcon | ui::box::SecondIsDefault;
inline constexpr uint32_t Risk = ui::box::YesNo | ui::box::ExclamationIcon | ui::box::SecondIsDefault;
inline constexpr uint32_t Hint = ui::box::Ok | ui::box::ExclamationIcon;
inline constexpr uint32_t Report = ui::box::Ok | ui::box::ErrorIcon;
inline constexpr uint32_t OkOrCancel = 0x31;  // with the exclamation mark; as the library's callers pass it

inline constexpr wchar_t Title[] = L"ZEMA AC QLD Service - configuration";
inline constexpr wchar_t LeaveText[] = L"Some changes has not been saved. Exit without saving?";

}  // namespace tests::boxes
