# Runs PROGRAM, a list of the launcher and the program. Fails unless it ends well and prints what the file EXPECTED
# holds.

execute_process(COMMAND ${PROGRAM} OUTPUT_VARIABLE printed ERROR_VARIABLE complaint RESULT_VARIABLE status)
string(REPLACE "\r" "" printed "${printed}")
file(READ ${EXPECTED} expected)
if(NOT status EQUAL 0)
    message(FATAL_ERROR "ended with status ${status}\n${printed}${complaint}")
endif()
if(NOT printed STREQUAL expected)
    message(FATAL_ERROR "printed:\n${printed}\nexpected:\n${expected}")
endif()
