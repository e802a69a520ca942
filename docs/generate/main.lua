-- SPDX-License-Identifier: LicenseRef-Proprietary
--- Makes what is generated from lua/sorel/reference/: ./dev reference runs this in the shell on the
-- simulated board. REFERENCE_FOLDER names another folder than the tree's to write into.

local root = debug.getinfo(1, "S").source:match("^@(.*)docs/generate/main.lua$")
package.path = root .. "lua/?.lua;" .. root .. "docs/generate/?.lua;" .. package.path

local reference = require "sorel.reference"
local output = require "sorel.internal.output"
local definitions = require "definitions"

local folder = (os.getenv("REFERENCE_FOLDER") or root .. ".") .. "/"

local function write(path, lines)
    local file = output.open(folder .. path)
    file:write(table.concat(lines, "\n") .. "\n")
    file:close()
end

write("docs/reference.md", require("markdown").lines())
write("packaging/editor/luacheck.lua", require("luacheck_standard").lines())
write("packaging/editor/library/sorelapp.lua", definitions.of_globals())
for _, name in ipairs(reference.subjects()) do
    local subject = reference.subject(name)
    if subject.module then
        local path = subject.module:gsub("%.", "/") .. ".lua"
        write("packaging/editor/library/" .. path, definitions.of_module(subject))
    end
end
write("packaging/rlwrap/sorelapp.words", require("words").lines())
