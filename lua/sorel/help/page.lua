-- SPDX-License-Identifier: LicenseRef-Proprietary
--- Pages of help: lists of lines of at most 80 columns.

local constants = require "sorel.constants"
local reference = require "sorel.reference"
local text = require "sorel.internal.text"

local page = {}

local WIDTH = 80

--- What help(nil) says.
page.NIL = "help was given nil, as a misspelt global is. Ask by the name in quotes."

local function add(lines, more)
    for _, line in ipairs(more) do lines[#lines + 1] = line end
end

-- A paragraph behind a label, its lines below one another from a column on.
local function item(label, paragraph, column)
    local lines = text.wrap(paragraph, WIDTH, (" "):rep(column))
    lines[1] = label .. (lines[1] or ""):sub(#label + 1)
    return lines
end

-- The first sentence of a text, as much of it as fits.
local function summary(paragraph, width)
    local sentence = paragraph:match("^(.-[^.]%.)%s+%u") or paragraph
    sentence = sentence:gsub("%.$", "")
    if #sentence <= width then return sentence end
    return text.wrap(sentence, width - 4)[1] .. " ..."
end

-- Names with what they stand for, a line each.
local function listed(rows)
    local widest = 0
    for _, row in ipairs(rows) do widest = math.max(widest, #row[1]) end
    local lines = {}
    for place, row in ipairs(rows) do
        local label = ("  %-" .. widest .. "s  "):format(row[1])
        lines[place] = label .. summary(row[2], WIDTH - #label)
    end
    return lines
end

-- Arguments, results or fields, the fields of each below it.
local function described(items, indentation)
    local widest, lines = 0, {}
    for _, one in ipairs(items) do widest = math.max(widest, #one.name) end
    for _, one in ipairs(items) do
        local label = (" "):rep(indentation) .. one.name
        add(lines, item(label, reference.kind(one) .. ": " .. one.text, indentation + widest + 2))
        if one.fields then add(lines, described(one.fields, indentation + 2)) end
    end
    return lines
end

local function headed(lines, heading, more)
    if #more == 0 then return end
    lines[#lines + 1] = ""
    lines[#lines + 1] = heading
    add(lines, more)
end

local function code(example)
    local lines = text.lines(example)
    for place, line in ipairs(lines) do lines[place] = "    " .. line end
    return lines
end

local function messages(list)
    local lines = {}
    for _, message in ipairs(list) do add(lines, text.wrap(message, WIDTH, "    ")) end
    return lines
end

local function members(entry)
    local names, rows = constants.members(entry.name), {}
    for place, name in ipairs(names) do rows[place] = { "  " .. name, text.number(radio[name]) } end
    local lines = {}
    for place, label in ipairs(text.columns(rows, "lr")) do
        add(lines, item(label, entry.members[names[place]], #label + 2))
    end
    return lines
end

local function require_line(subject)
    local name = subject.module:match("[^.]+$")
    return ('  %s = require "%s"'):format(name, subject.module)
end

local function of_entry(subject, entry)
    local lines = text.wrap(reference.signature(entry), WIDTH)
    if entry.value then lines[1] = lines[1] .. ", a " .. entry.value end
    add(lines, text.wrap(entry.text, WIDTH, "  "))
    if entry.arguments then headed(lines, "  Arguments", described(entry.arguments, 4)) end
    if entry.results then headed(lines, "  Results", described(entry.results, 4)) end
    local raised, statuses = reference.errors(entry)
    headed(lines, "  Errors", messages(raised))
    headed(lines, ('  "%s() did not return success" stands for'):format(entry.name),
        messages(statuses))
    if entry.members then headed(lines, "  Members", members(entry)) end
    if entry.example then
        local behind = subject.prepare and (', after what help "%s" shows'):format(subject.name)
        headed(lines, "  Example" .. (behind or ""), code(entry.example))
    end
    return lines
end

local function of_member(entry, member)
    return {
        ("%s = %s"):format(member, text.number(radio[member])),
        "  " .. entry.members[member],
        ('  of %s, of type %s: help "%s"'):format(entry.name, entry.type, entry.name),
    }
end

local function of_subject(subject)
    local lines = text.wrap(subject.name .. ": " .. subject.title, WIDTH)
    if subject.module then lines[#lines + 1] = require_line(subject) end
    if subject.text then add(lines, text.wrap(subject.text, WIDTH, "  ")) end
    for _, point in ipairs(subject.points or {}) do
        add(lines, item("  - ", point, 4))
    end
    if subject.session then
        lines[#lines + 1] = ""
        add(lines, text.lines(subject.session))
        lines[#lines + 1] = ""
    end
    if subject.after then add(lines, text.wrap(subject.after, WIDTH, "  ")) end
    local rows = {}
    for place, entry in ipairs(subject.entries) do
        rows[place] = { entry.name, entry.text }
    end
    if #rows > 0 then headed(lines, '  help "NAME" tells more of', listed(rows)) end
    if subject.prepare then headed(lines, "  The examples stand on", code(subject.prepare)) end
    return lines
end

--- The pages of things as sorel.help.find finds them, one below the other.
function page.of_all(things)
    local lines = {}
    for place, thing in ipairs(things) do
        if place > 1 then lines[#lines + 1] = "" end
        if thing.member then
            add(lines, of_member(thing.entry, thing.member))
        elseif thing.entry then
            add(lines, of_entry(thing.subject, thing.entry))
        else
            add(lines, of_subject(thing.subject))
        end
    end
    return lines
end

--- What mentions a text: a line for each thing.
function page.list(asked, things)
    local rows = {}
    for place, thing in ipairs(things) do
        local name = thing.entry and thing.entry.name or thing.subject.name
        rows[place] = { name, thing.entry and thing.entry.text or thing.subject.title }
    end
    local lines = { ('"%s" is mentioned by; help "NAME" tells more'):format(asked) }
    add(lines, listed(rows))
    return lines
end

--- An overview by subject: what is always there, then the modules. The constants are there without
-- their module; help needs no help to be found.
function page.overview()
    local always, modules = {}, {}
    for _, name in ipairs(reference.subjects()) do
        local subject = reference.subject(name)
        if name ~= "help" then
            local required = subject.module and name ~= "constants"
            local rows = required and modules or always
            rows[#rows + 1] = { name, subject.title }
        end
    end
    local rows = { unpack(always) }
    add(rows, modules)
    local lines = listed(rows)
    table.insert(lines, #always + 1, 'Modules, each to be had with NAME = require "sorel.NAME":')
    table.insert(lines, 1, 'Begin with help "first session". Then ask by a name or word: '
        .. 'help "transmit",')
    table.insert(lines, 2, 'help "radioInit", help "RADIO_BAND", help "rtwp". The subjects:')
    return lines
end

return page
