// A cryptographic library that holds no keys and does no cryptography: it serves certificate owners from a
// text, to try the editor and to test it. It keeps count of all that it hands out, and fails when it is told
// to.
#pragma once

#include <chrono>
#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "demo/OwnersText.h"
#include "errors/LibraryErrors.h"
#include "platform/Kseal.h"

namespace demo {

enum class StandInCall { Initialize, Uninitialize, Ctrl, FindCert, FreeFindResult };

// The library's functions are plain ones: there can be only one stand-in at a time, and they speak for that.
class StandInLibrary {
  public:
    using Code = platform::kseal::Code;
    using Context = platform::kseal::Context;

    static constexpr Code NoOwners = 0x20000001;  // its owners cannot be read
    static constexpr Code UnknownContext = 0x20000002;
    static constexpr Code NetworkSilent = 0x20000003;  // the network store does not answer
    static constexpr Code CrlNotLoaded = 0x20000004;

    StandInLibrary();
    ~StandInLibrary();
    StandInLibrary(const StandInLibrary&) = delete;
    StandInLibrary& operator=(const StandInLibrary&) = delete;

    static const platform::kseal::Exports& Exports();

    // How it answers.
    void Serve(StandInOwners owners) { owners_ = std::move(owners); }
    void SetAnswer(StandInCall call, Code code) { answers_[call] = code; }  // of each such call; 0: works
    void SetErrorText(Code code, std::string text) { texts_[code] = std::move(text); }
    // Puts an entry behind those that wait in the context's error stack.
    void AddError(Context context, errors::LibraryErrorEntry entry);
    // Hears of each call that is counted below, before it is carried out.
    void OnCall(std::function<void(const std::string& call)> handler) { onCall_ = std::move(handler); }

    // What was asked of it, in order: Initialize "Office" 0x80000040, Ctrl 4, FindCert 0xE04 scope 4 "*=*"
    // fields 132, FreeFindResult, Uninitialize.
    const std::vector<std::string>& Calls() const { return calls_; }
    void ForgetCalls() { calls_.clear(); }
    const std::vector<Code>& TextsAsked() const { return textsAsked_; }

    // What it handed out and has not got back.
    size_t OpenContexts() const { return contexts_.size(); }
    Context OnlyContext() const { return contexts_.size() == 1 ? contexts_.begin()->first : nullptr; }
    size_t OpenResults() const { return results_.size(); }
    size_t OpenTexts() const { return handedTexts_.size(); }
    size_t WaitingErrors(Context context) const;
    // What came back that it had not handed out, or a second time.
    size_t WrongReleases() const { return wrongReleases_; }
    // Searches whose record for the result held something beforehand.
    size_t UnclearedResults() const { return unclearedResults_; }

  private:
    struct Functions;
    struct Result {
        std::vector<StandInCertificate> certificates;
        std::vector<platform::kseal::CertEntry> entries;
    };

    Code Initialize(const char* profileName, uint32_t flags, Context* context);
    Code Uninitialize(Context context);
    Code Ctrl(Context context, uint32_t controlCode, void* controlBlock);
    Code FindCert(Context context, const platform::kseal::CertFindRequest& request,
                  platform::kseal::CertFindResult& found);
    Code FreeFindResult(Context context, platform::kseal::CertFindResult& found);
    Code GetErrorText(Code code, char* buffer, uint32_t size);
    Code GetErrorLineEx(Context context, char** errorText, char** sourceFile, int32_t* line, char** data);
    void FreeMem(void* memory);

    void Note(std::string call);
    Code AnswerOf(StandInCall call) const;
    Code Search(Context context, const platform::kseal::CertFindRequest& request, Result& result);
    char* HandOut(const std::string& text);
    void CountRelease(bool handedOut);

    StandInOwners owners_;
    std::map<StandInCall, Code> answers_;
    std::map<Code, std::string> texts_;
    std::map<Context, std::deque<errors::LibraryErrorEntry>> errors_;
    std::function<void(const std::string&)> onCall_;

    std::vector<std::string> calls_;
    std::vector<Code> textsAsked_;
    std::map<Context, std::unique_ptr<char>> contexts_;
    std::map<const platform::kseal::CertEntry*, std::unique_ptr<Result>> results_;
    std::map<void*, std::unique_ptr<char[]>> handedTexts_;
    size_t wrongReleases_ = 0;
    size_t unclearedResults_ = 0;
};

}  // namespace demo
