#include "tests/torture/Oracle.h"

#include <algorithm>
#include <utility>

#include "tests/config/ValueKinds.h"
#include "text/Numbers.h"
#include "ui/Screen.h"

namespace tests::torture {
namespace {

constexpr wchar_t serviceRoot[] = L"HKEY_LOCAL_MACHINE\\SOFTWARE\\TALVERON\\morcelservice";
constexpr wchar_t editorParent[] = L"HKEY_LOCAL_MACHINE\\SOFTWARE\\TALVERON";
constexpr wchar_t editorKey[] = L"HKEY_LOCAL_MACHINE\\SOFTWARE\\TALVERON\\morcelservice editor";
constexpr wchar_t directory[] = L"HKEY_CURRENT_USER\\SOFTWARE\\TALVERON\\morcel\\store\\2";
constexpr uint32_t nothingFound = 0xE0700046;
constexpr uint32_t libraryBit = 0x20000000;
constexpr uint32_t reportFlags = ui::box::Ok | ui::box::ErrorIcon;
constexpr uint32_t goOnFlags = ui::box::OkCancel | ui::box::ExclamationIcon;

std::wstring NameOf(const std::wstring& target) {
    return target.substr(target.rfind(L'\\') + 1);
}

std::wstring LibraryText(uint32_t code) {
    switch (code) {
        case LibraryFailed:
            return L"It failed";
        case LibraryFailedWithText:
            return L"It failed, with a text";
        case nothingFound:
            return L"The stand-in library has found nothing";
        case 0x20000003:
            return L"The network store of the stand-in library does not answer";
        case 0x20000004:
            return L"The stand-in library has not loaded the revocation lists";
        default:
            return L"Error description not found";
    }
}

class Oracle {
  public:
    Oracle(std::span<const Call> calls, const platform::SystemMessages& messages, bool goesOn)
        : calls_(calls),
          messages_(messages),
          goesOn_(goesOn) {}

    Prescribed Run();

  private:
    void OfKeys(const Call& call);
    void OfRecord(const Call& call);
    void OfDeletion(const Call& call);
    void OfReading(const Call& call);
    void OfClosing(const Call& call);
    void OfFiles(const Call& call);
    void OfLibrary(const Call& call);
    void OfSearch(const Call& call);
    void TellOfLists();
    bool IsOpening(const Call& call);

    std::wstring Described(const std::wstring& operation, uint32_t code) const;
    void Tell(const std::wstring& operation, uint32_t code, const std::wstring& behind = {});
    void TellAndAsk(const std::wstring& operation, uint32_t code, const std::wstring& detail,
                    const std::wstring& question);
    void EndLoading() { told_.loadingEnds |= phase_ == Phase::Loading; }

    const std::span<const Call> calls_;
    const platform::SystemMessages& messages_;
    const bool goesOn_;
    Prescribed told_;
    Phase phase_ = Phase::Loading;
    const Call* before_ = nullptr;  // the call before this one
    const Call* key_ = nullptr;     // the last call to the registry
    std::wstring deleted_;          // the top of the tree that is being deleted
    const Call* untold_ = nullptr;  // revocation lists that were not loaded
    bool fileFailed_ = false;       // the file is only closed any more
    bool anythingWritten_ = false;
    size_t libraryGesture_ = 0;  // in which the library was spoken to last
};

std::wstring DescriptionOf(uint32_t code, const platform::SystemMessages& messages) {
    if ((code & libraryBit) != 0) return LibraryText(code);
    std::wstring text = messages.SystemText(code);
    while (!text.empty() && (text.back() == L'.' || text.back() == L'\r' || text.back() == L'\n')) text.pop_back();
    return text.empty() ? L"Error description not found" : text;
}

std::wstring Oracle::Described(const std::wstring& operation, uint32_t code) const {
    return operation + L".\r\n" + ((code & libraryBit) != 0 ? L"KSEAL error 0x" : L"Error 0x") +
           text::Hexadecimal(code) + L" - " + DescriptionOf(code, messages_) + L".";
}

void Oracle::Tell(const std::wstring& operation, uint32_t code, const std::wstring& behind) {
    told_.reports.push_back({.text = Described(operation, code) + behind, .flags = reportFlags});
}

void Oracle::TellAndAsk(const std::wstring& operation, uint32_t code, const std::wstring& detail,
                        const std::wstring& question) {
    told_.reports.push_back({.text = Described(operation, code) + L"\r\n\r\n" + detail, .owned = false});
    told_.reports.push_back(
        {.text = DescriptionOf(code, messages_) + L" (0x" + text::Hexadecimal(code) + L").\r\n" + question,
         .flags = goOnFlags});
    if (!goesOn_) --told_.pickers;
}

Prescribed Oracle::Run() {
    for (const Call& call : calls_) {
        if (call.op != Op::SetValue && call.op != Op::AllocateBlock) TellOfLists();
        phase_ = call.phase;
        if (call.op <= Op::SetValue) {
            OfKeys(call);
            key_ = &call;
        } else if (call.op <= Op::AllocateBlock) {
            OfFiles(call);
        } else {
            OfLibrary(call);
            libraryGesture_ = call.gesture;
        }
        before_ = &call;
    }
    TellOfLists();
    const bool saved = std::ranges::any_of(calls_, [](const Call& c) { return c.phase == Phase::Saving; });
    told_.savingEnds = saved && !anythingWritten_;
    return told_;
}

// The record of the save itself. No scenario starts with one: whoever cannot make it goes on without.
void Oracle::OfRecord(const Call& call) {
    const bool isRemoval = call.op == Op::OpenSubkey || call.op == Op::DeleteSubkey || call.target == editorParent;
    if (call.answer == 0 || call.op == Op::CloseKey) return;
    if (call.answer == 2) {
        told_.quietDifference |= isRemoval;  // taken for gone already
        return;
    }
    const bool isFirstLook = key_ == nullptr && call.op == Op::OpenKey;
    if (isFirstLook) return Tell(std::wstring(L"Create (open) register key ") + editorKey, call.answer);
    if (!isRemoval) return;
    Tell(std::wstring(L"Delete register key ") + editorKey, call.answer);
    if (!anythingWritten_) EndLoading();  // an earlier one may be there
}

void Oracle::OfKeys(const Call& call) {
    if (call.target == editorParent || call.target.starts_with(editorKey)) return OfRecord(call);
    if (call.op == Op::SetValue) anythingWritten_ = true;
    if (call.op == Op::CloseKey) return OfClosing(call);
    if (call.op == Op::OpenSubkey || call.op == Op::DeleteSubkey) return OfDeletion(call);
    if (call.answer == 0) return;
    switch (call.op) {
        case Op::OpenKey:
            // Not every machine has a directory.
            if (call.target == directory && call.answer == 2) {
                told_.quietDifference = true;
                return;
            }
            [[fallthrough]];
        case Op::CreateKey:
            Tell(L"Create (open) register key " + call.target, call.answer);
            EndLoading();
            if (phase_ == Phase::Working) --told_.pickers;
            break;
        case Op::EnumerateSubkey:
            if (call.answer == 259) break;
            if (call.deleting) break;  // taken for the end; deleting the key tells what is wrong
            Tell(L"Search register key " + call.target + L" subkeys", call.answer);
            EndLoading();
            break;
        case Op::QueryValue:
            OfReading(call);
            break;
        default:
            Tell(L"Writing " + ValueKind(call.target) + L" value '" + NameOf(call.target) + L"' into register",
                 call.answer);
    }
}

void Oracle::OfDeletion(const Call& call) {
    if (call.op == Op::OpenSubkey && !call.deleting) deleted_ = call.target;
    if (call.answer == 0) return;
    const bool rules = deleted_.ends_with(L"\\rules");
    if (rules && call.answer == 2) {
        told_.quietDifference = true;  // there are none
    } else {
        Tell(L"Delete register key " + (rules ? deleted_ : serviceRoot), call.answer);
    }
}

void Oracle::OfReading(const Call& call) {
    told_.quietDifference = true;
    const std::wstring kind = ValueKind(call.target);
    if (call.answer == 2 || (call.answer == 13 && kind != L"integer")) return;
    Tell(L"Reading " + kind + L" value '" + NameOf(call.target) + L"' from register", call.answer);
}

// Only the close that ends a load or a save is spoken of: not that of a former key, of a deleted one, or when
// all has failed already.
void Oracle::OfClosing(const Call& call) {
    const bool ofFormerKey =
        key_ != nullptr && (key_->op == Op::OpenKey || key_->op == Op::CreateKey) && key_->answer == 0;
    const bool ends = phase_ == Phase::Saving || (phase_ == Phase::Loading && !told_.loadingEnds);
    if (call.answer == 0 || call.deleting || ofFormerKey || !ends) return;
    Tell(std::wstring(L"Create (open) register key ") + serviceRoot, call.answer);
    EndLoading();
}

void Oracle::OfFiles(const Call& call) {
    static constexpr const wchar_t* attempts[] = {L"Opening file ", L"Creating file ", L"Getting size of file ",
                                                  L"Reading file ", L"Writing file ",  L"Closing file "};
    if (call.op == Op::OpenFile || call.op == Op::CreateFile) fileFailed_ = false;
    if (call.op == Op::ReadFile && call.injected == HalfOfIt) told_.quietDifference = true;
    const bool cutShort = call.op == Op::WriteFile && call.injected == HalfOfIt;
    if (call.answer == 0 && !cutShort) return;
    if (call.op == Op::AllocateBlock) {
        const bool ofFile = before_ != nullptr && before_->op == Op::FileSize;
        const bool ofGroup = ofFile && before_->target.ends_with(L".grx");
        fileFailed_ |= ofFile;
        Tell(ofGroup ? L"Reading file " + before_->target : L"Memory allocation", call.answer);
        told_.quietDifference = true;
    } else if (call.op == Op::PathExists) {
        const std::wstring folder = call.target == L"C:\\In"    ? L"Input"
                                    : call.target == L"C:\\Out" ? L"Output"
                                                                : L"Error";
        Tell(L"Opening file " + call.target, call.answer, L"Bad " + folder + L" folder.");
    } else if (!fileFailed_ || call.op != Op::CloseFile) {
        fileFailed_ = true;
        Tell(attempts[static_cast<size_t>(call.op) - static_cast<size_t>(Op::OpenFile)] + call.target,
             cutShort ? 112 : call.answer);
    }
}

// The first that a command says to the library; later ones ask it what its codes mean.
bool Oracle::IsOpening(const Call& call) {
    return call.op == Op::Initialize || (call.op == Op::FindLibrary && libraryGesture_ != call.gesture);
}

void Oracle::OfLibrary(const Call& call) {
    const bool describes = call.op == Op::ErrorText || call.op == Op::ErrorLine;
    if (describes || (call.op == Op::FindLibrary && !IsOpening(call))) {
        // The stack ends with a code, too: only what was made to fail is missing.
        if (call.injected != 0) told_.descriptionsKnown = false;
        return;
    }
    if (call.op == Op::Initialize && call.answer == 0) ++told_.pickers;
    if (call.answer == 0) return;
    if (IsOpening(call)) {
        const wchar_t* const detail = call.op == Op::FindLibrary ? L"There is no library." : L"";
        told_.reports.push_back(
            {.text = Described(L"Cryptocontext initialization", call.answer) + L"\r\n\r\n" + detail});
    } else if (call.op == Op::FindCert) {
        OfSearch(call);
    } else if (call.op == Op::Control) {
        if (call.injected == LibraryFailedWithText || call.answer == 0x20000004) untold_ = &call;
    }
}

// The attempt is recorded before the user hears of it.
void Oracle::TellOfLists() {
    if (untold_ == nullptr) return;
    TellAndAsk(L"Connetion to CRL distribution point", std::exchange(untold_, nullptr)->answer, WideDiagnostic,
               L"Continue without loading CRL?");
}

void Oracle::OfSearch(const Call& call) {
    static constexpr wchar_t silentStack[] =
        L"KSEAL stek, error number 1\r\nError: no answer\r\nFile: stand-in\r\nData: network = off\r\n";
    const std::wstring query = call.target.substr(call.target.find(L' ') + 1);
    if (query == L"CN=QQQ,C=RU") {
        if (call.answer == nothingFound) return;
        TellAndAsk(L"Conneting to network store (LDAP)", call.answer, call.injected == 0 ? silentStack : std::wstring(),
                   L"Continue without LDAP?");
        told_.quietDifference = true;
        return;
    }
    told_.quietDifference = true;
    const bool byName = call.target.starts_with(L"163972");
    if (query.empty()) {
        Tell(L"Searching of all certificate in local store", call.answer);
    } else if (!byName && call.answer == nothingFound) {
        told_.reports.push_back(
            {.text = L"No certificates found for your request", .flags = ui::box::Ok | ui::box::ExclamationIcon});
    } else {
        Tell(L"Searching for certificate " + query, call.answer);
    }
}

}  // namespace

Prescribed PrescribedFor(std::span<const Call> calls, const platform::SystemMessages& messages, bool goesOn) {
    return Oracle(calls, messages, goesOn).Run();
}

std::vector<Report> WithoutDescriptions(std::vector<Report> reports) {
    for (Report& report : reports) {
        const size_t code = report.text.find(L" (0x");
        const size_t description = report.text.find(L" - ");
        if (code != std::wstring::npos) {
            report.text.erase(0, code);
        } else if (description != std::wstring::npos) {
            report.text.erase(description);
        }
    }
    return reports;
}

}  // namespace tests::torture
