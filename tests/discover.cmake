# Read by ctest before every run: adds the tests of one program, a process for each suite, or for each test of a suite
# that is isolated.
#
# What the program holds is kept in the LISTING, a line for each single test: the name of the ctest test that runs it,
# that one's filter, and the single test as GoogleTest calls it. tools/report.py counts by it.
#
# The script that includes this one sets SETTINGS (its own path), LISTING, PROGRAM, EMULATOR, FOLDER (where the program
# runs), and what vantor_suites was given: ROOM, VARIANT, ISOLATED, SERIAL and ENVIRONMENT.

cmake_minimum_required(VERSION 3.25)

function(vantor_list_tests)
    set(output "")
    set(result 1)
    foreach(try RANGE 1)   # Wine has starts that fail, and some that say nothing and look well
        if(NOT result EQUAL 0 OR output STREQUAL "")
            execute_process(COMMAND ${EMULATOR} ${PROGRAM} --gtest_list_tests WORKING_DIRECTORY ${FOLDER} TIMEOUT 60
                OUTPUT_VARIABLE output ERROR_VARIABLE error RESULT_VARIABLE result)
        endif()
    endforeach()
    if(NOT result EQUAL 0 OR output STREQUAL "")
        message(FATAL_ERROR "${PROGRAM} cannot list its tests: ${result}\n${output}${error}")
    endif()
    # A suite's line begins with its name and a dot, those of its tests with blanks; a # begins what a parameter is.
    string(REGEX REPLACE "[][;]" "_" output "${output}")
    string(REGEX REPLACE "\r?\n" ";" output "${output}")
    set(lines "")
    set(unknown ${ISOLATED})
    foreach(line IN LISTS output)
        if(line MATCHES "^([^ ]+)\\.( +#.*)?$")
            set(suite ${CMAKE_MATCH_1})
            set(isolated OFF)
            foreach(name IN LISTS ISOLATED)
                if("/${suite}/" MATCHES "/${name}/")   # a suite with parameters has their names too
                    set(isolated ON)
                    list(REMOVE_ITEM unknown ${name})
                endif()
            endforeach()
        elseif(line MATCHES "^  ([^ ]+)( +#.*)?$")
            set(test ${suite}.${CMAKE_MATCH_1})
            if(isolated)
                string(APPEND lines "${ROOM}/${test}${VARIANT} ${test} ${test}\n")
            else()
                string(APPEND lines "${ROOM}/${suite}${VARIANT} ${suite}.* ${test}\n")
            endif()
        endif()
    endforeach()
    if(unknown)
        message(FATAL_ERROR "${PROGRAM} has no suites ${unknown}")
    endif()
    file(WRITE ${LISTING} "${lines}")
endfunction()

function(vantor_add_tests)
    file(STRINGS ${LISTING} lines)
    set(last "")
    foreach(line IN LISTS lines)
        string(REPLACE " " ";" line ${line})
        list(GET line 0 name)
        list(GET line 1 filter)
        if(NOT name STREQUAL last)
            add_test(${name} ${EMULATOR} ${PROGRAM} --gtest_filter=${filter})
            set_tests_properties(${name} PROPERTIES WORKING_DIRECTORY ${FOLDER} LABELS ${ROOM} RUN_SERIAL ${SERIAL}
                ENVIRONMENT "${ENVIRONMENT}" TIMEOUT 300)   # minutes only for a thousand dialogs on a busy machine
        endif()
        set(last ${name})
    endforeach()
endfunction()

if(NOT EXISTS ${PROGRAM})
    add_test(${ROOM}/NotBuilt ${PROGRAM})
    return()
endif()
# With the same time stamp the listing may be the older one.
if(NOT EXISTS ${LISTING} OR ${PROGRAM} IS_NEWER_THAN ${LISTING} OR ${CMAKE_CURRENT_LIST_FILE} IS_NEWER_THAN ${LISTING}
        OR ${SETTINGS} IS_NEWER_THAN ${LISTING})
    vantor_list_tests()
endif()
vantor_add_tests()
