# SPDX-License-Identifier: LicenseRef-Proprietary
# Counting what tests run of the code of the board.

# count_coverage(TARGET...): of the target's own sources; whoever links with it gets what that takes.
function(count_coverage)
    if(NOT SORELAPP_COVERAGE)
        return()
    endif()
    if(NOT TARGET counts_at_abort)
        add_library(counts_at_abort OBJECT ${PROJECT_SOURCE_DIR}/tests/coverage/counts_at_abort.c)
        # For sigaction().
        target_compile_definitions(counts_at_abort PRIVATE _POSIX_C_SOURCE=200809L)
    endif()
    foreach(target IN LISTS ARGN)
        target_compile_options(${target} PRIVATE --coverage)
        target_link_options(${target} PUBLIC --coverage)
        target_link_libraries(${target} PUBLIC $<TARGET_OBJECTS:counts_at_abort>)
    endforeach()
endfunction()
