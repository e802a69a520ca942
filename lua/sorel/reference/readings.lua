-- SPDX-License-Identifier: LicenseRef-Proprietary
local ANTENNA = { name = "antenna", type = "RadioRxAntenna", text = "which receiver" }

local function tenths(text)
    return { { name = "rtwp", type = "int32_t", unit = "0.1 dBm",
        text = text .. "; -2147483648: failed" } }
end

local function dbm(text)
    return { { name = "rtwp", type = "float", unit = "dBm", text = text .. "; nan: failed" } }
end

local function gain()
    return { { name = "gain", type = "int32_t", unit = "dB", text = "-2147483648: failed" } }
end

return {
    name = "readings",
    title = "temperature, RTWP (received total wideband power), gain",
    text = "A reading raises nothing when it fails: before radioInit where that is needed, of an "
        .. "antenna that does not exist, of a receiver that is off or not settled. It then gives "
        .. "not-a-number, or -2147483648 where it is an integer. Not-a-number is the only value "
        .. "that differs from itself: value ~= value.",
    entries = {
        {
            name = "radioGetTemperature",
            text = "Temperature of the radio chip. Needs no radioInit.",
            results = { { name = "temperature", type = "float", unit = "degrees Celsius",
                text = "nan: failed" } },
            example = "print(radioGetTemperature())",
        },
        {
            name = "radioGetRxRtwp",
            text = "Received total wideband power (RTWP) at the antenna connector, over the "
                .. "selected paths together.",
            results = tenths("the power"),
            example = "print(radioGetRxRtwp() / 10)",
        },
        {
            name = "radioGetRxRtwpIndBm",
            text = "Received total wideband power (RTWP) at the antenna connector, over the "
                .. "selected paths together.",
            results = dbm("the power"),
            example = "print(radioGetRxRtwpIndBm())",
        },
        {
            name = "radioGetRxRtwpOfAntenna",
            text = "Received total wideband power (RTWP) of one receive antenna.",
            arguments = { ANTENNA },
            results = tenths("the power"),
            example = "print(radioGetRxRtwpOfAntenna(RADIO_RX_ANTENNA_1) / 10)",
        },
        {
            name = "radioGetRxRtwpOfAntennaIndBm",
            text = "Received total wideband power (RTWP) of one receive antenna.",
            arguments = { ANTENNA },
            results = dbm("the power"),
            example = "print(radioGetRxRtwpOfAntennaIndBm(RADIO_RX_ANTENNA_2))",
        },
        {
            name = "radioGetRxGainIndB",
            text = "Present receiver gain of the first of the selected paths.",
            results = gain(),
            example = "print(radioGetRxGainIndB())",
        },
        {
            name = "radioGetRxGainOfAntennaIndB",
            text = "Present receiver gain of one receive antenna.",
            arguments = { ANTENNA },
            results = gain(),
            example = "print(radioGetRxGainOfAntennaIndB(RADIO_RX_ANTENNA_2))",
        },
    },
}
