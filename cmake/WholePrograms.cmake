# SPDX-License-Identifier: LicenseRef-Proprietary
# Under valgrind a program takes longer to start than most of its tests to run: there all tests of a
# program are one, but where EACH_TEST_IN_A_PROCESS is set.
if(NOT CHECKED_BY STREQUAL "valgrind")
    return()
endif()

function(gtest_discover_tests target)
    if(EACH_TEST_IN_A_PROCESS)
        cmake_parse_arguments(of "" "" PROPERTIES ${ARGN})
        _gtest_discover_tests(${target} ${of_UNPARSED_ARGUMENTS}
            PROPERTIES LABELS bounded ${of_PROPERTIES})
        return()
    endif()
    cmake_parse_arguments(of NO_PRETTY_VALUES "TEST_PREFIX;TEST_SUFFIX;TEST_FILTER" PROPERTIES ${ARGN})
    if(of_TEST_FILTER)
        set(filter "--gtest_filter=${of_TEST_FILTER}")
    endif()
    add_test(NAME ${target} COMMAND ${target} --gtest_brief=1 ${filter})
    set_property(TEST ${target} PROPERTY LABELS bounded)
    if(of_PROPERTIES)
        set_tests_properties(${target} PROPERTIES ${of_PROPERTIES})
    endif()
endfunction()
