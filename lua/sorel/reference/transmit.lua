-- SPDX-License-Identifier: LicenseRef-Proprietary
local paths = require "sorel.reference.paths"
local BEFORE_INIT, NO_PATH = paths.BEFORE_INIT, paths.NO_PATH
local NO_ANTENNA = "RADIO_ENOTSUP: the second antenna, which the platform or the configuration "
    .. "lacks"
local NO_POWER = "a power beyond the platform's range or below the lowest of the loaded table"
local ANTENNA = { name = "antenna", type = "RadioTxAntenna", text = "which transmitter" }
local POWER = { name = "power", type = "int16_t", unit = "0.1 dBm",
    text = "the highest, within the platform's range: 200 is 20 dBm" }

return {
    name = "transmit",
    title = "the transmitters: tuning, power, offsets, on and off",
    text = "A transmitter that is on radiates. sorel.transmitter switches it off whatever has "
        .. "failed.",
    entries = {
        {
            name = "radioSetTxFrequency",
            text = "Tunes the transmitters. In a TDD mode the receivers follow.",
            arguments = {
                { name = "frequency", type = "uint32_t", unit = "Hz",
                    text = "the carrier's, within the transmit range of the band" },
            },
            errors = { "RADIO_EINVAL: a frequency outside the band", BEFORE_INIT },
            example = "radioSetTxFrequency(2655e6)",
        },
        {
            name = "radioSetTxChannel",
            text = "Tunes the transmitters to a channel of the band. In a TDD mode the receivers "
                .. "follow.",
            arguments = { paths.CHANNEL },
            errors = { "RADIO_EINVAL: no channel of the band", BEFORE_INIT },
            example = "radioSetTxChannel(3100)  -- the downlink EARFCN of 2655 MHz",
        },
        {
            name = "radioSetTxState",
            text = "Switches the transmitters of the selected paths.",
            arguments = { paths.STATE },
            errors = {
                "RADIO_EINVAL: no such state",
                BEFORE_INIT .. "; switching on while the chip is too hot",
                NO_PATH,
                "RADIO_EAGAIN: switching on while the synthesiser has not settled on its frequency",
            },
            example = "radioSetTxState(RADIO_STATE_ENABLE)\nradioSetTxState(RADIO_STATE_DISABLE)",
        },
        {
            name = "radioSetTxStateOfAntenna",
            text = "Switches one transmitter.",
            arguments = { ANTENNA, paths.STATE },
            errors = {
                "RADIO_EINVAL: no such antenna or state",
                BEFORE_INIT .. "; switching on while the chip is too hot",
                NO_ANTENNA,
                "RADIO_EAGAIN: switching on while the synthesiser has not settled on its frequency",
            },
            example = "radioSetTxStateOfAntenna(RADIO_TX_ANTENNA_2, RADIO_STATE_DISABLE)",
        },
        {
            name = "radioSetTxMaxPower",
            text = "Limits the output power of the selected paths.",
            arguments = { POWER },
            errors = { "RADIO_EINVAL: " .. NO_POWER, BEFORE_INIT, NO_PATH },
            example = "radioSetTxMaxPower(-100)  -- -10 dBm",
        },
        {
            name = "radioSetTxMaxPowerOfAntenna",
            text = "Limits the output power of one transmitter.",
            arguments = { ANTENNA, POWER },
            errors = { "RADIO_EINVAL: no such antenna; " .. NO_POWER, BEFORE_INIT, NO_ANTENNA },
            example = "radioSetTxMaxPowerOfAntenna(RADIO_TX_ANTENNA_1, 200)  -- 20 dBm",
        },
        {
            name = "radioSetTxDcOffset",
            text = "Sets the DC offset that one transmitter adds against carrier leakage.",
            arguments = {
                ANTENNA,
                { name = "inPhase", type = "int16_t", unit = "steps of the transmit converter",
                    text = "within its signed range" },
                { name = "quadrature", type = "int16_t", unit = "steps of the transmit converter",
                    text = "within its signed range" },
            },
            errors = {
                "RADIO_EINVAL: no such antenna; an offset beyond the converter's range",
                BEFORE_INIT, NO_ANTENNA,
            },
            example = "radioSetTxDcOffset(RADIO_TX_ANTENNA_1, -3, 12)",
        },
        {
            name = "radioSetTxPowerRegisters",
            text = "Loads the transmit power table, from which the output powers are chosen.",
            arguments = {
                { name = "registers", type = "table",
                    text = "a list of 32-bit words in the platform's form, read as decimal text "
                        .. "(see calls); on the simulated board powers in 0.1 dBm, rising" },
            },
            errors = {
                '"Data values must be a table"; "Expected integer values in data"',
                "RADIO_EINVAL: more words than the table holds, or words that the platform does "
                    .. "not take",
                BEFORE_INIT,
            },
            example = "radioSetTxPowerRegisters { 0, 100, 200 }\nradioSetTxPowerRegisters {}",
        },
    },
}
