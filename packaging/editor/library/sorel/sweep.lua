---@meta sorel.sweep
-- SPDX-License-Identifier: LicenseRef-Proprietary
-- Made by ./dev reference; what is changed here is lost.

---A frequency, channel, gain or power swept, with readings. What is set is one key of the options,
---with its unit in its name: { from = , to = , step = }, or a list of values. A second quantity in
---inner runs through all its values at each of the first. What is read is told in measure. The
---board is left as the last point has it.
local sweep = {}

---@class sorel.sweep.run.options.custom
---@field name string the column's, which the unit is added to
---@field unit? string default none; of the values
---@field set function is called with each value

---@class sorel.sweep.run.options.settle
---@field seconds? number s; default 0; how long to wait; passes no time of a simulated board
---@field readings? number default 0; how often all readings are taken and thrown away

---@class sorel.sweep.run.options
---@field tx_frequency_hz? table Hz; sets the transmit frequency: { from = , to = , step = }, or a list of values
---@field rx_frequency_hz? table Hz; sets the receive frequency
---@field tx_channel? table sets the transmit channel
---@field rx_channel? table sets the receive channel
---@field rx_gain_db? table dB; sets the receive gain, in mode RADIO_RX_GAIN_MGC, which stays
---@field tx_max_power_dbm? table dBm; sets the transmit power limit, in whole tenths of a dBm
---@field tx_max_power_1_dbm? table dBm; sets that of antenna 1
---@field tx_max_power_2_dbm? table dBm; sets that of antenna 2
---@field oscillator_dac? table sets the oscillator's DAC
---@field custom? sorel.sweep.run.options.custom sets what a script likes: the points, and besides
---@field inner? table a second quantity: a table with one of the keys above
---@field readings any the name of a reading, or a list as measure.read takes it
---@field average? number default 1; how often each reading is taken at a point, 1 to 100000
---@field settle? sorel.sweep.run.options.settle what comes between setting and reading
---@field statistics? boolean default false; adds columns for the minimum, maximum, deviation and failures of each reading
---@field select? RadioSelectIndex|string the paths to select first; they stay selected
---@field csv? string a file that each row is written to at once; "-" is standard output
---@field progress? boolean default true; whether a terminal shows how far the sweep is, on standard error

---Sets a quantity to each of its values, waits, reads and returns a row for each. A terminal shows
---the progress.
---
---Errors:
---* every mistake in the options, more than 1000000 points among them, and a file that cannot be begun, before the board is touched
---* what the driver, the file or a script's function raised, with the point; the transmitters are then off, or it says that they may be on, the file is closed and has the rows until then, which sweep.last returns
---
---```lua
---rows = sweep.run { rx_gain_db = { 0, 30, 60 }, readings = "rtwp" }
---```
---@param options sorel.sweep.run.options what to set and to read
---@return table rows a list of tables by column: what was set (rx_gain_db), the mean of each reading (rtwp_dbm; not-a-number where all failed), and failed, how many single readings failed; of failures a line on standard error tells too
function sweep.run(options) end

---The rows of the latest sweep, also of one that was stopped.
---
---```lua
---measure.print(sweep.last())
---```
---@return table? rows nil before the first sweep; error in it is what was raised
function sweep.last() end

---@class sorel.sweep.points.range
---@field from number the first value
---@field to number the end, which belongs to it where a step leads there
---@field step number may be negative

---The values of a range, from + i * step to 14 digits, without errors that add up.
---
---Errors:
---* what is no range, or has more than 1000000 values
---
---```lua
---print(unpack(sweep.points { from = 0, to = 1, step = 0.1 }))
---```
---@param range sorel.sweep.points.range the range
---@return table values a list of numbers
function sweep.points(range) end

return sweep
