-- SPDX-License-Identifier: LicenseRef-Proprietary
return {
    name = "objects",
    title = "the tables of the radio's functions; native pointers",
    text = "Pointers to things of the driver, or of a C library loaded into Lua, are userdata of "
        .. "named types: pointer objects.",
    entries = {
        {
            name = "radio", value = "table",
            text = "The driver's functions and constants, and RadioHooks. At its start the shell "
                .. "has made a global of each.",
            example = "print(radio.radioInit == radioInit)  --> true",
        },
        {
            name = "radioNative", value = "table",
            text = "radioOpen and radioClose, of which the shell has made globals too.",
            example = "print(radioNative.radioOpen == radioOpen)  --> true",
        },
        {
            name = "radioInternal", value = "table",
            text = "Empty.",
            example = "print(next(radioInternal))  --> nil",
        },
        {
            name = "RadioHooks",
            text = "Makes a record of two memory functions. No function of the driver takes one.",
            results = {
                { name = "hooks", type = "userdata", text = "the record, with the fields",
                    fields = {
                        { name = "malloc", type = "userdata", optional = true,
                            text = "a pointer object of type void *(*)(size_t), or nil" },
                        { name = "free", type = "userdata", optional = true,
                            text = "a pointer object of type void (*)(void *), or nil" },
                    } },
            },
            errors = { "a field given anything but nil or a pointer object of its type" },
            example = "local hooks = RadioHooks()\nprint(hooks.malloc, hooks.free)  --> nil nil",
        },
        {
            name = "swig_type",
            text = "What the type of a value is called in messages: Lua's name of it, or the type "
                .. "that a pointer object points to.",
            arguments = { { name = "value", type = "any", text = "the value" } },
            results = { { name = "name", type = "string", text = "the name" } },
            example = "print(swig_type(7), swig_type(radioGetDriverNames()))  --> number char **",
        },
        {
            name = "swig_equals",
            text = "Whether two pointer objects point to the same place.",
            arguments = {
                { name = "one", type = "userdata", text = "a pointer object" },
                { name = "other", type = "userdata", text = "another one" },
            },
            results = { { name = "equal", type = "boolean", optional = true,
                text = "nothing at all where one of the two is no userdata" } },
            example = "print(swig_equals(radioGetDriverNames(), radioGetDriverNames()))  --> true",
        },
    },
}
