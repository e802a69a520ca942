-- SPDX-License-Identifier: LicenseRef-Proprietary
-- Scripts of the shell: Lua 5.1, and the functions and constants of the radio as globals.
std = "lua51"
read_globals = { "radio", "bit", "socket", "swig_type" }
ignore = { "113/radio%u.*", "113/RADIO_.*" }
-- LuaUnit finds tests by their global names.
files["tests/lua/unit"] = { ignore = { "11[12]/Test.*", "113/Test.*" } }
