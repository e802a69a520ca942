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

-- The names of the globals that are not also in the table radio, with the tables among them as they
-- are.
local function other_globals()
    local found = {}
    reference.each(function(entry, subject)
        local name = entry.name
        local own = not subject.module or subject.name == "help"
        if own and radio[name] == nil and not name:find("[.:]") then
            found[name] = _G[name] or true
        end
    end)
    found.bit, found.socket, found.radio = bit, socket, nil
    return found
end

--- The lines of the file.
function standard.lines()
    local lines = {
        "-- SPDX-License-Identifier: LicenseRef-Proprietary",
        "-- Made by ./dev reference; what is changed here is lost.",
        "-- The shell's globals as a standard for luacheck; README.md beside this file tells how.",
        "local radio = {",
    }
    local function add(...)
        for place = 1, select("#", ...) do lines[#lines + 1] = select(place, ...) end
    end
    add_fields(lines, radio, "    ")
    add("}", "", "local globals = {", "    radio = { fields = radio },")
    local others = other_globals()
    for _, name in ipairs(keys.sorted(others)) do
        if type(others[name]) == "table" then
            -- LuaSocket's Lua part, where it is required, adds to socket.
            local open = name == "socket" and "other_fields = true, " or ""
            add(("    %s = { %sfields = {"):format(name, open))
            add_fields(lines, others[name], "        ")
            add("    } },")
        else
            add(("    %s = {},"):format(name))
        end
    end
    add("}", "", "for name, field in pairs(radio) do globals[name] = field end", "",
        "return { read_globals = globals }")
    return lines
end

return standard
