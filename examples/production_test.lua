-- SPDX-License-Identifier: LicenseRef-Proprietary
-- A production test of the front end. Registers are those of the simulated board.
local limits = require "sorel.limits"
local params = require "sorel.params"

local function locked()
    radioSetTxFrequency(2655000000)
    radioSetRxFrequency(2535000000)
    for _ = 1, 100 do -- the synthesisers take their time
        if radioSpiRead(0x23) == 3 then return true end
    end
    return false, "a synthesiser does not lock"
end

local function transmitted_power()
    radioSetTxMaxPower(100)
    radioSetTxState(RADIO_STATE_ENABLE)
    return bit.tobit(radioSpiRead(0x36)) / 64
end

limits.main(function()
    local values = params.read {
        { "SERIAL", pattern = "^%d%d%d%d$", text = "serial number of the board, four digits" },
        { "HOTTEST", type = "number", least = 40, most = 100, default = 60,
            text = "highest temperature that passes, in degrees Celsius" },
    }
    radioInit(RADIO_CONF_MIMO, RADIO_MODE_4GENODEB_FDD_20MHZ, RADIO_BAND_7)
    return limits.run {
        name = "front end", serial = values.SERIAL, junit = "result.xml", csv = "result.csv",
        steps = {
            { name = "driver", measure = radioVersion, expected = "1.1" },
            { name = "temperature", measure = radioGetTemperature, low = 0, high = values.HOTTEST,
                unit = "degC" },
            { name = "synthesisers", check = locked, critical = true },
            { name = "transmit power", measure = transmitted_power, low = 9, high = 11,
                unit = "dBm" },
            { name = "received noise", measure = radioGetRxRtwpIndBm, high = -85, unit = "dBm" },
        },
    }
end)
