#include "tests/torture/Faults.h"

#include <array>
#include <utility>

namespace tests::torture {
namespace {

constexpr std::array<uint32_t, 4> keys{2, 5, 8, 14};
constexpr std::array<uint32_t, 2> closing{5, 6};
constexpr std::array<uint32_t, 4> enumerating{5, 8, 14, 234};
constexpr std::array<uint32_t, 5> reading{2, 5, 8, 13, 234};
constexpr std::array<uint32_t, 4> writing{5, 8, 14, 112};
constexpr std::array<uint32_t, 4> openingFile{2, 3, 5, 32};
constexpr std::array<uint32_t, 3> creatingFile{5, 32, 112};
constexpr std::array<uint32_t, 3> asking{5, 8, 32};
constexpr std::array<uint32_t, 4> readingFile{5, 8, 33, HalfOfIt};
constexpr std::array<uint32_t, 4> writingFile{5, 33, 112, HalfOfIt};
constexpr std::array<uint32_t, 2> closingFile{5, 112};
constexpr std::array<uint32_t, 2> noMemory{8, 14};
constexpr std::array<uint32_t, 4> finding{5, 126, 127, 193};
constexpr std::array<uint32_t, 2> library{14, LibraryFailed};
constexpr std::array<uint32_t, 3> controlling{14, LibraryFailed, LibraryFailedWithText};
constexpr std::array<uint32_t, 3> searching{0xE0700046, 14, LibraryFailed};
constexpr std::array<uint32_t, 1> describing{LibraryFailed};

}  // namespace

std::span<const uint32_t> CodesFor(Op op) {
    switch (op) {
        case Op::OpenKey:
        case Op::OpenSubkey:
        case Op::CreateKey:
        case Op::DeleteSubkey:
            return keys;
        case Op::CloseKey:
        case Op::FlushKey:
            return closing;
        case Op::EnumerateSubkey:
            return enumerating;
        case Op::QueryValue:
            return reading;
        case Op::SetValue:
            return writing;
        case Op::OpenFile:
        case Op::PathExists:
            return openingFile;
        case Op::CreateFile:
            return creatingFile;
        case Op::FileSize:
            return asking;
        case Op::ReadFile:
            return readingFile;
        case Op::WriteFile:
            return writingFile;
        case Op::CloseFile:
            return closingFile;
        case Op::AllocateBlock:
            return noMemory;
        case Op::FindLibrary:
            return finding;
        case Op::Control:
            return controlling;
        case Op::FindCert:
            return searching;
        case Op::Initialize:
        case Op::Uninitialize:
        case Op::FreeFindResult:
            return library;
        case Op::ErrorText:
        case Op::ErrorLine:
            break;
    }
    return describing;
}

void Faults::Arm(Plan plan) {
    plan_ = std::move(plan);
    armed_ = true;
}

uint32_t Faults::Ask(Op op, const std::wstring& target, bool deleting) {
    if (!armed_ || paused_) return 0;
    Call call{.op = op, .target = target, .deleting = deleting, .phase = phase_, .gesture = gesture_};
    if (plan_) call.injected = plan_(calls_.size(), call);
    calls_.push_back(std::move(call));
    return calls_.back().injected;
}

uint32_t Faults::Answered(uint32_t answer) {
    if (armed_ && !paused_) calls_.back().answer = answer;
    return answer;
}

}  // namespace tests::torture
