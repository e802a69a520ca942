-- SPDX-License-Identifier: LicenseRef-Proprietary
-- Received power (RTWP) and gain over the input level, in each of the four gain modes, as CSV.
-- Runs on the simulated board in the scenario gain_modes.toml, whose signals are the input levels.

local manualGain = 40 -- dB

-- A driver call takes 100 us of simulated time. The first half of a level is for the gain to settle.
local callsPerSecond = 10000
local readings = 200 -- averaged into one power

local modes = {
    { name = "manual", value = RADIO_RX_GAIN_MGC },
    { name = "fast", value = RADIO_RX_GAIN_AGC_FAST },
    { name = "slow", value = RADIO_RX_GAIN_AGC_SLOW },
    { name = "hybrid", value = RADIO_RX_GAIN_AGC_SLOW_HYBRID },
}

-- The levels of the scenario, in order: when they begin and end in s, and their power in dBm.
local function readLevels(path)
    local levels = {}
    for line in io.lines(path) do
        local power, start, finish =
            line:match("power = ([-.%d]+),.* start = ([.%d]+), end = ([.%d]+)")
        if power then
            levels[#levels + 1] =
                { power = tonumber(power), start = tonumber(start), finish = tonumber(finish) }
        end
    end
    assert(#levels > 0, path .. " has no signals")
    return levels
end

local calls -- since radioOpen()

local function counted(driverFunction, ...)
    calls = calls + 1
    return driverFunction(...)
end

local function waitUntil(time)
    while calls < time * callsPerSecond do
        counted(radioGetTemperature)
    end
end

-- Switches a radio on, for it to receive in that gain mode from the first level on.
local function start(mode)
    radioOpen()
    calls = 0
    counted(radioInit, RADIO_CONF_SISO, RADIO_MODE_4GENODEB_FDD_20MHZ, RADIO_BAND_7)
    counted(radioSetRxFrequency, 2535000000)
    counted(radioSetRxGain, manualGain)
    counted(radioSetRxGainMode, mode)
end

-- Mean power in dBm.
local function averagePower()
    local milliwatts = 0
    for _ = 1, readings do
        milliwatts = milliwatts + 10 ^ (counted(radioGetRxRtwpIndBm) / 10)
    end
    return 10 * math.log10(milliwatts / readings)
end

local function measure(level)
    waitUntil((level.start + level.finish) / 2)
    local result = { power = averagePower(), gain = counted(radioGetRxGainIndB) }
    assert(calls < level.finish * callsPerSecond, "the level is too short")
    return result
end

local function sweep(mode, levels)
    start(mode)
    local results = {}
    for i, level in ipairs(levels) do
        results[i] = measure(level)
    end
    return results
end

local levels = readLevels(assert(os.getenv("SOREL_SIM_SCENARIO"), "SOREL_SIM_SCENARIO is not set"))

local header = { "input_dBm" }
local lines = {}
for i, level in ipairs(levels) do
    lines[i] = { ("%.1f"):format(level.power) }
end
for _, mode in ipairs(modes) do
    header[#header + 1] = mode.name .. "_RTWP_dBm"
    header[#header + 1] = mode.name .. "_gain_dB"
    for i, result in ipairs(sweep(mode.value, levels)) do
        local line = lines[i]
        line[#line + 1] = ("%.2f"):format(result.power)
        line[#line + 1] = ("%d"):format(result.gain)
    end
end

print(table.concat(header, ","))
for _, line in ipairs(lines) do
    print(table.concat(line, ","))
end
