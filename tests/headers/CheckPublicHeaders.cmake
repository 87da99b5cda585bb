# Fails if MrlIO.h misses a public header, or if a public header reaches for what callers need not have.
# Of Boost they have the path alone, which the reader builders take.
# INCLUDE_ROOT  the folder that holds mrlio/

cmake_minimum_required(VERSION 3.22)

file(GLOB_RECURSE headers RELATIVE "${INCLUDE_ROOT}" "${INCLUDE_ROOT}/mrlio/*.h")
file(STRINGS "${INCLUDE_ROOT}/mrlio/MrlIO.h" umbrella REGEX "^#include")

set(faults "")
foreach(header IN LISTS headers)
    if(NOT header STREQUAL "mrlio/MrlIO.h" AND NOT "#include <${header}>" IN_LIST umbrella)
        list(APPEND faults "mrlio/MrlIO.h does not include <${header}>")
    endif()
    file(STRINGS "${INCLUDE_ROOT}/${header}" includes REGEX "^ *# *include")
    foreach(line IN LISTS includes)
        if(line MATCHES "\"|boost/|xercesc/" AND NOT line MATCHES "<boost/filesystem/path.hpp>")
            list(APPEND faults "${header}: a public header may not have: ${line}")
        endif()
    endforeach()
endforeach()

if(faults)
    list(JOIN faults "\n  " text)
    message(FATAL_ERROR "Public headers:\n  ${text}")
endif()
