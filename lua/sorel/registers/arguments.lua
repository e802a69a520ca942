-- SPDX-License-Identifier: LicenseRef-Proprietary
--- What the functions of sorel.registers are called with; a wrong argument is an error at the
-- caller of the function, which each is told by its name.

local check = require "sorel.internal.check"
local words = require "sorel.registers.words"

local arguments = {}

local function word_of(key)
    local rule = { key, required = true }
    for name, value in pairs(words.rule) do rule[name] = value end
    return rule
end

-- What a dump consists of.
local ENTRY = { word_of "address", word_of "value", { "name", type = "string" } }

--- Raises a message.
function arguments.mistake(name, message)
    error(("registers.%s: %s"):format(name, message), 3)
end

function arguments.map(map, name)
    if type(map) == "table" and type(rawget(map, "at")) == "table" then return end
    error(("registers.%s: a map that registers.map() returned is expected, as in map:%s(...)")
        :format(name, name), 3)
end

function arguments.dump(dump, name, argument)
    if type(dump) ~= "table" or not rawget(dump, "title") then
        error(("registers.%s: %s: a dump is expected"):format(name, argument), 3)
    end
    -- A script may have changed it.
    local mistakes = {}
    for place, entry in ipairs(dump) do
        local _, wrong = check.fields(entry, ENTRY, ("%s[%d]."):format(argument, place))
        for _, mistake in ipairs(wrong) do mistakes[#mistakes + 1] = mistake end
    end
    check.raise("registers." .. name, mistakes, 3)
end

function arguments.path(path, name)
    if type(path) == "string" then return end
    error(("registers.%s: path: a text is expected, as in registers.%s(%s)"):format(name, name,
        name == "load" and "path, map" or "dump, path"), 3)
end

--- An unsigned word.
function arguments.word(value, name, argument)
    local _, message = check.value(value, words.rule)
    if message then error(("registers.%s: %s: %s"):format(name, argument, message), 3) end
end

local BIT = { type = "number", integer = true, least = 0, most = 31 }

--- The bits high to low, or the one that is given, as a field.
function arguments.bits(high, low, name)
    low = low == nil and high or low
    for _, place in ipairs { high == nil and "nil" or high, low } do
        local _, message = check.value(place, BIT)
        if message then error(("registers.%s: bits: %s"):format(name, message), 3) end
    end
    if low > high then error(("registers.%s: bits: the higher one comes first"):format(name), 3) end
    return { high = high, low = low }
end

return arguments
