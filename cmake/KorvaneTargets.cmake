# What every target of the project shares: language level, warnings, sanitizers, and the helpers that
# declare libraries and tests.
include(GNUInstallDirs)

if(PROJECT_IS_TOP_LEVEL)
    set(CMAKE_CXX_EXTENSIONS OFF)
    set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
    find_program(KORVANE_CCACHE ccache)
    if(KORVANE_CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
        set(CMAKE_CXX_COMPILER_LAUNCHER "${KORVANE_CCACHE}")
    endif()
endif()

add_library(korvane_build_options INTERFACE)
target_compile_options(korvane_build_options INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual -Wcast-align
    -Wnull-dereference -Wimplicit-fallthrough
    $<$<BOOL:${KORVANE_WERROR}>:-Werror>)
if(KORVANE_SANITIZE)
    target_compile_options(korvane_build_options INTERFACE
        -fsanitize=${KORVANE_SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=all
        # A null pointer traps anyway; these two checks alone are a third of the compile time.
        -fno-sanitize=null,alignment
        # -Wnull-dereference misfires on the checks that the sanitizers insert.
        -Wno-null-dereference -Wno-maybe-uninitialized)
    target_link_options(korvane_build_options INTERFACE -fsanitize=${KORVANE_SANITIZE})
endif()

# korvane_precompile(<target> [QT] [TEST]): reads the headers that most sources of the target include
# only once. A compiler cache does better than that, and the two do not go together.
function(korvane_precompile target)
    cmake_parse_arguments(ARG "QT;TEST" "" "" ${ARGN})
    if(CMAKE_CXX_COMPILER_LAUNCHER)
        return()
    endif()
    set(headers
        <algorithm> <functional> <map> <memory> <optional> <random> <string> <unordered_map> <vector>)
    if(ARG_QT)
        list(APPEND headers
            <QApplication> <QLocale> <QMenu> <QMouseEvent> <QPainter> <QScrollBar> <QXmlStreamReader>)
    endif()
    if(ARG_TEST)
        list(APPEND headers <gmock/gmock.h> <gtest/gtest.h>)
    endif()
    target_precompile_headers(${target} PRIVATE ${headers})
endfunction()

# korvane_unite(<target>): where KORVANE_UNITY says so, compiles the target as a few large units, in a
# third of the time. Names of its sources must not clash, then.
function(korvane_unite target)
    if(KORVANE_UNITY)
        set_target_properties(${target} PROPERTIES UNITY_BUILD ON)
    endif()
endfunction()

# Declares a library of the project. Its folders add sources and headers with
# target_sources(<name> PRIVATE ... PUBLIC FILE_SET HEADERS FILES ...).
function(korvane_add_library name alias)
    add_library(${name})
    add_library(korvane::${alias} ALIAS ${name})
    set_target_properties(${name} PROPERTIES
        EXPORT_NAME ${alias}
        VERSION ${PROJECT_VERSION}
        SOVERSION ${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR}
        CXX_VISIBILITY_PRESET hidden
        VISIBILITY_INLINES_HIDDEN ON
        # Plug-ins link the static libraries too.
        POSITION_INDEPENDENT_CODE ON
        VERIFY_INTERFACE_HEADER_SETS ${PROJECT_IS_TOP_LEVEL})
    korvane_unite(${name})
    get_target_property(type ${name} TYPE)
    if(type STREQUAL "STATIC_LIBRARY")
        target_compile_definitions(${name} PUBLIC $<$<PLATFORM_ID:Windows>:KORVANE_STATIC>)
    endif()
    target_compile_features(${name} PUBLIC cxx_std_20)
    target_link_libraries(${name} PRIVATE $<BUILD_INTERFACE:korvane_build_options>)
    target_sources(${name} PUBLIC FILE_SET HEADERS BASE_DIRS "${PROJECT_SOURCE_DIR}/src")
endfunction()

# korvane_add_test(<name> [QT] SOURCES ... [LIBRARIES ...])
# One executable of tests, a part of the target korvane_tests. QT: runs on the offscreen platform, with a main that fails on unexpected
# Qt warnings; without it the test sees the core only.
function(korvane_add_test name)
    cmake_parse_arguments(ARG "QT" "" "SOURCES;LIBRARIES" ${ARGN})
    if(ARG_QT AND NOT KORVANE_WIDGETS)
        return()
    endif()
    add_executable(${name} ${ARG_SOURCES})
    add_dependencies(korvane_tests ${name})
    target_link_libraries(${name} PRIVATE ${ARG_LIBRARIES} korvane_build_options)
    if(ARG_QT)
        set_target_properties(${name} PROPERTIES AUTOMOC ON)
        target_link_libraries(${name} PRIVATE korvane::widgets korvane_test_support_qt)
        korvane_precompile(${name} QT TEST)
        set(environment "QT_QPA_PLATFORM=offscreen;LC_ALL=C.UTF-8;QT_LOGGING_RULES=qt.qpa.*=false")
    else()
        target_link_libraries(${name} PRIVATE korvane::core korvane_test_support GTest::gtest_main)
        korvane_precompile(${name} TEST)
        set(environment "LC_ALL=C.UTF-8")
    endif()
    gtest_discover_tests(${name}
        DISCOVERY_MODE PRE_TEST
        DISCOVERY_TIMEOUT 60
        PROPERTIES ENVIRONMENT "${environment}" TIMEOUT 300)
endfunction()
