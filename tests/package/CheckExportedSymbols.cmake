# Fails if the library shows anything outside namespace Kvt, or nothing at all.
# NM, LIBRARY  the tool and the shared library

cmake_minimum_required(VERSION 3.22)

execute_process(COMMAND "${NM}" --dynamic --defined-only --demangle "${LIBRARY}"
    OUTPUT_VARIABLE listing COMMAND_ERROR_IS_FATAL ANY)
string(REPLACE ";" "," listing "${listing}")
string(REGEX MATCHALL "[^\n]+" lines "${listing}")

set(ours "Kvt::[A-Za-z_]")
set(about "(typeinfo|typeinfo name|vtable|VTT|guard variable|construction vtable) for ")
set(thunk "(non-virtual thunk|virtual thunk|covariant return thunk) to ")
set(faults "")
set(count 0)
foreach(line IN LISTS lines)
    string(REGEX REPLACE "^[0-9a-f]+ . " "" symbol "${line}")
    # A template's instance is shown with its result type first; the name itself stands before the first parenthesis.
    string(REGEX REPLACE "\\(.*" "" name "${symbol}")
    if(symbol MATCHES "^(${about}|${thunk})?${ours}" OR name MATCHES " [*&]*${ours}[^ ]*$")
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
