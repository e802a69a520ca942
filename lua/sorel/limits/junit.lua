-- SPDX-License-Identifier: LicenseRef-Proprietary
--- The result of a test as JUnit XML, which is well-formed whatever bytes texts have.

local text = require "sorel.internal.text"

local entities = {
    ["&"] = "&amp;", ["<"] = "&lt;", [">"] = "&gt;", ['"'] = "&quot;",
    ["\t"] = "&#9;", ["\n"] = "&#10;",
}

local function attribute(value)
    return (text.printable(value, true):gsub('[&<>"\t\n]', entities))
end

local function content(value)
    return (text.printable(value, true):gsub("[&<>]", entities))
end

local function seconds(value)
    return ("%.6f"):format(value)
end

-- What JUnit says of each result but "pass".
local elements = { fail = "failure", error = "error", skip = "skipped" }

-- What was measured, and against what.
local function measured(row)
    local lines = {}
    for _, key in ipairs { "value", "low", "high", "expected" } do
        local value = row[key]
        if value ~= nil then
            local shown = type(value) == "number" and text.number(value) or tostring(value)
            local unit = type(value) == "number" and row.unit and " " .. row.unit or ""
            lines[#lines + 1] = key .. ": " .. shown .. unit
        end
    end
    if row.result == "pass" and row.message then lines[#lines + 1] = row.message end
    return table.concat(lines, "\n")
end

local function case(test, row)
    local lines = { ('    <testcase classname="%s" name="%s" time="%s">'):format(
        attribute(test.name), attribute(row.name), seconds(row.seconds)) }
    local element = elements[row.result]
    if element == "skipped" then
        lines[#lines + 1] = ('      <skipped message="%s"/>'):format(attribute(row.message))
    elseif element then
        local message = row.message or "false"
        lines[#lines + 1] = ('      <%s message="%s" type="%s">%s</%s>'):format(element,
            attribute(message), row.result, content(row.trace or message), element)
    end
    local output = measured(row)
    if output ~= "" then
        lines[#lines + 1] = ("      <system-out>%s</system-out>"):format(content(output))
    end
    lines[#lines + 1] = "    </testcase>"
    return table.concat(lines, "\n")
end

local junit = {}

--- The whole file.
-- @param result as limits/run.lua gives it
function junit.document(result)
    local counts = ('name="%s" tests="%d" failures="%d" errors="%d" skipped="%d" time="%s"'):format(
        attribute(result.name), #result.steps, result.failed, result.errors, result.skipped,
        seconds(result.seconds))
    local lines = {
        '<?xml version="1.0" encoding="UTF-8"?>',
        "<testsuites " .. counts .. ">",
        ('  <testsuite %s timestamp="%s">'):format(counts, result.begun),
    }
    if result.serial then
        lines[#lines + 1] = "    <properties>"
        lines[#lines + 1] = ('      <property name="serial" value="%s"/>'):format(
            attribute(result.serial))
        lines[#lines + 1] = "    </properties>"
    end
    for _, row in ipairs(result.steps) do lines[#lines + 1] = case(result, row) end
    lines[#lines + 1] = "  </testsuite>\n</testsuites>\n"
    return table.concat(lines, "\n")
end

return junit
