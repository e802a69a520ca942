-- SPDX-License-Identifier: LicenseRef-Proprietary
local names = { name = "names", type = "any",
    text = "the name of a reading, or a list of names and of a script's own readings, each "
        .. "{ name = , unit = , read = function } with a function that returns a number" }

local options = { name = "options", type = "table", optional = true, text = "how to read",
    fields = {
        { name = "average", type = "number", default = "1",
            text = "how often each reading is taken, 1 to 100000; several readings take turns" },
    } }

local rows = { name = "rows", type = "table", text = "what sweep.run or measure.observe returned" }

return {
    name = "measure",
    module = "sorel.measure",
    title = "readings with their statistics, as tables, CSV and pictures",
    text = "Readings are rtwp, rtwp_1 and rtwp_2 in dBm, rtwp_raw, rtwp_raw_1 and rtwp_raw_2 in "
        .. "0.1 dBm, gain, gain_1 and gain_2 in dB, and temperature in degC; the number is that of "
        .. "the antenna, without one the selected paths count. What is in dBm or 0.1 dBm is "
        .. "averaged in milliwatts, all else as it is. Readings that fail take no part, but are "
        .. "counted.",
    prepare = [[
sweep = require "sorel.sweep"
rows = sweep.run { rx_gain_db = { 0, 60 }, readings = { "rtwp", "gain" } }]],
    entries = {
        {
            name = "measure.read",
            text = "Takes readings.",
            arguments = { names, options },
            results = { { name = "...", type = "number",
                text = "the mean of each reading, in its unit; not-a-number where all of it "
                    .. "failed" } },
            errors = { "every mistake in the arguments, before anything is read" },
            example = [[print(measure.read({ "rtwp", "gain" }, { average = 8 }))]],
        },
        {
            name = "measure.observe",
            text = "Takes readings, for their statistics.",
            arguments = { names, options },
            results = { { name = "rows", type = "table",
                text = "a row for each reading: its name as reading, its unit, and what "
                    .. "measure.statistics gives" } },
            errors = { "every mistake in the arguments, before anything is read" },
            example = [[measure.print(measure.observe("rtwp", { average = 100 }))]],
        },
        {
            name = "measure.statistics",
            text = "The statistics of numbers.",
            arguments = {
                { name = "values", type = "table",
                    text = "a list of numbers; not-a-number and -2147483648 are failed readings" },
                { name = "unit", type = "string", optional = true,
                    text = [[of the values; "dBm" and "0.1 dBm" are averaged in milliwatts]] },
            },
            results = { { name = "statistics", type = "table",
                text = "mean, minimum, maximum and deviation, the sample's standard deviation of "
                    .. "the values as they are, so of levels in dB; count, how many were right; "
                    .. "failed, how many were not. What too few are right for is not-a-number." } },
            errors = { "what is no list of numbers" },
            example = [[print(measure.statistics({ -90, -80 }, "dBm").mean)]],
        },
        {
            name = "measure.readings",
            text = "What can be read by name.",
            results = { { name = "rows", type = "table",
                text = "a row for each: reading, unit, and column, its name in the rows of a "
                    .. "sweep" } },
            example = "measure.print(measure.readings())",
        },
        {
            name = "measure.print",
            text = "Prints rows as an aligned table. What is not a number is \"-\".",
            arguments = {
                rows,
                { name = "columns", type = "table", optional = true,
                    text = "a list of the columns to show; all without it" },
            },
            errors = { "a column that is not there" },
            example = "measure.print(rows)",
        },
        {
            name = "measure.write",
            text = "Writes rows as comma-separated values (RFC 4180), the columns' names first. "
                .. "What is not a number is empty.",
            arguments = {
                rows,
                { name = "file", type = "string", optional = true,
                    text = [[its path; "-" and none are standard output]] },
            },
            errors = { "a file that cannot be written, a full disk included" },
            example = [[measure.write(rows, "rows.csv")]],
        },
        {
            name = "measure.plot",
            text = "Writes FILE.csv and FILE.gnuplot, with which gnuplot draws FILE.png beside "
                .. "them, from whatever folder it is run: a panel for each unit, the swept "
                .. "quantity, the inner one of two, along the x axis, a curve for each reading and "
                .. "outer value.",
            arguments = {
                { name = "rows", type = "table", text = "what sweep.run returned" },
                { name = "file", type = "string",
                    text = "FILE; an ending .csv, .gnuplot or .png is taken off" },
                { name = "options", type = "table", optional = true, text = "what to draw",
                    fields = {
                        { name = "title", type = "string", default = "the file's name",
                            text = "stands above the picture" },
                        { name = "columns", type = "table", default = "the means of all readings",
                            text = "a list of the columns to draw" },
                    } },
            },
            results = { { name = "command", type = "string",
                text = "the command that draws the picture, quoted for the shell" } },
            errors = {
                "every mistake in the arguments, and rows without anything to draw",
                "a file that cannot be written",
            },
            example = [[print(measure.plot(rows, "gain"))]],
        },
    },
}
