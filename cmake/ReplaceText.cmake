# SPDX-License-Identifier: LicenseRef-Proprietary
# Files made from those of this tree by replacing text: what another driver could come with.

# replace_text(SOURCE RESULT [TEXT REPLACEMENT]...): writes the file RESULT.
function(replace_text source result)
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${source})
    file(READ ${source} content)
    foreach(i RANGE 2 ${ARGC} 2)
        if(i EQUAL ARGC)
            break()
        endif()
        math(EXPR next "${i} + 1")
        string(REPLACE "${ARGV${i}}" "${ARGV${next}}" changed "${content}")
        if(changed STREQUAL content)
            message(FATAL_ERROR "${source} no longer has the text to replace: ${ARGV${i}}")
        endif()
        set(content "${changed}")
    endforeach()
    file(CONFIGURE OUTPUT ${result} CONTENT "${content}" @ONLY)
endfunction()
