/* SPDX-License-Identifier: LicenseRef-Proprietary */
/* There is no block of as many bytes as FAILING_MALLOC or FAILING_CALLOC says; all other sizes are
 * served. FAILING_CALLOC=pointers stands for the size of two pointers. */
#include "tests/e2e/preload/named_size.h"
#include "tests/support/next_function.h"

#include <errno.h>
#include <stddef.h>

void *malloc(size_t size)
{
    if (names_size("FAILING_MALLOC", size)) {
        errno = ENOMEM;
        return NULL;
    }
    return NEXT_FUNCTION(malloc)(size);
}

void *calloc(size_t count, size_t size)
{
    if (names_size("FAILING_CALLOC", count * size)) {
        errno = ENOMEM;
        return NULL;
    }
    return NEXT_FUNCTION(calloc)(count, size);
}
