# Installs into a folder of its own and builds a program against that in the two ways users do.
# BUILD_DIR, CONSUMER_DIR, WORK_DIR, CXX, GENERATOR, VERSION

cmake_minimum_required(VERSION 3.22)

file(REMOVE_RECURSE "${WORK_DIR}")
set(prefix "${WORK_DIR}/prefix")

function(run)
    execute_process(COMMAND ${ARGV} COMMAND_ECHO STDOUT COMMAND_ERROR_IS_FATAL ANY)
endfunction()

run("${CMAKE_COMMAND}" --install "${BUILD_DIR}" --prefix "${prefix}")

message(STATUS "with find_package")
run("${CMAKE_COMMAND}" -S "${CONSUMER_DIR}" -B "${WORK_DIR}/consumer" -G "${GENERATOR}"
    "-DCMAKE_CXX_COMPILER=${CXX}" "-DCMAKE_PREFIX_PATH=${prefix}")
run("${CMAKE_COMMAND}" --build "${WORK_DIR}/consumer")
run("${WORK_DIR}/consumer/consumer")

message(STATUS "with pkg-config")
file(GLOB_RECURSE pc_file "${prefix}/*/mrlio.pc")
get_filename_component(pc_dir "${pc_file}" DIRECTORY)
get_filename_component(lib_dir "${pc_dir}" DIRECTORY)
set(ENV{PKG_CONFIG_PATH} "${pc_dir}")
execute_process(COMMAND pkg-config --cflags --libs mrlio
    OUTPUT_VARIABLE flags OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
execute_process(COMMAND pkg-config --modversion mrlio
    OUTPUT_VARIABLE version OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
if(NOT version STREQUAL VERSION)
    message(FATAL_ERROR "mrlio.pc tells version '${version}' instead of '${VERSION}'")
endif()
separate_arguments(flags UNIX_COMMAND "${flags}")
run("${CXX}" -std=c++20 "${CONSUMER_DIR}/main.cpp" -o "${WORK_DIR}/with-pkg-config" ${flags} "-Wl,-rpath,${lib_dir}")
run("${WORK_DIR}/with-pkg-config")
