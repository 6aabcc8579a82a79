// A tour through every form of the program, for what holds for each of them.
#pragma once

#include <functional>
#include <string>

#include "tests/app/CertificateJourney.h"

namespace tests {

class AllForms : public CertificateJourney {
  protected:
    // shape: which one the form shows itself in, where it has several; may be empty.
    using Look = std::function<void(ui::Dialog& form, const std::wstring& shape)>;

    AllForms() { SeedEncryptingRule(); }

    // Opens every form, the rule editor in each of its shapes and the error box with each of its texts, and
    // looks at it before anything is done there. The order is always the same.
    void Tour(Look look);

  private:
    // Opens with the next gesture, is looked at, worked with and left.
    template <class Form>
    void Expect(const Script& script = [] {}) {
        user_.Expect<Form>([this, script](Form& form) {
            look_(form, {});
            script();
            user_.PressCloseBox();
        });
    }
    void VisitSettings();
    void VisitProfileEditor();
    void VisitWaitForm();
    void VisitNewRule();
    void VisitOperations();
    void VisitRecipients();
    void VisitSigners();
    void BeRefused();

    Look look_;
};

}  // namespace tests
