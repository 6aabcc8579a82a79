// Contexts of the maker's library, opened for one command each.
#pragma once

#include "config/Services.h"
#include "crypto/ContextOpener.h"

namespace crypto {

class LibraryOpener final : public ContextOpener {
  public:
    explicit LibraryOpener(const config::Services& services) : services_(services) {}

    void WithContext(ui::Dialog& parent, const config::ServiceProfile& profile, int storeProfile,
                     const Command& command) override;

  private:
    const config::Services services_;
};

}  // namespace crypto
