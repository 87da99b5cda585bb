# What is built besides the library. The developers' targets are on only where this is the project being worked on.

if(NOT DEFINED PROJECT_IS_TOP_LEVEL)
    set(PROJECT_IS_TOP_LEVEL OFF)
endif()

option(MRLIO_BUILD_TESTS "Build the tests" ${PROJECT_IS_TOP_LEVEL})
option(MRLIO_BUILD_FUZZERS "Build the fuzz targets" ${PROJECT_IS_TOP_LEVEL})
option(MRLIO_BUILD_EXAMPLES "Build the example programs" ${PROJECT_IS_TOP_LEVEL})
option(MRLIO_BUILD_BENCHMARKS "Build the benchmarks" OFF)
option(MRLIO_WARNINGS_AS_ERRORS "Stop at a warning in our own sources" ${PROJECT_IS_TOP_LEVEL})
option(MRLIO_USE_CCACHE "Compile through ccache if it is there" ${PROJECT_IS_TOP_LEVEL})
option(MRLIO_USE_LLD "Link with lld if it is there" ${PROJECT_IS_TOP_LEVEL})
option(MRLIO_LIBFUZZER "Link the fuzz targets with libFuzzer (clang) instead of the replaying main" OFF)
set(MRLIO_SANITIZE "" CACHE STRING "Sanitizers for all our targets: address,undefined or thread")

if(PROJECT_IS_TOP_LEVEL AND NOT CMAKE_BUILD_TYPE AND NOT CMAKE_CONFIGURATION_TYPES)
    set(CMAKE_BUILD_TYPE Release CACHE STRING "Build type" FORCE)
endif()

if(PROJECT_IS_TOP_LEVEL)
    set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
    set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/bin")
    set(CMAKE_LIBRARY_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/lib")
endif()

if(MRLIO_USE_CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
    find_program(MRLIO_CCACHE ccache)
    if(MRLIO_CCACHE)
        # The current folder stays out of the hash, so that several build folders share what they compile.
        set(CMAKE_CXX_COMPILER_LAUNCHER "${CMAKE_COMMAND}" -E env CCACHE_NOHASHDIR=1 "${MRLIO_CCACHE}")
    endif()
endif()
