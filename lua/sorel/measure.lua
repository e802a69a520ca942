-- SPDX-License-Identifier: LicenseRef-Proprietary
--- Readings with their statistics, and rows of them as tables, CSV and pictures.
--
--     local measure = require "sorel.measure"
--     local rtwp, gain = measure.read({ "rtwp", "gain" }, { average = 8 })
--     measure.print(measure.observe("rtwp", { average = 100 }))
--     print(measure.plot(sweep.run { ... }, "gain"))
--
-- A reading is the name of one of the driver's measurements, or { name = , unit = , read = } with a
-- function that returns a number. It is averaged in the domain of its unit: dBm and 0.1 dBm in
-- milliwatts, all others, dB and degC too, as they are. Readings that fail, which the driver
-- answers with not-a-number or -2147483648, take no part but are counted.

local check = require "sorel.internal.check"
local gnuplot = require "sorel.measure.gnuplot"
local plot = require "sorel.measure.plot"
local readings = require "sorel.measure.readings"
local row_text = require "sorel.measure.rows"
local statistics = require "sorel.measure.statistics"

local measure = {}

local option_rules = {
    { "average", type = "number", integer = true, least = 1, most = 100000, default = 1 },
}

-- The readings that are asked for and the values of each; mistakes are the caller's caller's.
local function take(subject, names, options)
    local values, mistakes = check.fields(options or {}, option_rules)
    local list = readings.of(names, "names", mistakes)
    check.raise(subject, mistakes, 3)
    return list, readings.take(list, values.average)
end

--- Takes readings, each several times in turn.
-- @param names a reading's name, or a list of names and tables as above
-- @param options nil or { average = how often each is taken, 1 to 100000; 1 when nil }
-- @return the mean of each reading, in its unit; not-a-number where all of a reading failed
-- @error whatever is wrong with the arguments, before anything is read
function measure.read(names, options)
    local list, values = take("measure.read", names, options)
    local means = {}
    for place, reading in ipairs(list) do
        means[place] = statistics.of(values[place], reading.unit).mean
    end
    return unpack(means)
end

local observed_columns = {
    { key = "reading" }, { key = "unit" }, { key = "mean" }, { key = "minimum" },
    { key = "maximum" }, { key = "deviation" }, { key = "count" }, { key = "failed" },
}

--- Takes readings as measure.read does.
-- @return rows for measure.print and measure.write, one for each reading: its name as `reading`,
-- its `unit`, and what measure.statistics gives
function measure.observe(names, options)
    local list, values = take("measure.observe", names, options)
    local rows = { columns = observed_columns }
    for place, reading in ipairs(list) do
        local row = statistics.of(values[place], reading.unit)
        row.reading, row.unit = reading.name, reading.unit
        rows[place] = row
    end
    return rows
end

--- The statistics of numbers.
-- @param values a list; not-a-number and -2147483648 (INT32_MIN) are failed readings
-- @param unit of the values, or nil; "dBm" and "0.1 dBm" are averaged in milliwatts, -inf is none
-- @return { mean = , minimum = , maximum = , deviation = , count = , failed = }. deviation is the
-- sample's standard deviation of the values as they are, of levels thus in dB (or 0.1 dB), and not
-- a number where one is infinite; count is how many were right. What there are too few values for
-- is not a number.
-- @error where there is no list of numbers
function measure.statistics(values, unit)
    local mistakes = {}
    if type(values) ~= "table" then
        mistakes[1] = "values: a list is expected, got " .. type(values)
        values = {}
    end
    if next(values) ~= nil then
        local _, misplaced = check.list(values, "values")
        for _, mistake in ipairs(misplaced) do mistakes[#mistakes + 1] = mistake end
    end
    for place, value in ipairs(values) do
        if type(value) ~= "number" then
            mistakes[#mistakes + 1] = ("values[%d]: a number is expected, got %s"):format(place,
                type(value))
        end
    end
    check.raise("measure.statistics", mistakes, 2)
    return statistics.of(values, unit)
end

--- What measure.read knows by name.
-- @return rows for measure.print, one for each reading: `reading`, `unit`, and `column`, the name
-- of its column in the rows of a sweep
function measure.readings()
    local rows = { columns = { { key = "reading" }, { key = "unit" }, { key = "column" } } }
    for place, reading in ipairs(readings.known()) do
        rows[place] = { reading = reading.name, unit = reading.unit,
            column = readings.column(reading.name, reading.unit) }
    end
    return rows
end

--- Prints rows as a table. What is not a number is "-"; what is not whole has two decimals, but for
-- what a sweep has set.
-- @param rows what sweep.run or measure.observe returned
-- @param columns a column to show or a list of them, or nil for all
-- @error where there is no such column
function measure.print(rows, columns)
    row_text.check(rows, "measure.print", 2)
    local mistakes = {}
    local shown = columns and row_text.chosen(rows, columns, mistakes) or rows.columns
    check.raise("measure.print", mistakes, 2)
    for _, line in ipairs(row_text.lines(rows, shown)) do print(line) end
end

--- Writes rows as comma-separated values (RFC 4180), a line with the columns' names first. What is
-- not a number is empty.
-- @param rows what sweep.run or measure.observe returned
-- @param file its path; nil and "-" are standard output
-- @error when the file cannot be written, a full disk included
function measure.write(rows, file)
    row_text.check(rows, "measure.write", 2)
    if file ~= nil and type(file) ~= "string" then
        error("measure.write: file: a path is expected, got a " .. type(file), 2)
    end
    row_text.write(rows, file)
end

--- Writes the rows of a sweep for gnuplot: FILE.csv, and FILE.gnuplot, which draws FILE.png beside
-- itself, from whatever folder it is run. There is a panel for each unit, with the quantity swept
-- (the inner one of two) along the x axis, and a curve for each reading and value of the outer one.
-- @param rows what sweep.run returned, interrupted or not
-- @param file FILE, also with one of these endings
-- @param options nil or { title = above the picture, the file's name when nil; columns = a list of
-- columns to draw, the means of all readings when nil }
-- @return the command that draws the picture, quoted for the shell
-- @error whatever is wrong with the arguments, and when a file cannot be written
function measure.plot(rows, file, options)
    row_text.check(rows, "measure.plot", 2)
    local request, mistakes = plot.request(rows, file, options)
    check.raise("measure.plot", mistakes, 2)
    row_text.write(rows, request.data)
    return gnuplot.write(request)
end

return measure
