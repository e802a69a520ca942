-- SPDX-License-Identifier: LicenseRef-Proprietary
--- What someone asks help for: a subject, an entry or a member of a group of constants.
--
-- What is found is { subject = ..., entry = ..., member = ... }, of which the entry or the member
-- may be nil.

local keys = require "sorel.internal.keys"
local nearest = require "sorel.internal.nearest"
local reference = require "sorel.reference"

local find = {}

-- Calls a function with everything there is, and the names that it goes by.
local function each(action)
    for _, name in ipairs(reference.subjects()) do
        local subject = reference.subject(name)
        action({ subject = subject }, subject.name, subject.module)
        for _, entry in ipairs(subject.entries) do
            action({ subject = subject, entry = entry }, entry.name, entry.members and entry.type)
            for member in pairs(entry.members or {}) do
                action({ subject = subject, entry = entry, member = member }, member)
            end
        end
    end
end

--- What is called that; case makes no difference.
-- @return a list
function find.named(name)
    name = name:lower()
    local found = {}
    each(function(thing, one, other)
        if one:lower() == name or other and other:lower() == name then found[#found + 1] = thing end
    end)
    -- A subject with an only entry of its name says no more than that.
    if #found == 2 and #found[1].subject.entries == 1 then table.remove(found, 1) end
    return found
end

-- What a search does not look at: code, and what is found by itself.
local UNSEARCHED = { example = true, unrun = true, prepare = true, entries = true }

-- Every text in a table, and in the tables in it.
local function gather(value, into)
    if type(value) == "string" then into[#into + 1] = value end
    if type(value) ~= "table" then return end
    for key, part in pairs(value) do
        if not UNSEARCHED[key] then gather(part, into) end
    end
end

-- Whether all the words are in what an entry says, or a subject apart from its entries.
local function mentions(words, thing)
    local said = {}
    gather(thing.entry or thing.subject, said)
    for member in pairs(thing.entry and thing.entry.members or {}) do said[#said + 1] = member end
    local all = table.concat(said, "\n"):lower()
    for _, word in ipairs(words) do
        if not all:find(word, 1, true) then return false end
    end
    return #words > 0
end

--- The subjects and entries that mention all the words of a text; case makes no difference.
-- @return a list, those whose name has the words first
function find.mentioning(text)
    local words = {}
    for word in text:lower():gmatch("%S+") do words[#words + 1] = word end
    local by_name, others = {}, {}
    each(function(thing, name)
        if thing.member or not mentions(words, thing) then return end
        local list = name:lower():find(words[1], 1, true) and by_name or others
        list[#list + 1] = thing
    end)
    for _, thing in ipairs(others) do by_name[#by_name + 1] = thing end
    return by_name
end

-- What a name stands for now: a global, or a module that has been required, or a field of those;
-- nil where it stands for nothing.
local function live(name, module)
    local first, rest = name:match("^([^.]*)%.?(.*)$")
    local value = _G[first]
    if module and module:match("[^.]+$") == first then value = package.loaded[module] or value end
    for part in rest:gmatch("[^.]+") do
        value = type(value) == "table" and value[part] or nil
    end
    return value
end

--- The entry, or else the subject, that a function or table is.
function find.value(value)
    local entry, subject
    each(function(thing, name)
        local it = not thing.member and live(name, thing.subject.module)
        if not it or not rawequal(it, value) then return end
        if thing.entry then
            entry = entry or thing
        else
            subject = thing
        end
    end)
    return entry or subject
end

-- The words of all texts but the shortest, for one that is misspelt.
local function words_said()
    local known = {}
    each(function(thing)
        if thing.member then return end
        local said = {}
        gather(thing.entry or thing.subject, said)
        for word in table.concat(said, " "):lower():gmatch("%a%a%a%a+") do known[word] = true end
    end)
    return keys.sorted(known)
end

--- The words for what there is no help for.
function find.nothing(asked)
    if type(asked) ~= "string" then
        return ("There is no help for this %s. Ask by a name, in quotes."):format(type(asked))
    end
    local words = ('There is no help for "%s"'):format(asked)
    if live(asked) ~= nil then return words .. ": it is Lua's own, or a script's." end
    local names = {}
    each(function(_, name) names[#names + 1] = name end)
    table.sort(names)
    local name = nearest.name(names, asked)
        or asked:find("^%a+$") and nearest.name(words_said(), asked)
    return words .. (name and nearest.suggestion(name) or ". The word help alone is an overview.")
end

return find
