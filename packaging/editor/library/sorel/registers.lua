---@meta sorel.registers
-- SPDX-License-Identifier: LicenseRef-Proprietary
-- Made by ./dev reference; what is changed here is lost.

---The chip's registers, by address and by the names of a map. Words are unsigned, 0 to 4294967295.
---A map and a dump have the functions that take them first as methods: board:read("TX_1.ON"),
---dump:print(). 0xffffffff is also what is read where there is no register, or when a read failed;
---before such a word is changed and written back, it is read again. A file of a dump is text: an
---address, a word and a name in each line (0x0010 0xdeadbeef SCRATCH), comments after #, and the
---line end at the end.
local registers = {}

---Reads a register, or bits of it.
---
---Errors:
---* registers.get: ARGUMENT: what is wrong with it
---
---```lua
---print(bit.tohex(registers.get(0x10)), registers.get(0x10, 7, 4))
---```
---@param address integer of the register
---@param high? number the highest bit, 0 to 31; without it the whole register
---@param low? number default high; the lowest bit
---@return integer value the word, or the bits' number
function registers.get(address, high, low) end

---Writes a register, or bits of it: the others are then read first, and stay.
---
---Errors:
---* registers.set: ARGUMENT: what is wrong with it
---* radioSpiWrite() did not return success
---
---```lua
---registers.set(0x10, 0xdeadbeef) registers.set(0x10, 5, 7, 4)
---```
---@param address integer of the register
---@param value integer the word, or a number that fits
---@param high? number the highest bit, 0 to 31; without it the whole register
---@param low? number default high; the lowest bit
function registers.set(address, value, high, low) end

---@class sorel.registers.map.description.registers.fields
---@field name string letters, digits and _
---@field bits string "31:16", the higher bit first, or one bit, also as a number; no two fields share one
---@field access? string default rw; "rw", or "ro" for one that can only be read
---@field signed? boolean default false; whether the number is two's complement
---@field unit? string of the number, to be shown
---@field values? table numbers by name: { off = 0, on = 1 }
---@field text? string what it is for

---@class sorel.registers.map.description.registers
---@field name string letters, digits and _
---@field address integer of the register
---@field access? string default rw; "rw"; "ro" for one that can only be read; "w1c" for one in which writing a 1 clears
---@field reset? integer its word after a reset
---@field volatile? boolean default false; whether it may read otherwise than written; restoring then does not read it back
---@field fields? sorel.registers.map.description.registers.fields[] a list of fields
---@field text? string what it is for

---@class sorel.registers.map.description
---@field name string of the board or chip, in one line
---@field registers sorel.registers.map.description.registers[] a list of registers, in the order in which they are dumped, written and restored; put last what switches a transmitter on
---@field text? string what it describes

---Makes a map of a description, a plain table.
---
---Errors:
---* every mistake in the description, with its place: registers[3] (SCRATCH).fields[1] (LEVEL).bits: 33 is beyond bit 31
---
---```lua
---registers.map { name = "b", registers = { { name = "A", address = 16 } } }
---```
---@param description sorel.registers.map.description of the registers
---@return table map a map
function registers.map(description) end

---Reads a register or field by its name.
---
---Errors:
---* a name that is none, with the nearest one
---
---```lua
---print(board:read "TX_1.LIMIT")
---```
---@param map table a map
---@param name string REGISTER or REGISTER.FIELD
---@return number value its number
---@return string? meaning the number's name, where the field has one for it
function registers.read(map, name) end

---Writes registers or fields: one by name and value, or all in a table from names to values, in the
---order of the map. The fields of a register are written at once; what of it is not named is read
---first and stays, or is 0 where writing a 1 clears. All is checked before the first is written.
---
---Errors:
---* every mistake, with its name
---* registers.write: REGISTER (ADDRESS): the driver's message. If registers were written before it, the transmitters are off
---
---```lua
---board:write { ["TX_1.LIMIT"] = -100, SCRATCH = 7 }
---```
---@param map table a map
---@param what any REGISTER or REGISTER.FIELD, or a table of names and values
---@param value? any a number that fits, or one of the names that the field has for numbers
function registers.write(map, what, value) end

---Reads registers, each once.
---
---Errors:
---* a name that is none, with the nearest one
---
---```lua
---before = board:dump() board:dump('TX_1'):print()
---```
---@param map table a map
---@param names? any a register's name, or a list of them; without it all of the map
---@return table dump a list of { address = N, value = N, name = TEXT }
function registers.dump(map, names) end

---Reads the registers from one address to another, 65536 at most.
---
---Errors:
---* registers.dump_range: last: 0 to 65535 above first is expected
---
---```lua
---registers.dump_range(0x20, 0x27):print()
---```
---@param first integer address
---@param last integer address
---@return table dump likewise, without names
function registers.dump_range(first, last) end

---What the map says that the registers hold after a reset.
---
---```lua
---registers.compare(board:reset_values(), board:dump()):print()
---```
---@param map table a map
---@return table dump of the registers whose `reset` the map tells
function registers.reset_values(map) end

---What differs between two dumps, and in which fields.
---
---Errors:
---* registers.compare: ARGUMENT: a dump is expected
---
---```lua
---registers.compare(before, board:dump()):print()
---```
---@param before table a dump
---@param after table a dump
---@return table differences a list of { address = N, name = TEXT, before = N, after = N, fields = LIST }, a word nil where that dump lacks it; LIST of { name = TEXT, before = N, after = N }
function registers.compare(before, after) end

---Prints a dump with the fields of each register, or differences.
---
---Errors:
---* registers.print: a dump, or what registers.compare() returned, is expected
---
---```lua
---board:dump():print()
---```
---@param what table a dump, or what registers.compare returned
function registers.print(what) end

---Writes a dump to a file.
---
---Errors:
---* cannot write PATH: why
---
---```lua
---board:dump():save("good.txt")
---```
---@param dump table a dump
---@param path string of the file; "-" is standard output
function registers.save(dump, path) end

---Reads a dump from a file, which is data and never run.
---
---Errors:
---* cannot read PATH: why
---* every mistake in the file: PATH:LINE: what it is
---
---```lua
---good = registers.load("good.txt", board)
---```
---@param path string of the file
---@param map? table a map that the registers have to be in, under the same names
---@return table dump a dump
function registers.load(path, map) end

---Writes those registers of a dump that are "rw" in the map, in its order, and reads them back: the
---fields that can be written, the whole word where there are no fields. After a failure at the
---board the transmitters are off.
---
---Errors:
---* registers that the map lacks, before any is written
---* registers.restore: REGISTER (ADDRESS): the driver's message
---* registers.restore: what is read is not what was written: each of those registers
---
---```lua
---print(board:restore(registers.load("good.txt", board)))
---```
---@param map table a map
---@param dump table a dump, all of whose registers are in the map
---@return number count how many were written
function registers.restore(map, dump) end

return registers
