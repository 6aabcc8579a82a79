// What the program asks of the machine while it is tortured, call by call, and the plan by which calls fail.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <vector>

namespace tests::torture {

enum class Op {
    OpenKey,
    OpenSubkey,
    CreateKey,
    CloseKey,
    FlushKey,
    EnumerateSubkey,
    DeleteSubkey,
    QueryValue,
    SetValue,
    OpenFile,
    CreateFile,
    FileSize,
    ReadFile,
    WriteFile,
    CloseFile,
    PathExists,
    AllocateBlock,
    FindLibrary,
    Initialize,
    Uninitialize,
    Control,
    FindCert,
    FreeFindResult,
    ErrorText,
    ErrorLine,
};

// Not a code of any system: the call succeeds and moves half of the bytes.
inline constexpr uint32_t HalfOfIt = 0xFFFFFF00;
// A code of the library; where revocation lists are loaded, one that comes with a diagnostic text, too.
inline constexpr uint32_t LibraryFailed = 0x20000010;
inline constexpr uint32_t LibraryFailedWithText = 0x20000011;
inline constexpr char Diagnostic[] = "no list at all";
inline constexpr wchar_t WideDiagnostic[] = L"no list at all";

// What the program is doing when it calls.
enum class Phase { Loading, Working, Saving, Leaving };

struct Call {
    Op op{};
    std::wstring target{};  // the full path of a key, with the name of a value or subkey; of a file; a query
    bool deleting = false;  // a key that was opened in order to be deleted
    Phase phase = Phase::Loading;
    size_t gesture = 0;     // which of the user's gestures led to it
    uint32_t injected = 0;  // 0: the call was carried out
    uint32_t answer = 0;    // what the program was told
};

// The codes that matter for a call of this kind.
std::span<const uint32_t> CodesFor(Op op);

// Calls are noted, and fail, only while it is armed.
class Faults {
  public:
    // 0: the call is carried out.
    using Plan = std::function<uint32_t(size_t number, const Call& call)>;

    void Arm(Plan plan);
    void Disarm() { armed_ = false; }
    // Between the two, calls are not noted and do not fail.
    void Pause() { paused_ = true; }
    void Resume() { paused_ = false; }
    void Enter(Phase phase) { phase_ = phase; }
    void NextGesture() { ++gesture_; }

    // The code with which the call has to fail.
    uint32_t Ask(Op op, const std::wstring& target, bool deleting = false);
    // How the call that was asked for last ended. Returns the answer.
    uint32_t Answered(uint32_t answer);

    const std::vector<Call>& Calls() const { return calls_; }

  private:
    bool armed_ = false;
    bool paused_ = false;
    Plan plan_;
    Phase phase_ = Phase::Loading;
    size_t gesture_ = 0;
    std::vector<Call> calls_;
};

}  // namespace tests::torture
