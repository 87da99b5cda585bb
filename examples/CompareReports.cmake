# The same case in several forms: what casereport tells of its cells and the maps that it draws must not differ, neither
# between the forms nor without the index files.
#   cmake -DPROGRAM=casereport "-DFOLDERS=A;B" -P CompareReports.cmake
function(report folder out)
    execute_process(COMMAND "${PROGRAM}" "${folder}" FIVESPOT --charts "${folder}/charts"
        OUTPUT_VARIABLE text ERROR_VARIABLE errors RESULT_VARIABLE result)
    if(NOT result EQUAL 0)
        message(FATAL_ERROR "casereport failed in ${folder}: ${errors}")
    endif()
    # From the cells on, which stand behind the summary, to the list of pictures.
    string(REGEX REPLACE "^.*\n(Initial properties, 2026-01-01.*)\n[0-9]+ pictures in .*$" "\\1" cells "${text}")
    if(NOT cells MATCHES "\nReport steps: 13\n" OR NOT cells MATCHES "PROD4[^\n]*multi-segment"
       OR NOT cells MATCHES "wells in the local grid NEAR-P1:\n +PROD1")
        message(FATAL_ERROR "Something is missing in ${folder}:\n${text}")
    endif()
    set(${out} "${cells}" PARENT_SCOPE)
endfunction()

function(compare_maps folder)
    foreach(map IN LISTS maps)
        file(SHA256 "${first}/charts/${map}" expected_sum)
        file(SHA256 "${folder}/charts/${map}" sum)
        if(NOT sum STREQUAL expected_sum)
            message(SEND_ERROR "${map} of ${folder} differs from that of ${first}")
        endif()
    endforeach()
endfunction()

list(GET FOLDERS 0 first)
report("${first}" expected)
file(GLOB maps RELATIVE "${first}/charts" "${first}/charts/map-*.svg")
list(LENGTH maps count)
if(NOT count EQUAL 9)
    message(SEND_ERROR "There are ${count} maps of ${first}")
endif()
foreach(folder IN LISTS FOLDERS)
    report("${folder}" cells)
    if(NOT cells STREQUAL expected)
        message(SEND_ERROR "The cells of ${folder} differ from those of ${first}:\n${cells}")
    endif()
    compare_maps("${folder}")

    # Once more in a copy that has no index files; there, the headers are listed, too.
    set(scanned "${folder}-scanned")
    file(REMOVE_RECURSE "${scanned}")
    file(COPY "${folder}/" DESTINATION "${scanned}" PATTERN charts EXCLUDE)
    file(GLOB indexes "${scanned}/*INSPEC" "${scanned}/*RSSPEC")
    file(REMOVE ${indexes})
    report("${scanned}" ignored)
    compare_maps("${scanned}")
endforeach()
