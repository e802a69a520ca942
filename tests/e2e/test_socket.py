# SPDX-License-Identifier: LicenseRef-Proprietary
"""The global socket: the interface of LuaSocket 2.0.2, whichever version is linked."""

import socket
import threading
import time

import pytest
from shell import lua, raised

FUNCTIONS = ["newtry", "protect", "select", "skip", "sleep", "gettime", "tcp", "udp", "__unload"]


def test_it_is_a_table_that_names_version_2_0_2():
    assert lua("print(type(socket), socket._VERSION)").out == "table\tLuaSocket 2.0.2\n"


@pytest.mark.parametrize("name", FUNCTIONS)
def test_a_function_of_the_core(name):
    assert lua(f"print(type(socket.{name}))").out == "function\n"


@pytest.mark.parametrize("name", ["toip", "tohostname", "gethostname"])
def test_a_function_of_the_name_service(name):
    assert lua(f"print(type(socket.dns), type(socket.dns.{name}))").out == "table\tfunction\n"


def test_an_address_is_looked_up_in_the_machines_name_service():
    try:
        expected = socket.gethostbyaddr("127.0.0.1")[2][0]
    except OSError:
        expected = "nil"  # a machine may know no names at all
    assert lua("print((socket.dns.toip('127.0.0.1')))").out == expected + "\n"


def test_the_host_has_a_name():
    assert lua("print(socket.dns.gethostname())").out == socket.gethostname() + "\n"


def test_skip_drops_the_first_values():
    assert lua("print(socket.skip(2, 'a', 'b', 'c', 'd')) print(socket.skip(0, 'a'))").out == (
        "c\td\na\n"
    )


@pytest.mark.parametrize("count", ["-1", "-0.5", "-1e9", "2^31", "-1/0", "0/0"])
def test_skip_gives_nothing_but_its_arguments(count):
    ran = lua(f"print(pcall(function(...) return socket.skip({count}, ...) end, 'a', 'b'))")
    assert ran.out == ("true\n" if count == "2^31" else "true\ta\tb\n")


@pytest.mark.parametrize("call", ["skip()", "skip({})", "sleep()", "sleep({})"])
def test_a_wrong_argument_is_named(call):
    name = call.partition("(")[0]
    assert f"bad argument #1 to '{name}' (number expected" in raised(f"socket.{call}").out


@pytest.mark.parametrize("seconds", ["0/0", "-0/0", "'nan'", "-1", "-1/0"])
def test_sleep_ends_for_what_is_no_time(seconds):
    lua(f"socket.sleep({seconds})")


def test_sleep_takes_its_time():
    ran = lua("local start = socket.gettime() socket.sleep(0.05) "
              "print(socket.gettime() - start >= 0.05)")
    assert ran.out == "true\n"


DESCRIPTOR_TOO_LARGE = "bad argument #{} to 'select' (descriptor too large for set size)"


@pytest.mark.parametrize("descriptor", ["1e308", "1/0", "2^31", "2^31-1", "'4294967296'", "1024"])
@pytest.mark.parametrize("position", [1, 2])
def test_select_refuses_a_descriptor_that_its_set_has_no_room_for(descriptor, position):
    object_ = f"{{ getfd = function() return {descriptor} end }}"
    lists = f"{{ {object_} }}, nil" if position == 1 else f"nil, {{ {object_} }}"
    assert raised(f"socket.select({lists}, 0)").out.endswith(
        DESCRIPTOR_TOO_LARGE.format(position))


@pytest.mark.parametrize("descriptor", ["-1", "-1e308", "0/0", "nil", "'x'", "true"])
def test_select_passes_over_an_object_without_a_descriptor(descriptor):
    ran = lua(f"print(select('#', socket.select({{ {{ getfd = function() return {descriptor} end }}, "
              "{}, 'text' }, {}, 0)), select(3, socket.select({}, {}, 0)))")
    assert ran.out == "3\ttimeout\n"


def test_select_gives_the_objects_that_are_ready_and_their_numbers():
    ran = lua("""
        local server = socket.tcp()
        server:bind("127.0.0.1", 0)
        server:listen()
        local client = socket.tcp()
        client:connect(server:getsockname())
        local accepted = server:accept()
        local idle = socket.udp()
        local own = { getfd = function(self) return self.of:getfd() end, of = client }
        client:send("x")
        local ready, writable, failure = socket.select({ idle, accepted }, { own, client, own }, 5)
        assert(#ready == 1 and ready[1] == accepted and ready[accepted] == 1)
        assert(#writable == 1 and writable[1] == own and writable[own] == 1 and failure == nil)
        local count = 0
        for _ in pairs(ready) do count = count + 1 end
        for _ in pairs(writable) do count = count + 1 end
        print(count)
    """)
    assert ran.out == "4\n"


def test_select_takes_a_dirty_object_for_ready_without_waiting():
    ran = lua("""
        local idle = socket.udp()
        idle:setsockname("127.0.0.1", 0)
        local dirty = { getfd = function() return idle:getfd() end,
                        dirty = function(...) assert(select("#", ...) == 1) return true end }
        local ready, writable, failure = socket.select({ dirty }, nil, 10)
        print(#ready, ready[1] == dirty, ready[dirty], next(writable), failure)
    """)
    assert ran.out == "1\ttrue\t1\tnil\tnil\n"


def test_select_reads_a_list_by_its_metamethods_and_in_order():
    ran = lua("""
        local read = {}
        local list = setmetatable({}, { __index = function(_, i)
            read[#read + 1] = i
            return i < 3 and {} or nil
        end })
        socket.select(list, list, 0)
        print(table.concat(read, " "))
    """)
    assert set(ran.out.split()) == {"1", "2", "3"} and ran.out.startswith("1 2 3 1 2 3")


@pytest.mark.parametrize("call, complaint", [
    ("select(7)", "bad argument #1 to 'select' (table expected, got number)"),
    ("select({}, 'x')", "bad argument #2 to 'select' (table expected, got string)"),
    ("select({}, {}, {})", "bad argument #3 to 'select' (number expected, got table)"),
    ("select({ 5 })", "attempt to index a number value"),
    ("select({ newproxy() })", "attempt to index a userdata value"),
    ("select({ { getfd = 5 } })", "attempt to call a number value"),
    ("select({ { getfd = function() error('mine', 0) end } })", "mine"),
])
def test_select_says_what_is_wrong_with_a_list(call, complaint):
    assert raised(f"socket.{call}").out.endswith(complaint)


def test_gettime_is_the_time():
    before = time.time()
    shown = float(lua("print(('%.6f'):format(socket.gettime()))").out)
    assert before - 0.001 <= shown <= time.time() + 0.001


def test_protect_turns_what_newtry_raises_into_results():
    ran = lua("local try = socket.newtry(function() io.write('tidied ') end) "
              "local f = socket.protect(function(...) return try(...) end) "
              "print(f(nil, 'refused')) print(f(1, 2))")
    assert ran.out == "tidied nil\trefused\n1\t2\n"


def test_protect_turns_any_error_that_is_a_table_into_results():
    assert lua("print(socket.protect(function() error({'mine', 2}) end)())").out == "nil\tmine\n"


def test_protect_hands_arguments_and_all_results_on():
    assert lua("print(socket.protect(function(...) return ... end)(1, nil, 3))").out == "1\tnil\t3\n"


def test_protect_passes_other_errors_on():
    assert raised("socket.protect(function() error('mine', 0) end)()").out == "mine"


def test_select_of_nothing_times_out():
    ran = lua("local readable, writable, message = socket.select({}, nil, 0) "
              "print(#readable, #writable, message)")
    assert ran.out == "0\t0\ttimeout\n"


def test_unload_does_no_harm():
    assert lua("socket.__unload() print(socket.tcp() ~= nil)").out == "true\n"


@pytest.mark.parametrize("kind, options", [("tcp", ["reuseaddr", "keepalive", "tcp-nodelay"]),
                                           ("udp", ["reuseaddr", "broadcast"])])
def test_a_new_socket_exists_and_takes_options_at_once(kind, options):
    for option in options:
        assert lua(f"print(socket.{kind}():setoption('{option}', true))").out == "1\n"


@pytest.mark.parametrize("kind, bind", [("tcp", "bind"), ("udp", "setsockname")])
def test_a_new_socket_is_one_of_ipv4(kind, bind):
    ran = lua(f"local s = socket.{kind}() print(s:{bind}('0.0.0.0', 0)) "
              "local address, port = s:getsockname() print(address, port > 0)")
    assert ran.out == "1\n0.0.0.0\ttrue\n"
    refused = lua(f"print((socket.{kind}():{bind}('::1', 0)))")
    assert refused.out == "nil\n"


def test_each_call_makes_another_socket():
    assert lua("print(socket.tcp() ~= socket.tcp(), socket.udp() ~= socket.udp())").out == (
        "true\ttrue\n"
    )


def test_tcp_within_one_script():
    ran = lua("""
        local server = assert(socket.tcp())
        assert(server:setoption("reuseaddr", true))
        assert(server:bind("127.0.0.1", 0))
        assert(server:listen(1))
        local address, port = server:getsockname()
        local client = socket.tcp()
        assert(client:connect(address, port))
        local peer = assert(server:accept())
        assert(client:send("temperature?\\n"))
        print((peer:receive()))
        assert(peer:send("36.5\\n"))
        peer:close()
        print((client:receive("*a")))
        print(client:receive())
        """)
    assert ran.out == "temperature?\n36.5\n\nnil\tclosed\t\n"


def test_udp_within_one_script():
    ran = lua("""
        local receiver = socket.udp()
        assert(receiver:setsockname("127.0.0.1", 0))
        local address, port = receiver:getsockname()
        local sender = socket.udp()
        assert(sender:sendto("first", address, port))
        assert(sender:setpeername(address, port))
        assert(sender:send("second"))
        receiver:settimeout(10)
        print((receiver:receivefrom()))
        print(receiver:receive())
        receiver:settimeout(0)
        print(receiver:receive())
        """)
    assert ran.out == "first\nsecond\nnil\ttimeout\n"


def test_a_script_talks_tcp_to_another_program():
    with socket.create_server(("127.0.0.1", 0)) as server:

        def answer():
            connection, _ = server.accept()
            with connection, connection.makefile("rw") as stream:
                stream.write(stream.readline().upper())

        peer = threading.Thread(target=answer, daemon=True)
        peer.start()
        ran = lua("local c = socket.tcp() c:settimeout(30) "
                  f"assert(c:connect('127.0.0.1', {server.getsockname()[1]})) "
                  "c:send('rtwp\\n') print((c:receive()))")
        peer.join()
    assert ran.out == "RTWP\n"


def test_a_script_talks_udp_to_another_program():
    with socket.socket(socket.AF_INET, socket.SOCK_DGRAM) as peer:
        peer.bind(("127.0.0.1", 0))
        peer.settimeout(30)

        def answer():
            request, address = peer.recvfrom(100)
            peer.sendto(request.upper(), address)

        thread = threading.Thread(target=answer, daemon=True)
        thread.start()
        ran = lua("local s = socket.udp() s:settimeout(30) "
                  f"assert(s:sendto('rtwp', '127.0.0.1', {peer.getsockname()[1]})) "
                  "print((s:receive()))")
        thread.join()
    assert ran.out == "RTWP\n"


def test_requiring_socket_extends_the_same_table():
    ran = lua("local before = socket.tcp local required = require 'socket' "
              "print(required == socket, required == _G.socket, socket.tcp == before, "
              "socket._VERSION, type(socket.bind), type(socket.connect), type(socket.source))")
    assert ran.out == "true\ttrue\ttrue\tLuaSocket 2.0.2\tfunction\tfunction\tfunction\n"


def test_the_lua_part_works_on_the_same_sockets():
    ran = lua("require 'socket' "
              "local server = assert(socket.bind('127.0.0.1', 0)) "
              "local address, port = server:getsockname() "
              "local client = assert(socket.connect(address, port)) "
              "local peer = server:accept() client:send('x\\n') print((peer:receive()))")
    assert ran.out == "x\n"


def test_the_modules_built_on_socket_load():
    assert lua("print(type(require('socket.http').request))").out == "function\n"


def test_requiring_the_core_gives_the_same_table():
    assert lua("print(require 'socket.core' == socket)").out == "true\n"


def test_the_core_for_mime_is_not_opened():
    assert lua("print(mime, package.loaded['mime.core'])").out == "nil\tnil\n"


def test_without_the_lua_part_require_gives_the_core_alone():
    ran = lua("print(require 'socket' == socket, socket.bind)", LUA_PATH="/nonexistent/?.lua")
    assert ran.out == "true\tnil\n"


@pytest.mark.parametrize("make", ["tcp", "udp"])
def test_the_port_of_a_socket_is_a_number(make):
    bind = {"tcp": "bind", "udp": "setsockname"}[make]
    ran = lua(f"local s = socket.{make}() assert(s:{bind}('127.0.0.1', 0)) "
              "local address, port = s:getsockname() print(address, type(port), port > 0)")
    assert ran.out == "127.0.0.1\tnumber\ttrue\n"


def test_both_ends_of_a_connection_name_the_same_ports():
    ran = lua(
        "local server = socket.tcp() assert(server:bind('127.0.0.1', 0)) server:listen() "
        "local client = socket.tcp() "
        "assert(client:connect('127.0.0.1', (select(2, server:getsockname())))) "
        "local accepted = server:accept() "
        "print((select(2, accepted:getsockname())) == (select(2, client:getpeername())), "
        "      (select(2, client:getsockname())) == (select(2, accepted:getpeername())))"
    )
    assert ran.out == "true\ttrue\n"


def test_the_name_of_a_closed_socket_is_an_error():
    ran = lua("local s = socket.tcp() s:close() print((s:getsockname()))")
    assert ran.out == "nil\n"


def test_a_refused_connection_is_an_error():
    ran = lua(
        "local unused = socket.tcp() unused:bind('127.0.0.1', 0) "
        "local port = select(2, unused:getsockname()) unused:close() "
        "print(socket.tcp():connect('127.0.0.1', port))"
    )
    assert ran.out == "nil\tconnection refused\n"


def test_select_names_the_socket_that_can_be_read():
    ran = lua(
        "local a, b = socket.udp(), socket.udp() a:setsockname('127.0.0.1', 0) "
        "print(#socket.select({a}, nil, 0), (select(3, socket.select({a}, nil, 0)))) "
        "b:sendto('x', a:getsockname()) "
        "print(socket.select({a}, nil, 5)[1] == a)"
    )
    assert ran.out == "0\ttimeout\ntrue\n"
