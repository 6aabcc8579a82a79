// Forms as text: what stands on each of them, where, and in which order the Tab key goes through it.
#pragma once

#include <map>
#include <string>
#include <typeindex>
#include <vector>

#include "ui/Dialog.h"

namespace tests {

class FormSheet {
  public:
    // The first time a form is described as a whole, later only by the controls that differ from then.
    void Add(const ui::Dialog& form, const std::wstring& shape);
    const std::string& Text() const { return text_; }  // in UTF-8

  private:
    using Lines = std::vector<std::string>;

    std::map<std::type_index, Lines> seen_;
    std::string text_;
};

}  // namespace tests
