// SPDX-License-Identifier: LicenseRef-Proprietary
#include "app/interactive.h"

#include "binding/runtime/assertion.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <lua.hpp>

namespace
{

constexpr int lineSize = 200;

const char *const exitWords[] = {"exit\n", "quit\n", "exit()\n", "quit()\n"};

// Most lines differ from a word in the first byte: then nothing is called.
bool equal(const char *line, const char *word)
{
    return line[0] == word[0] && std::strcmp(line, word) == 0;
}

bool isExitWord(const char *line)
{
    for (const char *const word : exitWords) {
        if (equal(line, word)) {
            return true;
        }
    }
    return false;
}

void reportFailure(const char *message)
{
    std::fprintf(stderr, "failed to process stdin: \"%s\"\n", message);
}

// Reports the error value on top of the Lua stack. Lua's own text of a number would be a new
// string, which can set the collector to work and so raise what a finaliser raises: here nothing
// would catch that.
void reportError(lua_State *L)
{
    if (lua_type(L, -1) == LUA_TNUMBER) {
        char text[LUAI_MAXNUMBER2STR];
        std::snprintf(text, sizeof text, LUA_NUMBER_FMT, lua_tonumber(L, -1));
        reportFailure(text);
    } else {
        reportFailure(lua_tostring(L, -1));
    }
}

// Leaves what the text returns on the Lua stack, or its error value. Lua counts results as room
// that the stack has, so that with them it has room however many error values there are already.
int loadAndCall(lua_State *L, const char *text)
{
    const int status = luaL_loadbuffer(L, text, std::strlen(text), "stdin");
    return status != 0 ? status : lua_pcall(L, 0, LUA_MULTRET, 0);
}

// Lua makes room on its stack before it compiles or calls, but for the error value of a lack of
// memory, which it puts where the stack ends. Compiling anything makes room behind it, or fails
// too.
bool hasRoomOnStack(lua_State *L)
{
    return luaL_loadbuffer(L, "", 0, "stdin") == 0;
}

// A failing text leaves its error value on the Lua stack, as long as there is memory for that.
void runText(lua_State *L, const char *text)
{
    int top = lua_gettop(L);
    const int status = loadAndCall(L, text);
    if (status != 0) {
        reportError(L);
        if (status != LUA_ERRMEM || hasRoomOnStack(L)) {
            ++top;
        }
    }
    lua_settop(L, top);
}

void runLine(lua_State *L, const char *line)
{
    if (equal(line, "help\n")) {
        runText(L, "help()");
    } else if (!equal(line, "\n")) {
        runText(L, line);
    }
}

} // namespace

char *cmdGetLine()
{
    auto *const input = static_cast<char *>(std::malloc(lineSize));
    if (input == nullptr) {
        std::puts("error: no memory to allocate cmd input buffer...");
        return nullptr;
    }
    std::fputs("sorelapp> ", stdout);
    int count = 0;
    for (;;) {
        // The end of the input reads as the byte 0xff, again and again, until the buffer is full.
        const auto byte = static_cast<unsigned char>(std::getc(stdin));
        input[count] = static_cast<char>(byte);
        if (byte == '\0') {
            return input;
        }
        ++count;
        assertThat(count < lineSize, "read - input < inLen", "app/sorelapp", 262, "cmdGetLine");
        if (byte == '\n') {
            input[count] = '\0';
            return input;
        }
    }
}

void cmdFreeLine(char *line)
{
    std::free(line);
}

void runInteractive(lua_State *L)
{
    for (;;) {
        char *const line = cmdGetLine();
        if (line == nullptr) {
            std::putchar('\n');
            return;
        }
        const bool leave = isExitWord(line);
        if (!leave) {
            runLine(L, line);
        }
        cmdFreeLine(line);
        if (leave) {
            return;
        }
    }
}
