# SPDX-License-Identifier: LicenseRef-Proprietary
# Read by cpack before it makes the packages: what their programs depend on, as dpkg-shlibdeps says.
# Not cpack's own call of it, which passes over libraries that no package is known of.
list(GET CPACK_INSTALL_CMAKE_PROJECTS 0 tree)

function(find_dependencies package)
    # dpkg-shlibdeps works in a package's source tree; this is all that it needs of one.
    set(work ${tree}/packaging/debian/dependencies)
    file(READ ${CMAKE_CURRENT_FUNCTION_LIST_DIR}/libraries.shlibs system)
    file(READ ${CMAKE_CURRENT_FUNCTION_LIST_DIR}/libsorel-sim1/shlibs driver)
    file(WRITE ${work}/debian/shlibs.local ${system} ${driver})
    file(WRITE ${work}/debian/control "")

    list(TRANSFORM CPACK_LIBRARY_FOLDERS PREPEND -l OUTPUT_VARIABLE folders)
    list(TRANSFORM CPACK_${package}_PROGRAMS PREPEND ${tree}/ OUTPUT_VARIABLE programs)
    execute_process(
        COMMAND ${CMAKE_COMMAND} -E env DEB_HOST_ARCH=${CPACK_DEBIAN_PACKAGE_ARCHITECTURE}
            dpkg-shlibdeps -O ${folders} ${programs}
        WORKING_DIRECTORY ${work} OUTPUT_VARIABLE found COMMAND_ERROR_IS_FATAL ANY)
    string(REGEX REPLACE "^shlibs:Depends=|\n$" "" found ${found})
    set(CPACK_DEBIAN_${package}_PACKAGE_DEPENDS ${found} PARENT_SCOPE)
endfunction()

find_dependencies(SORELAPP)
find_dependencies(LIBSOREL-SIM1)
