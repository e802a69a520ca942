-- SPDX-License-Identifier: LicenseRef-Proprietary
--- What a sweep can set: by its key, with its unit, what the driver's argument can hold, and how.
--
-- steps_per_unit is the driver's resolution; `prepare` is called once, before the first point.

local UINT32_MAX, UINT16_MAX = 4294967295, 65535
local INT16_MIN, INT16_MAX = -32768, 32767
local TENTHS = 10 -- of a dBm; a 16-bit number of them is the same again after / 10 * 10

return {
    { key = "tx_frequency_hz", title = "transmit frequency", unit = "Hz",
        least = 0, most = UINT32_MAX, steps_per_unit = 1,
        set = function(frequency) radioSetTxFrequency(frequency) end },
    { key = "rx_frequency_hz", title = "receive frequency", unit = "Hz",
        least = 0, most = UINT32_MAX, steps_per_unit = 1,
        set = function(frequency) radioSetRxFrequency(frequency) end },
    { key = "tx_channel", title = "transmit channel", unit = "",
        least = 0, most = UINT16_MAX, steps_per_unit = 1,
        set = function(channel) radioSetTxChannel(channel) end },
    { key = "rx_channel", title = "receive channel", unit = "",
        least = 0, most = UINT16_MAX, steps_per_unit = 1,
        set = function(channel) radioSetRxChannel(channel) end },
    -- The driver takes a gain in manual mode only.
    { key = "rx_gain_db", title = "set receive gain", unit = "dB",
        least = INT16_MIN, most = INT16_MAX, steps_per_unit = 1,
        prepare = function() radioSetRxGainMode(RADIO_RX_GAIN_MGC) end,
        set = function(gain) radioSetRxGain(gain) end },
    { key = "tx_max_power_dbm", title = "transmit power limit", unit = "dBm",
        least = INT16_MIN / TENTHS, most = INT16_MAX / TENTHS, steps_per_unit = TENTHS,
        set = function(power) radioSetTxMaxPower(power * TENTHS) end },
    { key = "tx_max_power_1_dbm", title = "transmit power limit of antenna 1", unit = "dBm",
        least = INT16_MIN / TENTHS, most = INT16_MAX / TENTHS, steps_per_unit = TENTHS,
        set = function(power)
            radioSetTxMaxPowerOfAntenna(RADIO_TX_ANTENNA_1, power * TENTHS)
        end },
    { key = "tx_max_power_2_dbm", title = "transmit power limit of antenna 2", unit = "dBm",
        least = INT16_MIN / TENTHS, most = INT16_MAX / TENTHS, steps_per_unit = TENTHS,
        set = function(power)
            radioSetTxMaxPowerOfAntenna(RADIO_TX_ANTENNA_2, power * TENTHS)
        end },
    { key = "oscillator_dac", title = "oscillator DAC", unit = "",
        least = 0, most = UINT16_MAX, steps_per_unit = 1,
        set = function(value) radioSetOscillatorDacValue(value) end },
}
