-- SPDX-License-Identifier: LicenseRef-Proprietary
--- What the shell offers to scripts, as data: sorel.help prints it, and the reference, the
-- definitions for editors and the word list for completion are made from it.
--
-- A subject is one file of sorel/reference/, named as the subject with _ for blanks, which returns
--
--     {
--         name = "transmitter",              -- what `help "transmitter"` asks for
--         module = "sorel.transmitter",      -- what require() takes; nil for what is always there
--         title = "the transmitter switched off, whatever has gone wrong before",
--         text = "A paragraph or none.",
--         points = { "Paragraphs of a list", "or none." },
--         session = "What the prompt shows, its own words included; or none.",
--         after = "A paragraph behind that.",
--         prepare = "Lua that makes the globals which the examples below use; or none.",
--         entries = {
--             {
--                 name = "transmitter.off",  -- as a script writes it
--                 text = "What it does, in whole sentences.",
--                 arguments = {              -- in their order; none where it is nil
--                     { name = "frequency", type = "uint32_t", unit = "Hz", text = "where to" },
--                     { name = "options", type = "table", optional = true, text = "how",
--                         fields = {         -- its keys, described as arguments are; where the
--                                            -- text says "list", the keys of each element
--                             { name = "average", type = "number", default = "1", text = "..." },
--                         } },
--                 },
--                 results = { { name = "off", type = "boolean", text = "..." } },
--                 errors = { "what is raised, and when" },
--                 example = "transmitter.off()",
--                 unrun = "why the example cannot be run in a test; nil where it can",
--             },
--         },
--     }
--
-- Types are Lua's ("number", "string", "table", "function", "boolean", "userdata", "any"), or as a
-- message of the driver's functions names them ("uint32_t", "RadioBand", without "enum"), or a
-- group of constants ("RADIO_BAND"): its member by name or value; or, for an object, what stands in
-- front of the colon in its methods' entries ("tcp" for "tcp:send"). Several have " or " between
-- them. An entry without `arguments` that is no function has `value`, the text of its type; a group
-- of constants has `members`, a text for each member by name, and `type`, the driver's name of it.
-- An argument with `unchecked` is taken whatever it is. Lines of examples have at most 76
-- characters. In an example a comment that begins with --> tells what the line prints. Examples run
-- where modules are to be had by their names, with the radio set up for LTE in band 7.
--
-- The errors of the driver's functions begin with the status that the driver answers with.

local reference = {}

-- In the order in which they are shown.
local subjects = {
    "first session", "calls",
    "platform", "transmit", "receive", "readings", "spi", "debug", "constants", "objects",
    "bit", "socket",
    "bringup", "registers", "measure", "sweep", "limits", "params", "remote", "transmitter",
    "help",
}

--- The names of all subjects.
function reference.subjects()
    return { unpack(subjects) }
end

--- A subject by its name, as told above; nil where there is none.
function reference.subject(name)
    for _, known in ipairs(subjects) do
        if known == name then return require("sorel.reference." .. name:gsub(" ", "_")) end
    end
    return nil
end

--- Calls a function with each entry, and its subject, in the order in which they are shown.
function reference.each(action)
    for _, name in ipairs(subjects) do
        local subject = reference.subject(name)
        for _, entry in ipairs(subject.entries) do action(entry, subject) end
    end
end

--- Whether an entry is a function's.
function reference.is_function(entry)
    return entry.value == nil and entry.members == nil
end

--- The objects that have methods, "tcp" for "tcp:send".
-- @return a table with their names as keys
function reference.objects()
    local objects = {}
    reference.each(function(entry)
        local object = entry.name:match("^([%w_]+):")
        if object then objects[object] = true end
    end)
    return objects
end

--- A function as it is called, with what may be left out in brackets: "bit.tohex(value[, digits])".
-- Of what is no function the name.
function reference.signature(entry)
    if not reference.is_function(entry) then return entry.name end
    local names, brackets = {}, ""
    for place, argument in ipairs(entry.arguments or {}) do
        local comma = place > 1 and ", " or ""
        if argument.optional then
            names[place], brackets = "[" .. comma .. argument.name, brackets .. "]"
        else
            names[place] = comma .. argument.name
        end
    end
    return entry.name .. "(" .. table.concat(names) .. brackets .. ")"
end

--- The group of constants of a type of the driver's: "RADIO_BAND" of "RadioBand"; nil of others.
function reference.group_of(type)
    for _, entry in ipairs(require "sorel.reference.groups") do
        if entry.type == type then return entry.name end
    end
    return nil
end

--- What may stand for an argument, a result or a field: "uint32_t, Hz".
function reference.kind(item)
    local group = reference.group_of(item.type)
    local words = { group and ("%s (%s)"):format(item.type, group) or item.type }
    words[#words + 1] = item.unit
    if item.default then
        words[#words + 1] = "default " .. item.default
    elseif item.optional then
        words[#words + 1] = "optional"
    end
    return table.concat(words, ", ")
end

--- The errors of an entry: texts of what is raised, and texts of the statuses for which a function
-- of the driver raises that it did not succeed.
function reference.errors(entry)
    local raised, statuses = {}, {}
    for _, message in ipairs(entry.errors or {}) do
        local list = message:find("^RADIO_E%u+: ") and statuses or raised
        list[#list + 1] = message
    end
    return raised, statuses
end

return reference
