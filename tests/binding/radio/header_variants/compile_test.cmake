# SPDX-License-Identifier: LicenseRef-Proprietary
# Compiles SOURCE. EXPECTATION is "compiles", or the functions that the compiler must refuse by name,
# each with one error, and without any other error.
list(TRANSFORM INCLUDES PREPEND -I)
separate_arguments(FLAGS UNIX_COMMAND "${FLAGS}")
execute_process(
    COMMAND ${COMPILER} ${FLAGS} -std=c++20 -fsyntax-only ${INCLUDES} ${SOURCE}
    RESULT_VARIABLE result
    OUTPUT_VARIABLE output
    ERROR_VARIABLE output)

if(EXPECTATION STREQUAL "compiles")
    if(NOT result EQUAL 0)
        message(FATAL_ERROR "it does not compile:\n${output}")
    endif()
    return()
endif()

if(result EQUAL 0)
    message(FATAL_ERROR "it compiles")
endif()
foreach(function IN LISTS EXPECTATION)
    if(NOT output MATCHES "error: [^\n]*${function}: sorel.h declares a parameter")
        message(FATAL_ERROR "no error names ${function}:\n${output}")
    endif()
endforeach()
string(REGEX MATCHALL "error: " errors "${output}")
list(LENGTH errors count)
list(LENGTH EXPECTATION expected)
if(NOT count EQUAL expected)
    message(FATAL_ERROR "${count} errors in place of ${expected}:\n${output}")
endif()
