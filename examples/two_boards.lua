-- SPDX-License-Identifier: LicenseRef-Proprietary
-- The same carrier on several boards, whose servers BOARDS names: "192.168.1.11:4400 ...".
local remote = require "sorel.remote"

local boards = {}
for host, port in os.getenv("BOARDS"):gmatch("([%w.-]+):(%d+)") do
    boards[#boards + 1] = remote.connect { host = host, port = tonumber(port) }
end

local function show(when)
    for number, board in ipairs(boards) do
        print(("board %d  %-12s  %7.3f degrees Celsius  %8.3f dBm received"):format(number, when,
            board.radioGetTemperature(), board.radioGetRxRtwpIndBm()))
    end
end

for _, board in ipairs(boards) do
    board.radioInit(board.RADIO_CONF_MIMO, board.RADIO_MODE_4GENODEB_FDD_20MHZ, board.RADIO_BAND_7)
    board.radioSetTxFrequency(2655000000)
    board.radioSetRxFrequency(2535000000)
end
show("silent")

for _, board in ipairs(boards) do board.radioSetTxState(board.RADIO_STATE_ENABLE) end
for _ = 1, 500 do
    for _, board in ipairs(boards) do board.radioGetTemperature() end
end
show("transmitting")

-- Each board switches its transmitter off before this returns. So it does when this script fails.
for _, board in ipairs(boards) do board.close() end
