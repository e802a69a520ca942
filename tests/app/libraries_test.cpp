// SPDX-License-Identifier: LicenseRef-Proprietary
// Opening the libraries, with any core of LuaSocket.
#include "app/libraries.h"
#include "tests/app/fake_openers.h"
#include "tests/binding/support/lua_test.h"

namespace
{

class Libraries : public LuaTest
{
protected:
    void openSocket(lua_CFunction core)
    {
        socketCore = core;
        lua_pushstring(L, "bottom");
        openSocketLibrary(L);
        EXPECT_EQ(lua_gettop(L), 1) << "the stack is left alone";
        lua_pop(L, 1);
    }

    // What holds whichever core is linked.
    void expectSocket202()
    {
        EXPECT_EQ(argumentsOfCore, "luasocket");
        EXPECT_EQ(value("socket._VERSION"), "LuaSocket 2.0.2");
        EXPECT_EQ(value("package.loaded['socket.core'] == socket"), "true");
        EXPECT_EQ(value("package.loaded['socket']"), "nil");
        EXPECT_EQ(value("type(socket.protect)"), "function");
    }

    // Keeps require from finding anything that is installed.
    void emptyPaths()
    {
        run("package.path, package.cpath = '', ''");
    }
};

TEST_F(Libraries, openBitWithItsName)
{
    lua_pushstring(L, "bottom");
    openBitLibrary(L);
    EXPECT_EQ(lua_gettop(L), 1);
    EXPECT_EQ(argumentsOfBit, "bit");
    EXPECT_EQ(value("type(bit)"), "table");
}

TEST_F(Libraries, getNoFunctionThatTheyLackByBeingGuarded)
{
    openBitLibrary(L);
    EXPECT_EQ(value("bit.tohex"), "nil");
    openSocket(coreThatReturnsItsTable);
    EXPECT_EQ(value("socket.select or socket.skip or socket.sleep"), "nil");
    EXPECT_EQ(value("next(bit)"), "nil");
}

TEST_F(Libraries, keepTheTableOfACoreThatSetsTheGlobal)
{
    openSocket(coreThatSetsTheGlobal);
    expectSocket202();
    EXPECT_EQ(value("socket.tcp()"), "tcp");
    EXPECT_EQ(value("socket.udp()"), "udp");
    EXPECT_EQ(value("socket.tcp4"), "nil");
}

TEST_F(Libraries, makeTheTableOfACoreThatOnlyReturnsItTheGlobal)
{
    openSocket(coreThatReturnsItsTable);
    expectSocket202();
    EXPECT_EQ(value("socket.tcp()"), "tcp4");
    EXPECT_EQ(value("socket.udp()"), "udp4");
    EXPECT_EQ(value("socket.tcp6()"), "tcp6") << "what is more is left as it is";
}

TEST_F(Libraries, leaveTheStateAloneWhenACoreGivesNoTable)
{
    openSocket(coreThatGivesNothing);
    EXPECT_EQ(value("socket"), "nil");
    EXPECT_EQ(value("package.loaded['socket.core']"), "nil");
}

TEST_F(Libraries, giveTheSameTableToRequireWhereTheLuaPartIsNotInstalled)
{
    for (const lua_CFunction core : {coreThatSetsTheGlobal, coreThatReturnsItsTable}) {
        openSocket(core);
        emptyPaths();
        EXPECT_EQ(value("require 'socket.core' == socket"), "true");
        EXPECT_EQ(value("require 'socket' == socket"), "true");
    }
}

TEST_F(Libraries, letTheLuaPartExtendTheSameTable)
{
    openSocket(coreThatReturnsItsTable);
    run("package.preload.socket = function() "
        "local s = require 'socket.core' s.extended = true return s end");
    EXPECT_EQ(value("require 'socket' == socket"), "true");
    EXPECT_EQ(value("socket.extended"), "true");
}

TEST_F(Libraries, doNotHideModulesThatAreMissing)
{
    openSocket(coreThatReturnsItsTable);
    emptyPaths();
    EXPECT_NE(raised("require 'socket.http'").find("module 'socket.http' not found"),
              std::string::npos);
}

// The fake sockets answer with what they are given.
TEST_F(Libraries, returnPortsAsNumbersWhateverElseIsReturned)
{
    openSocket(coreWithSockets);
    for (const char *const className :
         {"tcp{master}", "tcp{client}", "tcp{server}", "udp{connected}", "udp{unconnected}"}) {
        luaL_getmetatable(L, className);
        name("class");
        run("get = class.__index.getsockname");
        EXPECT_EQ(value("type(select(2, get('::1', '80', 'inet6')))"), "number") << className;
        EXPECT_EQ(value("select(2, get('::1', '80', 'inet6'))"), "80");
        EXPECT_EQ(value("get('::1', '80', 'inet6')"), "::1");
        EXPECT_EQ(value("select(3, get('::1', '80', 'inet6'))"), "inet6");
        EXPECT_EQ(value("select('#', get('::1', '80', 'inet6', nil))"), "4");
        EXPECT_EQ(value("type(select(2, get(nil, '80')))"), "string") << "a message";
        EXPECT_EQ(value("select(2, get('::1', 'http'))"), "http");
        EXPECT_EQ(value("select('#', get())"), "0");
    }
}

TEST_F(Libraries, takeAClassThatTheCoreLacksForNone)
{
    openSocket(coreThatReturnsItsTable);
    luaL_getmetatable(L, "tcp{master}");
    EXPECT_TRUE(lua_isnil(L, -1));
}

TEST_F(Libraries, turnAnErrorThatIsATableIntoResults)
{
    openSocket(coreThatReturnsItsTable);
    run("p = socket.protect(function(...) if select('#', ...) == 0 then error({'why'}) end "
        "return ... end)");
    EXPECT_EQ(value("select('#', p(1, nil, 3))"), "3");
    EXPECT_EQ(value("select(3, p(1, nil, 3))"), "3");
    EXPECT_EQ(value("select('#', p())"), "2");
    EXPECT_EQ(value("p()"), "nil");
    EXPECT_EQ(value("select(2, p())"), "why");
    EXPECT_EQ(raised("socket.protect(function() error('other', 0) end)()"), "other");
}

} // namespace
