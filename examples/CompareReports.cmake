# The same case in several forms. What casereport tells of its cells and of what lies beside them, and the pictures that
# it draws of these, must not differ, neither between the forms nor without index files and caches.
#   cmake -DPROGRAM=casereport "-DFOLDERS=A;B" -P CompareReports.cmake

# What stands in every report, as regular expressions.
set(contents
    "\nReport steps: 13\n"
    "PROD4[^\n]*multi-segment"
    "wells in the local grid NEAR-P1:\n +PROD1"
    "\nWell results: 5 wells, 13 dates\n"
    "\n  basic +CONIPOS:INTE [^\n]*HOSTGRID:CHAR WELLETC:CHAR\n"
    "\n  RFT +DEPTH:REAL PRESSURE:REAL SGAS:REAL SWAT:REAL\n"
    "\n  segments +SEGDEPTH:REAL "
    "\n  2026-01-01 +0.0 DAYS: INJ1 PROD1 PROD2 PROD3 PROD4\n"
    "\n +PROD1 +STANDARD +NEAR-P1 +2 +0 "
    "\n +PROD4 +MULTISEG +2 +3 "
    "\nGradients: 5 wells, 2 parameters, 13 dates\n  parameters: PERMMULT 1 of type 1, POROMULT 1 of type 2\n"
    "\n  gradients +PRESSURE:REAL SWAT:REAL\n"
    "\n +PROD1 +POROMULT 1 +2 +[0-9.-]+ +-0[.][0-9]+\n"
    "\nHistory match data: 5 wells, 1 groups, 2 parameters, 13 times\n  not encoded, double precision, with values\n"
    "\n  preamble +GRADGRUP:CHAR GRADWELL:CHAR\n"
    "\n  PROD1 +WBHP +200.0000 +-?0.0000 +-?0.0000\n"
    "\nBoundary FLUX, for MA10, METRIC, grid 10 x 10 x 2\n +[0-9]+ connections, 12 time ranges\n"
    "\n  regions: 0 1\n  arrays: FLUXOIL FLUXWAT\n"
    "\nMessages: [0-9]+\n  comment 3 message 13 warning [0-9]\n"
    "  warning +Water has broken through in PROD")

# Gives the report in two parts, the one on the cells, and the rest behind them up to the list of pictures.
function(report folder cells_out rest_out)
    execute_process(COMMAND "${PROGRAM}" "${folder}" FIVESPOT --charts "${folder}/charts"
        OUTPUT_VARIABLE text ERROR_VARIABLE errors RESULT_VARIABLE result)
    if(NOT result EQUAL 0)
        message(FATAL_ERROR "casereport failed in ${folder}: ${errors}")
    endif()
    foreach(content IN LISTS contents)
        if(NOT text MATCHES "${content}")
            message(SEND_ERROR "Not found in the report of ${folder}: ${content}\n${text}")
        endif()
    endforeach()
    set(parts "^.*\n(Initial properties, 2026-01-01.*)\n(Well results: .*)\n[0-9]+ pictures in .*$")
    string(REGEX REPLACE "${parts}" "\\1" cells "${text}")
    string(REGEX REPLACE "${parts}" "\\2" rest "${text}")
    set(${cells_out} "${cells}" PARENT_SCOPE)
    set(${rest_out} "${rest}" PARENT_SCOPE)
endfunction()

function(compare_pictures folder)
    foreach(picture IN LISTS pictures)
        file(SHA256 "${first}/charts/${picture}" expected_sum)
        file(SHA256 "${folder}/charts/${picture}" sum)
        if(NOT sum STREQUAL expected_sum)
            message(SEND_ERROR "${picture} of ${folder} differs from that of ${first}")
        endif()
    endforeach()
endfunction()

function(compare_texts what text expected)
    if(NOT text STREQUAL expected)
        message(SEND_ERROR "${what} differ from those of ${first}:\n${text}")
    endif()
endfunction()

list(GET FOLDERS 0 first)
report("${first}" expected_cells expected_rest)
file(GLOB pictures RELATIVE "${first}/charts"
    "${first}/charts/map-*.svg" "${first}/charts/well-*.svg" "${first}/charts/net-flow-*.svg"
    "${first}/charts/derivative-*.svg")
list(LENGTH pictures count)
if(NOT count EQUAL 19) # nine maps, a picture of each of five wells, one of a region, four of derivatives
    message(SEND_ERROR "There are ${count} maps and pictures of wells, regions and derivatives of ${first}: ${pictures}")
endif()
foreach(folder IN LISTS FOLDERS)
    report("${folder}" cells rest)
    compare_texts("The cells of ${folder}" "${cells}" "${expected_cells}")
    compare_texts("The wells, fluxes or messages of ${folder}" "${rest}" "${expected_rest}")
    compare_pictures("${folder}")

    # Once more in a copy that has no index files and caches; there, the arrays of headers are listed, too.
    set(scanned "${folder}-scanned")
    file(REMOVE_RECURSE "${scanned}")
    file(COPY "${folder}/" DESTINATION "${scanned}" PATTERN charts EXCLUDE)
    file(GLOB indexes "${scanned}/*INSPEC" "${scanned}/*RSSPEC" "${scanned}/*_content_index__.xml")
    file(REMOVE ${indexes})
    report("${scanned}" ignored rest)
    compare_texts("The wells, fluxes or messages of ${scanned}" "${rest}" "${expected_rest}")
    compare_pictures("${scanned}")
endforeach()
