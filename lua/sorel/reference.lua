-- SPDX-License-Identifier: LicenseRef-Proprietary
--- What the shell offers to scripts, as data: sorel.help prints it, and the reference, the
-- definitions for editors and the word list for completion are made from it.
--
-- A subject is one file of sorel/reference/, named as the subject with _ for blanks, which returns
--
--     {
--         name = "transmitter",              -- what `help "transmitter"` asks for
--         module = "sorel.transmitter",      -- what require() takes; nil for what is always there
--         title = "the transmitter switched off, whatever has gone wrong before",
--         text = "A paragraph or none.",
--         points = { "Paragraphs of a list", "or none." },
--         session = "What the prompt shows, its own words included; or none.",
--         after = "A paragraph behind that.",
--         prepare = "Lua that makes the globals which the examples below use; or none.",
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
--                 unrun = "why the example cannot be run in a test; nil where it can",
--             },
--         },
--     }
--
-- Types are Lua's ("number", "string", "table", "function", "boolean", "userdata", "any"), or as a
-- message of the driver's functions names them ("uint32_t", "RadioBand", without "enum"), or a
-- group of constants ("RADIO_BAND"): its member by name or value; or, for an object, what stands in
-- front of the colon in its methods' entries ("tcp" for "tcp:send"). Several have " or " between
-- them. An entry without `arguments` that is no function has `value`, the text of its type; a group
-- of constants has `members`, a text for each member by name, and `type`, the driver's name of it.
-- An argument with `unchecked` is taken whatever it is. Lines of examples have at most 76
-- characters. In an example a comment that begins with --> tells what the line prints; it runs where
-- kit modules are locals of their names and the radio is set up as in kit.fresh_radio of the tests.
--
-- The errors of the driver's functions begin with the status that the driver answers with.

local reference = {}

-- In the order in which they are shown.
local subjects = {
    "first session", "calls",
    "platform", "transmit", "receive", "readings", "spi", "debug", "constants", "objects",
    "bit", "socket",
    "bringup", "registers", "measure", "sweep", "limits", "params", "remote", "transmitter",
    "help",
}

--- The names of all subjects.
function reference.subjects()
    return { unpack(subjects) }
end

--- A subject by its name, as told above; nil where there is none.
function reference.subject(name)
    for _, known in ipairs(subjects) do
        if known == name then return require("sorel.reference." .. name:gsub(" ", "_")) end
    end
    return nil
end

return reference
