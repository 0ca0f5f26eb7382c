# SPDX-License-Identifier: MIT
# The walls of the house. A module publishes the headers that it lists and nothing else: they are
# linked into a folder of the module's own below build/walls, which is the only include path that
# its users get. So a header that a module may not see is a file that the compiler cannot find.

add_library(dwellkey_compile_options INTERFACE)
target_compile_options(dwellkey_compile_options INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wno-sign-conversion -Wnon-virtual-dtor
    -Woverloaded-virtual -Wold-style-cast -Wcast-qual
    $<$<BOOL:${DWELLKEY_WERROR}>:-Werror>)
target_compile_definitions(dwellkey_compile_options INTERFACE
    QT_NO_KEYWORDS QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII
    QT_DISABLE_DEPRECATED_BEFORE=0x060400)

# Of the tests' own code nobody asks speed but the compiler's.
set(DWELLKEY_TEST_OPTIONS $<$<CONFIG:RelWithDebInfo>:-O0>)

# What every target of ours gets.
function(dwellkey_target target)
    target_link_libraries(${target} PRIVATE dwellkey_compile_options)
    set_property(GLOBAL APPEND PROPERTY DWELLKEY_TARGETS ${target}) # see PrecompiledHeaders
endfunction()

# dwellkey_module(NAME [FOLDER folder] SOURCES ... HEADERS ... [USES module ...] [LINKS library ...]
#                 [PRIVATELY library ...])
#   FOLDER     path below src/, NAME by default; users include "<FOLDER>/<header>"
#   USES       modules whose headers this one, and its users, may see
#   PRIVATELY  libraries that only this module's own sources may see
# Called from the module's own folder.
function(dwellkey_module name)
    cmake_parse_arguments(M "" "FOLDER" "SOURCES;HEADERS;USES;LINKS;PRIVATELY" ${ARGN})
    if(NOT M_FOLDER)
        set(M_FOLDER ${name})
    endif()
    set(wall ${CMAKE_BINARY_DIR}/walls/${name})
    file(REMOVE_RECURSE ${wall})
    file(MAKE_DIRECTORY ${wall}/${M_FOLDER})
    foreach(header IN LISTS M_HEADERS)
        file(CREATE_LINK ${CMAKE_CURRENT_SOURCE_DIR}/${header} ${wall}/${M_FOLDER}/${header} SYMBOLIC)
    endforeach()
    if(M_SOURCES)
        add_library(dwellkey_${name} STATIC ${M_SOURCES})
        target_include_directories(dwellkey_${name} PUBLIC ${wall})
        target_link_libraries(dwellkey_${name} PUBLIC ${M_LINKS} PRIVATE ${M_PRIVATELY})
        dwellkey_target(dwellkey_${name})
        set(visibility PUBLIC)
    else()
        add_library(dwellkey_${name} INTERFACE)
        target_include_directories(dwellkey_${name} INTERFACE ${wall})
        target_link_libraries(dwellkey_${name} INTERFACE ${M_LINKS})
        set(visibility INTERFACE)
    endif()
    foreach(used IN LISTS M_USES)
        target_link_libraries(dwellkey_${name} ${visibility} dwellkey_${used})
    endforeach()
endfunction()
