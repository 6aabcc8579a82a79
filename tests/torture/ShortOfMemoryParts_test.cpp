// Small parts of the program when memory runs out: whatever was refused, the part is as it was or as it was
// to be, and works on.
#include <gtest/gtest.h>

#include <functional>
#include <new>

#include "certs/PickerNames.h"
#include "crypto/CryptoContext.h"
#include "crypto/NameList.h"
#include "platform/memory/MemoryMachine.h"
#include "tests/torture/ShortMemory.h"
#include "ui/Dialog.h"
#include "ui/ListView.h"
#include "ui/memory/MemoryScreen.h"

namespace tests::torture {
namespace {

using Names = std::vector<std::wstring>;

// Does it again and again, each time refusing one allocation further behind, until none is refused. attempt:
// makes everything anew, then gives the part to do.
void RefuseEach(const std::function<void(const std::function<void(const std::function<void()>&)>&)>& attempt) {
    bool refused = true;
    for (size_t n = 0; refused; ++n) {
        SCOPED_TRACE(n);
        ASSERT_LT(n, 1000U);
        attempt([n, &refused](const std::function<void()>& part) {
            const ShortMemory memory(n, n);
            try {
                part();
            } catch (const std::bad_alloc&) {
            }
            refused = memory.Refused() > 0;
        });
    }
}

TEST(ShortOfMemoryParts, ANameListTakesNamesAfterwards) {
    RefuseEach([](const auto& shortOfMemory) {
        crypto::NameList names;
        shortOfMemory([&names] {
            for (int i = 0; i < 100; ++i) names.Add(L"A name that is number " + std::to_wstring(i));
        });
        names.Add(L"The last one");
        EXPECT_EQ(names.Find(L"The last one"), names.Size() - 1);
    });
}

// The report of a context that does not close needs memory, too.
TEST(ShortOfMemoryParts, AContextThatDoesNotCloseEndsNothing) {
    platform::memory::MemoryMachine machine;
    ui::memory::MemoryScreen screen(machine.ScreenMetrics);
    const errors::ErrorReporter reporter(machine.Machine, screen);
    platform::kseal::Exports library{};
    library.Uninitialize = [](platform::kseal::Context) { return uint32_t{0x20000010}; };
    int context = 0;
    RefuseEach(
        [&](const auto& shortOfMemory) { shortOfMemory([&] { crypto::CryptoContext(library, &context, reporter); }); });
}

TEST(ShortOfMemoryParts, ChosenNamesStayCounted) {
    RefuseEach([](const auto& shortOfMemory) {
        certs::ChosenNames chosen(Names{L"CN=A", L"CN=B"});
        shortOfMemory([&chosen] { chosen.Add(L"CN=A name that is to be chosen"); });
        chosen.Add(L"CN=A name that is to be chosen");
        EXPECT_EQ(chosen.Listed().size(), 3U);
        chosen.RemoveEvery(chosen.Listed());
        EXPECT_TRUE(chosen.Listed().empty());
    });
}

TEST(ShortOfMemoryParts, CandidatesCanBeFilteredAfterwards) {
    RefuseEach([](const auto& shortOfMemory) {
        certs::Candidates candidates;
        candidates.Add(L"CN=A name that is rather long");
        candidates.Add(L"CN=Another one that is long as well");
        shortOfMemory([&candidates] { EXPECT_LE(candidates.Listed(L"another").size(), 1U); });
        EXPECT_EQ(candidates.Listed(L"another"), std::vector<certs::NameId>{1});
    });
}

class List : public ui::Dialog {
  public:
    explicit List(ui::Screen& screen) : Dialog(screen, nullptr, {.size = {100, 100}}) {}
    ui::ListView view{*this, 1, {0, 0, 100, 100}, {.checkBoxes = true}};
};

TEST(ShortOfMemoryParts, AListViewHasACheckAndASelectionForEachRow) {
    const platform::memory::MemoryScreenMetrics metrics;
    RefuseEach([&metrics](const auto& shortOfMemory) {
        ui::memory::MemoryScreen screen(metrics);
        List list(screen);
        list.view.SetRows(2);
        shortOfMemory([&list] { list.view.SetRows(1000); });
        EXPECT_EQ(list.view.Checks().size(), list.view.RowCount());
        EXPECT_TRUE(list.view.SelectedRows().empty());
        list.view.SelectOnly(list.view.RowCount() - 1);
        EXPECT_EQ(list.view.SelectedRows().size(), 1U);
    });
}

}  // namespace
}  // namespace tests::torture
