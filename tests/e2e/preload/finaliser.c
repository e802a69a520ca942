/* SPDX-License-Identifier: LicenseRef-Proprietary */
/* For package.loadlib instead: a function that a script makes a finaliser of its objects. */
#include <stdio.h>

int finalise(void *state);

int finalise(void *state)
{
    (void)state;
    puts("finalised");
    return 0;
}
