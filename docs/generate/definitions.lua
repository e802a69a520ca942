-- SPDX-License-Identifier: LicenseRef-Proprietary
--- Definitions for the Lua language server: Lua that is never run, with annotations.

local constants = require "sorel.constants"
local keys = require "sorel.internal.keys"
local reference = require "sorel.reference"
local text = require "sorel.internal.text"

local definitions = {}

local WIDTH = 100

-- What the server calls the types that it knows by another name. It takes a type ending in a
-- question mark for one that may be nil.
local types = {
    uint32_t = "integer", uint16_t = "integer", int32_t = "integer", int16_t = "integer",
    float = "number", ["char const *"] = "string", ["char **"] = "userdata",
    ["char const **"] = "userdata?", ["int32_t *const"] = "userdata?", ["FILE *"] = "userdata?",
}
for object in pairs(reference.objects()) do types[object] = "sorel." .. object end

-- The driver's type of each group.
local type_of_group = {}
for _, group in ipairs(require "sorel.reference.groups") do
    type_of_group[group.name] = group.type
end

local File = {}
File.__index = File

local function new_file(meta)
    local file = setmetatable({ classes = {} }, File)
    file:line("---@meta " .. meta)
    file:line("-- SPDX-License-Identifier: LicenseRef-Proprietary")
    file:line("-- Made by ./dev reference; what is changed here is lost.")
    return file
end

function File:line(line) self[#self + 1] = line end

function File:say(words)
    for _, line in ipairs(text.wrap(words, WIDTH, "---")) do self:line(line) end
end

-- The type of an argument, result or field for the server.
function File:type(item)
    local class = item.fields and self.classes[item.fields]
    if class then return item.text:find("%f[%a]list%f[%A]") and class .. "[]" or class end
    local known = {}
    for type in (item.type .. " or "):gmatch("(.-) or ") do
        if type_of_group[type] then
            known[#known + 1] = type_of_group[type] .. "|string"
        else
            known[#known + 1] = types[type] or type
        end
    end
    return table.concat(known, "|")
end

-- What follows the name and type of an argument, result or field, on its line.
local function remark(item)
    local words = { item.text }
    if item.default then table.insert(words, 1, "default " .. item.default) end
    if item.unit then table.insert(words, 1, item.unit) end
    return (table.concat(words, "; "):gsub("%s+", " "))
end

-- The classes of tables with known keys, those inside first.
function File:declare_fields(item, name)
    if not item.fields or self.classes[item.fields] then return end
    for _, field in ipairs(item.fields) do self:declare_fields(field, name .. "." .. field.name) end
    self.classes[item.fields] = name
    self:line("")
    self:line("---@class " .. name)
    for _, field in ipairs(item.fields) do
        local optional = field.optional or field.default
        self:line(("---@field %s%s %s %s"):format(field.name, optional and "?" or "",
            self:type(field), remark(field)))
    end
end

function File:declare_entry_fields(entry)
    local prefix = "sorel." .. entry.name:gsub(":", ".")
    for _, items in ipairs { entry.arguments or {}, entry.results or {} } do
        for _, item in ipairs(items) do self:declare_fields(item, prefix .. "." .. item.name) end
    end
end

function File:describe(entry)
    self:say(entry.text)
    local raised, statuses = reference.errors(entry)
    if #statuses > 0 then
        table.insert(raised, ('"%s() did not return success" for'):format(entry.name))
        for _, status in ipairs(statuses) do table.insert(raised, "  * " .. status) end
    end
    if #raised > 0 then
        self:line("---")
        self:line("---Errors:")
        for _, message in ipairs(raised) do
            self:line((message:find("^  %*") and "---" or "---* ") .. message)
        end
    end
    if entry.example then
        self:line("---")
        self:line("---```lua")
        for _, line in ipairs(text.lines(entry.example)) do self:line("---" .. line) end
        self:line("---```")
    end
end

-- The function is declared in what stands for its module in the file.
function File:declare_function(entry, name)
    self:declare_entry_fields(entry)
    self:line("")
    self:describe(entry)
    local names = {}
    for place, argument in ipairs(entry.arguments or {}) do
        names[place] = argument.name
        local optional = argument.optional and argument.name ~= "..." and "?" or ""
        self:line(("---@param %s%s %s %s"):format(argument.name, optional, self:type(argument),
            remark(argument)))
    end
    for _, result in ipairs(entry.results or {}) do
        local type = self:type(result)
        if result.name == "..." then
            self:line(("---@return %s ... %s"):format(type, remark(result)))
        else
            if result.optional and not type:find("%?$") then type = type .. "?" end
            self:line(("---@return %s %s %s"):format(type, result.name, remark(result)))
        end
    end
    self:line(("function %s(%s) end"):format(name or entry.name, table.concat(names, ", ")))
end

local value_of = { number = "0", string = '""', table = "{}" }

function File:declare_value(entry)
    self:line("")
    self:describe(entry)
    if entry.value ~= "table" then self:line("---@type " .. entry.value) end
    self:line(("%s = %s"):format(entry.name, value_of[entry.value]))
end

function File:declare_group(entry)
    self:line("")
    self:say(entry.text)
    self:line(("---@alias %s integer"):format(entry.type))
    for _, name in ipairs(constants.members(entry.name)) do
        self:line("")
        self:say(entry.members[name])
        self:line("---@type " .. entry.type)
        self:line(("%s = %s"):format(name, text.number(radio[name])))
    end
end

-- Objects, by what stands in front of the colon of their methods.
function File:declare_class(entry, declared)
    local object = entry.name:match("^([%w_]+):")
    if not object or declared[object] then return end
    declared[object] = true
    self:line("")
    self:line("---@class " .. types[object])
    self:line(("local %s = {}"):format(object))
end

function File:declare(entries)
    local declared = {}
    -- Tables come ahead of what is in them.
    for _, entry in ipairs(entries) do
        if entry.value == "table" then self:declare_value(entry) end
    end
    for _, entry in ipairs(entries) do
        self:declare_class(entry, declared)
        if entry.members then
            self:declare_group(entry)
        elseif reference.is_function(entry) then
            self:declare_function(entry)
        elseif entry.value ~= "table" then
            self:declare_value(entry)
        end
    end
end

-- The functions and constants in the table radio.
function File:declare_radio()
    self:line("")
    for _, name in ipairs(keys.sorted(radio)) do self:line(("radio.%s = %s"):format(name, name)) end
    self:line("radioNative.radioOpen = radioOpen")
    self:line("radioNative.radioClose = radioClose")
end

--- The lines of the file with all globals.
function definitions.of_globals()
    local file = new_file("_")
    for _, name in ipairs(reference.subjects()) do
        local subject = reference.subject(name)
        if name == "bit" or name == "socket" then
            file:line("")
            file:say(subject.title:gsub("^%l", string.upper) .. ". " .. subject.text)
            file:line(name .. " = {}")
        end
        local entries = {}
        for _, entry in ipairs(subject.entries) do
            local global = not subject.module or entry.members or name == "help"
            if global then entries[#entries + 1] = entry end
        end
        file:declare(entries)
    end
    file:declare_radio()
    return file
end

--- The lines of the file of a module.
function definitions.of_module(subject)
    local file = new_file(subject.module)
    if subject.name == "help" then
        file:line("")
        file:line("return help")
        return file
    end
    file:line("")
    file:say(subject.title:gsub("^%l", string.upper) .. "." .. (subject.text and " " .. subject.text
        or ""))
    file:line(("local %s = {}"):format(subject.name))
    local entries = {}
    for _, entry in ipairs(subject.entries) do
        if not entry.members then entries[#entries + 1] = entry end
    end
    file:declare(entries)
    file:line("")
    file:line("return " .. subject.name)
    return file
end

return definitions
