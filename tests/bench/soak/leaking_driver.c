/* SPDX-License-Identifier: LicenseRef-Proprietary */
/* The driver that does nothing, but for memory and files that it never gives back. */
#define radioOpen openOnlyContext
#define radioGetTemperature readNothing
#include "bench/trivial_driver/trivial_driver.c"
#undef radioOpen
#undef radioGetTemperature

#include <fcntl.h>
#include <stdlib.h>
#include <string.h>

enum { LOST = 300 };

static void *volatile lost;

static void lose(void)
{
    lost = malloc(LOST);
    if (lost != NULL) {
        memset(lost, 1, LOST);
    }
}

RadioContext *radioOpen(void)
{
    lose();
    open("/dev/null", O_RDONLY | O_CLOEXEC);
    return openOnlyContext();
}

float radioGetTemperature(RadioContext *context)
{
    lose();
    return readNothing(context);
}
