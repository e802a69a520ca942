# SPDX-License-Identifier: LicenseRef-Proprietary
# Two targets that stand for the driver, ours or another:
#   sorel_interface   the header sorel.h
#   sorel_driver      the library that the shell is linked with
add_library(sorel_interface INTERFACE)
add_library(sorel_driver INTERFACE)
target_link_libraries(sorel_driver INTERFACE sorel_interface)

if(SOREL_LIBRARY OR SOREL_INCLUDE_DIR)
    include(${CMAKE_CURRENT_LIST_DIR}/CheckSorel.cmake)
endif()

if(SOREL_INCLUDE_DIR)
    target_include_directories(sorel_interface INTERFACE ${SOREL_INCLUDE_DIR})
else()
    target_include_directories(sorel_interface INTERFACE ${PROJECT_SOURCE_DIR}/include)
endif()

if(SOREL_LIBRARY)
    target_link_libraries(sorel_driver INTERFACE ${SOREL_LIBRARY})
else()
    target_link_libraries(sorel_driver INTERFACE sorel_simulation)
endif()
