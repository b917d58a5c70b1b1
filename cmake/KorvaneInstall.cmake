# What `cmake --install` puts where, in install components that can be taken alone:
#   korvane_runtime      the shared libraries; nothing in a static build
#   korvane_development  headers (by the same paths as in src/), static libraries, and the package
#                        files with which other projects find them
#   korvane_programs     the planner with its place in the desktop
#   korvane_designer     the form designer's plug-in
include(CMakePackageConfigHelpers)

set(package_dir "${CMAKE_INSTALL_LIBDIR}/cmake/Korvane")

# korvane_install_library(<target> <export> [REQUIRES <pkg-config module>...])
# Exports the target in a file of its own, so that each package component loads only what it needs,
# and describes it for pkg-config.
function(korvane_install_library name export)
    cmake_parse_arguments(ARG "" "" "REQUIRES" ${ARGN})
    install(TARGETS ${name}
        EXPORT ${export}
        ARCHIVE DESTINATION "${CMAKE_INSTALL_LIBDIR}" COMPONENT korvane_development
        LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}"
            COMPONENT korvane_runtime NAMELINK_COMPONENT korvane_development
        RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}" COMPONENT korvane_runtime
        FILE_SET HEADERS
            DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}/korvane" COMPONENT korvane_development)
    install(EXPORT ${export}
        NAMESPACE korvane::
        DESTINATION "${package_dir}"
        COMPONENT korvane_development)

    get_target_property(alias ${name} EXPORT_NAME)
    string(REPLACE ";" ", " requires "${ARG_REQUIRES}")
    configure_file(
        "${CMAKE_CURRENT_FUNCTION_LIST_DIR}/korvane.pc.in"
        "${PROJECT_BINARY_DIR}/korvane-${alias}.pc" @ONLY)
    install(FILES "${PROJECT_BINARY_DIR}/korvane-${alias}.pc"
        DESTINATION "${CMAKE_INSTALL_LIBDIR}/pkgconfig"
        COMPONENT korvane_development)
endfunction()

korvane_install_library(korvane_core KorvaneCoreTargets)
if(KORVANE_WIDGETS)
    # A shared library finds what only itself needs; who links a static one links that, too.
    set(consumer_qt_components ${KORVANE_QT_COMPONENTS})
    if(NOT BUILD_SHARED_LIBS)
        list(APPEND consumer_qt_components ${KORVANE_QT_PRIVATE_COMPONENTS})
    endif()
    list(TRANSFORM consumer_qt_components PREPEND Qt6 OUTPUT_VARIABLE qt_modules)
    korvane_install_library(korvane_widgets KorvaneWidgetsTargets
        REQUIRES "korvane-core = ${PROJECT_VERSION}" ${qt_modules})
endif()

configure_package_config_file(
    "${CMAKE_CURRENT_LIST_DIR}/KorvaneConfig.cmake.in"
    "${PROJECT_BINARY_DIR}/KorvaneConfig.cmake"
    INSTALL_DESTINATION "${package_dir}")
write_basic_package_version_file(
    "${PROJECT_BINARY_DIR}/KorvaneConfigVersion.cmake"
    COMPATIBILITY SameMinorVersion)
install(FILES
        "${PROJECT_BINARY_DIR}/KorvaneConfig.cmake"
        "${PROJECT_BINARY_DIR}/KorvaneConfigVersion.cmake"
    DESTINATION "${package_dir}"
    COMPONENT korvane_development)

include(KorvanePackages)
