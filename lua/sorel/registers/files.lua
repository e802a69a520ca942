-- SPDX-License-Identifier: LicenseRef-Proprietary
--- Dumps of registers in files: data, and never code.
--
--     # registers of the board
--     0x0010 0xdeadbeef SCRATCH
--     0x0030 0x00000000
--     end
--
-- A line is an address, a word, both hexadecimal after 0x, and the register's name or none. What
-- follows a # is a comment. The last line is "end", so that a file that was cut off is recognised.

local output = require "sorel.internal.output"
local words = require "sorel.registers.words"

local files = {}

--- Writes a dump.
function files.save(dump, path)
    local file = output.open(path)
    file:write(("# %s\n"):format((dump.title:gsub("%c", " "))))
    for _, entry in ipairs(dump) do
        local name = entry.name and " " .. entry.name or ""
        file:write(("%s %s%s\n"):format(words.address(entry.address),
            words.hexadecimal(entry.value), name))
    end
    file:write("end\n")
    file:close()
end

local function content(path)
    local file, message = io.open(path, "rb")
    if not file then error("cannot read " .. message, 0) end
    local bytes, reason = file:read("*a")
    file:close()
    if not bytes then error(("cannot read %s: %s"):format(path, reason), 0) end
    return bytes
end

local function hexadecimal(digits, what)
    if #digits <= 10 and digits:find("^0x%x+$") then return tonumber(digits:sub(3), 16) end
    return nil, ("%s is no %s such as 0x0010"):format(digits, what)
end

-- The entry in a line, or nil and what is wrong with it.
local function entry_in(line)
    local first, second, name = line:match("^(%S+)%s+(%S+)%s*(%S*)$")
    if not first then return nil, "an address, a word and perhaps a name are expected" end
    local address, wrong_address = hexadecimal(first, "address")
    local value, wrong_value = hexadecimal(second, "word")
    if not address or not value then return nil, wrong_address or wrong_value end
    return { address = address, value = value, name = name ~= "" and name or nil }
end

-- What is wrong with an entry by a map, whose name it takes where it has none.
local function disagreement(entry, map)
    local register = map.at[entry.address]
    if not register then
        return ("%s has no register at %s"):format(map.name, words.address(entry.address))
    end
    entry.name = entry.name or register.name
    if entry.name == register.name then return nil end
    return ("the register at %s is %s in %s, not %s"):format(words.address(entry.address),
        register.name, map.name, entry.name)
end

--- Reads a file.
-- @param map what the registers have to agree with; nil for none
-- @return a list of entries; and a list of mistakes, each with its line
-- @error a file that cannot be read
function files.load(path, map)
    local entries, mistakes, line_of, number, ended = {}, {}, {}, 0, false
    local function wrong(message)
        mistakes[#mistakes + 1] = ("%s:%d: %s"):format(path, number, message)
    end
    local function take(line)
        local entry, message = entry_in(line)
        if ended then return wrong("nothing is expected after the line end") end
        if not entry then return wrong(message) end
        if line_of[entry.address] then
            return wrong(("%s is in line %d already"):format(words.address(entry.address),
                line_of[entry.address]))
        end
        line_of[entry.address] = number
        message = map and disagreement(entry, map)
        if message then wrong(message) end
        entries[#entries + 1] = entry
    end
    for text in (content(path) .. "\n"):gmatch("(.-)\r?\n") do
        number = number + 1
        local line = text:gsub("#.*", ""):match("^%s*(.-)%s*$")
        if line == "end" and not ended then
            ended = true
        elseif line ~= "" then
            take(line)
        end
    end
    if not ended then
        mistakes[#mistakes + 1] = path .. ": there is no line end; the file may be cut off"
    end
    return entries, mistakes
end

--- What is wrong with the entries of a dump by a map, each with its address.
function files.disagreements(dump, map)
    local mistakes = {}
    for _, entry in ipairs(dump) do
        mistakes[#mistakes + 1] = disagreement(
            { address = entry.address, name = entry.name }, map)
    end
    return mistakes
end

return files
