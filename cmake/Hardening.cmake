# SPDX-License-Identifier: LicenseRef-Proprietary
# What makes a mistake in the product's code harder to exploit. Said here, and not left to what a
# compiler does by itself, which differs between compilers and between Debian and others.
include(CheckCXXCompilerFlag)

# Clang says of a machine for which it cannot do this that it is unused.
set(CMAKE_REQUIRED_FLAGS -Werror)
check_cxx_compiler_flag(-fstack-clash-protection HAS_STACK_CLASH_PROTECTION)
unset(CMAKE_REQUIRED_FLAGS)

# The checks of the C library need the optimiser, and know of objects what a sanitizer knows better.
set(fortified "$<CONFIG:Release,RelWithDebInfo,MinSizeRel>")
if(SORELAPP_FUZZING OR "${CMAKE_C_FLAGS} ${CMAKE_CXX_FLAGS}" MATCHES "-fsanitize=")
    set(fortified 0)
endif()

# harden(CODE LINKED TARGET...): CODE is -fPIE, or -fPIC for what becomes part of a shared library;
# LINKED is how the target is linked, beyond the rest.
function(harden code linked)
    foreach(target IN LISTS ARGN)
        target_compile_options(${target} PRIVATE
            ${code}
            -fstack-protector-strong
            $<$<BOOL:${HAS_STACK_CLASH_PROTECTION}>:-fstack-clash-protection>
            $<${fortified}:-U_FORTIFY_SOURCE$<SEMICOLON>-D_FORTIFY_SOURCE=2>)
        get_target_property(type ${target} TYPE)
        if(NOT type STREQUAL "STATIC_LIBRARY")
            target_link_options(${target} PRIVATE ${linked} -Wl,-z,noexecstack -Wl,-z,relro,-z,now)
        endif()
    endforeach()
endfunction()

function(harden_executable)
    harden(-fPIE -pie ${ARGN})
endfunction()

function(harden_library)
    harden(-fPIC "" ${ARGN})
endfunction()
