# SPDX-License-Identifier: LicenseRef-Proprietary
# Lua 5.1, Lua BitOp and LuaSocket's core, as the system's package configuration names them.
find_package(PkgConfig REQUIRED)
pkg_check_modules(Lua REQUIRED IMPORTED_TARGET lua5.1)
pkg_check_modules(LuaBitOp REQUIRED IMPORTED_TARGET lua5.1-bitop)
pkg_check_modules(LuaSocket REQUIRED IMPORTED_TARGET lua5.1-socket)
