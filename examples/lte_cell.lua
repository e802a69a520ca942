-- SPDX-License-Identifier: LicenseRef-Proprietary
-- An LTE FDD cell in band 7: set up, tuned, limited to 10 dBm; the transmitter goes on last.
local bringup = require "sorel.bringup"
local transmitter = require "sorel.transmitter"

local state = bringup.run {
    platform = "RADIO_PLATFORM_TALWIN",
    configuration = "RADIO_CONF_MIMO",
    mode = "RADIO_MODE_4GENODEB_FDD_20MHZ",
    band = "RADIO_BAND_7",
    tx_channel = 3100,                      -- EARFCN: 2655 MHz down, 2535 MHz up
    rx_channel = 21100,
    rx_gain_mode = "RADIO_RX_GAIN_AGC_SLOW",
    tx_max_power_dbm = 10,
    tx_state = "RADIO_STATE_ENABLE",
}

transmitter.guarded(function()
    bringup.print(state)
    -- Measure here; whatever fails, the transmitter goes off.
end)
transmitter.off()
