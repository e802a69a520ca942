# SPDX-License-Identifier: LicenseRef-Proprietary
# Two targets that stand for the driver, ours or another:
#   sorel_interface   the header sorel.h
#   sorel_driver      the library that the shell is linked with
add_library(sorel_interface INTERFACE)
add_library(sorel_driver INTERFACE)
target_link_libraries(sorel_driver INTERFACE sorel_interface)

if(SOREL_INCLUDE_DIR)
    if(NOT EXISTS ${SOREL_INCLUDE_DIR}/sorel.h)
        message(FATAL_ERROR "SOREL_INCLUDE_DIR: there is no sorel.h in ${SOREL_INCLUDE_DIR}")
    endif()
    target_include_directories(sorel_interface INTERFACE ${SOREL_INCLUDE_DIR})
else()
    target_include_directories(sorel_interface INTERFACE ${PROJECT_SOURCE_DIR}/include)
endif()

if(SOREL_LIBRARY)
    if(NOT EXISTS ${SOREL_LIBRARY})
        message(FATAL_ERROR "SOREL_LIBRARY: there is no file ${SOREL_LIBRARY}")
    endif()
    target_link_libraries(sorel_driver INTERFACE ${SOREL_LIBRARY})
else()
    target_link_libraries(sorel_driver INTERFACE sorel_simulation)
endif()
