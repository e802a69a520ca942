---@meta sorel.measure
-- SPDX-License-Identifier: LicenseRef-Proprietary
-- Made by ./dev reference; what is changed here is lost.

---Readings with their statistics, as tables, CSV and pictures. Readings are rtwp, rtwp_1 and rtwp_2
---in dBm, rtwp_raw, rtwp_raw_1 and rtwp_raw_2 in 0.1 dBm, gain, gain_1 and gain_2 in dB, and
---temperature in degC; the number is that of the antenna, without one the selected paths count.
---What is in dBm or 0.1 dBm is averaged in milliwatts, all else as it is. Readings that fail take
---no part, but are counted.
local measure = {}

---@class sorel.measure.read.options
---@field average? number default 1; how often each reading is taken, 1 to 100000; several readings take turns

---Takes readings.
---
---Errors:
---* every mistake in the arguments, before anything is read
---
---```lua
---print(measure.read({ "rtwp", "gain" }, { average = 8 }))
---```
---@param names any the name of a reading, or a list of names and of a script's own readings, each { name = , unit = , read = function } with a function that returns a number
---@param options? sorel.measure.read.options how to read
---@return number ... the mean of each reading, in its unit; not-a-number where all of it failed
function measure.read(names, options) end

---Takes readings, for their statistics.
---
---Errors:
---* every mistake in the arguments, before anything is read
---
---```lua
---measure.print(measure.observe("rtwp", { average = 100 }))
---```
---@param names any the name of a reading, or a list of names and of a script's own readings, each { name = , unit = , read = function } with a function that returns a number
---@param options? sorel.measure.read.options how to read
---@return table rows a row for each reading: its name as reading, its unit, and what measure.statistics gives
function measure.observe(names, options) end

---The statistics of numbers.
---
---Errors:
---* what is no list of numbers
---
---```lua
---print(measure.statistics({ -90, -80 }, "dBm").mean)
---```
---@param values table a list of numbers; not-a-number and -2147483648 are failed readings
---@param unit? string of the values; "dBm" and "0.1 dBm" are averaged in milliwatts
---@return table statistics mean, minimum, maximum and deviation, the sample's standard deviation of the values as they are, so of levels in dB; count, how many were right; failed, how many were not. What too few are right for is not-a-number.
function measure.statistics(values, unit) end

---What can be read by name.
---
---```lua
---measure.print(measure.readings())
---```
---@return table rows a row for each: reading, unit, and column, its name in the rows of a sweep
function measure.readings() end

---Prints rows as an aligned table. What is not a number is "-".
---
---Errors:
---* a column that is not there
---
---```lua
---measure.print(rows)
---```
---@param rows table what sweep.run or measure.observe returned
---@param columns? table a list of the columns to show; all without it
function measure.print(rows, columns) end

---Writes rows as comma-separated values (RFC 4180), the columns' names first. What is not a number
---is empty.
---
---Errors:
---* a file that cannot be written, a full disk included
---
---```lua
---measure.write(rows, "rows.csv")
---```
---@param rows table what sweep.run or measure.observe returned
---@param file? string its path; "-" and none are standard output
function measure.write(rows, file) end

---@class sorel.measure.plot.options
---@field title? string default the file's name; stands above the picture
---@field columns? table default the means of all readings; a list of the columns to draw

---Writes FILE.csv and FILE.gnuplot, with which gnuplot draws FILE.png beside them, from whatever
---folder it is run: a panel for each unit, the swept quantity, the inner one of two, along the x
---axis, a curve for each reading and outer value.
---
---Errors:
---* every mistake in the arguments, and rows without anything to draw
---* a file that cannot be written
---
---```lua
---print(measure.plot(rows, "gain"))
---```
---@param rows table what sweep.run returned
---@param file string FILE; an ending .csv, .gnuplot or .png is taken off
---@param options? sorel.measure.plot.options what to draw
---@return string command the command that draws the picture, quoted for the shell
function measure.plot(rows, file, options) end

return measure
