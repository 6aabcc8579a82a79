#include <algorithm>
#include <string_view>

#include "demo/StandInLibrary.h"
#include "tests/torture/FaultyParts.h"
#include "tests/torture/ShortMemory.h"

namespace tests::torture {
namespace {

namespace kseal = platform::kseal;
using kseal::Code;
using kseal::Context;

Faults* theFaults = nullptr;  // of the one library that there is

const kseal::Exports& Real() {
    return demo::StandInLibrary::Exports();
}

Code Initialize(const char* profileName, uint32_t flags, Context* context) {
    const Harness harness;
    const Code fault = theFaults->Ask(Op::Initialize, {});
    return theFaults->Answered(fault != 0 ? fault : Real().Initialize(profileName, flags, context));
}

// What is released is gone, whatever the answer.
Code Uninitialize(Context context) {
    const Harness harness;
    const Code fault = theFaults->Ask(Op::Uninitialize, {});
    const Code answer = Real().Uninitialize(context);
    return theFaults->Answered(fault != 0 ? fault : answer);
}

Code Ctrl(Context context, uint32_t controlCode, void* controlBlock) {
    const Harness harness;
    const Code fault = theFaults->Ask(Op::Control, {});
    const Code answer = Real().Ctrl(context, controlCode, controlBlock);
    if (fault != 0) *static_cast<kseal::CrlControlBlock*>(controlBlock)->Buffer = '\0';
    if (fault == LibraryFailedWithText)
        std::ranges::copy(std::string_view(Diagnostic), static_cast<kseal::CrlControlBlock*>(controlBlock)->Buffer);
    return theFaults->Answered(fault != 0 ? fault : answer);
}

// The target is the query behind the fields that are wanted.
Code FindCert(Context context, const kseal::CertFindRequest* request, kseal::CertFindResult* result) {
    const Harness harness;
    std::wstring target = std::to_wstring(request->FieldsWanted) + L" ";
    if (request->Query != nullptr)
        target += std::wstring(request->Query, request->Query + std::char_traits<char>::length(request->Query));
    const Code fault = theFaults->Ask(Op::FindCert, target);
    return theFaults->Answered(fault != 0 ? fault : Real().FindCert(context, request, result));
}

Code FreeFindResult(Context context, kseal::CertFindResult* result) {
    const Harness harness;
    const Code fault = theFaults->Ask(Op::FreeFindResult, {});
    const Code answer = Real().FreeFindResult(context, result);
    return theFaults->Answered(fault != 0 ? fault : answer);
}

Code GetErrorText(Code code, char* buffer, uint32_t size) {
    const Harness harness;
    const Code fault = theFaults->Ask(Op::ErrorText, {});
    return theFaults->Answered(fault != 0 ? fault : Real().GetErrorText(code, buffer, size));
}

Code GetErrorLineEx(Context context, char** errorText, char** sourceFile, int32_t* line, char** data) {
    const Harness harness;
    const Code fault = theFaults->Ask(Op::ErrorLine, {});
    return theFaults->Answered(fault != 0 ? fault : Real().GetErrorLineEx(context, errorText, sourceFile, line, data));
}

void FreeMem(void* block) {
    const Harness harness;
    Real().FreeMem(block);
}

constexpr kseal::Exports exports{
    .Initialize = Initialize,
    .Uninitialize = Uninitialize,
    .Ctrl = Ctrl,
    .FindCert = FindCert,
    .FreeFindResult = FreeFindResult,
    .GetErrorText = GetErrorText,
    .GetErrorLineEx = GetErrorLineEx,
    .FreeMem = FreeMem,
};

}  // namespace

FaultyLibrary::FaultyLibrary(Faults& plan) : faults_(plan) {
    theFaults = &plan;
}

FaultyLibrary::~FaultyLibrary() {
    theFaults = nullptr;
}

const kseal::Exports* FaultyLibrary::Exports(platform::Win32Code& error) {
    const Harness harness;
    error = faults_.Answered(faults_.Ask(Op::FindLibrary, {}));
    return error == 0 ? &exports : nullptr;
}

}  // namespace tests::torture
