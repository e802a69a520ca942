-- SPDX-License-Identifier: LicenseRef-Proprietary
--- What the text of an environment variable stands for by a rule of params/definition.lua.

local check = require "sorel.internal.check"

local value = {}

-- Decimal, or hexadecimal after 0x; nothing else that tonumber() takes, such as "inf" and blanks.
local function number(given)
    local sign, digits = given:match("^([+-]?)0[xX](%x+)$")
    if not digits then
        local decimal = given:find("^[+-]?[%d.]+$") or given:find("^[+-]?[%d.]+[eE][+-]?%d+$")
        return decimal and tonumber(given)
    end
    local result = 0
    for digit in digits:gmatch("%x") do result = result * 16 + tonumber(digit, 16) end
    return sign == "-" and -result or result
end

local readers = {}

function readers.string(given)
    return given
end

function readers.number(given)
    local result = number(given)
    if not result then return nil, ('"%s" is no number'):format(given) end
    if result == math.huge or result == -math.huge then return nil, given .. " is too large" end
    return result
end

local booleans = { yes = true, ["true"] = true, on = true, ["1"] = true,
    no = false, ["false"] = false, off = false, ["0"] = false }

function readers.boolean(given)
    local result = booleans[given:lower()]
    if result ~= nil then return result end
    return nil, ('"%s" is none of: yes, no, true, false, on, off, 1, 0'):format(given)
end

function readers.file(given)
    return given
end

function readers.group(given)
    return number(given) or given
end

local function matching(rule, given)
    local usable, found = pcall(string.find, given, rule.pattern)
    if not usable then return nil, ("pattern %s: %s"):format(rule.pattern, found) end
    if found then return given end
    local shown = rule.secret and "" or ('"%s" '):format(given)
    return nil, ("%sdoes not match the pattern %s"):format(shown, rule.pattern)
end

local function readable(given)
    local file, message = io.open(given, "rb")
    if not file then return nil, message end
    local _, reason = file:read(0) -- which says so of a folder
    file:close()
    if reason then return nil, given .. ": " .. reason end
    return given
end

--- Whether a value is what a rule allows.
-- @return the value, a constant given by name as its number; or nil and what is wrong
function value.check(rule, given)
    local result, message = check.value(given, {
        type = rule.kind == "file" and "string" or rule.kind ~= "group" and rule.kind or nil,
        group = rule.group, choices = rule.choices,
        integer = rule.integer, least = rule.least, most = rule.most,
    })
    if result == nil then return nil, message end
    if rule.pattern then return matching(rule, result) end
    return result
end

--- The value of a variable.
-- @param given its text; nil where there is none
-- @return the value; or nil, with what is wrong unless the parameter may be missing
function value.read(rule, given)
    local result, message
    if given ~= nil and given ~= "" then
        result, message = readers[rule.kind](given)
        if result ~= nil then result, message = value.check(rule, result) end
        if result == nil then return nil, message end
    elseif rule.default == nil then
        if rule.optional then return nil end
        return nil, given and "is empty" or "is missing"
    else
        result = rule.default
    end
    if rule.kind == "file" then return readable(result) end
    return result
end

return value
