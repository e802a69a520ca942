-- SPDX-License-Identifier: LicenseRef-Proprietary
return {
    name = "params",
    module = "sorel.params",
    title = "named parameters of a script, from environment variables",
    entries = {
        {
            name = "params.read",
            text = "Reads parameters from the environment. A variable that is empty counts as "
                .. "missing. What is wrong is told at once, with a usage text. In a script (-b) or "
                .. "command (-c) that does not catch errors it goes to standard error, and the "
                .. "process ends: transmitter off, radio closed, status 64. Elsewhere, at the "
                .. "prompt above all, it is raised as an error; so it is, with the transmitter "
                .. "off, where return params.read { ... } or the like ends a script.",
            arguments = {
                { name = "parameters", type = "table",
                    text = "a list, in the order of the usage text; each is a table with the "
                        .. "variable's name first, then",
                    fields = {
                        { name = "text", type = "string", optional = true, text = "what it means" },
                        { name = "type", type = "string", optional = true, default = [["string"]],
                            text = [["string", taken as it is: 0042 keeps its zeros; "number", ]]
                                .. [[decimal or hexadecimal after 0x; "boolean": yes, no, true, ]]
                                .. [[false, on, off, 1 or 0; "file", the path of one to read]] },
                        { name = "group", type = "string", optional = true,
                            text = "in place of a type: a group of constants, one of which is "
                                .. "given by name or value" },
                        { name = "choices", type = "table", optional = true,
                            text = "a list of the texts or numbers that are allowed" },
                        { name = "pattern", type = "string", optional = true,
                            text = "of Lua, which a text matches" },
                        { name = "integer", type = "boolean", optional = true,
                            text = "true: a number is whole" },
                        { name = "least", type = "number", optional = true,
                            text = "the least number" },
                        { name = "most", type = "number", optional = true,
                            text = "the greatest number" },
                        { name = "default", type = "any", optional = true,
                            text = "what stands for a missing one; without it one must be given" },
                        { name = "optional", type = "boolean", optional = true,
                            text = "true: nil stands for a missing one" },
                        { name = "secret", type = "boolean", optional = true,
                            text = "true: no message shows the text" },
                    } },
            },
            results = {
                { name = "values", type = "table",
                    text = "the values by name, those of constants as numbers; to ask it for a "
                        .. "name that is not among the parameters is an error" },
            },
            errors = {
                "what is wrong with the variables, and the usage text",
                "what is wrong with the list of parameters, every mistake by its number and name",
            },
            example = [[
values = params.read { { "SERIAL", pattern = "^%d+$" } }
print(values.SERIAL)]],
            unrun = "needs a variable of the environment",
        },
    },
}
