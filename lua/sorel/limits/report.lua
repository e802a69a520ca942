-- SPDX-License-Identifier: LicenseRef-Proprietary
--- The report of a test on standard output: at most 80 columns, the result in the first, a line as
-- each step ends.

local text = require "sorel.internal.text"

local WIDTH, GAP, RESULT = 80, "  ", 5
local NUMBER, TEXT, UNIT = 12, 16, 10 -- at most

local INDENTATION = (" "):rep(RESULT + #GAP)

local Report = {}
Report.__index = Report

-- A number in at most so many columns; what is left out stands in the message and the files.
local function fitted(value, width)
    for digits = 14, 1, -1 do
        local cell = digits == 14 and text.number(value) or ("%." .. digits .. "g"):format(value)
        if #cell <= width then return cell end
    end
    return ("%.0e"):format(value)
end

local function cell_of(value, width)
    -- Of a check the result says it all.
    if value == nil or type(value) == "boolean" then return "" end
    if type(value) == "number" then return fitted(value, width) end
    local cell = text.printable(tostring(value))
    if text.width(cell) <= width then return cell end
    local characters = ("[^\128-\191][\128-\191]*"):rep(width - 3)
    return cell:match("^" .. characters) .. "..."
end

-- What the columns between name and end are, with the width that each needs; unused ones are not
-- there.
local function columns_of(steps)
    local columns = {}
    for _, column in ipairs {
        { key = "value", most = NUMBER, least = 10, right = true },
        { key = "low", most = NUMBER, right = true },
        { key = "high", most = NUMBER, right = true },
        { key = "unit", most = UNIT },
    } do
        local widest
        for _, step in ipairs(steps) do
            local value = step[column.key]
            if column.key == "value" then
                value = not step.check and (step.expected or step.low or step.high) or nil
            end
            if value ~= nil then
                local most = type(value) == "string" and column.right and TEXT or column.most
                widest = math.max(widest or 0, text.width(cell_of(value, most)))
            end
        end
        if widest then
            column.width = math.max(widest, #column.key, column.least or 0)
            columns[#columns + 1] = column
        end
    end
    return columns
end

local function padded(cell, width, right)
    local padding = (" "):rep(width - text.width(cell))
    return right and padding .. cell or cell .. padding
end

-- Writes a line, at once. Where that fails, which is said at the end, no more are written.
function Report:write(line)
    if self.failure then return end
    local written, reason = io.stdout:write(line, "\n")
    if written then written, reason = io.stdout:flush() end
    if not written then self.failure = "cannot write standard output: " .. reason end
end

function Report:write_cells(result, name, cells)
    local names = text.fold(text.printable(name), self.name_width)
    local line = { padded(result, RESULT), padded(names[1] or "", self.name_width) }
    for place, column in ipairs(self.columns) do
        line[#line + 1] = padded(cells[place], column.width, column.right)
    end
    self:write((table.concat(line, GAP):gsub(" +$", "")))
    for place = 2, #names do self:write(INDENTATION .. names[place]) end
end

--- Writes what a step has come to.
function Report:row(row)
    local cells = {}
    for place, column in ipairs(self.columns) do
        cells[place] = cell_of(row[column.key], column.width)
    end
    self:write_cells(row.result:upper(), row.name, cells)
    for line in text.printable(row.message or "", true):gmatch("[^\n]+") do
        for _, part in ipairs(text.fold(line, WIDTH, INDENTATION)) do self:write(part) end
    end
end

--- Writes the last line.
function Report:summary(result)
    local all = #result.steps
    local steps = all == 1 and "1 step" or all .. " steps"
    local parts = {}
    local function part(count, what, more)
        if count > 0 then parts[#parts + 1] = count .. (count > 1 and more or what) end
    end
    if result.failed > 0 then
        part(result.failed, " of " .. steps .. " failed")
        part(result.errors, " error", " errors")
    elseif result.errors > 0 then
        part(result.errors, " of " .. steps .. " ended in an error")
    else
        parts[1] = steps .. " passed"
    end
    part(result.skipped, " skipped")
    part(#result.unwritten, " file not written", " files not written")
    self:write((result.passed and "PASS: " or "FAIL: ") .. table.concat(parts, ", "))
end

local report = {}

--- Begins the report of a test.
-- @param test as limits/definition.lua gives it
-- @return an object with the methods row(row), summary(result), and failure, a text where standard
-- output cannot be written
function report.begin(test)
    local self = setmetatable({ columns = columns_of(test.steps) }, Report)
    local room = WIDTH - RESULT - #GAP
    for _, column in ipairs(self.columns) do room = room - column.width - #GAP end
    local widest = #"set-up"
    for _, step in ipairs(test.steps) do
        widest = math.max(widest, text.width(text.printable(step.name)))
    end
    self.name_width = math.min(room, widest)
    local title = test.name .. (test.serial and ", serial " .. test.serial or "")
    for _, line in ipairs(text.fold(text.printable(title), WIDTH)) do self:write(line) end
    local heads = {}
    for place, column in ipairs(self.columns) do heads[place] = column.key end
    self:write_cells("", "step", heads)
    return self
end

return report
