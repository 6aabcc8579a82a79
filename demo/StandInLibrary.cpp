#include "demo/StandInLibrary.h"

#include <algorithm>
#include <span>
#include <stdexcept>
#include <thread>
#include <utility>

#include "demo/CertificateQuery.h"

namespace demo {
namespace {

namespace kseal = platform::kseal;

constexpr uint32_t networkBit = 0x4;
constexpr uint32_t networkOnlyBits = 0xE00;

StandInLibrary* current = nullptr;

std::string Hex(uint32_t number) {
    std::string digits;
    do digits.insert(digits.begin(), "0123456789ABCDEF"[number & 0xF]);
    while ((number >>= 4) != 0);
    return "0x" + digits;
}

std::string Quoted(const char* text) {
    return text == nullptr ? std::string("null") : '"' + std::string(text) + '"';
}

// With a terminating zero where there is room for it.
void Write(const std::string& text, std::span<char> buffer) {
    const size_t length = std::min(text.size(), buffer.size());
    std::copy_n(text.begin(), length, buffer.begin());
    if (length < buffer.size()) buffer[length] = '\0';
}

bool IsZero(const kseal::CertFindResult& result) {
    return std::ranges::all_of(std::as_bytes(std::span(&result, 1)),
                               [](std::byte byte) { return byte == std::byte{0}; });
}

kseal::CertEntry EntryOf(StandInCertificate& certificate) {
    kseal::CertEntry entry{};
    entry.OwnerName = certificate.OwnerName.data();
    entry.UsageBits = certificate.UsageBits;
    entry.SecondText = certificate.SecondText.data();
    entry.SerialLength = static_cast<uint32_t>(certificate.Serial.size());
    entry.Serial = certificate.Serial.data();
    return entry;
}

}  // namespace

// The library's functions, as its users see them.
struct StandInLibrary::Functions {
    static Code Initialize(const char* profileName, uint32_t flags, Context* context) {
        return current->Initialize(profileName, flags, context);
    }
    static Code Uninitialize(Context context) { return current->Uninitialize(context); }
    static Code Ctrl(Context context, uint32_t controlCode, void* controlBlock) {
        return current->Ctrl(context, controlCode, controlBlock);
    }
    static Code FindCert(Context context, const kseal::CertFindRequest* request, kseal::CertFindResult* result) {
        return current->FindCert(context, *request, *result);
    }
    static Code FreeFindResult(Context context, kseal::CertFindResult* result) {
        return current->FreeFindResult(context, *result);
    }
    static Code GetErrorText(Code code, char* buffer, uint32_t size) {
        return current->GetErrorText(code, buffer, size);
    }
    static Code GetErrorLineEx(Context context, char** errorText, char** sourceFile, int32_t* line, char** data) {
        return current->GetErrorLineEx(context, errorText, sourceFile, line, data);
    }
    static void FreeMem(void* memory) { current->FreeMem(memory); }
};

StandInLibrary::StandInLibrary() {
    if (current != nullptr) throw std::logic_error("StandInLibrary: there is one already");
    current = this;
    SetErrorText(NoOwners, "The stand-in library cannot read its owners");
    SetErrorText(UnknownContext, "The stand-in library does not know this context");
    SetErrorText(NetworkSilent, "The network store of the stand-in library does not answer");
    SetErrorText(CrlNotLoaded, "The stand-in library has not loaded the revocation lists");
    SetErrorText(kseal::NothingFound, "The stand-in library has found nothing");
}

StandInLibrary::~StandInLibrary() {
    current = nullptr;
}

const kseal::Exports& StandInLibrary::Exports() {
    static constexpr kseal::Exports exports{
        .Initialize = Functions::Initialize,
        .Uninitialize = Functions::Uninitialize,
        .Ctrl = Functions::Ctrl,
        .FindCert = Functions::FindCert,
        .FreeFindResult = Functions::FreeFindResult,
        .GetErrorText = Functions::GetErrorText,
        .GetErrorLineEx = Functions::GetErrorLineEx,
        .FreeMem = Functions::FreeMem,
    };
    return exports;
}

void StandInLibrary::AddError(Context context, errors::LibraryErrorEntry entry) {
    errors_[context].push_back(std::move(entry));
}

size_t StandInLibrary::WaitingErrors(Context context) const {
    const auto found = errors_.find(context);
    return found == errors_.end() ? 0 : found->second.size();
}

StandInLibrary::Code StandInLibrary::Initialize(const char* profileName, uint32_t flags, Context* context) {
    Note("Initialize " + Quoted(profileName) + " " + Hex(flags));
    std::this_thread::sleep_for(owners_.Delay);
    if (const Code code = AnswerOf(StandInCall::Initialize); code != 0) return code;
    auto opened = std::make_unique<char>();
    *context = opened.get();
    contexts_.emplace(*context, std::move(opened));
    return 0;
}

StandInLibrary::Code StandInLibrary::Uninitialize(Context context) {
    Note("Uninitialize");
    CountRelease(contexts_.erase(context) != 0);
    return AnswerOf(StandInCall::Uninitialize);
}

StandInLibrary::Code StandInLibrary::Ctrl(Context context, uint32_t controlCode, void* controlBlock) {
    Note("Ctrl " + std::to_string(controlCode));
    if (!contexts_.contains(context)) return UnknownContext;
    if (controlCode == kseal::LoadCrlControl) {
        const auto& block = *static_cast<const kseal::CrlControlBlock*>(controlBlock);
        Write(owners_.CrlDiagnostic, {block.Buffer, block.BufferLength});
    }
    if (answers_.contains(StandInCall::Ctrl)) return AnswerOf(StandInCall::Ctrl);
    return owners_.CrlDiagnostic.empty() ? 0 : CrlNotLoaded;
}

StandInLibrary::Code StandInLibrary::FindCert(Context context, const kseal::CertFindRequest& request,
                                              kseal::CertFindResult& found) {
    Note("FindCert " + Hex(request.SearchWord) + " scope " + std::to_string(request.StoreScope) + " " +
         Quoted(request.Query) + " fields " + std::to_string(request.FieldsWanted));
    if (!IsZero(found)) ++unclearedResults_;
    if (!contexts_.contains(context)) return UnknownContext;
    if (const Code code = AnswerOf(StandInCall::FindCert); code != 0) return code;
    auto result = std::make_unique<Result>();
    if (const Code code = Search(context, request, *result); code != 0) return code;
    found.Count = static_cast<uint32_t>(result->entries.size());
    found.Entries = result->entries.data();
    results_.emplace(found.Entries, std::move(result));
    return 0;
}

StandInLibrary::Code StandInLibrary::Search(Context context, const kseal::CertFindRequest& request, Result& result) {
    const bool inNetwork = (request.SearchWord & networkBit) != 0;
    const bool inLocal = (request.SearchWord & networkOnlyBits) == 0;
    if (!inLocal && !owners_.NetworkAnswers) {
        AddError(context, {"no answer", "stand-in", 1, "network = off"});
        return NetworkSilent;
    }
    for (const StandInCertificate& certificate : owners_.Certificates)
        if ((certificate.InNetwork ? inNetwork && owners_.NetworkAnswers : inLocal) &&
            (request.Query == nullptr || MatchesQuery(certificate.OwnerName, request.Query)))
            result.certificates.push_back(certificate);
    if (!inLocal && result.certificates.empty()) return kseal::NothingFound;
    result.entries.reserve(result.certificates.size() + 1);  // an empty result can be told from none, too
    for (StandInCertificate& certificate : result.certificates) result.entries.push_back(EntryOf(certificate));
    return 0;
}

StandInLibrary::Code StandInLibrary::FreeFindResult(Context context, kseal::CertFindResult& found) {
    Note("FreeFindResult");
    CountRelease(contexts_.contains(context) && (found.Entries == nullptr || results_.erase(found.Entries) != 0));
    found = {};
    return AnswerOf(StandInCall::FreeFindResult);
}

StandInLibrary::Code StandInLibrary::GetErrorText(Code code, char* buffer, uint32_t size) {
    textsAsked_.push_back(code);
    const auto found = texts_.find(code);
    if (found != texts_.end()) Write(found->second, {buffer, size});
    return 0;
}

StandInLibrary::Code StandInLibrary::GetErrorLineEx(Context context, char** errorText, char** sourceFile, int32_t* line,
                                                    char** data) {
    const auto found = errors_.find(context);
    if (found == errors_.end() || found->second.empty()) return 1;
    const errors::LibraryErrorEntry entry = std::move(found->second.front());
    found->second.pop_front();
    *errorText = HandOut(entry.errorText);
    *sourceFile = HandOut(entry.sourceFile);
    *line = entry.line;
    *data = HandOut(entry.data);
    return 0;
}

void StandInLibrary::FreeMem(void* memory) {
    CountRelease(handedTexts_.erase(memory) != 0);
}

void StandInLibrary::Note(std::string call) {
    calls_.push_back(std::move(call));
    if (onCall_) onCall_(calls_.back());
}

StandInLibrary::Code StandInLibrary::AnswerOf(StandInCall call) const {
    const auto found = answers_.find(call);
    return found == answers_.end() ? 0 : found->second;
}

// None where there is nothing to say: callers have to take that, too.
char* StandInLibrary::HandOut(const std::string& text) {
    if (text.empty()) return nullptr;
    auto copy = std::make_unique<char[]>(text.size() + 1);
    std::copy(text.begin(), text.end(), copy.get());
    char* const handedOut = copy.get();
    handedTexts_.emplace(handedOut, std::move(copy));
    return handedOut;
}

void StandInLibrary::CountRelease(bool handedOut) {
    if (!handedOut) ++wrongReleases_;
}

}  // namespace demo
