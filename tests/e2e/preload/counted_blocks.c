/* SPDX-License-Identifier: LicenseRef-Proprietary */
/* Counts the blocks of as many bytes as COUNTED_MALLOC or COUNTED_CALLOC says, on standard error: a
 * line when one is made, a line when it is freed. COUNTED_CALLOC=pointers stands for the size of
 * two pointers. */
#include "tests/e2e/preload/named_size.h"
#include "tests/support/next_function.h"

#include <stddef.h>
#include <string.h>
#include <unistd.h>

enum { BLOCKS = 1000 };

static void *blocks[BLOCKS];

static void say(const char *text)
{
    if (write(STDERR_FILENO, text, strlen(text)) < 0) {
        _exit(1);
    }
}

/* Puts one block into the first place that holds another; false if there is no such place. */
static int replace(void *old, void *block)
{
    for (int i = 0; i < BLOCKS; ++i) {
        if (blocks[i] == old) {
            blocks[i] = block;
            return 1;
        }
    }
    return 0;
}

static void *counted(void *block, int counts)
{
    if (block != NULL && counts && replace(NULL, block)) {
        say("made\n");
    }
    return block;
}

void *malloc(size_t size)
{
    return counted(NEXT_FUNCTION(malloc)(size), names_size("COUNTED_MALLOC", size));
}

void *calloc(size_t count, size_t size)
{
    return counted(NEXT_FUNCTION(calloc)(count, size), names_size("COUNTED_CALLOC", count * size));
}

void free(void *block)
{
    /* Looking up what frees may free the text of an earlier error: that one stays. */
    static int looking;
    static void (*next)(void *);
    if (next == NULL) {
        if (looking) {
            return;
        }
        looking = 1;
        next = NEXT_FUNCTION(free);
    }
    if (block != NULL && replace(block, NULL)) {
        say("freed\n");
    }
    next(block);
}
