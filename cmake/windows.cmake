# The program is built small; what works through long lists in memory is built fast. What waits for the user or for the
# registry is not faster for it.
file(GLOB fast_sources CONFIGURE_DEPENDS text/*.cpp config/*.cpp)
list(FILTER fast_sources EXCLUDE REGEX "/config/(CsProfileSettings|Load|Operations|Redo|ReportingFile|RoundTrip|Save)[^/]*$")
foreach(name GroupsFile NameFields NameRows OwnerSearch PickerNames)
    list(APPEND fast_sources certs/${name}.cpp)
endforeach()
list(APPEND fast_sources crypto/LibrarySearch.cpp crypto/NameList.cpp app/RuleCommands.cpp
     app/RuleList.cpp app/RuleTexts.cpp ui/Choices.cpp ui/ListView.cpp)
if(NOT MSVC)
    set_source_files_properties(${fast_sources} PROPERTIES COMPILE_OPTIONS -O2 SKIP_PRECOMPILE_HEADERS ON)
endif()

# The Windows back ends and the product itself.
file(GLOB win32_sources CONFIGURE_DEPENDS platform/win32/*.cpp ui/win32/*.cpp)
add_library(win32 STATIC ${win32_sources})
target_link_libraries(win32 PUBLIC product comctl32 comdlg32 ole32 shell32)

# The version that the resources show is the project's.
configure_file(resources/version.h.in ${CMAKE_BINARY_DIR}/resources/version.h @ONLY)
configure_file(resources/brisgate.manifest.in ${CMAKE_BINARY_DIR}/resources/brisgate.manifest @ONLY)

file(GLOB resource_files CONFIGURE_DEPENDS resources/icons.rc resources/icons/*.ico resources/*.manifest)
list(APPEND resource_files ${CMAKE_SOURCE_DIR}/ui/Icons.inc ${CMAKE_BINARY_DIR}/resources/version.h
     ${CMAKE_BINARY_DIR}/resources/brisgate.manifest)
set_source_files_properties(resources/brisgate.rc PROPERTIES OBJECT_DEPENDS "${resource_files}")

add_executable(brisgate WIN32 app/win32/main.cpp resources/brisgate.rc)
target_link_libraries(brisgate PRIVATE win32)
# Of an exception that nobody catches, the runtime library would write the type to a console that a window program
# does not have, and carry a tenth of the program's code for it: it ends the program at once instead.
if(NOT MSVC)
    target_link_options(brisgate PRIVATE -municode -s
                        LINKER:--defsym,_ZN9__gnu_cxx27__verbose_terminate_handlerEv=abort)
else()
    # The manifest is among the resources: the linker must not add one of its own.
    target_link_options(brisgate PRIVATE /MANIFEST:NO /SUBSYSTEM:WINDOWS,10.0)
endif()
target_include_directories(brisgate PRIVATE resources ${CMAKE_BINARY_DIR}/resources)
set_target_properties(brisgate PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR})

if(NOT BRISGATE_TESTS)
    return()
endif()

# Helpers of scripts: seeding and dumping the registry, waiting for a window, and working in one.
add_executable(brisgate-registry demo/win32/registry_main.cpp)
target_link_libraries(brisgate-registry PRIVATE memory win32)
add_executable(brisgate-wait tools/win32/wait_window_main.cpp)
target_link_libraries(brisgate-wait PRIVATE brisgate_options)
target_link_options(brisgate-wait PRIVATE -municode)
add_executable(brisgate-drive tools/win32/drive_window_main.cpp)
target_link_libraries(brisgate-drive PRIVATE brisgate_options)
set_target_properties(brisgate-registry brisgate-wait brisgate-drive PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/tools)

# A stand-in for the cryptographic library, in a folder of its own: the product is never shipped with it.
add_library(morcel1 SHARED demo/win32/morcel1.cpp demo/win32/morcel1.def demo/win32/morcel1.rc)
target_link_libraries(morcel1 PRIVATE memory win32)
set_target_properties(morcel1 PROPERTIES PREFIX "" RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/demo
                      ARCHIVE_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/demo/import)
add_custom_command(TARGET morcel1 POST_BUILD
    COMMAND ${CMAKE_STRIP} $<TARGET_FILE:morcel1>
    COMMAND ${CMAKE_COMMAND} -E copy ${CMAKE_SOURCE_DIR}/demo/owners.txt ${CMAKE_BINARY_DIR}/demo/stand-in-owners.txt)
