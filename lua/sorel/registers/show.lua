-- SPDX-License-Identifier: LicenseRef-Proprietary
--- Dumps of registers, and what differs between two, as lines for a terminal.

local text = require "sorel.internal.text"
local words = require "sorel.registers.words"

local show = {}

local function bits(field)
    if field.high == field.low then return ("  %s [%d]"):format(field.name, field.high) end
    return ("  %s [%d:%d]"):format(field.name, field.high, field.low)
end

-- A number of a field with its name, if it has one.
local function named(field, number)
    local name = field.names[number]
    return name and ("%s %s"):format(text.number(number), name) or text.number(number)
end

local function word(value)
    return value and words.hexadecimal(value) or "-"
end

--- The lines of a dump: address, word, name; below it the register's fields, bits and number.
-- @param dump a dump; of one with a map as its `source` the fields are shown
function show.dump(dump)
    local rows = {}
    for _, entry in ipairs(dump) do
        local register = dump.source and dump.source.at[entry.address]
        rows[#rows + 1] = { words.address(entry.address), word(entry.value), entry.name or "",
            entry.value == words.MOST and "all ones, as where there is no register" or nil }
        for _, field in ipairs(register and register.fields or {}) do
            rows[#rows + 1] = { "", "", bits(field), named(field, words.extract(entry.value, field))
                .. (field.unit and " " .. field.unit or "") }
        end
    end
    return text.columns(rows)
end

--- The lines of differences: address, words, name; below it the fields that changed.
function show.differences(differences)
    local rows = {}
    for _, one in ipairs(differences) do
        rows[#rows + 1] = { words.address(one.address),
            ("%s -> %s"):format(word(one.before), word(one.after)), one.name or "" }
        for _, change in ipairs(one.fields) do
            local field = change.field
            rows[#rows + 1] = { "", "", bits(field), ("%s -> %s%s"):format(
                named(field, change.before), named(field, change.after),
                field.unit and " " .. field.unit or "") }
        end
    end
    if #rows == 0 then return { "no differences" } end
    return text.columns(rows)
end

return show
