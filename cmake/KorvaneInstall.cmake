# Installs the libraries with their headers (by the same paths as in src/) and the package files
# with which other projects find them. Its own install component, so that it can be installed
# without the programs: cmake --install <build> --component korvane_development
include(CMakePackageConfigHelpers)

set(package_dir "${CMAKE_INSTALL_LIBDIR}/cmake/korvane")

# Exports the target in a file of its own, so that each package component loads only what it needs.
function(korvane_install_library name export)
    install(TARGETS ${name}
        EXPORT ${export}
        ARCHIVE DESTINATION "${CMAKE_INSTALL_LIBDIR}" COMPONENT korvane_development
        LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}" COMPONENT korvane_development
        FILE_SET HEADERS
            DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}/korvane" COMPONENT korvane_development)
    install(EXPORT ${export}
        NAMESPACE korvane::
        DESTINATION "${package_dir}"
        COMPONENT korvane_development)
endfunction()

korvane_install_library(korvane_core korvaneCoreTargets)
if(KORVANE_WIDGETS)
    korvane_install_library(korvane_widgets korvaneWidgetsTargets)
endif()

configure_package_config_file(
    "${CMAKE_CURRENT_LIST_DIR}/korvaneConfig.cmake.in"
    "${PROJECT_BINARY_DIR}/korvaneConfig.cmake"
    INSTALL_DESTINATION "${package_dir}")
write_basic_package_version_file(
    "${PROJECT_BINARY_DIR}/korvaneConfigVersion.cmake"
    COMPATIBILITY SameMinorVersion)
install(FILES
        "${PROJECT_BINARY_DIR}/korvaneConfig.cmake"
        "${PROJECT_BINARY_DIR}/korvaneConfigVersion.cmake"
    DESTINATION "${package_dir}"
    COMPONENT korvane_development)
