-- SPDX-License-Identifier: LicenseRef-Proprietary

-- In the order in which they are set.
local settings = {
    { name = "platform", type = "RADIO_PLATFORM", optional = true,
        text = "selected before the radio is set up; without it the selection stays" },
    { name = "debug_level", type = "RADIO_DEBUG", optional = true,
        text = [[how much the driver says; "RADIO_DEBUG_ERROR" makes it say why a step failed]] },
    { name = "configuration", type = "RADIO_CONF", text = "how many antennas" },
    { name = "mode", type = "RADIO_MODE", text = "air-interface mode" },
    { name = "band", type = "RADIO_BAND", text = "operating band" },
    { name = "script", type = "string", optional = true,
        text = "file of an initialisation script, for radioInitByScript; transmitters that it "
            .. "switches on go off again" },
    { name = "calibration_file", type = "string", optional = true,
        text = "file of calibration data; without it those loaded before stay" },
    { name = "cpri_rate", type = "RADIO_CPRI_RATE", optional = true, text = "starts the CPRI "
        .. "link" },
    { name = "oscillator_dac", type = "uint16_t", optional = true,
        text = "DAC that tunes the reference oscillator" },
    { name = "rx_gain_registers", type = "table", optional = true,
        text = "list of words of the gain table, -2147483648 to 4294967295" },
    { name = "tx_power_registers", type = "table", optional = true,
        text = "list of words of the power table, likewise" },
    { name = "tx_frequency_hz", type = "uint32_t", unit = "Hz", optional = true,
        text = "where to transmit; without it and tx_channel in the middle of the band. In the TDD "
            .. "modes one direction's frequency or channel is that of both" },
    { name = "tx_channel", type = "uint16_t", optional = true,
        text = "EARFCN, UARFCN or ARFCN, in place of tx_frequency_hz" },
    { name = "rx_frequency_hz", type = "uint32_t", unit = "Hz", optional = true,
        text = "where to receive" },
    { name = "rx_channel", type = "uint16_t", optional = true,
        text = "channel, in place of rx_frequency_hz" },
    { name = "loopback", type = "RADIO_LOOPBACK", optional = true, text = "digital loopback" },
    { name = "rx_gain_mode", type = "RADIO_RX_GAIN", optional = true, default = "RADIO_RX_GAIN_MGC",
        text = "who sets the gain" },
    { name = "rx_gain_db", type = "int16_t", unit = "dB", optional = true,
        text = "manual gain, of all antennas or a list of one for each; a mistake with an "
            .. "automatic "
            .. "mode" },
    { name = "tx_max_power_dbm", type = "number", unit = "dBm", optional = true,
        text = "limit of the output power, in steps of 0.1 dBm, of all antennas or a list of one "
            .. "for each; needed to switch a transmitter on" },
    { name = "tx_dc_offsets", type = "table", optional = true,
        text = "list of { in_phase = N, quadrature = N }, one for each antenna, in steps of the "
            .. "transmit converter" },
    { name = "rx_state", type = "RADIO_STATE", optional = true, default = "RADIO_STATE_ENABLE",
        text = "of all receivers, or a list of one for each" },
    { name = "selected_paths", type = "RADIO_SELECT", optional = true, default = "RADIO_SELECT_ALL",
        text = "what functions without an antenna apply to afterwards" },
    { name = "tx_state", type = "RADIO_STATE", optional = true, default = "RADIO_STATE_DISABLE",
        text = "of all transmitters, or a list of one for each" },
    { name = "settle_s", type = "number", unit = "s", optional = true, default = "1",
        text = "for how long switching on is tried again while the driver refuses, and RTWP is "
            .. "read "
            .. "again while it cannot be" },
}

local given = {
    name = "given", type = "table", text = "what the board is to be", fields = settings,
}

return {
    name = "bringup",
    module = "sorel.bringup",
    title = "a board brought up from one table",
    text = "The radio is reset, or opened if none is open, and then set in the order of the "
        .. "keys; what the table does not name is as radioInit() leaves it. The transmitter is "
        .. "off until the last step, and after any failure of a step. Write constants as texts: a "
        .. "misspelt text is a mistake, a misspelt global is nil, as if the key were not there.",
    prepare = [[
cell = { configuration = "RADIO_CONF_MIMO", band = "RADIO_BAND_7",
    mode = "RADIO_MODE_4GENODEB_FDD_20MHZ" }]],
    entries = {
        {
            name = "bringup.run",
            text = "Checks the table, every mistake at once and before the board is touched, and "
                .. "brings "
                .. "the board up.",
            arguments = { given },
            results = {
                { name = "state", type = "table",
                    text = "what bringup.read() returns, and settings: what the table says, "
                        .. "constants "
                        .. "as numbers, and of what antennas have a list of one value each" },
            },
            errors = {
                "the mistakes in the table, each with its key, at the place of the call",
                "bringup: step N of M, WHAT WAS DONE: the driver's message",
            },
            example = "state = bringup.run(cell)",
        },
        {
            name = "bringup.check",
            text = "Says what is wrong with a table, without a call of the driver.",
            arguments = { given },
            results = {
                { name = "mistakes", type = "table", text = "list of texts, empty for a right "
                    .. "table" },
            },
            example = "for _, mistake in ipairs(bringup.check(cell)) do print(mistake) end",
        },
        {
            name = "bringup.steps",
            text = "Says what bringup.run() would do. Of the driver it asks only whether a radio "
                .. "is "
                .. "open.",
            arguments = { given },
            results = { { name = "steps", type = "table", text = "list of texts, in their "
                .. "order" } },
            errors = { "the mistakes in the table" },
            example = "for number, step in ipairs(bringup.steps(cell)) do print(number, step) end",
        },
        {
            name = "bringup.read",
            text = "Reads what can be read of the radio. What fails is nil.",
            results = {
                { name = "state", type = "table", text = "the readings", fields = {
                    { name = "driver", type = "string", text = "version of the driver" },
                    { name = "platform", type = "string", text = "name of the platform" },
                    { name = "chips", type = "number", text = "radio chips of the platform" },
                    { name = "temperature_c", type = "number", unit = "degrees Celsius",
                        text = "of the chip" },
                    { name = "oscillator_dac", type = "number",
                        text = "DAC that tunes the reference oscillator" },
                    { name = "oscillator_dac_width", type = "number", unit = "bit",
                        text = "its width" },
                    { name = "debug_level", type = "RADIO_DEBUG",
                        text = "how much the driver says" },
                    { name = "receivers", type = "table",
                        text = "list of { rtwp_dbm = N, gain_db = N }, always two: of an antenna "
                            .. "that is not there both are nil" },
                } },
            },
            errors = { "No radio context, call radioOpen() first" },
            example = "print(bringup.read().temperature_c)",
        },
        {
            name = "bringup.print",
            text = "Prints a state, with a dash for what could not be read.",
            arguments = {
                { name = "read", type = "table",
                    text = "what bringup.run() or bringup.read() returned" },
            },
            errors = { "bringup.print: what bringup.run() or bringup.read() returned is expected" },
            example = "bringup.print(bringup.read())",
        },
    },
}
