---@meta sorel.params
-- SPDX-License-Identifier: LicenseRef-Proprietary
-- Made by ./dev reference; what is changed here is lost.

---Named parameters of a script, from environment variables.
local params = {}

---@class sorel.params.read.parameters
---@field text? string what it means
---@field type? string default "string"; "string", taken as it is: 0042 keeps its zeros; "number", decimal or hexadecimal after 0x; "boolean": yes, no, true, false, on, off, 1 or 0; "file", the path of one to read
---@field group? string in place of a type: a group of constants, one of which is given by name or value
---@field choices? table a list of the texts or numbers that are allowed
---@field pattern? string of Lua, which a text matches
---@field integer? boolean true: a number is whole
---@field least? number the least number
---@field most? number the greatest number
---@field default? any what stands for a missing one; without it one must be given
---@field optional? boolean true: nil stands for a missing one
---@field secret? boolean true: no message shows the text

---Reads parameters from the environment. A variable that is empty counts as missing. What is wrong
---is told at once, with a usage text. In a script (-b) or command (-c) that does not catch errors
---it goes to standard error, and the process ends: transmitter off, radio closed, status 64.
---Elsewhere, at the prompt above all, it is raised as an error; so it is, with the transmitter off,
---where return params.read { ... } or the like ends a script.
---
---Errors:
---* what is wrong with the variables, and the usage text
---* what is wrong with the list of parameters, every mistake by its number and name
---
---```lua
---values = params.read { { "SERIAL", pattern = "^%d+$" } }
---print(values.SERIAL)
---```
---@param parameters sorel.params.read.parameters[] a list, in the order of the usage text; each is a table with the variable's name first, then
---@return table values the values by name, those of constants as numbers; to ask it for a name that is not among the parameters is an error
function params.read(parameters) end

return params
