# SPDX-License-Identifier: LicenseRef-Proprietary
# This machine, with programs run by valgrind, as they are shipped. Memory that is lost, for certain
# or possibly, is an error; what is still reachable at the end is not. Where a test has an allocator
# of its own, valgrind's is behind it and not in its place.
# What the C library keeps to its end stays: freeing it crashes in a process that the loader ends.
cmake_path(SET CHECKER NORMALIZE ${CMAKE_CURRENT_LIST_DIR}/../watched)
set(CHECKED_BY valgrind)
cmake_path(SET suppressions NORMALIZE ${CMAKE_CURRENT_LIST_DIR}/../../tests/checkers/valgrind.supp)
set(CMAKE_CROSSCOMPILING_EMULATOR ${CHECKER}
    valgrind --quiet --log-file=%q{CHECKER_REPORTS}/%p --error-exitcode=86 --num-callers=20
        --suppressions=${suppressions} --run-libc-freeres=no
        --vgdb=no --read-inline-info=no
        --leak-check=full --show-leak-kinds=definite,possible --errors-for-leak-kinds=definite,possible
        --soname-synonyms=somalloc=nouserintercepts)
