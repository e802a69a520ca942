-- SPDX-License-Identifier: LicenseRef-Proprietary
-- Scripts of the shell: Lua 5.1, and the shell's globals. luacheck reads this file where it stands or
-- in the folders above, but does not say where that is.
local standard = "packaging/editor/luacheck.lua"
local file = io.open(standard)
for _ = 1, 8 do
    if file then break end
    standard = "../" .. standard
    file = io.open(standard)
end
file:close()
stds.sorelapp = dofile(standard)
std = "lua51+sorelapp"
-- Those are never run; they only say what is there.
exclude_files = { "packaging/editor/library" }
-- LuaUnit finds tests by their global names; a test may put another function in a driver function's
-- place.
files["tests/lua/unit"] = { ignore = { "11[12]/Test.*", "113/Test.*", "12[12]/radio.*" } }
-- It takes away what random lines at the prompt had better not reach.
files["fuzz/prompt/tame.lua"] = { ignore = { "121/os", "121/io", "121/unpack", "121/loadstring", "122/string" } }
