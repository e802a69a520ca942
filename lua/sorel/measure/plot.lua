-- SPDX-License-Identifier: LicenseRef-Proprietary
--- Which of a sweep's rows are to be drawn, and into which files.

local check = require "sorel.internal.check"
local row_text = require "sorel.measure.rows"

local plot = {}

local function base_name(path)
    return (path:gsub("^.*/", ""))
end

-- The columns that were set, those that were read, and the place of each by its key.
local function split(columns)
    local swept, read, places = {}, {}, {}
    for place, column in ipairs(columns) do
        places[column.key] = place
        if column.swept then swept[#swept + 1] = column end
        if column.reading then read[#read + 1] = column end
    end
    return swept, read, places
end

-- Without columns in which nothing can be drawn.
local function drawable(list, rows)
    local some = {}
    for _, column in ipairs(list) do
        for _, row in ipairs(rows) do
            if row_text.finite(row[column.key]) then
                some[#some + 1] = column
                break
            end
        end
    end
    return some
end

local rules = { { "title", type = "string" }, { "columns", type = "table" } }

--- What is to be drawn, as measure.plot is asked for it.
-- @return a table: `data` and `script`, the paths of the CSV and the script; `name`, that of all
-- files, without folder and ending; `title`; `rows`; `places`, the place of each column by its key;
-- `columns`, those to draw; `x` and `outer`, those that were set, `outer` nil where it was one; and
-- a list of mistakes
function plot.request(rows, file, options)
    local values, mistakes = check.fields(options or {}, rules)
    if type(file) ~= "string" or base_name(file) == "" then
        mistakes[#mistakes + 1] = "file: a path is expected, to which .csv, .gnuplot and .png are "
            .. "added"
        file = ""
    end
    local base = file
    for _, ending in ipairs { "csv", "gnuplot", "png" } do
        local without = file:match("^(.*[^/])%." .. ending .. "$")
        if without then base = without end
    end
    local swept, read, places = split(rows.columns)
    local list = values.columns and row_text.chosen(rows, values.columns, mistakes) or read
    if #swept == 0 then
        mistakes[#mistakes + 1] = "rows: nothing was swept; sweep.run gives rows to draw"
    elseif #mistakes == 0 then
        list = drawable(list, rows)
        if #list == 0 then mistakes[1] = "rows: there is no reading to draw" end
    end
    return { data = base .. ".csv", script = base .. ".gnuplot", name = base_name(base),
        title = values.title or base_name(base), rows = rows, places = places, columns = list,
        x = swept[#swept], outer = #swept > 1 and swept[1] or nil }, mistakes
end

return plot
