-- SPDX-License-Identifier: LicenseRef-Proprietary
local result = {
    name = "result", type = "boolean",
    text = "whether all steps passed and all output was written",
}

return {
    name = "limits",
    module = "sorel.limits",
    title = "a production test: steps, limits, a report, JUnit XML, CSV",
    text = "When limits.run, limits.exit or limits.main returns, raises an error or ends the "
        .. "process, the transmitter is off; not so when a step does, by os.exit. After an error "
        .. "elsewhere in a script the shell ends with the radio as it is, "
        .. "unless limits.main is around the whole script. A script that ends without limits.main "
        .. "and limits.exit has the status 0 also where steps failed.",
    prepare = [[
test = { name = "board", steps = {
    { name = "heat", measure = radioGetTemperature, high = 60 },
} }]],
    entries = {
        {
            name = "limits.run",
            text = "Runs the steps in their order and writes a report to standard output, a line "
                .. "as each ends. A step that fails or raises an error does not stop the others. "
                .. "After an error the transmitters of all paths go off at once, and all paths are "
                .. "then selected: a step that needs its transmitter switches it on itself.",
            arguments = {
                { name = "test", type = "table", text = "the test", fields = {
                    { name = "name", type = "string", text = "of the test" },
                    { name = "serial", type = "string", optional = true,
                        text = "serial number of the board" },
                    { name = "steps", type = "table", text = "the list of steps; each is a table",
                        fields = {
                            { name = "name", type = "string", text = "another one for each step" },
                            { name = "measure", type = "function", optional = true,
                                text = "returns the reading, and the step's message or nothing" },
                            { name = "low", type = "number", optional = true,
                                text = "the least reading that passes" },
                            { name = "high", type = "number", optional = true,
                                text = "the greatest reading that passes. Not-a-number, infinities "
                                    .. "and what the driver's failed readings give, -2147483648 "
                                    .. "and 4294967295, never pass by low and high" },
                            { name = "expected", type = "any", optional = true,
                                text = "in place of low and high, the one reading that passes: a "
                                    .. "text or a number" },
                            { name = "unit", type = "string", optional = true,
                                text = "of the reading" },
                            { name = "check", type = "function", optional = true,
                                text = "in place of measure and limits: returns true or false, and "
                                    .. "the step's message or nothing" },
                            { name = "critical", type = "boolean", default = "false",
                                optional = true,
                                text = "true: unless it passes, the steps after it are skipped" },
                        } },
                    { name = "setup", type = "function", optional = true,
                        text = "called before the steps, which are skipped where it raises an "
                            .. "error" },
                    { name = "cleanup", type = "function", optional = true,
                        text = "called after the steps, whatever has happened" },
                    { name = "junit", type = "string", optional = true,
                        text = "file for JUnit XML; begun afresh before the first step" },
                    { name = "csv", type = "string", optional = true,
                        text = "file for the columns step, result, value, low, high, unit, "
                            .. "seconds, message; begun afresh before the first step" },
                } },
            },
            results = {
                { name = "passed", type = "boolean", text = result.text },
                { name = "details", type = "table",
                    text = "name, serial, passed, seconds; failed, errors and skipped, numbers of "
                        .. "steps; unwritten, a list of files; and steps, a list of tables: name, "
                        .. "result (pass, fail, error or skip), value, low, high, expected, unit, "
                        .. "seconds, message, and trace after an error that was raised" },
            },
            errors = {
                "a table that is not as it should be: every mistake, by the step's number, name "
                    .. "and key; no step has run then",
            },
            example = [[
steps = {}
steps[1] = { name = "heat", measure = radioGetTemperature, high = 60 }
steps[2] = { name = "id", measure = radioGetPlatformName,
    expected = "simulated board" }
passed = limits.run { name = "board", steps = steps }]],
        },
        {
            name = "limits.exit",
            text = "Ends the process, also at the prompt: transmitter off, radio closed, output "
                .. "written. The status is 0 for true and 1 for false; and 1, with a line on "
                .. "standard error, where the transmitter cannot be switched off or standard "
                .. "output cannot be written.",
            arguments = { result },
            errors = { "a result that is neither true nor false, with the transmitter off" },
            example = "limits.exit(limits.run(test))",
            unrun = "ends the process",
        },
        {
            name = "limits.main",
            text = "Calls a whole script and ends the process as limits.exit does. What the script "
                .. "raises is said on standard error, and the status is 1; 64 where params.read "
                .. "refuses the environment.",
            arguments = {
                { name = "script", type = "function", text = "returns what limits.run returned" },
            },
            errors = { "something else than a function, with the transmitter off" },
            example = "limits.main(function() return limits.run(test) end)",
            unrun = "ends the process",
        },
    },
}
