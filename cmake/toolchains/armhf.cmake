# SPDX-License-Identifier: LicenseRef-Proprietary
# The board: 32-bit ARM with hardware floating point.
set(CMAKE_SYSTEM_PROCESSOR armv7l)
set(debian_architecture armhf)
set(debian_triplet arm-linux-gnueabihf)
set(qemu_architecture arm)
include(${CMAKE_CURRENT_LIST_DIR}/debian.cmake)
