-- SPDX-License-Identifier: LicenseRef-Proprietary
--- What a person is told whose environment lacks what a script needs.

local constants = require "sorel.constants"
local text = require "sorel.internal.text"

local usage = {}

local WIDTH = 80

local function range(rule)
    local least = rule.least and text.number(rule.least)
    local most = rule.most and text.number(rule.most)
    if least and most then return (", %s to %s"):format(least, most) end
    return least and (", %s or more"):format(least) or most and (", at most %s"):format(most) or ""
end

local kinds = {
    string = function(rule)
        return "text" .. (rule.pattern and " that matches " .. rule.pattern or "")
    end,
    number = function(rule) return (rule.integer and "whole number" or "number") .. range(rule) end,
    boolean = function() return "yes or no" end,
    file = function() return "file to read" end,
    group = function(rule) return rule.group .. "_..., or its value" end,
}

local function kind(rule)
    if not rule.choices then return kinds[rule.kind](rule) end
    return "one of: " .. table.concat(rule.choices, ", ")
end

local function default(rule)
    local value = rule.default
    if value == nil then return rule.optional and "may be missing" or "required" end
    if rule.secret then return "has a default" end
    if rule.group then value = constants.name(rule.group, value) end
    if type(value) == "boolean" then value = value and "yes" or "no" end
    return "default " .. tostring(value)
end

local function described(rule, width)
    local indentation = (" "):rep(2 + width + 2)
    local lines = text.fold(kind(rule) .. "; " .. default(rule), WIDTH, indentation)
    lines[1] = "  " .. rule.name .. (" "):rep(width - #rule.name) .. lines[1]:sub(2 + width + 1)
    for _, line in ipairs(text.fold(rule.text or "", WIDTH, indentation)) do
        lines[#lines + 1] = line
    end
    return table.concat(lines, "\n")
end

--- The mistakes in the environment, and how the script is used.
-- @param script its path; nil where it is not known
-- @param rules those of params/definition.lua
-- @param mistakes a list of texts
function usage.refusal(script, rules, mistakes)
    local needed, width = {}, 0
    for _, rule in ipairs(rules) do
        if rule.default == nil and not rule.optional then
            needed[#needed + 1] = rule.name .. "=..."
        end
        width = math.max(width, #rule.name)
    end
    local lines = {}
    for _, mistake in ipairs(mistakes) do lines[#lines + 1] = text.printable(mistake) end
    lines[#lines + 1] = ""
    local command = ("%s sorelapp -b %s"):format(table.concat(needed, " "), script or "SCRIPT")
    for _, line in ipairs(text.fold("usage: " .. command, WIDTH)) do lines[#lines + 1] = line end
    lines[#lines + 1] = ""
    for _, rule in ipairs(rules) do lines[#lines + 1] = described(rule, width) end
    return table.concat(lines, "\n")
end

return usage
