-- SPDX-License-Identifier: LicenseRef-Proprietary
-- What random lines at the prompt had better not reach, before they are run. The rest of Lua and
-- all of the binding is as it is.
local function keep(from, names)
    local kept = {}
    for name in names:gmatch("%S+") do
        kept[name] = from[name]
    end
    return kept
end

-- What ends the process, runs commands, writes files, reads the input of the prompt, or sleeps.
os = keep(os, "clock date difftime time")
io = keep(io, "write type")
for _, name in ipairs {"debug", "dofile", "load", "loadfile", "module", "package", "require", "socket"} do
    _G[name] = nil
end

-- Faults of stock Lua 5.1: malformed bytecode, and what no hook interrupts and no allocator stops.
unpack = nil
local compile, find = loadstring, string.find
function loadstring(text, ...)
    if type(text) == "string" and not find(text, "^\27") then
        return compile(text, ...)
    end
end
for _, name in ipairs {"find", "gmatch", "gfind", "gsub", "match"} do
    string[name] = nil
end
