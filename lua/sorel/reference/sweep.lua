-- SPDX-License-Identifier: LicenseRef-Proprietary
local POINTS = "{ from = , to = , step = }, or a list of values"

-- A key of sweep.run's options that says what is set.
local function quantity(name, unit, text)
    return { name = name, type = "table", optional = true, unit = unit, text = text }
end

return {
    name = "sweep",
    module = "sorel.sweep",
    title = "a frequency, channel, gain or power swept, with readings",
    text = "What is set is one key of the options, with its unit in its name: " .. POINTS
        .. ". A second quantity in inner runs through all its values at each of the first. What "
        .. "is read is told in measure. The board is left as the last point has it.",
    entries = {
        {
            name = "sweep.run",
            text = "Sets a quantity to each of its values, waits, reads and returns a row for "
                .. "each. A terminal shows the progress.",
            arguments = {
                { name = "options", type = "table", text = "what to set and to read",
                    fields = {
                        quantity("tx_frequency_hz", "Hz",
                            "sets the transmit frequency: " .. POINTS),
                        quantity("rx_frequency_hz", "Hz", "sets the receive frequency"),
                        quantity("tx_channel", nil, "sets the transmit channel"),
                        quantity("rx_channel", nil, "sets the receive channel"),
                        quantity("rx_gain_db", "dB",
                            "sets the receive gain, in mode RADIO_RX_GAIN_MGC, which stays"),
                        quantity("tx_max_power_dbm", "dBm",
                            "sets the transmit power limit, in whole tenths of a dBm"),
                        quantity("tx_max_power_1_dbm", "dBm", "sets that of antenna 1"),
                        quantity("tx_max_power_2_dbm", "dBm", "sets that of antenna 2"),
                        quantity("oscillator_dac", nil, "sets the oscillator's DAC"),
                        { name = "custom", type = "table", optional = true,
                            text = "sets what a script likes: the points, and besides",
                            fields = {
                                { name = "name", type = "string",
                                    text = "the column's, which the unit is added to" },
                                { name = "unit", type = "string", default = "none",
                                    text = "of the values" },
                                { name = "set", type = "function",
                                    text = "is called with each value" },
                            } },
                        { name = "inner", type = "table", optional = true,
                            text = "a second quantity: a table with one of the keys above" },
                        { name = "readings", type = "any",
                            text = "the name of a reading, or a list as measure.read takes it" },
                        { name = "average", type = "number", default = "1",
                            text = "how often each reading is taken at a point, 1 to 100000" },
                        { name = "settle", type = "table", optional = true,
                            text = "what comes between setting and reading",
                            fields = {
                                { name = "seconds", type = "number", default = "0", unit = "s",
                                    text = "how long to wait; passes no time of a simulated "
                                        .. "board" },
                                { name = "readings", type = "number", default = "0",
                                    text = "how often all readings are taken and thrown away" },
                            } },
                        { name = "statistics", type = "boolean", default = "false",
                            text = "adds columns for the minimum, maximum, deviation and failures "
                                .. "of each reading" },
                        { name = "select", type = "RADIO_SELECT", optional = true,
                            text = "the paths to select first; they stay selected" },
                        { name = "csv", type = "string", optional = true,
                            text = [[a file that each row is written to at once; "-" is standard ]]
                                .. "output" },
                        { name = "progress", type = "boolean", default = "true",
                            text = "whether a terminal shows how far the sweep is, on standard "
                                .. "error" },
                    } },
            },
            results = { { name = "rows", type = "table",
                text = "a list of tables by column: what was set (rx_gain_db), the mean of each "
                    .. "reading (rtwp_dbm; not-a-number where all failed), and failed, how many "
                    .. "single readings failed; of failures a line on standard error tells too" } },
            errors = {
                "every mistake in the options, more than 1000000 points among them, and a file "
                    .. "that cannot be begun, before the board is touched",
                "what the driver, the file or a script's function raised, with the point; the "
                    .. "transmitters are then off, or it says that they may be on, the file is "
                    .. "closed and has the rows until then, which sweep.last returns",
            },
            example = [[rows = sweep.run { rx_gain_db = { 0, 30, 60 }, readings = "rtwp" }]],
        },
        {
            name = "sweep.last",
            text = "The rows of the latest sweep, also of one that was stopped.",
            results = { { name = "rows", type = "table", optional = true,
                text = "nil before the first sweep; error in it is what was raised" } },
            example = "measure.print(sweep.last())",
        },
        {
            name = "sweep.points",
            text = "The values of a range, from + i * step to 14 digits, without errors that add "
                .. "up.",
            arguments = {
                { name = "range", type = "table", text = "the range",
                    fields = {
                        { name = "from", type = "number", text = "the first value" },
                        { name = "to", type = "number",
                            text = "the end, which belongs to it where a step leads there" },
                        { name = "step", type = "number", text = "may be negative" },
                    } },
            },
            results = { { name = "values", type = "table", text = "a list of numbers" } },
            errors = { "what is no range, or has more than 1000000 values" },
            example = "print(unpack(sweep.points { from = 0, to = 1, step = 0.1 }))",
        },
    },
}
