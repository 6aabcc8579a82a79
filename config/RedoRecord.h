// What a save has still to do, kept in a key of the editor's own while it saves. The registry knows no
// transactions: a save that was cut off, or that failed in part, is made whole by making all of its changes
// again from the beginning, which gives the same tree however many of them had been made.
//
// The value "Unfinished save" begins with a head of 20 bytes, its numbers with the low byte first:
//
//     0   "BRED"
//     4   version, 1
//     8   which set of parts holds the changes: 0 none, they follow this head; 1 or 2
//     12  size of the changes in bytes
//     16  CRC-32 (of ISO 3309) of the bytes 4 to 15 and of the changes
//
// Changes of more than a megabyte lie in values "Unfinished save <set>-<number>", numbered from 1, of a
// megabyte each but the last. The head is written last, so that an earlier record holds until then.
#pragma once

#include <optional>

#include "config/RedoChanges.h"
#include "config/RegistryStore.h"

namespace config {

class RedoRecord {
  public:
    enum class State { Missing, Whole, Unreadable };

    // store: its current key stays as it is. owner: the dialog that the message boxes belong to.
    RedoRecord(const RegistryStore& store, const ui::Dialog* owner) : store_(store), context_{.owner = owner} {}

    // Looks for the record that was left. Nothing when the registry refused, which has been reported unless
    // this is to be silent.
    std::optional<State> Find(errors::ReportMode mode = errors::ReportMode::Show);

    // Puts these changes in the place of an earlier record. Where that fails the earlier one is removed, and
    // the save goes on without any. False, after a report, when that fails as well: the save must change
    // nothing.
    [[nodiscard]] bool Keep(const Bytes& changes);
    // The same with what the record that Find has found still has to do after these changes.
    [[nodiscard]] bool KeepBefore(Bytes changes);
    // The save has ended without a failure: the record goes. Where it cannot, that is reported.
    void SaveHasEnded();

    // Makes the changes that Find has found and removes the record. The first that fails is reported, and the
    // record stays.
    bool Complete();
    // True, too, when there is none. A failure is reported.
    bool Remove();

  private:
    std::optional<State> Read(const errors::ReportContext& context);
    bool ReadParts(RegistryStore& own, uint32_t set, size_t size, const errors::ReportContext& context);
    bool Write(const Bytes& changes);
    bool WriteParts(RegistryStore& own, uint32_t set, std::span<const std::byte> changes) const;
    bool IsMissing() const;
    bool Make(RegistryStore& own, const RedoChange& change);

    const RegistryStore& store_;
    const errors::ReportContext context_;
    Bytes found_;          // the changes
    bool hasKey_ = false;  // made by Keep
};

}  // namespace config
