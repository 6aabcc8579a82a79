#include "platform/memory/MemoryParts.h"

#include <new>

namespace platform::memory {

Win32Code MemoryInstanceLock::Acquire(const std::wstring& name) {
    if (fault_ == code::Success) held_ = name;
    return fault_;
}

std::unique_ptr<std::byte[]> MemoryMemory::Allocate(size_t bytes, Win32Code& error) {
    error = code::NotEnoughMemory;
    if (limit_ == 0 || bytes > limit_) return nullptr;
    try {
        auto block = std::make_unique_for_overwrite<std::byte[]>(bytes);
        error = code::Success;
        return block;
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}

}  // namespace platform::memory
