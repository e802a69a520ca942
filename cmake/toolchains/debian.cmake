# SPDX-License-Identifier: LicenseRef-Proprietary
# Builds for another Debian architecture: with Debian's cross compiler and its C library, and with
# the other libraries of the sysroot that debian-sysroot makes. What is built runs under qemu-user.
# Expects debian_architecture, debian_triplet, qemu_architecture and CMAKE_SYSTEM_PROCESSOR.
cmake_path(SET sysroot NORMALIZE
    ${CMAKE_CURRENT_LIST_DIR}/../../build/sysroot/${debian_architecture})
if(NOT IS_DIRECTORY ${sysroot})
    message(FATAL_ERROR
        "there is no sysroot: run cmake/toolchains/debian-sysroot ${debian_architecture}")
endif()

set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_C_COMPILER ${debian_triplet}-gcc)
set(CMAKE_CXX_COMPILER ${debian_triplet}-g++)
set(CMAKE_CROSSCOMPILING_EMULATOR qemu-${qemu_architecture} -L ${sysroot})

# Where Debian itself would install.
set(CMAKE_LIBRARY_ARCHITECTURE ${debian_triplet})

# Not CMAKE_SYSROOT: the compiler's own C library is outside.
set(CMAKE_FIND_ROOT_PATH ${sysroot} ${sysroot}/usr)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
set(ENV{PKG_CONFIG_SYSROOT_DIR} ${sysroot})
set(ENV{PKG_CONFIG_LIBDIR} ${sysroot}/usr/lib/${debian_triplet}/pkgconfig)

foreach(language C CXX)
    set(CMAKE_${language}_STANDARD_INCLUDE_DIRECTORIES
        ${sysroot}/usr/include/${debian_triplet} ${sysroot}/usr/include)
endforeach()
foreach(kind EXE SHARED MODULE)
    set(CMAKE_${kind}_LINKER_FLAGS_INIT
        "\"-L${sysroot}/usr/lib/${debian_triplet}\" \"-Wl,-rpath-link,${sysroot}/usr/lib/${debian_triplet}\" \"-Wl,-rpath-link,${sysroot}/lib/${debian_triplet}\"")
endforeach()
