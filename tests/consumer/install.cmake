# cmake -DBUILD_DIR=... -DPREFIX=... -P install.cmake: installs the libraries of a build afresh.
file(REMOVE_RECURSE "${PREFIX}")
execute_process(
    COMMAND "${CMAKE_COMMAND}" --install "${BUILD_DIR}" --prefix "${PREFIX}"
        --component korvane_development
    OUTPUT_QUIET
    COMMAND_ERROR_IS_FATAL ANY)
