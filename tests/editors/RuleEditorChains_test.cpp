// What is kept of a rule on the way from one operation to another that leads over a third.
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <sstream>
#include <string>
#include <vector>

#include "tests/editors/OperationWalk.h"

namespace tests {
namespace {

using Texts = std::vector<std::wstring>;

Texts Split(const std::wstring& words) {
    std::wistringstream stream(words);
    Texts split;
    for (std::wstring word; stream >> word;) split.push_back(word);
    return split;
}

// Real windows take a quarter of a second for each change: there the user goes only some of the ways.
#ifdef _WIN32
constexpr size_t chainStride = 29;
constexpr size_t chainsOfEach = 1;
#else
constexpr size_t chainStride = 1;
constexpr size_t chainsOfEach = 100;
#endif

template <class Chain>
std::vector<Chain> Some(const std::vector<Chain>& chains) {
    const size_t count = std::min(chains.size(), chainsOfEach);
    return {chains.begin(), chains.begin() + static_cast<std::ptrdiff_t>(count)};
}

class OperationChain : public OperationWalk {
  protected:
    // Opens a rule of the first operation with every field set, goes over the others and looks.
    void Go(const std::wstring& chain, const std::function<void()>& look) {
        SCOPED_TRACE(std::string(chain.begin(), chain.end()));
        const Texts codes = Split(chain);
        Edit(FullRule(codes.front()), [&](ui::Dialog&) {
            for (size_t step = 1; step < codes.size(); ++step) ChooseOperation(codes[step]);
            look();
            Leave();
        });
    }
    void ExpectArchive(const std::wstring& expected, const std::vector<const wchar_t*>& chains) {
        for (const wchar_t* chain : Some(chains)) Go(chain, [&] { EXPECT_EQ(Chosen(ruleid::ListB), expected); });
    }
    void ExpectCount(const std::wstring& expected, const std::vector<const wchar_t*>& chains) {
        for (const wchar_t* chain : Some(chains))
            Go(chain, [&] { EXPECT_EQ(user_.Text(ruleid::ActionField), expected); });
    }
};

// One operation of each kind.
const Texts kinds{L"ENCR", L"DECR", L"HASH", L"B64E", L"CHCK", L"MOVE",
                  L"DELE", L"RESG", L"DCCX", L"ARCH", L"PACK", L"EXEC"};
const Texts between{L"MOVE", L"EXEC", L"HASH", L"RESG"};

TEST_F(OperationChain, OfThreeOperationsEachKeepsAndDropsWhatItShould) {
    size_t number = 0;
    Edit({}, [&](ui::Dialog&) {
        ExpectedForm form(L"ENCR");
        form.archive = L"No";
        for (const std::wstring& from : kinds) {
            for (const std::wstring& middle : between) {
                for (const std::wstring& to : kinds) {
                    if (number++ % chainStride != 0) continue;
                    Change(form, from);
                    PutIn(form);
                    Change(form, middle);
                    Change(form, to);
                }
            }
        }
        Leave();
    });
}

TEST_F(OperationChain, TheKindOfArchiveOutlivesOperationsWithoutOne) {
    ExpectArchive(L"GZIP archivation", {L"DECR HASH MOVE DECR", L"DECR HASH DECR", L"ARCH HASH DECR", L"DECR EXEC ARCH",
                                        L"ARCH HASH MOVE UNAR", L"ARCH EXEC MOVE DCCX", L"SGEN PACK MOVE EXEC LENC"});
}

TEST_F(OperationChain, MovingForgetsTheArchiveOfTheOperationBeforeIt) {
    ExpectArchive(L"No", {L"DECR MOVE DECR", L"DECR MOVE HASH DECR", L"ARCH MOVE DECR", L"UNAR MOVE EXEC ENCR"});
    ExpectArchive(L"ZIP archivation", {L"DECR MOVE ARCH", L"ARCH MOVE ARCH", L"UNAR MOVE HASH UNAR"});
}

TEST_F(OperationChain, ResigningForgetsTheArchiveAndItsFormatsAreNone) {
    ExpectArchive(L"No", {L"DECR RESG DECR", L"ARCH RESG DECR", L"DECR HASH RESG HASH DECR", L"RESG MOVE DECR",
                          L"RESG HASH MOVE DECR"});
    ExpectArchive(L"ZIP archivation", {L"ARCH RESG ARCH", L"RESG MOVE ARCH", L"RESG EXEC UNAR"});
}

TEST_F(OperationChain, TheCsProfileIsKeptWhereItIsNotShown) {
    for (const std::wstring& middle : Some(between))
        Go(L"ENCR " + middle + L" DECR", [&] { EXPECT_EQ(Chosen(ruleid::CsProfile), L"Bank"); });
}

TEST_F(OperationChain, TheNewSignatureProfileIsKeptForTheWayBack) {
    for (const std::wstring& middle : Some(between)) {
        Go(L"RESG " + middle + L" RESG", [&] {
            EXPECT_EQ(Chosen(ruleid::ListC), L"Tax");
            const std::wstring format = middle == L"RESG" ? L"Detached signature" : L"Attached signature";
            EXPECT_EQ(Chosen(ruleid::ListA), format);
            EXPECT_EQ(Chosen(ruleid::ListB), format);
        });
    }
}

TEST_F(OperationChain, RecipientsAreKeptOnlyByEncrypting) {
    ExpectCount(L"3", {L"ENCR SGEN LENC"});
    ExpectCount(L"0", {L"ENCR MOVE ENCR", L"LENC EXEC LENC", L"SGEN HASH SGEN", L"ENCR RESG ENCR"});
}

TEST_F(OperationChain, SignerListsAreKeptByVerifyingAndExecuting) {
    ExpectCount(L"2", {L"CHCK EXEC CHCK", L"CHKX RESG DCHK", L"RESG EXEC DCCX"});
    ExpectCount(L"0", {L"CHCK MOVE CHCK", L"CHKX HASH DCHK", L"RESG EXEC MOVE DCCX", L"CHCK EXEC HASH CHCK"});
}

TEST_F(OperationChain, FoldersAndMasksAreKeptAndDeletingHasNoOutputFolder) {
    for (const std::wstring& middle : Some(between)) {
        for (const wchar_t* last : {L" SIGN", L" DELE SIGN"}) {
            Go(L"UNPK " + middle + last, [&] {
                EXPECT_EQ(user_.Text(ruleid::PathIn), L"C:\\In");
                EXPECT_EQ(user_.Text(ruleid::PathOut), last == std::wstring(L" SIGN") ? L"C:\\Out" : L"");
                EXPECT_EQ(user_.Text(ruleid::PathError), L"C:\\Error");
                EXPECT_EQ(ShownMasks(), (Texts{L"*.txt", L"*.pdf"}));
            });
        }
    }
}

}  // namespace
}  // namespace tests
