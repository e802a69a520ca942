-- SPDX-License-Identifier: LicenseRef-Proprietary
local paths = require "sorel.reference.paths"
local BEFORE_INIT, NO_PATH = paths.BEFORE_INIT, paths.NO_PATH

return {
    name = "receive",
    title = "the receivers: tuning, gain, on and off; loopback",
    entries = {
        {
            name = "radioSetRxFrequency",
            text = "Tunes the receivers. In a TDD mode the transmitters follow.",
            arguments = {
                { name = "frequency", type = "uint32_t", unit = "Hz",
                    text = "the carrier's, within the receive range of the band" },
            },
            errors = { "RADIO_EINVAL: a frequency outside the band", BEFORE_INIT },
            example = "radioSetRxFrequency(2535e6)",
        },
        {
            name = "radioSetRxChannel",
            text = "Tunes the receivers to a channel of the band. In a TDD mode the transmitters "
                .. "follow.",
            arguments = { paths.CHANNEL },
            errors = { "RADIO_EINVAL: no channel of the band", BEFORE_INIT },
            example = "radioSetRxChannel(21100)  -- the uplink EARFCN of 2535 MHz",
        },
        {
            name = "radioSetRxState",
            text = "Switches the receivers of the selected paths.",
            arguments = { paths.STATE },
            errors = { "RADIO_EINVAL: no such state", BEFORE_INIT, NO_PATH },
            example = "radioSetRxState(RADIO_STATE_ENABLE)",
        },
        {
            name = "radioSetRxStateOfAntenna",
            text = "Switches one receiver.",
            arguments = {
                { name = "antenna", type = "RadioRxAntenna", text = "which receiver" },
                paths.STATE,
            },
            errors = {
                "RADIO_EINVAL: no such antenna or state",
                BEFORE_INIT,
                "RADIO_ENOTSUP: the second antenna, which the platform or the configuration lacks",
            },
            example = "radioSetRxStateOfAntenna(RADIO_RX_ANTENNA_2, RADIO_STATE_DISABLE)",
        },
        {
            name = "radioSetRxGain",
            text = "Sets the gain of the selected paths' receivers to the highest gain step that "
                .. "is not above it.",
            arguments = {
                { name = "gain", type = "int16_t", unit = "dB",
                    text = "within the platform's range" },
            },
            errors = {
                "RADIO_EINVAL: a gain beyond the platform's range or below the lowest of the "
                    .. "loaded table",
                BEFORE_INIT .. "; the gain mode is not RADIO_RX_GAIN_MGC",
                NO_PATH,
            },
            example = "radioSetRxGainMode(RADIO_RX_GAIN_MGC)\nradioSetRxGain(40)",
        },
        {
            name = "radioSetRxGainMode",
            text = "Says who sets the gain of the selected paths' receivers. RADIO_RX_GAIN_MGC, by "
                .. "hand, after radioInit.",
            arguments = { { name = "mode", type = "RadioRxGainMode", text = "who sets it" } },
            errors = { "RADIO_EINVAL: no such gain mode", BEFORE_INIT, NO_PATH },
            example = "radioSetRxGainMode(RADIO_RX_GAIN_AGC_SLOW)",
        },
        {
            name = "radioSetRxGainRegisters",
            text = "Loads the receive gain table, the gain steps.",
            arguments = {
                { name = "registers", type = "table",
                    text = "a list of 32-bit words in the platform's form, read as decimal text "
                        .. "(see calls); on the simulated board gains in 0.1 dB, rising" },
            },
            errors = {
                '"Data values must be a table"; "Expected integer values in data"',
                "RADIO_EINVAL: more words than the table holds, or words that the platform does "
                    .. "not take",
                BEFORE_INIT,
            },
            example = "radioSetRxGainRegisters { 0, 120, 240, 360 }\nradioSetRxGainRegisters {}",
        },
        {
            name = "radioSetLoopback",
            text = "Sets the digital loopback. RADIO_NO_LOOPBACK after radioInit.",
            arguments = { { name = "loopback", type = "RadioLoopback", text = "which way" } },
            errors = { "RADIO_EINVAL: no such loopback", BEFORE_INIT },
            example = "radioSetLoopback(RADIO_TX_TO_RX_LOOPBACK)\n"
                .. "radioSetLoopback(RADIO_NO_LOOPBACK)",
        },
    },
}
