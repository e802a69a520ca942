/* SPDX-License-Identifier: LicenseRef-Proprietary */
/* There is no block of as many bytes as FAILING_MALLOC or FAILING_CALLOC says; all other sizes are
 * served. FAILING_CALLOC=pointers stands for the size of two pointers. */
#include "tests/support/next_function.h"

#include <errno.h>
#include <stddef.h>
#include <stdlib.h>
#include <string.h>

static int fails(const char *variable, size_t size)
{
    const char *value = getenv(variable);
    if (value == NULL) {
        return 0;
    }
    if (strcmp(value, "pointers") == 0) {
        return size == 2 * sizeof(void *);
    }
    return size == strtoul(value, NULL, 10);
}

void *malloc(size_t size)
{
    if (fails("FAILING_MALLOC", size)) {
        errno = ENOMEM;
        return NULL;
    }
    return NEXT_FUNCTION(malloc)(size);
}

void *calloc(size_t count, size_t size)
{
    if (fails("FAILING_CALLOC", count * size)) {
        errno = ENOMEM;
        return NULL;
    }
    return NEXT_FUNCTION(calloc)(count, size);
}
