# SPDX-License-Identifier: LicenseRef-Proprietary
# Refuses a driver that SOREL_LIBRARY and SOREL_INCLUDE_DIR name and that the shell cannot be built
# for. Nothing is cached: each configuration looks at the files anew, and a changed file asks for a
# configuration.
include(${CMAKE_CURRENT_LIST_DIR}/DescribeElf.cmake)

# The first lines of a compiler's or linker's output that match; where they are in our files is left
# out.
function(first_lines output expression result)
    string(REPLACE ";" "," output "${output}")
    string(REGEX REPLACE "[^\n]*(driver_probe\\.cpp|functions\\.inc):[0-9:]+ " "" output "${output}")
    string(REGEX REPLACE "collect2: [^\n]*" "" output "${output}")
    string(REGEX MATCHALL "[^\n]*(${expression})[^\n]*" lines "${output}")
    list(LENGTH lines count)
    if(count EQUAL 0)
        set(lines "${output}")
    elseif(count GREATER 3)
        list(SUBLIST lines 0 3 lines)
        list(APPEND lines "and more")
    endif()
    list(TRANSFORM lines PREPEND "  ")
    list(JOIN lines "\n" lines)
    set(${result} "${lines}" PARENT_SCOPE)
endfunction()

# Builds the probe against the header, with more arguments for try_compile(). Sets works and output
# in the caller.
macro(build_probe)
    set(language "$ENV{LC_ALL}")
    set(ENV{LC_ALL} C)
    try_compile(works
        SOURCES ${PROJECT_SOURCE_DIR}/cmake/driver_probe.cpp
        NO_CACHE
        CMAKE_FLAGS -DINCLUDE_DIRECTORIES=${sorel_include_dir}
        OUTPUT_VARIABLE output
        ${ARGN})
    set(ENV{LC_ALL} "${language}")
endmacro()

# Sets result to a program of this build that knows the header.
function(check_header result)
    if(NOT EXISTS ${sorel_include_dir}/sorel.h)
        message(FATAL_ERROR "SOREL_INCLUDE_DIR: there is no sorel.h in ${sorel_include_dir}")
    endif()
    set(program ${PROJECT_BINARY_DIR}/CMakeFiles/driver_probe)
    build_probe(COPY_FILE ${program})
    if(NOT works)
        first_lines("${output}" "error: " errors)
        message(FATAL_ERROR
            "SOREL_INCLUDE_DIR: the shell cannot be compiled with ${sorel_include_dir}/sorel.h:\n"
            "${errors}")
    endif()
    set(${result} ${program} PARENT_SCOPE)
endfunction()

function(check_kind)
    if(NOT EXISTS ${SOREL_LIBRARY})
        message(FATAL_ERROR "SOREL_LIBRARY: there is no file ${SOREL_LIBRARY}")
    endif()
    elf_kind(${SOREL_LIBRARY} kind)
    if(NOT kind STREQUAL "a shared library")
        message(FATAL_ERROR
            "SOREL_LIBRARY: ${SOREL_LIBRARY} is ${kind}; the driver's shared library is needed")
    endif()
endfunction()

function(check_target program)
    elf_target(${SOREL_LIBRARY} given)
    elf_target(${program} needed)
    string(REGEX REPLACE ", (hard|soft)-float" "" given_machine ${given})
    string(REGEX REPLACE ", (hard|soft)-float" "" needed_machine ${needed})
    # A library of older tools does not say how it passes floating-point numbers.
    if(NOT given STREQUAL needed AND NOT given STREQUAL needed_machine)
        message(FATAL_ERROR
            "SOREL_LIBRARY: ${SOREL_LIBRARY} is for ${given}; this build is for ${needed}")
    endif()
endfunction()

# By linking with it: what the linker takes is what the build can use, symbol versions and all.
function(check_functions)
    build_probe(COMPILE_DEFINITIONS -DWITH_LIBRARY LINK_LIBRARIES ${SOREL_LIBRARY})
    if(works)
        return()
    endif()
    if(output MATCHES "undefined [^\n]*radioOpen\\(") # a name of C++, with parameters
        message(FATAL_ERROR
            "SOREL_INCLUDE_DIR: ${sorel_include_dir}/sorel.h lacks the extern \"C\" that C++ needs "
            "around functions of C")
    endif()
    file(STRINGS ${PROJECT_SOURCE_DIR}/driver/functions.inc functions REGEX "^FUNCTION")
    list(TRANSFORM functions REPLACE "^FUNCTION\\((.*)\\)$" "\\1")
    set(missing "")
    foreach(function IN LISTS functions)
        if(output MATCHES "undefined [^\n]*[^A-Za-z0-9_]${function}([^A-Za-z0-9_]|$)")
            list(APPEND missing ${function})
        endif()
    endforeach()
    if(missing)
        list(JOIN missing ", " missing)
        message(FATAL_ERROR "SOREL_LIBRARY: ${SOREL_LIBRARY} lacks ${missing}")
    endif()
    first_lines("${output}" "undefined |error|cannot |not found|file format|recognized" errors)
    message(FATAL_ERROR
        "SOREL_LIBRARY: the shell cannot be linked with ${SOREL_LIBRARY}:\n${errors}")
endfunction()

# Sets result to the name by which the executable will ask for the library: its SONAME, or that of
# the file.
function(find_name result)
    if(NOT CMAKE_READELF) # nothing is known of it
        set(${result} libsorel.so.1 PARENT_SCOPE)
        return()
    endif()
    execute_process(COMMAND ${CMAKE_READELF} --dynamic ${SOREL_LIBRARY}
        OUTPUT_VARIABLE output ERROR_QUIET)
    cmake_path(GET SOREL_LIBRARY FILENAME name)
    if(output MATCHES "\\(SONAME\\)[^\n]*\\[([^\n]*)\\]")
        set(name ${CMAKE_MATCH_1})
    elseif(NOT name MATCHES "^lib.*\\.so$")
        message(FATAL_ERROR
            "SOREL_LIBRARY: ${SOREL_LIBRARY} has no SONAME; "
            "such a library has to be named libsorel.so")
    endif()
    set(${result} ${name} PARENT_SCOPE)
endfunction()

function(say_name name)
    if(name STREQUAL "libsorel.so.1")
        message(STATUS "The driver is ${SOREL_LIBRARY}")
    else()
        message(WARNING
            "SOREL_LIBRARY: ${SOREL_LIBRARY} is ${name} at run time; the shell will look for that "
            "name, not for libsorel.so.1")
    endif()
endfunction()

set(sorel_include_dir ${PROJECT_SOURCE_DIR}/include)
if(SOREL_INCLUDE_DIR)
    set(sorel_include_dir ${SOREL_INCLUDE_DIR})
endif()
if(SOREL_LIBRARY)
    check_kind()
endif()
check_header(program)
if(SOREL_LIBRARY)
    check_target(${program})
    find_name(name)
    check_functions()
    say_name(${name})
endif()
set_property(DIRECTORY APPEND PROPERTY
    CMAKE_CONFIGURE_DEPENDS ${sorel_include_dir}/sorel.h ${SOREL_LIBRARY})
