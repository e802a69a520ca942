-- SPDX-License-Identifier: LicenseRef-Proprietary
--- Rows of readings as text: comma-separated values, and a table for the terminal.
--
-- Rows are a list of tables, one a row, with the field `columns`: a list, in their order, of
--     { key = "rtwp_dbm", title = "RTWP", unit = "dBm", swept = true, reading = true }
-- key is that of a row's value. Those that were set have `swept`, those that were read `reading`.

local nearest = require "sorel.internal.nearest"
local output = require "sorel.internal.output"
local text = require "sorel.internal.text"

local rows = {}

--- Raises, for the caller of a function of a module, where a table is not what is told above.
-- @param level as that of error(): 1 is the caller of this function
function rows.check(given, subject, level)
    if type(given) ~= "table" or type(given.columns) ~= "table" then
        error(subject .. ": rows are what sweep.run and measure.observe return", level + 1)
    end
end

--- Whether a value is a number that can be drawn.
function rows.finite(value)
    return type(value) == "number" and value == value and math.abs(value) < math.huge
end

--- The columns of the keys that a caller names.
-- @param keys a list, or the only one
-- @param mistakes the list that keys without a column are added to
function rows.chosen(given, keys, mistakes)
    if type(keys) ~= "table" then keys = { keys } end
    local list, known, by_key = {}, {}, {}
    for place, column in ipairs(given.columns) do
        known[place], by_key[column.key] = column.key, column
    end
    for place, key in ipairs(keys) do
        list[#list + 1] = by_key[key]
        if not by_key[key] then
            mistakes[#mistakes + 1] = ("columns[%d]: there is no column %s%s"):format(place,
                tostring(key), nearest.suggestion(nearest.name(known, tostring(key))))
        end
    end
    return list
end

--- The line of CSV that names the columns.
function rows.header(columns)
    local keys = {}
    for place, column in ipairs(columns) do keys[place] = column.key end
    return output.csv(keys)
end

--- A row as a line of CSV; what is not a number is empty.
function rows.line(columns, row)
    local cells = {}
    for place, column in ipairs(columns) do
        local value = row[column.key]
        if value == value then cells[place] = value end
    end
    return output.csv(cells, #columns)
end

--- Writes rows as CSV to a path, nil and "-" being standard output. A failure is an error.
function rows.write(given, path)
    output.whole(path, function(file)
        file:write(rows.header(given.columns))
        for _, row in ipairs(given) do file:write(rows.line(given.columns, row)) end
    end)
end

-- How a column's values are shown: whole ones and those that were set as they are, others with two
-- decimals, which suits readings in dB, dBm and degC.
local function shown(given, column)
    local whole, numbers = true, true
    for _, row in ipairs(given) do
        local value = row[column.key]
        if type(value) ~= "number" then numbers = false
        elseif rows.finite(value) and value % 1 ~= 0 then whole = false end
    end
    return function(value)
        if value ~= value then return "-" end
        if type(value) ~= "number" then return tostring(value) end
        if whole or column.swept or not rows.finite(value) then return text.number(value) end
        return ("%.2f"):format(value)
    end, numbers and "r" or "l"
end

--- Some columns of rows as lines of an aligned table, the columns' names above.
function rows.lines(given, columns)
    local cells, alignment = { {} }, {}
    for place, column in ipairs(columns) do
        local show
        show, alignment[place] = shown(given, column)
        cells[1][place] = column.key
        for number, row in ipairs(given) do
            cells[number + 1] = cells[number + 1] or {}
            cells[number + 1][place] = show(row[column.key])
        end
    end
    return text.columns(cells, table.concat(alignment))
end

return rows
