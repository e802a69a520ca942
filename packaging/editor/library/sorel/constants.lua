---@meta sorel.constants
-- SPDX-License-Identifier: LicenseRef-Proprietary
-- Made by ./dev reference; what is changed here is lost.

---The RADIO_... constants, and their names and values in a script. The constants are globals, and
---are in the table radio too. A group is named by what its members' names share; members whose
---names end in _COUNT, _INVALID and _NULL belong to it, though the driver refuses them.
local constants = {}

---The groups' names.
---
---```lua
---print(table.concat(constants.groups(), " "))
---```
---@return table groups a list
function constants.groups() end

---The names of a group's members.
---
---Errors:
---* a group that does not exist; the nearest one is named
---
---```lua
---for _, name in ipairs(constants.members "RADIO_STATE") do print(name) end
---```
---@param group string a group's name, such as "RADIO_BAND"
---@return table members a list in the order of their values; where two are the same, of their names
function constants.members(group) end

---The name of a value.
---
---Errors:
---* a group that does not exist; the nearest one is named
---
---```lua
---print(constants.name("RADIO_BAND", 7))  --> RADIO_BAND_7
---```
---@param group string a group's name, such as "RADIO_BAND"
---@param value number the value
---@return string name the first of several; nil where no member has the value
---@return string? message after nil, what is wrong and which member is nearest
function constants.name(group, value) end

---The value of a member.
---
---Errors:
---* a group that does not exist; the nearest one is named
---
---```lua
---print(constants.value("RADIO_BAND", "RADIO_BAND_7"))  --> 7
---```
---@param group string a group's name, such as "RADIO_BAND"
---@param member any a name, or a number, which has to be a member's value
---@return number value nil where there is no such member
---@return string? message after nil, what is wrong and which member is nearest
function constants.value(group, member) end

return constants
