/* SPDX-License-Identifier: LicenseRef-Proprietary */
/* The least that runs the lines of standard input as Lua, each a chunk of its own: no prompt, no
 * word that is recognised, no bound that is checked. It ends at the end of the input. What the
 * shell takes for the same lines beyond this is the price of its prompt. */
#include <lauxlib.h>
#include <lua.h>
#include <lualib.h>
#include <stdio.h>
#include <stdlib.h>

enum { LINE_SIZE = 200 };

int main(void)
{
    lua_State *L = luaL_newstate();
    if (L == NULL) {
        return EXIT_FAILURE;
    }
    luaL_openlibs(L);
    for (;;) {
        char *line = malloc(LINE_SIZE);
        if (line == NULL) {
            return EXIT_FAILURE;
        }
        size_t length = 0;
        int byte;
        while ((byte = getc(stdin)) != EOF) {
            line[length++] = (char)byte;
            if (byte == '\n') {
                break;
            }
        }
        if (byte == EOF) {
            free(line);
            lua_close(L);
            return EXIT_SUCCESS;
        }
        if (luaL_loadbuffer(L, line, length, "stdin") != 0 || lua_pcall(L, 0, 0, 0) != 0) {
            fprintf(stderr, "%s\n", lua_tostring(L, -1));
            free(line);
            return EXIT_FAILURE;
        }
        free(line);
    }
}
