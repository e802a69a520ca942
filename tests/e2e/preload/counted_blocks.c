/* SPDX-License-Identifier: LicenseRef-Proprietary */
/* Counts the zeroed blocks of two pointers, which RadioHooks records are, on standard error: a line
 * when one is made, a line when it is freed. */
#include <stddef.h>
#include <unistd.h>

/* The C library's own, under the names by which such a library as this one reaches them. */
void *__libc_calloc(size_t count, size_t size);
void __libc_free(void *block);

void *calloc(size_t count, size_t size);
void free(void *block);

enum { RECORDS = 1000 };

static void *records[RECORDS];

static void say(const char *text, size_t length)
{
    if (write(STDERR_FILENO, text, length) < 0) {
        _exit(1);
    }
}

/* Puts one block into the first place that holds another; false if there is no such place. */
static int replace(void *old, void *block)
{
    for (int i = 0; i < RECORDS; ++i) {
        if (records[i] == old) {
            records[i] = block;
            return 1;
        }
    }
    return 0;
}

void *calloc(size_t count, size_t size)
{
    void *block = __libc_calloc(count, size);
    if (block != NULL && count * size == 2 * sizeof(void *) && replace(NULL, block)) {
        say("made\n", 5);
    }
    return block;
}

void free(void *block)
{
    if (block != NULL && replace(block, NULL)) {
        say("freed\n", 6);
    }
    __libc_free(block);
}
