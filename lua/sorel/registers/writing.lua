-- SPDX-License-Identifier: LicenseRef-Proprietary
--- Registers written by a map: what is asked for checked as a whole, then written register by
-- register, the fields of each at once.

local check = require "sorel.internal.check"
local keys = require "sorel.internal.keys"
local nearest = require "sorel.internal.nearest"
local transmitter = require "sorel.transmitter"
local words = require "sorel.registers.words"

local writing = {}

local function names_of(list)
    local names = {}
    for place, element in ipairs(list) do names[place] = element.name end
    return names
end

--- What "REGISTER" or "REGISTER.FIELD" names in a map.
-- @return the register, and the field or nil; or nil, nil and what is wrong
function writing.named(map, name)
    if type(name) ~= "string" then
        return nil, nil, "a name, REGISTER or REGISTER.FIELD, is expected"
    end
    local register_name, field_name = name:match("^([^.]*)%.?(.*)$")
    local register = map.register[register_name]
    if not register then
        return nil, nil, ("%s has no register %s%s"):format(map.name, register_name,
            nearest.suggestion(nearest.name(names_of(map.registers), register_name)))
    end
    if not name:find(".", 1, true) then return register end
    local field = register.field[field_name]
    if field then return register, field end
    return nil, nil, ("%s has no field %s%s"):format(register_name, field_name,
        nearest.suggestion(nearest.name(names_of(register.fields), field_name)))
end

local function choices(field)
    local list = {}
    for number, name in pairs(field.names) do list[#list + 1] = { number, name } end
    table.sort(list, function(one, other) return one[1] < other[1] end)
    for place, pair in ipairs(list) do list[place] = pair[2] end
    return list
end

-- The number for a field; or nil and what is wrong.
local function number_for(field, value)
    if type(value) == "string" and next(field.values) then
        local name, message = check.value(value, { choices = choices(field) })
        return name and field.values[name], message
    end
    local number, message = check.value(value, { type = "number", integer = true })
    if not number then return nil, message end
    local least, most = words.range(field)
    if number >= least and number <= most then return number end
    return nil, ("%s does not fit, %s to %s do"):format(value, ("%.0f"):format(least),
        ("%.0f"):format(most))
end

-- Takes one value into the plan; returns what is wrong.
local function plan_one(map, plan, name, value)
    local register, field, message = writing.named(map, name)
    if not register then return message end
    if register.access == "ro" or field and field.access == "ro" then return "can only be read" end
    local taken = plan[register] or { fields = {} }
    plan[register] = taken
    if field then
        local number, wrong = number_for(field, value)
        taken.fields[#taken.fields + 1] = { field = field, number = number }
        message = wrong
    else
        taken.whole, message = check.value(value, words.rule)
    end
    if not message and taken.whole and #taken.fields > 0 then
        return "the register is given whole and by its fields"
    end
    return message
end

--- What to write for a table of values by name.
-- @return a table, from register to what is to be in it; and a list of mistakes
function writing.plan(map, values)
    local plan, mistakes = {}, {}
    for _, name in ipairs(keys.sorted(values)) do
        local message = plan_one(map, plan, name, values[name])
        if message then mistakes[#mistakes + 1] = ("%s: %s"):format(tostring(name), message) end
    end
    return plan, mistakes
end

-- The word to write. What is to stay is read first; where a 1 clears, 0 is what stays.
local function word_for(register, taken)
    if taken.whole then return taken.whole end
    local mask = 0
    for _, one in ipairs(taken.fields) do mask = words.joined(mask, words.mask(one.field)) end
    local nothing_stays = register.access == "w1c" or mask == words.MOST
    local word = nothing_stays and 0 or words.read_again(register.address)
    for _, one in ipairs(taken.fields) do word = words.insert(word, one.field, one.number) end
    return word
end

--- "SCRATCH (0x0010)"
function writing.place(register)
    return ("%s (%s)"):format(register.name, words.address(register.address))
end

--- Writes a plan in the map's order. When a write fails after others, the transmitters go off.
-- @error the driver's message, with the register
function writing.write(map, plan)
    local written = 0
    for _, register in ipairs(map.registers) do
        local taken = plan[register]
        if taken then
            local succeeded, message = pcall(function()
                words.write(register.address, word_for(register, taken))
            end)
            if not succeeded then
                message = ("registers.write: %s: %s"):format(writing.place(register), message)
                if written == 0 then error(message, 0) end
                transmitter.guarded(error, message, 0)
            end
            written = written + 1
        end
    end
end

-- The bits of a register that a restored value is compared in: of the fields that can be written,
-- or all where there are none.
local function lasting(register)
    if #register.fields == 0 then return words.MOST end
    local mask = 0
    for _, field in ipairs(register.fields) do
        if field.access == "rw" then mask = words.joined(mask, words.mask(field)) end
    end
    return mask
end

local function difference(register, restored)
    local mask = lasting(register)
    local found = words.read_again(register.address)
    if words.masked(found, mask) == words.masked(restored, mask) then return nil end
    return ("%s: %s was written, %s is read"):format(writing.place(register),
        words.hexadecimal(restored), words.hexadecimal(found))
end

--- Writes words, by address, to the registers that can be read and written, in the map's order, and
-- reads them back, but for the volatile ones.
-- @return how many were written
-- @error the driver's message, with the register; or what is read back otherwise
function writing.restore(map, values)
    local written, mistakes = {}, {}
    for _, register in ipairs(map.registers) do
        local word = values[register.address]
        if word and register.access == "rw" then
            local succeeded, message = pcall(words.write, register.address, word)
            if not succeeded then
                error(("registers.restore: %s: %s"):format(writing.place(register), message), 0)
            end
            written[#written + 1] = register
        end
    end
    for _, register in ipairs(written) do
        if not register.volatile then
            mistakes[#mistakes + 1] = difference(register, values[register.address])
        end
    end
    if #mistakes > 0 then
        error("registers.restore: what is read is not what was written:\n  "
            .. table.concat(mistakes, "\n  "), 0)
    end
    return #written
end

return writing
