# SPDX-License-Identifier: LicenseRef-Proprietary
# This machine, with the address, leak and undefined behaviour sanitizers, which end a program at
# their first report, and with the Lua that cmake/checked-lua makes.
#
# Undefined behaviour is a trap, which the address sanitizer reports with where it is. GCC's own
# reports of it do not go into the file that the address sanitizer writes to, but to standard error,
# and would be lost where nobody looks.
cmake_path(SET checked_lua NORMALIZE ${CMAKE_CURRENT_LIST_DIR}/../../build/checked-lua/asan)
if(NOT IS_DIRECTORY ${checked_lua})
    message(FATAL_ERROR "there is no checked Lua: run ./dev asan")
endif()
# Ahead of the system's, which nested builds find too: the program's own choice comes first.
set(ENV{PKG_CONFIG_PATH} ${checked_lua})

foreach(language C CXX)
    set(CMAKE_${language}_FLAGS_INIT "-fsanitize=address,undefined,float-cast-overflow,float-divide-by-zero -fsanitize-undefined-trap-on-error -fno-omit-frame-pointer")
endforeach()

cmake_path(SET CHECKER NORMALIZE ${CMAKE_CURRENT_LIST_DIR}/../watched)
set(CHECKED_BY asan)
set(CMAKE_CROSSCOMPILING_EMULATOR ${CHECKER})
