-- SPDX-License-Identifier: LicenseRef-Proprietary
--- Whether a table that a caller gives has what it should have: every mistake at once, by its key.
--
--     local rules = {
--         { "band", group = "RADIO_BAND", required = true },
--         { "average", type = "number", integer = true, least = 1, default = 1 },
--     }
--     local values, mistakes = check.fields(options, rules)
--     check.raise("sweep.run", mistakes, 2)

local constants = require "sorel.constants"
local can_be_chosen = require("sorel.internal.members").can_be_chosen
local keys = require "sorel.internal.keys"
local nearest = require "sorel.internal.nearest"

local check = {}

local article = { ["function"] = "a function", boolean = "true or false", number = "a number",
    string = "a text", table = "a table" }

-- What a value is called in a message.
local function what(value)
    if value ~= value then return "not a number" end
    if type(value) == "boolean" then return tostring(value) end
    return article[type(value)] or type(value)
end

-- The value with which the caller's one takes part; or nil and what is wrong with it.
local function number(value, rule)
    if rule.integer and value % 1 ~= 0 then return nil, value .. " is not a whole number" end
    if rule.least and value < rule.least then return nil, value .. " is below " .. rule.least end
    if rule.most and value > rule.most then return nil, value .. " is above " .. rule.most end
    return value
end

-- The group of constants that a name is in, if there is one.
local function group_of(name)
    for _, group in ipairs(constants.groups()) do
        if constants.value(group, name) then return group end
    end
    return nil
end

-- "RADIO_CONF_SISO to RADIO_CONF_MIMO"
local function choices_of(group)
    local first, last
    for _, name in ipairs(constants.members(group)) do
        if can_be_chosen(name) then first, last = first or name, name end
    end
    return first .. " to " .. last
end

local function constant(value, group)
    local kind = type(value)
    if kind ~= "number" and kind ~= "string" then
        return nil, ("a name or value of %s is expected, got %s"):format(group, what(value))
    end
    local found, message = constants.value(group, value)
    if not found then
        local other = kind == "string" and group_of(value)
        if not other then return nil, message end
        return nil, ("%s is a member of %s, one of %s is expected"):format(value, other, group)
    end
    local name = kind == "string" and value or constants.name(group, value)
    if can_be_chosen(name) then return found end
    local given = kind == "number" and value .. ", which is " .. name .. "," or name
    return nil, ("%s cannot be chosen; there are %s"):format(given, choices_of(group))
end

local function choice(value, rule)
    for _, one in ipairs(rule.choices) do
        if one == value then return value end
    end
    return nil, ("%s is none of: %s%s"):format(tostring(value), table.concat(rule.choices, ", "),
        nearest.suggestion(nearest.name(rule.choices, tostring(value))))
end

--- What a value is by a rule; the rules are those of check.fields.
-- @return the value, a constant given by name as its number; or nil and a text that says what is
-- wrong
function check.value(value, rule)
    local kind = type(value)
    if rule.group then return constant(value, rule.group) end
    if rule.type and (kind ~= rule.type or value ~= value) then
        return nil, ("%s is expected, got %s"):format(article[rule.type], what(value))
    end
    local message
    if kind == "number" then value, message = number(value, rule) end
    if value ~= nil and rule.choices then value, message = choice(value, rule) end
    if value ~= nil and rule.check then value, message = rule.check(value) end
    if value == nil then return nil, message end
    return value
end

local function unknown_keys(given, rules)
    local known, unknown = {}, {}
    for _, rule in ipairs(rules) do known[rule[1]] = true end
    for _, key in ipairs(keys.sorted(given)) do
        if not known[key] then unknown[#unknown + 1] = key end
    end
    return unknown
end

--- What a table has by rules.
-- @param given the caller's table
-- @param rules a list, in the order in which mistakes are named, of
--   { KEY, required = true,       nil is a mistake
--     default = VALUE,            what stands for nil
--     type = "number",            Lua's name of a type; not-a-number is no number
--     group = "RADIO_BAND",       in place of a type: a constant of that group, by name or value;
--                                 not its COUNT, INVALID and NULL, which the driver refuses
--     integer = true, least = N, most = N,    for numbers
--     choices = { "csv", ... },   one of these
--     check = function(value) }   gives the value to take, or nil and what is wrong
-- @param where what stands in front of each key in messages, such as "steps[3]."; nothing for nil
-- @return a new table: the value of each rule's key; and a list of texts, empty without mistakes
function check.fields(given, rules, where)
    where = where or ""
    if type(given) ~= "table" then
        local place = where ~= "" and where:gsub("%.$", "") .. ": " or ""
        return {}, { ("%sa table is expected, got %s"):format(place, what(given)) }
    end
    local values, mistakes, names = {}, {}, {}
    local function wrong(key, message)
        mistakes[#mistakes + 1] = ("%s%s: %s"):format(where, tostring(key), message)
    end
    for _, rule in ipairs(rules) do
        local key = rule[1]
        names[#names + 1] = key
        local value = given[key]
        if value == nil then
            values[key] = rule.default
            if rule.required then wrong(key, "is missing") end
        else
            local message
            values[key], message = check.value(value, rule)
            if message then wrong(key, message) end
        end
    end
    for _, key in ipairs(unknown_keys(given, rules)) do
        local meant = type(key) == "string" and nearest.name(names, key) or nil
        wrong(key, "there is no such key" .. nearest.suggestion(meant))
    end
    return values, mistakes
end

--- How many elements a list has; nil for what is no list, or has other keys than 1, 2, 3...
function check.length(list)
    if type(list) ~= "table" then return nil end
    local count = 0
    for _ in pairs(list) do count = count + 1 end
    for place = 1, count do
        if list[place] == nil then return nil end
    end
    return count
end

--- Whether a table is a list of at least one element, without gaps or other keys.
-- @param given a table
-- @param name what it is called in messages, such as "steps"
-- @return how many elements there are up to the first gap; and a list of texts, empty without
-- mistakes
function check.list(given, name)
    local count, gap, others, mistakes = 0, false, {}, {}
    while given[count + 1] ~= nil do count = count + 1 end
    for key in pairs(given) do
        if type(key) ~= "number" or key % 1 ~= 0 or key < 1 then
            others[#others + 1] = tostring(key)
        elseif key > count then
            gap = true
        end
    end
    local function wrong(place, message)
        mistakes[#mistakes + 1] = ("%s%s: %s"):format(name, place, message)
    end
    if gap then wrong(("[%d]"):format(count + 1), "is missing, though there are later ones") end
    if count == 0 and not gap and #others == 0 then wrong("", "is empty") end
    table.sort(others)
    for _, key in ipairs(others) do wrong("." .. key, "a list has no such key") end
    return count, mistakes
end

--- Raises the mistakes, if there are any: one in a line, several in a line each.
-- @param subject what the mistakes are in, such as "sweep.run"
-- @param level as that of error(): 1 is the caller of this function
function check.raise(subject, mistakes, level)
    if #mistakes == 0 then return end
    local text
    if #mistakes == 1 then
        text = ("%s: %s"):format(subject, mistakes[1])
    else
        text = ("%s: %d mistakes:\n  %s"):format(subject, #mistakes, table.concat(mistakes, "\n  "))
    end
    error(text, level + 1)
end

return check
