-- SPDX-License-Identifier: LicenseRef-Proprietary
--- The driver's constants in groups: from name to value and back, and what there is to choose from.
--
--     local constants = require "sorel.constants"
--     constants.name("RADIO_BAND", 7)                --> "RADIO_BAND_7"
--     constants.value("RADIO_BAND", "RADIO_BAND_7")  --> 7
--     constants.value("RADIO_BAND", "RADIO_BND_7")   --> nil, "RADIO_BAND has no member ..."
--     constants.members("RADIO_STATE")               --> { "RADIO_STATE_DISABLE", ... }
--
-- A group is an enumeration of sorel.h, named by what its members' names share: RADIO_BAND for
-- RadioBand. Members whose names end in _COUNT, _INVALID and _NULL belong to it, though the driver
-- refuses them. The values are those of the module `radio`, looked up at each call.

local can_be_chosen = require("sorel.internal.members").can_be_chosen
local nearest = require "sorel.internal.nearest"

local constants = {}

-- In the order of sorel.h.
local groups = {
    "RADIO_RETURN", "RADIO_DEBUG", "RADIO_CONF", "RADIO_MODE", "RADIO_BAND", "RADIO_STATE",
    "RADIO_RX_GAIN", "RADIO_TX_ANTENNA", "RADIO_RX_ANTENNA", "RADIO_SELECT", "RADIO_PLATFORM",
    "RADIO_LOOPBACK", "RADIO_CPRI_RATE", "RADIO_INTERFACE",
}

-- What the names of a group's members match, where it is not the group's name and "_" in front.
local patterns = { RADIO_RETURN = "^RADIO_E%u+$", RADIO_LOOPBACK = "^RADIO_.*_LOOPBACK$" }

local function nearest_name(names, group, text)
    return nearest.name(names, text, group .. "_")
end

local function nearest_value(names, value)
    return nearest.by(names, function(name)
        return can_be_chosen(name) and math.abs(radio[name] - value) or math.huge
    end)
end

local function nearest_member(names, group, text)
    local choices = {}
    for _, name in ipairs(names) do
        if can_be_chosen(name) then choices[#choices + 1] = name end
    end
    return nearest_name(choices, group, text)
end

-- By value, and by name where values are the same.
local function members_of(group)
    local pattern = patterns[group] or "^" .. tostring(group) .. "_"
    local names = {}
    for name in pairs(radio) do
        if name:find(pattern) then names[#names + 1] = name end
    end
    table.sort(names, function(one, other)
        if radio[one] ~= radio[other] then return radio[one] < radio[other] end
        return one < other
    end)
    return names
end

-- Raises, for the caller of the module's function, where there is no such group.
local function check_group(group)
    for _, known in ipairs(groups) do
        if known == group then return end
    end
    local meant = type(group) == "string" and nearest_name(groups, "RADIO", group) or nil
    error("there is no group of constants " .. tostring(group) .. nearest.suggestion(meant), 3)
end

--- The groups' names.
-- @return a list, in the order of sorel.h
function constants.groups()
    return { unpack(groups) }
end

--- The names of a group's members.
-- @param group a group's name; another one is an error
-- @return a list in the order of their values; where two are the same, of their names
function constants.members(group)
    check_group(group)
    return members_of(group)
end

--- The name of a value.
-- @param group a group's name; another one is an error
-- @param value a number
-- @return the name, the first of them where several members have the value; or nil and a text that
-- says what there is no member for, and which one that the driver takes is nearest
function constants.name(group, value)
    check_group(group)
    local names = members_of(group)
    for _, name in ipairs(names) do
        if radio[name] == value then return name end
    end
    local meant = type(value) == "number" and nearest_value(names, value) or nil
    return nil, group .. " has no member of value " .. tostring(value) .. nearest.suggestion(meant)
end

--- The value of a member, given by its name or value.
-- @param group a group's name; another one is an error
-- @param member a name, or a number, which has to be a member's value
-- @return the value; or nil and a text that says what there is no member for, and which one
-- that the driver takes is nearest
function constants.value(group, member)
    check_group(group)
    if type(member) == "number" then
        local name, message = constants.name(group, member)
        if name then return member end
        return nil, message
    end
    local names = members_of(group)
    for _, name in ipairs(names) do
        if name == member then return radio[name] end
    end
    local meant = type(member) == "string" and nearest_member(names, group, member) or nil
    return nil, group .. " has no member " .. tostring(member) .. nearest.suggestion(meant)
end

return constants
