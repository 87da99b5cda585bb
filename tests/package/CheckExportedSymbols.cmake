# Fails if the library shows anything outside namespace Kvt, or nothing at all.
# NM, LIBRARY  the tool and the shared library

cmake_minimum_required(VERSION 3.22)

execute_process(COMMAND "${NM}" --dynamic --defined-only --format=posix "${LIBRARY}"
    OUTPUT_VARIABLE listing COMMAND_ERROR_IS_FATAL ANY)
string(REGEX MATCHALL "[^\n]+" lines "${listing}")

# As the compiler spells them: names, tables and type information, thunks, guards of statics, statics of functions.
set(kinds "|T[VTISC]|T[hv][n0-9_]+_|Tc[hvn0-9_]+_|GV|GVZ|Z")
set(faults "")
set(count 0)
foreach(line IN LISTS lines)
    string(REGEX REPLACE " .*" "" symbol "${line}")
    if(symbol MATCHES "^_Z(${kinds})NK?3Kvt")
        math(EXPR count "${count} + 1")
    else()
        list(APPEND faults "${symbol}")
    endif()
endforeach()

if(faults)
    list(JOIN faults "\n  " text)
    message(FATAL_ERROR "Exported, but none of ours:\n  ${text}")
endif()
if(count EQUAL 0)
    message(FATAL_ERROR "${LIBRARY} exports nothing")
endif()
message(STATUS "${count} exported symbols, all in Kvt")
