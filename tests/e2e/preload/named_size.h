/* SPDX-License-Identifier: LicenseRef-Proprietary */
/* Sizes of blocks that a variable of the environment names. */
#pragma once

#include <stddef.h>
#include <stdlib.h>
#include <string.h>

/* Whether the variable is set to that size; "pointers" stands for the size of two pointers. */
static inline int names_size(const char *variable, size_t size)
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
