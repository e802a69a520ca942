-- SPDX-License-Identifier: LicenseRef-Proprietary
--- docs/reference.md: all subjects, with what belongs to them, to read.

local constants = require "sorel.constants"
local reference = require "sorel.reference"
local text = require "sorel.internal.text"

local markdown = {}

local WIDTH = 100

-- Where GitHub and its like put a heading.
local function anchor(heading)
    return "#" .. heading:lower():gsub("[^%w _-]", ""):gsub(" ", "-")
end

-- A text, with what Markdown would take for its own marked as code or escaped.
local function plain(words)
    return (words:gsub("[%*<>|]", "\\%0"):gsub("[%w.]*_[%w_]*", "`%0`"))
end

local Page = {}
Page.__index = Page

function Page:line(line) self[#self + 1] = line end

function Page:paragraph(words, indentation)
    for _, line in ipairs(text.wrap(words, WIDTH, indentation)) do self:line(line) end
    self:line("")
end

function Page:code(code)
    for _, line in ipairs(text.lines(code)) do self:line(line ~= "" and "    " .. line or "") end
    self:line("")
end

function Page:bullet(words, indentation)
    local lines = text.wrap(words, WIDTH, indentation .. "  ")
    lines[1] = indentation .. "- " .. lines[1]:sub(#indentation + 3)
    for _, line in ipairs(lines) do self:line(line) end
end

function Page:items(items, indentation)
    for _, item in ipairs(items) do
        local kind = plain(reference.kind(item))
        self:bullet(("`%s`, %s: %s"):format(item.name, kind, plain(item.text)), indentation)
        if item.fields then self:items(item.fields, indentation .. "  ") end
    end
end

-- Each has its heading, where there is anything.
function Page:list(heading, items)
    if not items or #items == 0 then return end
    if heading then self:paragraph(heading) end
    self:items(items, "")
    self:line("")
end

function Page:messages(heading, messages)
    if #messages == 0 then return end
    self:paragraph(heading)
    for _, message in ipairs(messages) do self:bullet(plain(message), "") end
    self:line("")
end

function Page:members(entry)
    self:line("| member | value | |")
    self:line("|---|---|---|")
    for _, name in ipairs(constants.members(entry.name)) do
        self:line(("| `%s` | %s | %s |"):format(name, text.number(radio[name]),
            plain(entry.members[name])))
    end
    self:line("")
end

function Page:entry(entry)
    self:line("### " .. entry.name)
    self:line("")
    if reference.is_function(entry) then self:code(reference.signature(entry)) end
    local kind = entry.value and (" A %s."):format(entry.value)
        or entry.members and (" Their type is `%s`."):format(entry.type) or ""
    self:paragraph(plain(entry.text) .. kind)
    if entry.members then self:members(entry) end
    self:list(nil, entry.arguments)
    self:list("Returns:", entry.results)
    local raised, statuses = reference.errors(entry)
    self:messages("Errors:", raised)
    self:messages(("`%s() did not return success` stands for:"):format(entry.name), statuses)
    if entry.example then
        self:paragraph("For example:")
        self:code(entry.example)
    end
end

-- A name of a subject with a capital, as a heading.
local function heading_of(subject)
    return subject.module or subject.name:gsub("^%l", string.upper)
end

function Page:contents()
    for _, name in ipairs(reference.subjects()) do
        local subject = reference.subject(name)
        local heading = heading_of(subject)
        self:bullet(("[%s](%s): %s"):format(heading, anchor(heading), plain(subject.title)), "")
    end
    self:line("")
end

function Page:links(entries)
    if #entries < 2 then return end
    local links = {}
    for place, entry in ipairs(entries) do
        links[place] = ("[%s](%s)"):format((entry.name:gsub("_", "\\_")), anchor(entry.name))
    end
    self:paragraph(table.concat(links, " · "))
end

function Page:subject(subject)
    self:line("## " .. heading_of(subject))
    self:line("")
    self:paragraph(plain(subject.title:gsub("^%l", string.upper)) .. ".")
    if subject.module then
        self:code(('%s = require "%s"'):format(subject.name, subject.module))
    end
    if subject.text then self:paragraph(plain(subject.text)) end
    for _, point in ipairs(subject.points or {}) do self:bullet(plain(point), "") end
    if subject.points then self:line("") end
    if subject.session then self:code(subject.session) end
    if subject.after then self:paragraph(plain(subject.after)) end
    self:links(subject.entries)
    if subject.prepare then
        self:paragraph("The examples stand on:")
        self:code(subject.prepare)
    end
    for _, entry in ipairs(subject.entries) do self:entry(entry) end
end

--- The lines of the file.
function markdown.lines()
    local page = setmetatable({}, Page)
    page:line("# Reference")
    page:line("")
    page:paragraph("What the shell offers to scripts beside Lua's own libraries. At the prompt, after "
        .. "`require \"sorel.help\"`, the word `help` shows the same. Made by `./dev reference` from "
        .. "the texts in `lua/sorel/reference/`; what is changed here is lost.")
    page:contents()
    for _, name in ipairs(reference.subjects()) do page:subject(reference.subject(name)) end
    while page[#page] == "" do page[#page] = nil end
    return page
end

return markdown
