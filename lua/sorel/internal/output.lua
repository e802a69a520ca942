-- SPDX-License-Identifier: LicenseRef-Proprietary
--- Files that are written, each failure an error that names the file. Nothing is lost unnoticed:
-- a full disk shows when the file is closed, if not before.

local text = require "sorel.internal.text"

local output = {}

-- One line of comma-separated values (RFC 4180): what holds a comma, a quote or a line break, or
-- begins or ends with a blank, stands in quotes.
local function quoted(value)
    local cell = type(value) == "number" and text.number(value) or tostring(value)
    if cell:find('[,"\r\n]') or cell:find("^ ") or cell:find(" $") then
        return '"' .. cell:gsub('"', '""') .. '"'
    end
    return cell
end

--- A line of comma-separated values by RFC 4180, with its line break (CR LF).
-- @param values a list
-- @param count how many there are, where some may be nil, which are empty
function output.csv(values, count)
    local cells = {}
    for place = 1, count or #values do
        cells[place] = values[place] == nil and "" or quoted(values[place])
    end
    return table.concat(cells, ",") .. "\r\n"
end

local Writer = {}
Writer.__index = Writer

local function check(self, succeeded, message)
    if not succeeded then
        error(("cannot write %s: %s"):format(self.name, message), 0)
    end
end

--- Writes a text.
function Writer:write(what)
    check(self, self.file:write(what))
end

--- Lets others see what has been written, and a full disk show.
function Writer:flush()
    check(self, self.file:flush())
end

--- Ends the file; what is standard output is only flushed. Closing twice does nothing more.
function Writer:close()
    local file = self.file
    if not file then return end
    self.file = nil
    local flushed, message = file:flush()
    if self.named then file:close() end
    check(self, flushed, message)
end

--- Begins a file afresh.
-- @param path where; nil and "-" are standard output
-- @return an object with the methods write(text), flush() and close()
function output.open(path)
    local named = path ~= nil and path ~= "-"
    local file, message
    if named then
        file, message = io.open(path, "wb")
        -- io.open's message begins with the path.
        if not file then error("cannot write " .. message, 0) end
    else
        file = io.stdout
    end
    return setmetatable({ file = file, named = named, name = named and path or "standard output" },
        Writer)
end

--- Writes a file that is closed in every case.
-- @param path as that of output.open
-- @param action a function that gets the object to write to; what it raises is raised again
function output.whole(path, action)
    local file = output.open(path)
    local written, message = pcall(action, file)
    if not written then
        pcall(file.close, file)
        error(message, 0)
    end
    file:close()
end

return output
