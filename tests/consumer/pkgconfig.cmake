# cmake -DPREFIX=... -DCOMPILER=... -DFLAGS=... -DOUTPUT=... -P pkgconfig.cmake: compiles the core's
# consumer with nothing but what pkg-config says of the installed package, and runs it.
find_program(pkg_config NAMES pkg-config pkgconf REQUIRED)
file(GLOB_RECURSE description "${PREFIX}/*/korvane-core.pc")
cmake_path(GET description PARENT_PATH folder)
set(ENV{PKG_CONFIG_PATH} "${folder}")
execute_process(
    COMMAND "${pkg_config}" --define-variable=prefix=${PREFIX} --cflags --libs korvane-core
    OUTPUT_VARIABLE flags
    COMMAND_ERROR_IS_FATAL ANY)
separate_arguments(flags UNIX_COMMAND "${FLAGS} ${flags}")
list(TRANSFORM flags STRIP)
execute_process(
    COMMAND "${COMPILER}" "${CMAKE_CURRENT_LIST_DIR}/project/core.cpp" -o "${OUTPUT}" ${flags}
    COMMAND_ERROR_IS_FATAL ANY)
execute_process(COMMAND "${OUTPUT}" COMMAND_ERROR_IS_FATAL ANY)
