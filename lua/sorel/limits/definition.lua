-- SPDX-License-Identifier: LicenseRef-Proprietary
--- What limits.run is given, checked as a whole: every mistake with the step's number and name.

local check = require "sorel.internal.check"
local text = require "sorel.internal.text"

local definition = {}

local FAILED_READING = -2147483648

local function not_empty(value)
    if value == "" then return nil, "is empty" end
    return value
end

local function finite(value)
    if value == math.huge or value == -math.huge then
        return nil, "infinity is no limit; leave the key out"
    end
    return value
end

local function expectable(value)
    if type(value) == "boolean" then
        return nil, "a step that gives true or false has check in place of measure"
    end
    if type(value) ~= "string" and type(value) ~= "number" then
        return nil, "a text or a number is expected, got a " .. type(value)
    end
    if value ~= value or value == math.huge or value == -math.huge then
        return nil, text.number(value) .. " is never read"
    end
    if value == FAILED_READING then return nil, "-2147483648 is what a failed reading gives" end
    return value
end

local TEST = {
    { "name", type = "string", check = not_empty, required = true },
    { "serial", type = "string", check = not_empty },
    { "steps", type = "table", required = true },
    { "setup", type = "function" },
    { "cleanup", type = "function" },
    { "junit", type = "string", check = not_empty },
    { "csv", type = "string", check = not_empty },
}

local STEP = {
    { "name", type = "string", check = not_empty, required = true },
    { "measure", type = "function" },
    { "check", type = "function" },
    { "low", type = "number", check = finite },
    { "high", type = "number", check = finite },
    { "expected", check = expectable },
    { "unit", type = "string" },
    { "critical", type = "boolean", default = false },
}

-- Whether the keys that are right by themselves are so together.
local function contradictions(step, wrong)
    local limited = step.low ~= nil or step.high ~= nil
    if step.measure == nil and step.check == nil then
        wrong("", "measure or check is missing")
    elseif step.measure ~= nil and step.check ~= nil then
        wrong("", "measure and check exclude each other")
    elseif step.check ~= nil then
        for _, key in ipairs { "low", "high", "expected", "unit" } do
            if step[key] ~= nil then wrong(key, "goes with measure, not with check") end
        end
    elseif not limited and step.expected == nil then
        wrong("", "low, high or expected is missing (a step that gives true or false has check)")
    elseif limited and step.expected ~= nil then
        wrong("expected", "excludes low and high")
    end
    if type(step.low) == "number" and type(step.high) == "number" and step.low > step.high then
        wrong("low", ("%s is above high, %s"):format(text.number(step.low), text.number(step.high)))
    end
end

local function read_step(given, place, named, mistakes)
    local name = type(given) == "table" and given.name
    local where = ("steps[%d]"):format(place)
    if type(name) == "string" and name ~= "" then
        where = ("%s (%s)"):format(where, text.printable(name))
    end
    local step, wrongs = check.fields(given, STEP, where .. ".")
    local function wrong(key, message)
        wrongs[#wrongs + 1] = where .. (key ~= "" and "." .. key or "") .. ": " .. message
    end
    if type(given) == "table" then contradictions(given, wrong) end
    if step.name and named[step.name] then
        wrong("name", ("steps[%d] has the same"):format(named[step.name]))
    end
    if step.name then named[step.name] = named[step.name] or place end
    for _, one in ipairs(wrongs) do mistakes[#mistakes + 1] = one end
    return step
end

--- Checks what limits.run is given.
-- @return a new table with what is right; and a list of the mistakes
function definition.read(given)
    local test, mistakes = check.fields(given, TEST)
    if test.junit and test.junit == test.csv then
        mistakes[#mistakes + 1] = "csv: junit names the same file"
    end
    if not test.steps then return test, mistakes end
    local steps, named = {}, {}
    local count, misplaced = check.list(test.steps, "steps")
    for _, one in ipairs(misplaced) do mistakes[#mistakes + 1] = one end
    for place = 1, count do
        steps[place] = read_step(test.steps[place], place, named, mistakes)
    end
    test.steps = steps
    return test, mistakes
end

return definition
