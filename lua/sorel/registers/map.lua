-- SPDX-License-Identifier: LicenseRef-Proprietary
--- Register maps: whether a table describes registers, and where each mistake in it is.

local check = require "sorel.internal.check"
local keys = require "sorel.internal.keys"
local words = require "sorel.registers.words"

local map = {}

local function identifier(name)
    if name:find("^[%a_][%w_]*$") then return name end
    return nil, ("%q is no name of letters, digits and _"):format(name)
end

local function line(text)
    if text:find("^%C+$") then return text end
    return nil, "one line of text is expected"
end

-- bits = 31, "31" or "31:16", as data sheets write it
local function bits(value)
    local high, low = tostring(value):match("^(%d+):(%d+)$")
    if not high then
        high = tostring(value):match("^%d+$")
        low = high
    end
    if not high then
        return nil, tostring(value) .. [[ names no bits; they are named as 31 or "31:16"]]
    end
    high, low = tonumber(high), tonumber(low)
    if high > 31 or low > 31 then return nil, value .. " is beyond bit 31" end
    if low > high then
        return nil, ([[%s begins with the lower bit; write "%d:%d"]]):format(value, low, high)
    end
    return { high = high, low = low }
end

local map_rules = {
    { "name", type = "string", check = line, required = true },
    { "text", type = "string" },
    { "registers", type = "table", required = true },
}

local register_rules = {
    { "name", type = "string", check = identifier, required = true },
    { "address", type = "number", integer = true, least = 0, most = words.MOST, required = true },
    { "access", choices = { "rw", "ro", "w1c" }, default = "rw" },
    { "reset", type = "number", integer = true, most = words.MOST, check = words.rule.check },
    { "volatile", type = "boolean", default = false },
    { "text", type = "string" },
    { "fields", type = "table", default = {} },
}

local field_rules = {
    { "name", type = "string", check = identifier, required = true },
    { "bits", check = bits, required = true },
    { "access", choices = { "rw", "ro" }, default = "rw" },
    { "signed", type = "boolean", default = false },
    { "unit", type = "string", check = line },
    { "values", type = "table", default = {} },
    { "text", type = "string" },
}

-- "registers[3] (SCRATCH)"
local function place_of(list, place, element)
    local name = type(element) == "table" and element.name
    return ("%s[%d]"):format(list, place)
        .. (type(name) == "string" and (" (%s)"):format(name) or "")
end

-- Takes the elements of a list by rules and hands each on, also those with mistakes, whose values
-- may be nil: every mistake is to be found.
local function each(list, key, rules, where, mistakes, action)
    if not check.length(list) then
        mistakes[#mistakes + 1] = where .. key .. ": a list is expected"
        return
    end
    for place, given in ipairs(list) do
        local here = place_of(key, place, given)
        local values, found = check.fields(given, rules, where .. here .. ".")
        for _, mistake in ipairs(found) do mistakes[#mistakes + 1] = mistake end
        values.place = here
        action(values, function(member, message)
            mistakes[#mistakes + 1] = ("%s%s.%s: %s"):format(where, here, member, message)
        end)
    end
end

-- That no earlier element has the same under the key; the earlier ones are in `seen`.
local function check_new(seen, element, key, shown, wrong)
    local value = element[key]
    if value == nil then return end
    if not seen[value] then
        seen[value] = element
    else
        wrong(key, ("%s is that of %s too"):format(shown(value), seen[value].place))
    end
end

-- The field's `values`, from name to number, and `names`, from number to name.
local function name_values(field, wrong)
    local given = field.values or {}
    local least, most = words.range(field)
    field.values, field.names = {}, {}
    for _, name in ipairs(keys.sorted(given)) do
        local number, message = check.value(given[name],
            { type = "number", integer = true, least = least, most = most })
        if type(name) ~= "string" then
            message = "a name is expected for each value"
        elseif number and field.names[number] then
            message = ("%s is %s too"):format(field.names[number], number)
        end
        if message then
            wrong("values." .. tostring(name), message)
        else
            field.values[name], field.names[number] = number, name
        end
    end
end

local function take_bits(register, field, wrong)
    if not field.bits then return end
    field.high, field.low, field.bits = field.bits.high, field.bits.low, nil
    for _, other in ipairs(register.fields) do
        if other.high and field.low <= other.high and other.low <= field.high then
            wrong("bits", "overlap those of " .. other.place)
        end
    end
    name_values(field, wrong)
end

local function take_fields(register, where, mistakes)
    local given = register.fields or {}
    register.fields, register.field = {}, {}
    each(given, "fields", field_rules, where, mistakes, function(field, wrong)
        take_bits(register, field, wrong)
        check_new(register.field, field, "name", tostring, wrong)
        register.fields[#register.fields + 1] = field
    end)
end

--- What a description says, and every mistake in it.
-- @param given the description, as sorel/reference/registers.lua tells
-- @return a new table: name, registers (a list, each with its fields; what is not given by
-- default), register and, in each of those, field (by name), at (by address); and a list of
-- mistakes, with which the table is of no use
function map.checked(given)
    local values, mistakes = check.fields(given, map_rules)
    local list = values.registers or {}
    values.registers, values.register, values.at = {}, {}, {}
    each(list, "registers", register_rules, "", mistakes, function(register, wrong)
        check_new(values.register, register, "name", tostring, wrong)
        check_new(values.at, register, "address", words.address, wrong)
        take_fields(register, register.place .. ".", mistakes)
        values.registers[#values.registers + 1] = register
    end)
    if #values.registers == 0 and #mistakes == 0 then mistakes[1] = "registers: there are none" end
    return values, mistakes
end

return map
