// Rules of every operation, and a user who puts them into the rule editor by hand.
#pragma once

#include <string>

#include "tests/editors/RuleEditor.h"

namespace tests {

class RuleByHandTest : public RuleEditorTest {
  protected:
    // A finished rule of the operation: everything set that the form has a place for, the rest empty.
    static config::Rule Expected(const std::wstring& code);

    // Puts the rule in, each value where the form has a place for it.
    void PutIn(const config::Rule& rule);

  private:
    void PutInIfUsable(int list, int choice);
    void PutInIfUsable(int edit, std::wstring_view text);
    void PutInAction(const config::Rule& rule);
    void PutInMask(const std::wstring& mask);
};

}  // namespace tests
