# SPDX-License-Identifier: LicenseRef-Proprietary
# How the code that runs on the board is compiled and linked, beyond the build type.
include(${CMAKE_CURRENT_LIST_DIR}/Hardening.cmake)

# compile_as_product(TARGET...)
function(compile_as_product)
    count_coverage(${ARGN})
    harden_executable(${ARGN})
    foreach(target IN LISTS ARGN)
        # Neither is needed, and the C++ runtime library that they would pull in costs the target
        # memory and start-up time.
        target_compile_options(${target} PRIVATE
            $<$<COMPILE_LANGUAGE:CXX>:-fno-exceptions -fno-rtti>)
        # A call of another library is one jump less. On 32-bit ARM it would be dearer.
        if(CMAKE_SYSTEM_PROCESSOR STREQUAL "x86_64")
            target_compile_options(${target} PRIVATE -fno-plt)
        endif()
    endforeach()
endfunction()
