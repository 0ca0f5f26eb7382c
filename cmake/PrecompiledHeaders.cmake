# SPDX-License-Identifier: MIT
# What most sources include is compiled once for each of four kinds of target. The walls stand: a
# target that does not link the toolkit gets none of its headers this way either. The dev and lint
# presets build without, so that every source goes on naming what it includes.
if(NOT DWELLKEY_PCH)
    return()
endif()

if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU") # it sees faults in its own strings once they come precompiled
    target_compile_options(dwellkey_compile_options INTERFACE -Wno-restrict -Wno-array-bounds)
endif()

set(standard_headers
    <algorithm> <array> <chrono> <cstddef> <cstdint> <cstdlib> <filesystem> <functional> <map>
    <memory> <optional> <set> <string> <string_view> <utility> <variant> <vector>)
set(toolkit_headers
    <QAbstractButton> <QApplication> <QCoreApplication> <QEvent> <QKeyEvent> <QLabel> <QObject>
    <QPainter> <QString> <QVBoxLayout> <QWidget>)
set(test_headers <gmock/gmock.h> <gtest/gtest.h> <iostream>)

# dwellkey_precompiled(KIND HEADERS header ... LINKS library ...): the target whose precompiled headers
# all targets of that kind use.
function(dwellkey_precompiled kind)
    cmake_parse_arguments(P "" "" "HEADERS;LINKS" ${ARGN})
    set(source ${CMAKE_BINARY_DIR}/precompiled/${kind}.cpp)
    if(NOT EXISTS ${source})
        file(WRITE ${source} "")
    endif()
    add_library(dwellkey_precompiled_${kind} OBJECT EXCLUDE_FROM_ALL ${source})
    target_link_libraries(dwellkey_precompiled_${kind}
        PRIVATE dwellkey_compile_options ${P_LINKS})
    target_precompile_headers(dwellkey_precompiled_${kind} PRIVATE ${P_HEADERS})
    if(CMAKE_CXX_COMPILER_ID MATCHES "Clang") # or no compiler cache could know it again
        target_compile_options(dwellkey_precompiled_${kind} PRIVATE "SHELL:-Xclang -fno-pch-timestamp")
    endif()
    if(kind MATCHES "^test") # these serve executables
        set_target_properties(dwellkey_precompiled_${kind} PROPERTIES POSITION_INDEPENDENT_CODE OFF)
        target_compile_options(dwellkey_precompiled_${kind}
            PRIVATE -fPIE ${DWELLKEY_TEST_OPTIONS})
    endif()
endfunction()

# dwellkey_sees(LIBRARY RESULT PROPERTY TARGET ...): whether one of the targets links that library, itself
# or through what it hands on.
function(dwellkey_sees library result property)
    set(${result} FALSE PARENT_SCOPE)
    foreach(target IN LISTS ARGN)
        get_target_property(linked ${target} ${property})
        list(FILTER linked INCLUDE REGEX "^(dwellkey_|gallery_|Qt6::|GTest::)")
        if(library IN_LIST linked)
            set(${result} TRUE PARENT_SCOPE)
            return()
        endif()
        list(FILTER linked INCLUDE REGEX "^(dwellkey_|gallery_)")
        dwellkey_sees(${library} found INTERFACE_LINK_LIBRARIES ${linked})
        if(found)
            set(${result} TRUE PARENT_SCOPE)
            return()
        endif()
    endforeach()
endfunction()

dwellkey_precompiled(models HEADERS ${standard_headers})
dwellkey_precompiled(views HEADERS ${standard_headers} ${toolkit_headers} LINKS Qt6::Widgets)
if(DWELLKEY_TESTS)
    dwellkey_precompiled(tests_of_models HEADERS ${test_headers} ${standard_headers} LINKS GTest::gmock_main)
    dwellkey_precompiled(tests_of_views HEADERS ${test_headers} ${standard_headers} ${toolkit_headers}
        LINKS GTest::gmock_main Qt6::Widgets)
endif()

get_property(targets GLOBAL PROPERTY DWELLKEY_TARGETS)
foreach(target IN LISTS targets)
    get_target_property(type ${target} TYPE)
    get_target_property(options ${target} COMPILE_OPTIONS)
    if(options MATCHES "fuzzer") # compiled in a way of its own
        continue()
    endif()
    dwellkey_sees(Qt6::Widgets sees_toolkit LINK_LIBRARIES ${target})
    dwellkey_sees(GTest::gmock_main is_test LINK_LIBRARIES ${target})
    if(sees_toolkit)
        set(kind views)
    else()
        set(kind models)
    endif()
    if(is_test)
        target_precompile_headers(${target} REUSE_FROM dwellkey_precompiled_tests_of_${kind})
    elseif(NOT type STREQUAL "EXECUTABLE") # of one or two sources
        target_precompile_headers(${target} REUSE_FROM dwellkey_precompiled_${kind})
    endif()
endforeach()
