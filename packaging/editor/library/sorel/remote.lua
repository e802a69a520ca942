---@meta sorel.remote
-- SPDX-License-Identifier: LicenseRef-Proprietary
-- Made by ./dev reference; what is changed here is lost.

---A board driven from another machine over TCP. docs/remote.md tells how to do so safely, how the
---dead man's switch acts, and documents the protocol.
local remote = {}

---@class sorel.remote.serve.options
---@field host? string default "127.0.0.1"; the address to listen on; any but 127.x.x.x and localhost needs a token
---@field port? number default 0; 0: one that the system chooses
---@field token? string at least 16 characters, which every client has to give
---@field connections? number default 8; how many there may be at once, 64 at most
---@field idle? number s; default 600; after how long without a request a connection is closed
---@field deadman? boolean default true; whether the transmitter goes off when the connection that switched it on ends or falls silent
---@field silence? number s; default 5; after how long it has
---@field log? function gets a line for each event; without it they are printed
---@field once? boolean default false; return when no connection is left, after there was one

---Lets clients call the functions of the radio, until the process ends. An error switches the
---transmitter off; Ctrl-C does not.
---
---Errors:
---* an option that is wrong; an address that cannot be listened on
---
---```lua
---require("sorel.remote").serve { port = 4400 }
---```
---@param options? sorel.remote.serve.options how
function remote.serve(options) end

---@class sorel.remote.listen.options
---@field host? string default "127.0.0.1"; the address to listen on; any but 127.x.x.x and localhost needs a token
---@field port? number default 0; 0: one that the system chooses
---@field token? string at least 16 characters, which every client has to give
---@field connections? number default 8; how many there may be at once, 64 at most
---@field idle? number s; default 600; after how long without a request a connection is closed
---@field deadman? boolean default true; whether the transmitter goes off when the connection that switched it on ends or falls silent
---@field silence? number s; default 5; after how long it has
---@field log? function gets a line for each event; without it there are none

---The same for a script that does something of its own in between.
---
---Errors:
---* an option that is wrong; an address that cannot be listened on
---
---```lua
---server = remote.listen {}  print(server.host)  --> 127.0.0.1
---```
---@param options? sorel.remote.listen.options how
---@return sorel.server server has the fields host and port, where it listens
function remote.listen(options) end

---@class sorel.server
local server = {}

---Waits until something comes, and answers it. The limits of time are looked after in here only:
---call it once a second or more.
---
---Errors:
---* those of the log function; the transmitter is off then
---
---```lua
---server:step(0)
---```
---@param seconds number s; how long to wait at most
function server:step(seconds) end

---How many connections there are that have said hello.
---
---```lua
---print(server:connections())  --> 0
---```
---@return number count how many
function server:connections() end

---Closes all connections, as if the clients had, and listens no more.
---
---```lua
---server:close()
---```
function server:close() end

---@class sorel.remote.connect.options
---@field host? string default "127.0.0.1"; the server's name or address
---@field port number the server's port
---@field token? string the server's token, if it has one
---@field timeout? number s; default 30; how long to wait for the connection, and for each answer

---Connects to a server.
---
---Errors:
---* an option that is wrong
---* what begins with "remote: ": there is no connection; later, from each function, when it is lost, and when the dead man's switch has acted
---
---```lua
---board = remote.connect { port = 4400 }  print(board.radioVersion())
---```
---@param options sorel.remote.connect.options where to, and how
---@return table board the functions and constants of the server's radio, with the same results and errors; ping(), which tells the server that this side lives, and close(). What deals in native pointers raises an error: radioGetDriverNames, radioGetIntegerFromCalibration, radioGetStringFromCalibration, radioSetDebugFile, RadioHooks
function remote.connect(options) end

return remote
