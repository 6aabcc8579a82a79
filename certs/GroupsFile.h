// User groups files: owner names chosen once, to be chosen again. One name a line.
#pragma once

#include <functional>
#include <span>
#include <string>
#include <string_view>

#include "config/Services.h"
#include "ui/Screen.h"

namespace certs {

// lastPath: of the file opened or saved before; empty: none. folder: where such files usually are; empty: the
// system chooses.
ui::FilePicker GroupsFileToOpen(const std::wstring& lastPath, const std::wstring& folder);
ui::FilePicker GroupsFileToSave(const std::wstring& lastPath, const std::wstring& folder);

// Calls take with each line of such a file that can be an owner name, in order: it ends with a line end, and
// something in it is assigned ("CN=..."). A zero byte ends the text. The lines lie in the bytes.
void ReadGroupLines(std::string_view bytes, const std::function<void(std::string_view line)>& take);

// Calls take with each name in the file, in order. False: a step failed, which has been reported, and take
// has not been called.
bool ReadGroupsFile(const config::Services& services, const ui::Dialog* owner, const std::wstring& path,
                    const std::function<void(std::wstring_view name)>& take);

// False: a step failed and has been reported; what was written stays.
bool WriteGroupsFile(const config::Services& services, const ui::Dialog* owner, const std::wstring& path,
                     std::span<const std::wstring_view> names);

}  // namespace certs
