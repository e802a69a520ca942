# SPDX-License-Identifier: LicenseRef-Proprietary
# Run by cpack on what it has installed for the packages, a folder each: adds what only packages
# have, and gives it the form that Debian asks for.

function(run)
    execute_process(COMMAND ${ARGN} COMMAND_ERROR_IS_FATAL ANY)
endfunction()

function(stage package)
    set(root ${CPACK_TEMPORARY_DIRECTORY}/${package})

    set(overrides ${CMAKE_CURRENT_FUNCTION_LIST_DIR}/${package}/lintian-overrides)
    if(EXISTS ${overrides})
        # Not file(INSTALL), which cpack leads elsewhere with DESTDIR.
        configure_file(${overrides} ${root}/usr/share/lintian/overrides/${package} COPYONLY)
    endif()

    file(REMOVE ${root}/usr/share/doc/${package}/LICENSE) # which the file copyright says

    set(changelog ${root}/usr/share/doc/${package}/changelog)
    string(TIMESTAMP date "%a, %d %b %Y %H:%M:%S +0000" UTC) # of SOURCE_DATE_EPOCH, if that is set
    file(WRITE ${changelog}
        "${CPACK_DEBIAN_PACKAGE_SOURCE} (${CPACK_PACKAGE_VERSION}) unstable; urgency=medium\n\n  * Version ${CPACK_PACKAGE_VERSION}.\n\n"
        " -- ${CPACK_DEBIAN_PACKAGE_MAINTAINER}  ${date}\n")
    file(GLOB manual_pages ${root}/usr/share/man/*/*)
    run(gzip -9 --no-name ${changelog} ${manual_pages})

    run(chmod -R u=rwX,go=rX ${root}) # whatever the umask of who builds
endfunction()

foreach(component IN LISTS CPACK_COMPONENTS_ALL)
    stage(${component})
endforeach()
