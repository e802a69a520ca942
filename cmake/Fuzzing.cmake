# SPDX-License-Identifier: LicenseRef-Proprietary
# The fuzz targets, and how everything is compiled for them.
#
# With SORELAPP_FUZZING all code counts the edges it runs over and has the sanitizers inside, and
# each target is a program of libFuzzer. Without it each is a program that runs files, and a test
# runs its corpus and the inputs that once found a mistake: on every machine and by every compiler
# that tests are run with.

if(SORELAPP_FUZZING)
    if(NOT CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
        message(FATAL_ERROR "SORELAPP_FUZZING: libFuzzer comes with clang")
    endif()
    set(sanitizers address,undefined,float-cast-overflow)
    # Not that of functions called by pointers of another type: it takes the types of the driver for
    # others than those of the shell, because the driver's library keeps its own to itself.
    add_compile_options(-O1 -g -fno-omit-frame-pointer
        -fsanitize=fuzzer-no-link,${sanitizers} -fno-sanitize=function -fno-sanitize-recover=all)
    add_link_options(-fsanitize=${sanitizers})
endif()

# add_fuzz_target(NAME SOURCES source... LIBRARIES library...): makes fuzz_NAME. The folder it is
# called from holds corpus/, and regressions/ where there are any.
function(add_fuzz_target name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;LIBRARIES")
    add_executable(fuzz_${name} ${arg_SOURCES})
    target_include_directories(fuzz_${name} PRIVATE ${PROJECT_SOURCE_DIR})
    target_link_libraries(fuzz_${name} PRIVATE ${arg_LIBRARIES} fuzz_cells)
    if(SORELAPP_FUZZING)
        target_sources(fuzz_${name} PRIVATE ${PROJECT_SOURCE_DIR}/fuzz/libfuzzer.cpp)
        target_link_options(fuzz_${name} PRIVATE -fsanitize=fuzzer)
    else()
        target_sources(fuzz_${name} PRIVATE ${PROJECT_SOURCE_DIR}/fuzz/replay.cpp)
        add_test(NAME fuzz.${name} COMMAND fuzz_${name}
            ${CMAKE_CURRENT_SOURCE_DIR}/corpus ${CMAKE_CURRENT_SOURCE_DIR}/regressions)
        set_tests_properties(fuzz.${name} PROPERTIES TIMEOUT 600)
    endif()
endfunction()
