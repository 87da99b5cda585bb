# The program in the README is one of the examples, so that it compiles and does what it says.
#   cmake -DREADME=... -DPROGRAM=... -P CheckReadme.cmake
file(READ "${README}" readme)
file(READ "${PROGRAM}" program)
string(FIND "${readme}" "```cpp\n${program}```" place)
if(place EQUAL -1)
    message(FATAL_ERROR "The C++ program in ${README} differs from ${PROGRAM}")
endif()
