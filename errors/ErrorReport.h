// The one way in which a failed operation is reported to the user: what was being done, the code, and its
// description.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "platform/Machine.h"
#include "ui/Screen.h"

namespace errors {

// The lowest bit shows a message box; any bit fills the out text.
enum class ReportMode : uint32_t { Silent = 0, Show = 1, Collect = 2, ShowAndCollect = 3 };

// Who asked for the operation: the dialog that owns its message boxes (or none), and what is to be seen of a
// failure.
struct ReportContext {
    const ui::Dialog* owner = nullptr;
    ReportMode mode = ReportMode::Show;
};

struct Failure {
    uint32_t code = 0;            // a code of the system, or of the library (bit 29 set, or 0)
    std::wstring_view operation;  // may hold one "%s", which the argument replaces
    std::wstring_view argument;
    // Where given, the library's error stack is added to the description of a library code.
    platform::kseal::Context context = nullptr;
};

class ErrorReporter {
  public:
    ErrorReporter(const platform::Machine& machine, ui::Screen& screen) : machine_(machine), screen_(screen) {}

    // Returns the failure's code. outText: its former content is shown after the report; afterwards it holds
    // the report alone.
    uint32_t ErrorReport(const ReportContext& context, const Failure& failure, std::wstring* outText = nullptr) const;

    // How many failures have been reported so far, the silent ones left out.
    size_t Count() const { return count_; }

    // What is known of a code, as reports show it after the code, for messages of another shape.
    std::wstring Description(uint32_t code) const;

  private:
    std::wstring Compose(const Failure& failure) const;
    std::wstring Describe(const Failure& failure) const;
    std::wstring DescribeLibraryCode(const Failure& failure) const;
    std::wstring DescribeSystemCode(uint32_t code) const;

    const platform::Machine& machine_;
    ui::Screen& screen_;
    mutable size_t count_ = 0;
};

// "KSEAL error 0x%X" for a code of the library, else "Error 0x%X".
std::wstring CodeText(uint32_t code);

// The library's error stack as a text of its own, numbered from 1; empty when the stack is. Takes the entries
// off.
std::wstring ErrorStackText(const platform::Machine& machine, platform::kseal::Context context);

}  // namespace errors
