# Warnings and code generation that every target of the project shares.
add_library(brisgate_options INTERFACE)
if(MSVC)
    include(cmake/msvc.cmake)
    return()
endif()
target_compile_options(brisgate_options INTERFACE
    -Wall -Wextra -Wpedantic -Wconversion -Wsign-conversion -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual
    -Wold-style-cast -Wcast-qual -Wformat=2 -Wnull-dereference -Wextra-semi -Wundef)
if(NOT CMAKE_HOST_WIN32)
    target_compile_options(brisgate_options INTERFACE -Werror)  # there, the compiler is any version
endif()

# Optimising std::string, GCC 12 warns of overruns that cannot happen; the sanitizers watch for real ones.
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    target_compile_options(brisgate_options INTERFACE -Wduplicated-cond -Wduplicated-branches -Wlogical-op
                           -Wno-array-bounds -Wno-stringop-overflow -Wno-stringop-overread -Wno-restrict)
endif()
if(WIN32)
    set(CMAKE_CXX_FLAGS_RELEASE "-Os -DNDEBUG -ffunction-sections -fdata-sections")
else()
    set(CMAKE_CXX_FLAGS_RELEASE "-O2 -DNDEBUG")
endif()

# What is tested runs under the sanitizers; the tests themselves are only linked with them, to be built in time.
add_library(brisgate_sanitizers INTERFACE)
if(BRISGATE_SANITIZE)
    # Not with the checks for null and alignment at every access, a third of the build: a null pointer ends the tests
    # without them, too, and the fuzz targets have them all. With the sanitizers' checks in between, GCC 12 takes the
    # inside of a std::optional for uninitialised.
    target_compile_options(brisgate_sanitizers INTERFACE -fsanitize=address,undefined -fno-sanitize=null,alignment
                           -fno-sanitize-recover=all -fno-omit-frame-pointer -g1 -O1 -Wno-maybe-uninitialized)
    target_link_options(brisgate_options INTERFACE -fsanitize=address,undefined)
    # An element that is not there ends the tests even where it lies inside of what a container has reserved.
    target_compile_definitions(brisgate_options INTERFACE _GLIBCXX_ASSERTIONS)
endif()

if(WIN32)
    target_compile_definitions(brisgate_options INTERFACE UNICODE _UNICODE NOMINMAX WIN32_LEAN_AND_MEAN STRICT
                               _WIN32_WINNT=0x0A00 WINVER=0x0A00)
    target_compile_options(brisgate_options INTERFACE -fstack-protector-strong -fcf-protection)
    target_link_options(brisgate_options INTERFACE -static -fstack-protector-strong -Wl,--gc-sections
                        -Wl,--dynamicbase -Wl,--nxcompat -Wl,--high-entropy-va)
    # Windows 10 is the oldest system that starts it, and no newer one measures its windows as those of an older program.
    target_link_options(brisgate_options INTERFACE -Wl,--major-os-version=10 -Wl,--minor-os-version=0
                        -Wl,--major-subsystem-version=10 -Wl,--minor-subsystem-version=0)
    # The same sources give the same program, wherever and whenever it is built.
    target_compile_options(brisgate_options INTERFACE "-ffile-prefix-map=${CMAKE_SOURCE_DIR}=.")
    target_link_options(brisgate_options INTERFACE -Wl,--no-insert-timestamp)
endif()
