/* SPDX-License-Identifier: LicenseRef-Proprietary */
/* There is no block of as many bytes as FAILING_MALLOC or FAILING_CALLOC says; all other sizes are
 * served. FAILING_CALLOC=pointers stands for the size of two pointers. */
#include <errno.h>
#include <stddef.h>
#include <stdlib.h>
#include <string.h>

/* The C library's own, under the names by which such a library as this one reaches them. */
void *__libc_malloc(size_t size);
void *__libc_calloc(size_t count, size_t size);

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
    return __libc_malloc(size);
}

void *calloc(size_t count, size_t size)
{
    if (fails("FAILING_CALLOC", count * size)) {
        errno = ENOMEM;
        return NULL;
    }
    return __libc_calloc(count, size);
}
