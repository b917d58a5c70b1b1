# Debian packages, one for each install component, written by `cpack` in the build folder of the
# preset `package`. Which shared libraries they need, dpkg-shlibdeps finds out.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_CONTACT "The Korvane developers <korvane@localhost>")
set(CPACK_PACKAGE_VERSION "${PROJECT_VERSION}")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "${PROJECT_DESCRIPTION}")
set(CPACK_PACKAGING_INSTALL_PREFIX "${CMAKE_INSTALL_PREFIX}")
set(CPACK_PACKAGE_DIRECTORY "${PROJECT_BINARY_DIR}/packages")
set(CPACK_STRIP_FILES ON)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS "${PROJECT_BINARY_DIR}/src")

# korvane_package(<component> <package> <section> <description> [DEPENDS ...] [RECOMMENDS ...]
# [CONFLICTS ...])
macro(korvane_package component package section description)
    cmake_parse_arguments(ARG "" "DEPENDS;RECOMMENDS;CONFLICTS" "" ${ARGN})
    string(TOUPPER ${component} upper)
    list(APPEND CPACK_COMPONENTS_ALL ${component})
    set(CPACK_DEBIAN_${upper}_PACKAGE_NAME "${package}")
    set(CPACK_DEBIAN_${upper}_PACKAGE_SECTION "${section}")
    set(CPACK_COMPONENT_${upper}_DESCRIPTION "${description}")
    set(CPACK_DEBIAN_${upper}_PACKAGE_DEPENDS "${ARG_DEPENDS}")
    set(CPACK_DEBIAN_${upper}_PACKAGE_RECOMMENDS "${ARG_RECOMMENDS}")
    set(CPACK_DEBIAN_${upper}_PACKAGE_CONFLICTS "${ARG_CONFLICTS}")
endmacro()

set(CPACK_COMPONENTS_ALL)
set(runtime_package "libkorvane${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR}")
set(same_version "${runtime_package} (= ${PROJECT_VERSION})")
korvane_package(korvane_runtime ${runtime_package} libs
    "Planning and scheduling components for Qt 6
 A Gantt chart, a date scaler, a tree, a data grid and a schedule view,
 with printing for each. This package holds the shared libraries.")
korvane_package(korvane_development libkorvane-dev libdevel
    "Planning and scheduling components for Qt 6, development files
 Headers, CMake package and pkg-config files."
    DEPENDS "${same_version}, qt6-base-dev")
if(KORVANE_WIDGETS AND KORVANE_APPS)
    korvane_package(korvane_programs korvane-planner misc
        "Planner that opens project plans, timetables and calendars
 Shows them as Gantt charts and schedules, edits and prints them."
        DEPENDS "${same_version}, shared-mime-info, hicolor-icon-theme"
        RECOMMENDS "qt6-translations-l10n, fonts-dejavu-core | fonts-noto-core"
        CONFLICTS planner)
endif()
if(TARGET korvane_design)
    korvane_package(korvane_designer korvane-designer devel
        "Planning and scheduling components in the form designer
 The plug-in with which Qt Designer offers them for forms."
        DEPENDS "${same_version}, designer-qt6")
endif()
if(BUILD_SHARED_LIBS)
    # The link editor's name of the library is of use to nobody without its headers.
    set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
endif()
include(CPack)
