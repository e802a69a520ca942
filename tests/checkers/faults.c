/* SPDX-License-Identifier: LicenseRef-Proprietary */
/* Mistakes for the checkers to find, each as a function that package.loadlib gives to a script. */
#include <float.h>
#include <limits.h>
#include <lua.h>
#include <stdlib.h>

#define FAULT __attribute__((visibility("default"), noinline))

int leak(void *state);
int write_behind(void *state);
int use_after_free(void *state);
int free_twice(void *state);
int uninitialised(void *state);
int integer_overflow(void *state);
int float_to_integer(void *state);
int push_too_many(lua_State *L);

/* The compiler sees neither what is in these nor that nobody reads them. */
static volatile int number;
static char *volatile block;

FAULT int leak(void *state)
{
    (void)state;
    block = malloc(100);
    block[0] = 'x';
    block = NULL;
    return 0;
}

FAULT int write_behind(void *state)
{
    (void)state;
    block = malloc(100);
    block[100] = 'x';
    free(block);
    return 0;
}

FAULT int use_after_free(void *state)
{
    (void)state;
    block = malloc(100);
    free(block);
    number = block[0];
    return 0;
}

FAULT int free_twice(void *state)
{
    (void)state;
    block = malloc(100);
    free(block);
    free(block);
    return 0;
}

FAULT int uninitialised(void *state)
{
    (void)state;
    block = malloc(100);
    if (block[0] == 'x') {
        number = 1;
    }
    free(block);
    return 0;
}

FAULT int integer_overflow(void *state)
{
    (void)state;
    number = INT_MAX;
    number = number + 1;
    return 0;
}

FAULT int float_to_integer(void *state)
{
    volatile double large = DBL_MAX;
    (void)state;
    number = (int)large;
    return 0;
}

/* More values than Lua has promised room for. */
FAULT int push_too_many(lua_State *L)
{
    for (int i = 0; i <= LUA_MINSTACK; ++i) {
        lua_pushnil(L);
    }
    return 0;
}
