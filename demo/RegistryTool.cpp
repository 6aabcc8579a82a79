#include "demo/RegistryTool.h"

#include "demo/RegistryKey.h"
#include "demo/RegistryText.h"

namespace demo {
namespace {

using platform::RegistryBackend;
using platform::RootKey;

struct Tree {
    RootKey root;
    const wchar_t* path;
};

constexpr Tree serviceTree{RootKey::LocalMachine, L"SOFTWARE\\TALVERON\\morcelservice"};
constexpr Tree editorTree{RootKey::LocalMachine, L"SOFTWARE\\TALVERON\\morcelservice editor"};
constexpr Tree libraryTree{RootKey::CurrentUser, L"SOFTWARE\\TALVERON\\morcel"};

bool Exists(RegistryBackend& registry, const Tree& tree) {
    return RegistryKey::Exists(registry, tree.root, tree.path);
}

}  // namespace

void SeedRegistry(std::string_view utf8, RegistryBackend& registry) {
    for (const Tree& tree : {serviceTree, editorTree, libraryTree}) DeleteRegistryTree(registry, tree.root, tree.path);
    ApplyRegistryText(utf8, registry);
}

bool SeedRegistryOnce(std::string_view utf8, RegistryBackend& registry) {
    if (Exists(registry, serviceTree) &&
        !RegistryKey::Open(registry, serviceTree.root, serviceTree.path).SubkeyNames().empty()) {
        return false;
    }
    SeedRegistry(utf8, registry);
    return true;
}

std::string DumpRegistry(RegistryBackend& registry) {
    std::string text;
    for (const Tree& tree : {serviceTree, editorTree, libraryTree}) {
        if (!Exists(registry, tree)) continue;
        if (!text.empty()) text += '\n';
        text += DumpRegistryKey(registry, tree.root, tree.path);
    }
    return text;
}

}  // namespace demo
