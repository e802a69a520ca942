-- SPDX-License-Identifier: LicenseRef-Proprietary
--- What can be completed at the prompt, a word a line: names with their dots, which a completer
-- that breaks words at dots takes apart itself; methods without what stands in front of the colon,
-- which is a script's to name; Lua's words and functions.

local keys = require "sorel.internal.keys"
local reference = require "sorel.reference"

local words = {}

local KEYWORDS = "and break do else elseif end false for function if in local nil not or repeat "
    .. "return then true until while"
local LIBRARIES = "coroutine debug io math os package string table"

--- The lines of the file.
function words.lines()
    local known = { exit = true, quit = true }
    for word in KEYWORDS:gmatch("%a+") do known[word] = true end
    for name in LIBRARIES:gmatch("%a+") do
        known[name] = true
        for field, value in pairs(_G[name]) do
            if type(value) == "function" then known[name .. "." .. field] = true end
        end
    end
    for name, value in pairs(_G) do
        if type(value) == "function" then known[name] = true end
    end
    for name in pairs(radio) do known[name] = true end
    for _, name in ipairs(reference.subjects()) do
        local subject = reference.subject(name)
        if subject.module then known[subject.module] = true end
        if not name:find(" ") then known[name] = true end
    end
    reference.each(function(entry) known[entry.name:gsub("^%w+[:]", "")] = true end)
    return keys.sorted(known)
end

return words
