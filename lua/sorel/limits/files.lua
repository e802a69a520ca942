-- SPDX-License-Identifier: LicenseRef-Proprietary
--- The files of a test. They are begun before the first step, so that none of an earlier test is
-- taken for this one's when it is interrupted, and written after the last.

local ending = require "sorel.internal.ending"
local junit = require "sorel.limits.junit"
local output = require "sorel.internal.output"

local files = {}

local function csv(result)
    local lines = { output.csv {
        "step", "result", "value", "low", "high", "unit", "seconds", "message",
    } }
    for _, row in ipairs(result.steps) do
        lines[#lines + 1] = output.csv({
            row.name, row.result, row.value, row.low, row.high, row.unit,
            ("%.6f"):format(row.seconds), row.message,
        }, 8)
    end
    return table.concat(lines)
end

local kinds = { { key = "junit", document = junit.document }, { key = "csv", document = csv } }

--- Begins the files that a test names, empty.
-- @return a list for files.write; and a list of what could not be begun, which has been said
function files.begin(test)
    local begun, unwritten = {}, {}
    for _, kind in ipairs(kinds) do
        local path = test[kind.key]
        local opened, file = true, nil
        if path then opened, file = pcall(output.open, path) end
        if not opened then
            ending.say(file)
            unwritten[#unwritten + 1] = path
        elseif file then
            begun[#begun + 1] = { path = path, file = file, document = kind.document }
        end
    end
    return begun, unwritten
end

--- Writes the files.
-- @param begun what files.begin returned
-- @param result as limits/run.lua gives it
-- @param unwritten a list, to which what cannot be written is added; that has been said
function files.write(begun, result, unwritten)
    for _, one in ipairs(begun) do
        local written, message = pcall(function()
            one.file:write(one.document(result))
            one.file:close()
        end)
        if not written then
            pcall(one.file.close, one.file)
            ending.say(tostring(message))
            unwritten[#unwritten + 1] = one.path
        end
    end
end

return files
