# What cmake/options.cmake says, for Microsoft's compiler: only the product is built with it.
target_compile_options(brisgate_options INTERFACE /W4 /permissive- /utf-8 /EHsc /Zc:__cplusplus /guard:cf)
target_compile_definitions(brisgate_options INTERFACE UNICODE _UNICODE NOMINMAX WIN32_LEAN_AND_MEAN STRICT
                           _WIN32_WINNT=0x0A00 WINVER=0x0A00)
target_link_options(brisgate_options INTERFACE /guard:cf /DYNAMICBASE /NXCOMPAT /HIGHENTROPYVA /Brepro)
set(CMAKE_MSVC_RUNTIME_LIBRARY MultiThreaded$<$<CONFIG:Debug>:Debug>)
add_library(brisgate_sanitizers INTERFACE)
