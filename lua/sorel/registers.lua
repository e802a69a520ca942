-- SPDX-License-Identifier: LicenseRef-Proprietary
--- The radio chip's registers: by address, and by the names of a map.
--
--     local registers = require "sorel.registers"
--     local board = registers.map {
--         name = "my board",
--         registers = {
--             { name = "TX_1", address = 0x30, reset = 0, fields = {
--                 { name = "ON", bits = 0, values = { off = 0, on = 1 } },
--                 { name = "LIMIT", bits = "15:4", signed = true, unit = "0.1 dBm" },
--             } },
--         },
--     }
--     board:write { ["TX_1.LIMIT"] = -100, ["TX_1.ON"] = "off" }
--     local before = board:dump()
--
-- Words are unsigned, 0 to 4294967295. Functions whose first argument is a map or a dump can be
-- called as its methods.

local arguments = require "sorel.registers.arguments"
local check = require "sorel.internal.check"
local checked_map = require("sorel.registers.map").checked
local files = require "sorel.registers.files"
local show = require "sorel.registers.show"
local transmitter = require "sorel.transmitter"
local words = require "sorel.registers.words"
local writing = require "sorel.registers.writing"

local registers = {}

local methods = { __index = registers }

--- Reads a register, or bits of it.
-- @param address of the register
-- @param high the highest bit, 0 to 31; nil: the whole register
-- @param low the lowest bit; nil: the same
-- @return an unsigned number; 4294967295 also where there is no register, or the read failed
function registers.get(address, high, low)
    arguments.word(address, "get", "address")
    if high == nil and low == nil then return words.read(address) end
    return words.extract(words.read(address), arguments.bits(high, low, "get"))
end

--- Writes a register, or bits of it: then it is read, and its other bits are written as they were.
-- @param address of the register
-- @param value an unsigned number, which has to fit
-- @param high the highest bit, 0 to 31; nil: the whole register
-- @param low the lowest bit; nil: the same
-- @error the driver's
function registers.set(address, value, high, low)
    arguments.word(address, "set", "address")
    arguments.word(value, "set", "value")
    if high ~= nil or low ~= nil then
        local field = arguments.bits(high, low, "set")
        local _, most = words.range(field)
        if value > most then
            arguments.mistake("set", ("value: %.0f does not fit, 0 to %.0f do"):format(value, most))
        end
        value = words.insert(words.read_again(address), field, value)
    end
    words.write(address, value)
end

--- Makes a map of a description.
-- @param description a table: name, and registers, a list of tables
-- @return a map
-- @error every mistake in the description, each with its place
function registers.map(description)
    local map, mistakes = checked_map(description)
    local name = type(description) == "table" and description.name
    check.raise("registers.map" .. (type(name) == "string" and ": " .. name or ""), mistakes, 2)
    return setmetatable(map, methods)
end

--- Reads a register or field by its name.
-- @param map a map
-- @param name "REGISTER" or "REGISTER.FIELD"
-- @return its number; and the name of that number, where the field has one for it
function registers.read(map, name)
    arguments.map(map, "read")
    local register, field, message = writing.named(map, name)
    if not register then arguments.mistake("read", message) end
    local word = words.read(register.address)
    if not field then return word end
    local number = words.extract(word, field)
    if field.names[number] then return number, field.names[number] end
    return number
end

--- Writes registers or fields: one by its name and value, or all in a table from names to values,
-- in the order of the map. The fields of a register are written at once; what of it is not named
-- is read first and stays. All is checked before the first is written.
-- @param map a map
-- @param what "REGISTER" or "REGISTER.FIELD", or a table
-- @param value a number, or one of the names that a field has; nil with a table
-- @error every mistake; the driver's, with the register: when registers were written before it, the
-- transmitters go off
function registers.write(map, what, value)
    arguments.map(map, "write")
    if type(what) == "string" then
        if value == nil then arguments.mistake("write", what .. ": is without a value") end
        what = { [what] = value }
    elseif type(what) ~= "table" then
        arguments.mistake("write", "a name, or a table of names and values, is expected")
    end
    local plan, mistakes = writing.plan(map, what)
    check.raise("registers.write", mistakes, 2)
    writing.write(map, plan)
end

local function new_dump(entries, title, source)
    entries.title, entries.source = title, source
    return setmetatable(entries, methods)
end

--- Reads registers.
-- @param map a map
-- @param names a register's name, or a list of them; nil: all of the map
-- @return a dump: a list of { address = N, value = N, name = TEXT }, in the order of map or names
function registers.dump(map, names)
    arguments.map(map, "dump")
    local wanted = map.registers
    if names ~= nil then
        wanted = {}
        if type(names) ~= "table" then names = { names } end
        local _, misplaced = check.list(names, "names")
        check.raise("registers.dump", misplaced, 2)
        for place, name in ipairs(names) do
            local register, field, message = writing.named(map, name)
            if not register or field then
                arguments.mistake("dump", message or name .. ": a register is expected")
            end
            wanted[place] = register
        end
    end
    local entries = {}
    for place, register in ipairs(wanted) do
        entries[place] = { address = register.address, name = register.name,
            value = words.read(register.address) }
    end
    return new_dump(entries, "registers of " .. map.name, map)
end

--- Reads the registers from one address to another, 65536 at most.
-- @return a dump, without names
function registers.dump_range(first, last)
    arguments.word(first, "dump_range", "first")
    arguments.word(last, "dump_range", "last")
    if last < first or last - first >= 65536 then
        arguments.mistake("dump_range", "last: 0 to 65535 above first is expected")
    end
    local entries = {}
    for address = first, last do
        entries[#entries + 1] = { address = address, value = words.read(address) }
    end
    return new_dump(entries, ("registers %s to %s"):format(words.address(first),
        words.address(last)))
end

--- What the map says that the registers hold after a reset, as a dump of those that it says it of.
function registers.reset_values(map)
    arguments.map(map, "reset_values")
    local entries = {}
    for _, register in ipairs(map.registers) do
        if register.reset then
            entries[#entries + 1] = { address = register.address, name = register.name,
                value = register.reset }
        end
    end
    return new_dump(entries, "reset values of " .. map.name, map)
end

local function by_address(dump)
    local found = {}
    for _, entry in ipairs(dump) do found[entry.address] = entry end
    return found
end

local function changed_fields(map, address, before, after)
    local changes = {}
    local register = map and map.at[address]
    for _, field in ipairs(register and before and after and register.fields or {}) do
        local was, is = words.extract(before, field), words.extract(after, field)
        if was ~= is then
            changes[#changes + 1] = { name = field.name, field = field, before = was, after = is }
        end
    end
    return changes
end

--- What differs between two dumps.
-- @param before, after the dumps
-- @return a list of { address = N, name = TEXT, before = N, after = N, fields = LIST }, before or
-- after nil where that dump lacks the register; LIST are the fields that differ, as the map of
-- either dump tells, each { name = TEXT, before = N, after = N }
function registers.compare(before, after)
    arguments.dump(before, "compare", "before")
    arguments.dump(after, "compare", "after")
    local map = before.source or after.source
    local old, new = by_address(before), by_address(after)
    local differences = setmetatable({ differences = true }, methods)
    local function compare(entry)
        local was, is = old[entry.address], new[entry.address]
        local one = { address = entry.address, name = was and was.name or is and is.name,
            before = was and was.value, after = is and is.value }
        if one.before == one.after then return end
        one.fields = changed_fields(map, one.address, one.before, one.after)
        differences[#differences + 1] = one
    end
    for _, entry in ipairs(before) do compare(entry) end
    for _, entry in ipairs(after) do
        if not old[entry.address] then compare(entry) end
    end
    return differences
end

--- Prints a dump, or what registers.compare() returned.
function registers.print(what)
    local is_table = type(what) == "table"
    if not is_table or not (rawget(what, "title") or rawget(what, "differences")) then
        arguments.mistake("print", "a dump, or what registers.compare() returned, is expected")
    end
    local lines = what.differences and show.differences(what) or show.dump(what)
    for _, line in ipairs(lines) do print(line) end
end

--- Writes a dump to a file, as text: "0x0010 0xdeadbeef SCRATCH" a register, and "end".
-- @param dump a dump
-- @param path of the file; "-" is standard output
-- @error a file that cannot be written
function registers.save(dump, path)
    arguments.dump(dump, "save", "dump")
    arguments.path(path, "save")
    files.save(dump, path)
end

--- Reads a dump from a file that registers.save() has written, or a person.
-- @param path of the file
-- @param map what its registers have to agree with; nil for none
-- @return a dump
-- @error a file that cannot be read; every mistake in it, with its line
function registers.load(path, map)
    arguments.path(path, "load")
    if map ~= nil then arguments.map(map, "load") end
    local entries, mistakes = files.load(path, map)
    check.raise("registers.load", mistakes, 2)
    return new_dump(entries, "registers from " .. path, map)
end

--- Writes the registers of a dump that can be read and written, in the order of the map, and reads
-- them back, but for those that the map says are volatile. When that fails, or one reads otherwise,
-- the transmitters go off.
-- @param map a map; put what switches a transmitter on last
-- @param dump a dump, all of whose registers are in the map
-- @return how many registers were written
-- @error registers that the map does not have, before any is written; the driver's, with the
-- register; all registers that read otherwise
function registers.restore(map, dump)
    arguments.map(map, "restore")
    arguments.dump(dump, "restore", "dump")
    check.raise("registers.restore", files.disagreements(dump, map), 2)
    local values = {}
    for _, entry in ipairs(dump) do values[entry.address] = entry.value end
    return transmitter.guarded(writing.restore, map, values)
end

return registers
