# SPDX-License-Identifier: LicenseRef-Proprietary
# The one big-endian machine that Debian has.
set(CMAKE_SYSTEM_PROCESSOR s390x)
set(debian_architecture s390x)
set(debian_triplet s390x-linux-gnu)
set(qemu_architecture s390x)
include(${CMAKE_CURRENT_LIST_DIR}/debian.cmake)
