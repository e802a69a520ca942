-- SPDX-License-Identifier: LicenseRef-Proprietary
--- The list that params.read is given, checked as a whole.

local check = require "sorel.internal.check"
local constants = require "sorel.constants"
local value = require "sorel.params.value"

local definition = {}

local function known_group(name)
    local known, message = pcall(constants.members, name)
    if known then return name end
    return nil, message
end

local RULES = {
    { "type", choices = { "string", "number", "boolean", "file" } },
    { "group", type = "string", check = known_group },
    { "choices", type = "table" },
    { "pattern", type = "string" },
    { "integer", type = "boolean" },
    { "least", type = "number" },
    { "most", type = "number" },
    { "secret", type = "boolean" },
    { "optional", type = "boolean" },
    { "default", check = function(given) return given end },
    { "text", type = "string" },
}

-- The type that each key goes with.
local belongs = {
    pattern = "string", secret = "string", integer = "number", least = "number", most = "number",
}

local function contradictions(rule, wrong)
    for _, key in ipairs { "type", "choices" } do
        if rule.group and rule[key] then wrong(key, "excludes group") end
    end
    for _, key in ipairs { "pattern", "secret", "integer", "least", "most" } do
        if rule[key] ~= nil and rule.kind ~= belongs[key] then
            wrong(key, ("goes with the type %s alone"):format(belongs[key]))
        elseif rule[key] ~= nil and rule.choices then
            wrong(key, "excludes choices")
        end
    end
    if rule.least and rule.most and rule.least > rule.most then wrong("least", "is above most") end
    if rule.optional and rule.default ~= nil then wrong("optional", "excludes default") end
end

local function check_choices(rule, wrong)
    local count, mistakes = check.list(rule.choices, "choices")
    for _, mistake in ipairs(mistakes) do wrong(mistake:match("^(.-): (.*)")) end
    if rule.kind ~= "string" and rule.kind ~= "number" then
        wrong("choices", "goes with the types string and number alone")
        return
    end
    for place = 1, count do
        local _, message = check.value(rule.choices[place], { type = rule.kind })
        if message then wrong(("choices[%d]"):format(place), message) end
    end
end

local function read_rule(given, place, named, mistakes)
    local where = ("parameters[%d]"):format(place)
    local function wrong(key, message)
        mistakes[#mistakes + 1] = where .. (key and "." .. key or "") .. ": " .. message
    end
    if type(given) ~= "table" then
        wrong(nil, ([[{ "NAME", ... } is expected, got a %s]]):format(type(given)))
        return nil
    end
    local name = given[1]
    if type(name) ~= "string" or not name:find("^[%a_][%w_]*$") then
        wrong(nil, "the name of an environment variable is expected first: letters, digits, _")
        name = nil
    else
        where = ("%s (%s)"):format(where, name)
        if named[name] then wrong(nil, ("parameters[%d] has the same name"):format(named[name])) end
        named[name] = named[name] or place
    end
    local keys = {}
    for key, content in pairs(given) do
        if key ~= 1 then keys[key] = content end
    end
    local rule, wrongs = check.fields(keys, RULES, where .. ".")
    for _, one in ipairs(wrongs) do mistakes[#mistakes + 1] = one end
    rule.name, rule.kind = name, rule.group and "group" or rule.type or "string"
    local before = #mistakes
    contradictions(rule, wrong)
    if rule.choices then check_choices(rule, wrong) end
    if #wrongs == 0 and #mistakes == before and rule.default ~= nil then
        local message
        rule.default, message = value.check(rule, rule.default)
        if message then wrong("default", message) end
    end
    return rule
end

--- Checks the list.
-- @return a list of rules for value.read, with their keys, name, and kind: the type, or "group";
-- and a list of the mistakes
function definition.read(parameters)
    if type(parameters) ~= "table" then
        return {}, { "a list of parameters is expected, got " .. type(parameters) }
    end
    local count, mistakes = check.list(parameters, "parameters")
    local rules, named = {}, {}
    for place = 1, count do
        rules[place] = read_rule(parameters[place], place, named, mistakes)
    end
    return rules, mistakes
end

return definition
