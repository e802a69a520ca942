-- SPDX-License-Identifier: LicenseRef-Proprietary
--- What the shell offers to scripts, as data: sorel.help prints it, and the reference, the
-- definitions for editors and the word list for completion are made from it.
--
-- A subject is one file of sorel/reference/, which returns
--
--     {
--         name = "transmitter",              -- what `help "transmitter"` asks for
--         module = "sorel.transmitter",      -- what require() takes; nil for what is always there
--         title = "the transmitter switched off, whatever has gone wrong before",
--         text = "A paragraph or none.",
--         entries = {
--             {
--                 name = "transmitter.off",  -- as a script writes it
--                 text = "What it does, in whole sentences.",
--                 arguments = {              -- in their order; none where it is nil
--                     { name = "frequency", type = "uint32_t", unit = "Hz", text = "where to" },
--                     { name = "options", type = "table", optional = true, text = "how",
--                         fields = {         -- of a table: its keys, described as arguments are
--                             { name = "average", type = "number", default = "1", text = "..." },
--                         } },
--                 },
--                 results = { { name = "off", type = "boolean", text = "..." } },
--                 errors = { "what is raised, and when" },
--                 example = "transmitter.off()",
--             },
--         },
--     }
--
-- Types are Lua's ("number", "string", "table", "function", "boolean", "userdata", "any"), or as a
-- message of the driver's functions names them ("uint32_t", "RadioBand"), or a group of constants
-- ("RADIO_BAND"): its member by name or value. An entry without `arguments` that is no function has
-- `value`, the text of its type. Lines of examples have at most 76 characters.

local reference = {}

-- In the order in which they are shown.
local subjects = {
    "transmitter", "bringup", "registers", "sweep", "measure", "limits", "params", "remote",
}

--- The names of all subjects.
function reference.subjects()
    return { unpack(subjects) }
end

--- A subject by its name, as told above; nil where there is none.
function reference.subject(name)
    for _, known in ipairs(subjects) do
        if known == name then return require("sorel.reference." .. name) end
    end
    return nil
end

return reference
