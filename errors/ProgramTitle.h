// The program's title: the caption of its windows and message boxes and the name of its single-instance lock.
#pragma once

namespace errors {

inline constexpr wchar_t ProgramTitle[] = L"ZEMA AC QLD Service - configuration";

}  // namespace errors
