# SPDX-License-Identifier: LicenseRef-Proprietary
# A test that builds the shell in a tree of its own.

# add_nested_build(NAME OPTIONS [COMMAND...]): configures and builds the shell with those options
# in a folder of the test's name below the current one, then runs the command.
function(add_nested_build name options)
    if(CMAKE_TOOLCHAIN_FILE)
        list(APPEND options -DCMAKE_TOOLCHAIN_FILE=${CMAKE_TOOLCHAIN_FILE})
    endif()
    add_test(NAME ${name}
        COMMAND ${CMAKE_CTEST_COMMAND}
            --build-and-test ${PROJECT_SOURCE_DIR} ${CMAKE_CURRENT_BINARY_DIR}/${name}
            --build-generator ${CMAKE_GENERATOR}
            --build-target sorelapp
            --build-options
                -DCMAKE_C_COMPILER=${CMAKE_C_COMPILER}
                -DCMAKE_CXX_COMPILER=${CMAKE_CXX_COMPILER}
                ${options}
            --test-command ${ARGN})
    set_tests_properties(${name} PROPERTIES TIMEOUT 600)
endfunction()
