-- SPDX-License-Identifier: LicenseRef-Proprietary
--- Mean, spread and extremes of readings, in the domain in which their unit is averaged.

local statistics = {}

-- Units that are logarithms of a power: how many of them are 10 dB.
local per_ten_decibel = { ["dBm"] = 10, ["0.1 dBm"] = 100 }

-- What a reading of the driver gives that failed: not-a-number, INT32_MIN.
local function failed(value)
    return value ~= value or value == -2147483648
end

-- Sums are of what is left of each value after the first: so equal values have exactly their mean
-- and no deviation, and small differences of large values are not lost.
local function arithmetic(values)
    local origin = math.abs(values[1]) < math.huge and values[1] or 0
    local sum = 0
    for _, value in ipairs(values) do sum = sum + (value - origin) end
    return origin + sum / #values
end

-- Powers are relative to the largest, so none is too large for a number; -inf dBm is 0 mW.
local function logarithmic(values, largest, ten_decibel)
    if math.abs(largest) == math.huge then return largest end
    local sum = 0
    for _, value in ipairs(values) do sum = sum + 10 ^ ((value - largest) / ten_decibel) end
    return largest + ten_decibel * math.log10(sum / #values)
end

-- Of a sample, by n - 1.
local function deviation(values)
    local mean = arithmetic(values)
    local sum = 0
    for _, value in ipairs(values) do sum = sum + (value - mean) ^ 2 end
    return math.sqrt(sum / (#values - 1))
end

--- The unit of a deviation: a level's is dB.
function statistics.unit_of_deviation(unit)
    return per_ten_decibel[unit] and unit:gsub("m$", "") or unit
end

--- What sorel.measure promises of measure.statistics.
-- @param given a list of numbers
-- @param unit that of the numbers; nil is none
function statistics.of(given, unit)
    local values, least, largest = {}, math.huge, -math.huge
    for _, value in ipairs(given) do
        if not failed(value) then
            values[#values + 1] = value
            least, largest = math.min(least, value), math.max(largest, value)
        end
    end
    local nan = 0 / 0
    local result = { mean = nan, minimum = nan, maximum = nan, deviation = nan,
        count = #values, failed = #given - #values }
    if #values == 0 then return result end
    result.minimum, result.maximum = least, largest
    local ten_decibel = per_ten_decibel[unit]
    result.mean = ten_decibel and logarithmic(values, largest, ten_decibel) or arithmetic(values)
    if #values > 1 then result.deviation = deviation(values) end
    return result
end

return statistics
