# Warnings and code generation that every target of the project shares.
add_library(brisgate_options INTERFACE)
target_compile_options(brisgate_options INTERFACE
    -Wall -Wextra -Wpedantic -Werror -Wconversion -Wsign-conversion -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual
    -Wold-style-cast -Wcast-qual -Wformat=2 -Wduplicated-cond -Wduplicated-branches -Wlogical-op -Wnull-dereference
    -Wextra-semi -Wundef)

if(BRISGATE_SANITIZE)
    # With the sanitizers' checks in between, GCC 12 takes the inside of a std::optional for uninitialised.
    target_compile_options(brisgate_options INTERFACE -Wno-maybe-uninitialized)
    target_compile_options(brisgate_options INTERFACE -fsanitize=address,undefined -fno-sanitize-recover=all
                           -fno-omit-frame-pointer -O1)
    target_link_options(brisgate_options INTERFACE -fsanitize=address,undefined)
endif()

if(WIN32)
    target_compile_definitions(brisgate_options INTERFACE UNICODE _UNICODE NOMINMAX WIN32_LEAN_AND_MEAN STRICT
                               _WIN32_WINNT=0x0A00 WINVER=0x0A00)
    target_compile_options(brisgate_options INTERFACE -ffunction-sections -fdata-sections)
    target_link_options(brisgate_options INTERFACE -static -Wl,--gc-sections -Wl,--dynamicbase -Wl,--nxcompat
                        -Wl,--high-entropy-va)
endif()
