-- SPDX-License-Identifier: LicenseRef-Proprietary
-- Received power over manual gain on two channels, as a table, as CSV and as a picture.
-- Writes gain_and_rtwp.csv and gain_and_rtwp.gnuplot where it is run.

local measure = require "sorel.measure"
local sweep = require "sorel.sweep"

radioInit(RADIO_CONF_MIMO, RADIO_MODE_4GENODEB_FDD_20MHZ, RADIO_BAND_7)

local rows = sweep.run {
    rx_frequency_hz = { 2515e6, 2535e6 },
    inner = { rx_gain_db = { from = 12, to = 72, step = 12 } },
    readings = { "rtwp", "gain" },
    average = 16,
    settle = { readings = 2 },
}

measure.print(rows)
print(measure.plot(rows, "gain_and_rtwp", { title = "Received power over gain" }))
