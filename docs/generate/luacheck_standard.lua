-- SPDX-License-Identifier: LicenseRef-Proprietary
--- The shell's globals, as a standard for luacheck.

local keys = require "sorel.internal.keys"
local reference = require "sorel.reference"

local standard = {}

-- The fields of a table, and of the tables in it, as a standard describes them.
local function add_fields(lines, value, indentation)
    for _, name in ipairs(keys.sorted(value)) do
        if type(value[name]) == "table" then
            lines[#lines + 1] = ("%s%s = { fields = {"):format(indentation, name)
            add_fields(lines, value[name], indentation .. "    ")
            lines[#lines + 1] = indentation .. "} },"
        else
            lines[#lines + 1] = ("%s%s = {},"):format(indentation, name)
        end
    end
end

-- The names of all globals, with the tables among them as they are.
local function globals()
    local found = {}
    for name, value in pairs(radio) do found[name] = value end
    reference.each(function(entry, subject)
        local name = entry.name
        local own = not subject.module or subject.name == "help"
        if own and not name:find("[.:]") then found[name] = _G[name] or true end
    end)
    found.bit, found.socket = bit, socket
    return found
end

--- The lines of the file.
function standard.lines()
    local lines = {
        "-- SPDX-License-Identifier: LicenseRef-Proprietary",
        "-- Made by ./dev reference; what is changed here is lost.",
        "-- The shell's globals as a standard for luacheck; README.md beside this file tells how.",
        "return { read_globals = {",
    }
    local all = globals()
    for _, name in ipairs(keys.sorted(all)) do
        if type(all[name]) == "table" then
            -- LuaSocket's Lua part, where it is required, adds to socket.
            local open = name == "socket" and "other_fields = true, " or ""
            lines[#lines + 1] = ("    %s = { %sfields = {"):format(name, open)
            add_fields(lines, all[name], "        ")
            lines[#lines + 1] = "    } },"
        else
            lines[#lines + 1] = ("    %s = {},"):format(name)
        end
    end
    lines[#lines + 1] = "} }"
    return lines
end

return standard
