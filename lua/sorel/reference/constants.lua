-- SPDX-License-Identifier: LicenseRef-Proprietary
local GROUP = { name = "group", type = "string", text = 'a group\'s name, such as "RADIO_BAND"' }
local NO_GROUP = "a group that does not exist; the nearest one is named"

local subject = {
    name = "constants",
    module = "sorel.constants",
    title = "the RADIO_... constants, and their names and values in a script",
    text = "The constants are globals, and are in the table radio too. A group is named by what "
        .. "its members' names share; members whose names end in _COUNT, _INVALID and _NULL "
        .. "belong to it, though the driver refuses them.",
    entries = {
        {
            name = "constants.groups",
            text = "The groups' names.",
            results = { { name = "groups", type = "table", text = "a list" } },
            example = 'print(table.concat(constants.groups(), " "))',
        },
        {
            name = "constants.members",
            text = "The names of a group's members.",
            arguments = { GROUP },
            results = { { name = "members", type = "table",
                text = "a list in the order of their values; where two are the same, of their "
                    .. "names" } },
            errors = { NO_GROUP },
            example = 'for _, name in ipairs(constants.members "RADIO_STATE") do print(name) end',
        },
        {
            name = "constants.name",
            text = "The name of a value.",
            arguments = { GROUP, { name = "value", type = "number", text = "the value" } },
            results = {
                { name = "name", type = "string",
                    text = "the first of several; nil where no member has the value" },
                { name = "message", type = "string", optional = true,
                    text = "after nil, what is wrong and which member is nearest" },
            },
            errors = { NO_GROUP },
            example = 'print(constants.name("RADIO_BAND", 7))  --> RADIO_BAND_7',
        },
        {
            name = "constants.value",
            text = "The value of a member.",
            arguments = {
                GROUP,
                { name = "member", type = "any",
                    text = "a name, or a number, which has to be a member's value" },
            },
            results = {
                { name = "value", type = "number", text = "nil where there is no such member" },
                { name = "message", type = "string", optional = true,
                    text = "after nil, what is wrong and which member is nearest" },
            },
            errors = { NO_GROUP },
            example = 'print(constants.value("RADIO_BAND", "RADIO_BAND_7"))  --> 7',
        },
    },
}

-- The groups come first.
local functions = subject.entries
subject.entries = { unpack(require "sorel.reference.groups") }
for _, entry in ipairs(functions) do subject.entries[#subject.entries + 1] = entry end
return subject
