#include "tests/torture/World.h"

#include "app/BrisgateApp.h"
#include "demo/RegistryTool.h"
#include "tests/torture/ShortMemory.h"

namespace tests::torture {

World::World(std::string_view trees) {
    demo::SeedRegistry(trees, parts.StoredRegistry);
    for (const wchar_t* folder : {L"C:\\In", L"C:\\Out", L"C:\\Error"}) parts.Files.AddFolder(folder);
    standIn.SetErrorText(LibraryFailed, "It failed.\r\n");
    standIn.SetErrorText(LibraryFailedWithText, "It failed, with a text.\r\n");
    standIn.Serve({.Certificates = {
                       {.OwnerName = "CN=Clara Weiss,O=Atelier,C=FR"},
                       {.OwnerName = "CN=Anna Keller,O=Kontor,C=DE"},
                       {.OwnerName = "CN=Boris Petrov,O=Bank,C=RU"},
                       {.InNetwork = true, .OwnerName = "CN=Ivan Orlov,O=Bank,C=RU"},
                       {.InNetwork = true, .OwnerName = "CN=Ivana Horvat,O=Jadran,C=HR"},
                   }});
}

void World::RunProgram() {
    platform::memory::MemoryGuide guide;
    app::CBrisgateApp program(machine, screen, guide);
    const Product product;
    program.InitInstance();
}

std::string World::Trees() {
    return demo::DumpRegistry(parts.StoredRegistry);
}

}  // namespace tests::torture
