// brisgate-registry.exe: puts a demo configuration into the registry, or shows what stands there.
#include <fcntl.h>
#include <io.h>
#include <windows.h>

#include <shellapi.h>

#include <cstdio>
#include <exception>
#include <iostream>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "demo/FileContent.h"
#include "demo/RegistryTool.h"
#include "platform/win32/Win32Machine.h"

namespace {

constexpr std::string_view usage =
    "Usage: brisgate-registry COMMAND\n"
    "  seed FILE       delete the trees of the service and of the library, then build them from FILE\n"
    "  seed-once FILE  the same, but only when the service has no profile yet\n"
    "  dump            write all trees to the standard output, in UTF-8\n";

void Dump(platform::RegistryBackend& registry) {
    const std::string text = demo::DumpRegistry(registry);
    _setmode(_fileno(stdout), _O_BINARY);
    std::cout.write(text.data(), static_cast<std::streamsize>(text.size())).flush();
    if (!std::cout) throw std::runtime_error("cannot write to the standard output");
}

// Without the program's name.
std::vector<std::wstring> CommandLine() {
    int count = 0;
    const std::unique_ptr<wchar_t*, decltype(&LocalFree)> words(CommandLineToArgvW(GetCommandLineW(), &count),
                                                                &LocalFree);
    if (!words || count < 1) return {};
    return {words.get() + 1, words.get() + count};
}

// False when the arguments make no command.
bool Run(const std::vector<std::wstring>& arguments) {
    platform::win32::Win32Registry registry;
    platform::win32::Win32Files files;
    const std::wstring command = arguments.empty() ? std::wstring() : arguments[0];
    if (command == L"seed" && arguments.size() == 2) {
        demo::SeedRegistry(demo::FileContent(files, arguments[1]), registry);
    } else if (command == L"seed-once" && arguments.size() == 2) {
        demo::SeedRegistryOnce(demo::FileContent(files, arguments[1]), registry);
    } else if (command == L"dump" && arguments.size() == 1) {
        Dump(registry);
    } else {
        return false;
    }
    return true;
}

}  // namespace

int main() {
    try {
        if (Run(CommandLine())) return 0;
        std::cerr << usage;
        return 2;
    } catch (const std::exception& error) {
        std::cerr << "brisgate-registry: " << error.what() << "\n";
        return 1;
    }
}
