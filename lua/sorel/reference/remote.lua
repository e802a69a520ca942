-- SPDX-License-Identifier: LicenseRef-Proprietary
local listen = {
    { name = "host", type = "string", default = [["127.0.0.1"]],
        text = "the address to listen on; any but 127.x.x.x and localhost needs a token" },
    { name = "port", type = "number", default = "0", text = "0: one that the system chooses" },
    { name = "token", type = "string", optional = true,
        text = "at least 16 characters, which every client has to give" },
    { name = "connections", type = "number", default = "8",
        text = "how many there may be at once, 64 at most" },
    { name = "idle", type = "number", unit = "s", default = "600",
        text = "after how long without a request a connection is closed" },
    { name = "deadman", type = "boolean", default = "true",
        text = "whether the transmitter goes off when the connection that switched it on ends or "
            .. "falls silent" },
    { name = "silence", type = "number", unit = "s", default = "5",
        text = "after how long it has" },
}

local function with(...)
    local fields = { unpack(listen) }
    for place = 1, select("#", ...) do fields[#fields + 1] = (select(place, ...)) end
    return fields
end

return {
    name = "remote",
    module = "sorel.remote",
    title = "a board driven from another machine over TCP",
    text = "docs/remote.md tells how to do so safely, how the dead man's switch acts, and "
        .. "documents the protocol.",
    prepare = "server = remote.listen {}",
    entries = {
        {
            name = "remote.serve",
            text = "Lets clients call the functions of the radio, until the process ends. An error "
                .. "switches the transmitter off; Ctrl-C does not.",
            arguments = {
                { name = "options", type = "table", optional = true, text = "how", fields = with(
                    { name = "log", type = "function", optional = true,
                        text = "gets a line for each event; without it they are printed" },
                    { name = "once", type = "boolean", default = "false",
                        text = "return when no connection is left, after there was one" }) },
            },
            errors = { "an option that is wrong; an address that cannot be listened on" },
            example = [[require("sorel.remote").serve { port = 4400 }]],
            unrun = "it does not return",
        },
        {
            name = "remote.listen",
            text = "The same for a script that does something of its own in between.",
            arguments = {
                { name = "options", type = "table", optional = true, text = "how", fields = with(
                    { name = "log", type = "function", optional = true,
                        text = "gets a line for each event; without it there are none" }) },
            },
            results = {
                { name = "server", type = "server",
                    text = "has the fields host and port, where it listens" },
            },
            errors = { "an option that is wrong; an address that cannot be listened on" },
            example = "server = remote.listen {}  print(server.host)  --> 127.0.0.1",
        },
        {
            name = "server:step",
            text = "Waits until something comes, and answers it. The limits of time are looked "
                .. "after in here only: call it once a second or more.",
            arguments = {
                { name = "seconds", type = "number", unit = "s",
                    text = "how long to wait at most" },
            },
            errors = { "those of the log function; the transmitter is off then" },
            example = "server:step(0)",
        },
        {
            name = "server:connections",
            text = "How many connections there are that have said hello.",
            results = { { name = "count", type = "number", text = "how many" } },
            example = "print(server:connections())  --> 0",
        },
        {
            name = "server:close",
            text = "Closes all connections, as if the clients had, and listens no more.",
            example = "server:close()",
        },
        {
            name = "remote.connect",
            text = "Connects to a server.",
            arguments = {
                { name = "options", type = "table", text = "where to, and how", fields = {
                    { name = "host", type = "string", default = [["127.0.0.1"]],
                        text = "the server's name or address" },
                    { name = "port", type = "number", text = "the server's port" },
                    { name = "token", type = "string", optional = true,
                        text = "the server's token, if it has one" },
                    { name = "timeout", type = "number", unit = "s", default = "30",
                        text = "how long to wait for the connection, and for each answer" },
                } },
            },
            results = {
                { name = "board", type = "table",
                    text = "the functions and constants of the server's radio, with the same "
                        .. "results and errors; ping(), which tells the server that this side "
                        .. "lives, and close(). What deals in native pointers raises an error: "
                        .. "radioGetDriverNames, radioGetIntegerFromCalibration, "
                        .. "radioGetStringFromCalibration, radioSetDebugFile, RadioHooks" },
            },
            errors = {
                "an option that is wrong",
                "what begins with \"remote: \": there is no connection; later, from each function, "
                    .. "when it is lost, and when the dead man's switch has acted",
            },
            example = "board = remote.connect { port = 4400 }  print(board.radioVersion())",
            unrun = "it needs a server",
        },
    },
}
