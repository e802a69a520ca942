---@meta sorel.bringup
-- SPDX-License-Identifier: LicenseRef-Proprietary
-- Made by ./dev reference; what is changed here is lost.

---A board brought up from one table. The radio is reset, or opened if none is open, and then set in
---the order of the keys; what the table does not name is as radioInit() leaves it. The transmitter
---is off until the last step, and after any failure of a step. Write constants as texts: a misspelt
---text is a mistake, a misspelt global is nil, as if the key were not there.
local bringup = {}

---@class sorel.bringup.run.given
---@field platform? RadioPlatformSelectIndex|string selected before the radio is set up; without it the selection stays
---@field debug_level? RadioDebug|string how much the driver says; "RADIO_DEBUG_ERROR" makes it say why a step failed
---@field configuration RadioConf|string how many antennas
---@field mode RadioMode|string air-interface mode
---@field band RadioBand|string operating band
---@field script? string file of an initialisation script, for radioInitByScript; transmitters that it switches on go off again
---@field calibration_file? string file of calibration data; without it those loaded before stay
---@field cpri_rate? RadioCpriRate|string starts the CPRI link
---@field oscillator_dac? integer DAC that tunes the reference oscillator
---@field rx_gain_registers? table list of words of the gain table, -2147483648 to 4294967295
---@field tx_power_registers? table list of words of the power table, likewise
---@field tx_frequency_hz? integer Hz; where to transmit; without it and tx_channel in the middle of the band. In the TDD modes one direction's frequency or channel is that of both
---@field tx_channel? integer EARFCN, UARFCN or ARFCN, in place of tx_frequency_hz
---@field rx_frequency_hz? integer Hz; where to receive
---@field rx_channel? integer channel, in place of rx_frequency_hz
---@field loopback? RadioLoopback|string digital loopback
---@field rx_gain_mode? RadioRxGainMode|string default RADIO_RX_GAIN_MGC; who sets the gain
---@field rx_gain_db? integer dB; manual gain, of all antennas or a list of one for each; a mistake with an automatic mode
---@field tx_max_power_dbm? number dBm; limit of the output power, in steps of 0.1 dBm, of all antennas or a list of one for each; needed to switch a transmitter on
---@field tx_dc_offsets? table list of { in_phase = N, quadrature = N }, one for each antenna, in steps of the transmit converter
---@field rx_state? RadioState|string default RADIO_STATE_ENABLE; of all receivers, or a list of one for each
---@field selected_paths? RadioSelectIndex|string default RADIO_SELECT_ALL; what functions without an antenna apply to afterwards
---@field tx_state? RadioState|string default RADIO_STATE_DISABLE; of all transmitters, or a list of one for each
---@field settle_s? number s; default 1; for how long switching on is tried again while the driver refuses, and RTWP is read again while it cannot be

---Checks the table, every mistake at once and before the board is touched, and brings the board up.
---
---Errors:
---* the mistakes in the table, each with its key, at the place of the call
---* bringup: step N of M, WHAT WAS DONE: the driver's message
---
---```lua
---state = bringup.run(cell)
---```
---@param given sorel.bringup.run.given what the board is to be
---@return table state what bringup.read() returns, and settings: what the table says, constants as numbers, and of what antennas have a list of one value each
function bringup.run(given) end

---Says what is wrong with a table, without a call of the driver.
---
---```lua
---for _, mistake in ipairs(bringup.check(cell)) do print(mistake) end
---```
---@param given sorel.bringup.run.given what the board is to be
---@return table mistakes list of texts, empty for a right table
function bringup.check(given) end

---Says what bringup.run() would do. Of the driver it asks only whether a radio is open.
---
---Errors:
---* the mistakes in the table
---
---```lua
---for number, step in ipairs(bringup.steps(cell)) do print(number, step) end
---```
---@param given sorel.bringup.run.given what the board is to be
---@return table steps list of texts, in their order
function bringup.steps(given) end

---@class sorel.bringup.read.state
---@field driver string version of the driver
---@field platform string name of the platform
---@field chips number radio chips of the platform
---@field temperature_c number degrees Celsius; of the chip
---@field oscillator_dac number DAC that tunes the reference oscillator
---@field oscillator_dac_width number bit; its width
---@field debug_level RadioDebug|string how much the driver says
---@field receivers table list of { rtwp_dbm = N, gain_db = N }, always two: of an antenna that is not there both are nil

---Reads what can be read of the radio. What fails is nil.
---
---Errors:
---* No radio context, call radioOpen() first
---
---```lua
---print(bringup.read().temperature_c)
---```
---@return sorel.bringup.read.state state the readings
function bringup.read() end

---Prints a state, with a dash for what could not be read.
---
---Errors:
---* bringup.print: what bringup.run() or bringup.read() returned is expected
---
---```lua
---bringup.print(bringup.read())
---```
---@param read table what bringup.run() or bringup.read() returned
function bringup.print(read) end

return bringup
