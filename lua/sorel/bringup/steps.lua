-- SPDX-License-Identifier: LicenseRef-Proprietary
--- What sorel.bringup does, step by step, each with a text that says so.

local constants = require "sorel.constants"

local steps = {}

local PAUSE_S = 0.01

--- Calls a function again and again, with pauses, until it returns true or the time is over.
-- @return what it returned last
function steps.repeated(seconds, attempt)
    for _ = 1, math.ceil(seconds / PAUSE_S) do
        local done, message = attempt()
        if done then return done, message end
        socket.sleep(PAUSE_S)
    end
    return attempt()
end

local function tenths(dbm)
    return math.floor(dbm * 10 + 0.5)
end

local function all_equal(values)
    return #values == 1 or values[1] == values[2]
end

local function name(group, value)
    return (constants.name(group, value))
end

local function answers()
    return (pcall(radioGetDebugLevel))
end

local function set_up(values, add)
    local configuration, mode, band = values.configuration, values.mode, values.band
    local what = ("set up %s, %s, %s"):format(name("RADIO_CONF", configuration),
        name("RADIO_MODE", mode), name("RADIO_BAND", band))
    local script = values.script
    if not script then
        add(what, function() radioInit(configuration, mode, band) end)
        return
    end
    add(what .. " by the script " .. script, function()
        radioInitByScript(configuration, mode, band, script)
    end)
    add("switch off what the script switched on", function()
        radioSetTxState(RADIO_STATE_DISABLE)
    end)
end

local function prepare(values, add)
    local file, rate, dac = values.calibration_file, values.cpri_rate, values.oscillator_dac
    local gains, powers = values.rx_gain_registers, values.tx_power_registers
    if file then
        add("load the calibration file " .. file, function() radioLoadCalibrationFile(file) end)
    end
    if rate then
        add("start the CPRI link at " .. name("RADIO_CPRI_RATE", rate), function()
            radioCpriInit(rate)
        end)
    end
    if dac then
        add("set the oscillator's DAC to " .. dac, function()
            radioSetOscillatorDacValue(dac)
        end)
    end
    if gains then
        add("load the gain table", function() radioSetRxGainRegisters(gains) end)
    end
    if powers then
        add("load the power table", function() radioSetTxPowerRegisters(powers) end)
    end
end

local function tune(values, add)
    local tx, tx_channel = values.tx_frequency_hz, values.tx_channel
    local rx, rx_channel = values.rx_frequency_hz, values.rx_channel
    local loopback = values.loopback
    if tx then
        add(("tune the transmitter to %.0f Hz"):format(tx), function()
            radioSetTxFrequency(tx)
        end)
    end
    if tx_channel then
        add("tune the transmitter to channel " .. tx_channel, function()
            radioSetTxChannel(tx_channel)
        end)
    end
    if rx then
        add(("tune the receiver to %.0f Hz"):format(rx), function() radioSetRxFrequency(rx) end)
    end
    if rx_channel then
        add("tune the receiver to channel " .. rx_channel, function()
            radioSetRxChannel(rx_channel)
        end)
    end
    if loopback then
        add("set " .. name("RADIO_LOOPBACK", loopback), function()
            radioSetLoopback(loopback)
        end)
    end
end

-- The driver sets the gain of the selected paths: those are selected one by one where it differs.
local function set_gains(values, add)
    local mode, gains = values.rx_gain_mode, values.rx_gain_db
    if mode then
        add("set the gain mode " .. name("RADIO_RX_GAIN", mode), function()
            radioSetRxGainMode(mode)
        end)
    end
    if not gains then return end
    if all_equal(gains) then
        add(("set the gain to %d dB"):format(gains[1]), function() radioSetRxGain(gains[1]) end)
        return
    end
    for antenna, gain in ipairs(gains) do
        add(("set the gain of antenna %d to %d dB"):format(antenna, gain), function()
            radioSelect(antenna == 1 and RADIO_SELECT_0 or RADIO_SELECT_1)
            radioSetRxGain(gain)
            radioSelect(RADIO_SELECT_ALL)
        end)
    end
end

local tx_antenna = { RADIO_TX_ANTENNA_1, RADIO_TX_ANTENNA_2 }
local rx_antenna = { RADIO_RX_ANTENNA_1, RADIO_RX_ANTENNA_2 }

local function set_powers(values, add)
    local powers = values.tx_max_power_dbm
    if powers and all_equal(powers) then
        add(("limit the power to %.1f dBm"):format(powers[1]), function()
            radioSetTxMaxPower(tenths(powers[1]))
        end)
    elseif powers then
        for antenna, power in ipairs(powers) do
            add(("limit the power of antenna %d to %.1f dBm"):format(antenna, power), function()
                radioSetTxMaxPowerOfAntenna(tx_antenna[antenna], tenths(power))
            end)
        end
    end
    for antenna, offset in ipairs(values.tx_dc_offsets or {}) do
        add(("set the DC offset of antenna %d"):format(antenna), function()
            radioSetTxDcOffset(tx_antenna[antenna], offset.in_phase, offset.quadrature)
        end)
    end
end

-- The driver refuses it while the synthesiser settles, and does not say why it refuses.
local function switch_on(antenna, settle_s)
    local on, message = steps.repeated(settle_s, function()
        return pcall(radioSetTxStateOfAntenna, antenna, RADIO_STATE_ENABLE)
    end)
    if not on then error(("%s within %s s"):format(message, settle_s), 0) end
end

local function switch(values, add)
    for antenna, state in ipairs(values.rx_state or {}) do
        local way = state == RADIO_STATE_ENABLE and "on" or "off"
        add(("switch receiver %d %s"):format(antenna, way), function()
            radioSetRxStateOfAntenna(rx_antenna[antenna], state)
        end)
    end
    local paths = values.selected_paths
    if paths then
        add("select " .. name("RADIO_SELECT", paths), function() radioSelect(paths) end)
    end
    -- Last of all, when everything that a transmitter depends on is as it should be.
    for antenna, state in ipairs(values.tx_state or {}) do
        if state == RADIO_STATE_ENABLE then
            add(("switch transmitter %d on"):format(antenna), function()
                switch_on(tx_antenna[antenna], values.settle_s)
            end)
        end
    end
end

local function begin(values, add, is_open)
    local platform, level = values.platform, values.debug_level
    if is_open then
        add("reset the radio", function() radioReset() end)
    end
    if platform then
        add("select " .. name("RADIO_PLATFORM", platform), function()
            radioSelectPlatform(platform)
        end)
    end
    if not is_open then
        add("open the radio", function()
            radioOpen()
            if not answers() then error("radioOpen() opened none", 0) end
        end)
    end
    if level then
        add("set " .. name("RADIO_DEBUG", level), function() radioSetDebugLevel(level) end)
    end
end

--- The steps for a table, in their order.
-- @param values what sorel.bringup.settings makes of the table
-- @return a list of { text = WHAT IS DONE, action = A FUNCTION }
function steps.of(values)
    local list = {}
    local function add(text, action)
        list[#list + 1] = { text = text, action = action }
    end
    begin(values, add, answers())
    set_up(values, add)
    prepare(values, add)
    tune(values, add)
    set_gains(values, add)
    set_powers(values, add)
    switch(values, add)
    return list
end

return steps
