-- SPDX-License-Identifier: LicenseRef-Proprietary
--- What a script is told in environment variables, since `sorelapp -b FILE` takes no arguments:
--
--     local values = require("sorel.params").read {
--         { "SERIAL", pattern = "^%d+$", text = "serial number of the board" },
--         { "BAND", group = "RADIO_BAND", default = "RADIO_BAND_7", text = "operating band" },
--         { "AVERAGE", type = "number", integer = true, least = 1, most = 100, default = 16 },
--     }
--     print(values.SERIAL, values.BAND, values.AVERAGE)
--
--     $ SERIAL=0042 sorelapp -b test.lua

local check = require "sorel.internal.check"
local definition = require "sorel.params.definition"
local ending = require "sorel.internal.ending"
local nearest = require "sorel.internal.nearest"
local transmitter = require "sorel.transmitter"
local usage = require "sorel.params.usage"
local value = require "sorel.params.value"

local params = {}

local REFUSED = 64 -- as the shell itself for a command line

-- A misspelt name is an error in place of nil.
local function guarded(values, names)
    local known = {}
    for _, name in ipairs(names) do known[name] = true end
    return setmetatable(values, { __index = function(_, name)
        if known[name] then return nil end
        local meant = type(name) == "string" and nearest.name(names, name) or nil
        error("there is no parameter " .. tostring(name) .. nearest.suggestion(meant), 2)
    end })
end

--- Reads parameters from the environment. A variable that is empty counts as missing.
--
-- What is wrong with the variables is told at once, with a usage text. In a script (-b) or command
-- (-c) that does not catch errors, that goes to standard error and the process ends: transmitter
-- off, radio closed, status 64. Elsewhere, at the prompt above all, it is an error; so it is, with
-- the transmitter off, where `return params.read(...)` or the like is the last thing of a script.
-- @param parameters a list of tables, in the order of the usage text:
--   { "NAME",          of the variable: letters, digits and _
--     text = TEXT,     what it means
--     default = VALUE, what stands for a missing one; without it a missing one is a mistake
--     optional = true, nil stands for a missing one
--     and what it is:
--     type = "string"  a text, taken as it is: 0042 keeps its zeros; so without any type
--       pattern = P    of Lua, which it matches
--       secret = true  it is never shown
--     type = "number"  decimal, or hexadecimal after 0x
--       integer = true, least = N, most = N
--     type = "boolean" yes or no, true or false, on or off, 1 or 0
--     type = "file"    the path of a file that can be read
--     choices = LIST   one of these texts, or numbers with type = "number"
--     group = "RADIO_BAND" }    a constant of that group by name or value, given as its value
-- @return a table of the values by name; a name that is not among the parameters is an error
-- @error what is wrong with the variables; what is wrong with the list, where it was given
function params.read(parameters)
    local rules, mistakes = definition.read(parameters)
    check.raise("params.read", mistakes, 2)
    local values, names = {}, {}
    for place, rule in ipairs(rules) do
        local message
        names[place] = rule.name
        values[rule.name], message = value.read(rule, os.getenv(rule.name))
        if message then mistakes[#mistakes + 1] = rule.name .. ": " .. message end
    end
    if #mistakes == 0 then return guarded(values, names) end
    local message = usage.refusal(ending.script(), rules, mistakes)
    local caught, maybe = ending.caught()
    if maybe then
        local off, refusal = transmitter.off()
        if not off then message = message .. "\nthe transmitter may still be on: " .. refusal end
    end
    if caught then error(message, 0) end
    ending.say(message)
    ending.leave(REFUSED)
end

return params
