/* SPDX-License-Identifier: LicenseRef-Proprietary */
/* What a process has run is written down when it exits. One that an assertion ends would take that
 * with it; linked into it, this has it written down first. */
#include <gcov.h>
#include <signal.h>
#include <stddef.h>

static void writeCounts(int signal)
{
    (void)signal;
    __gcov_dump();
    /* Returning lets abort() go on, with the signal's own action this time. */
}

__attribute__((constructor)) static void watchForAbort(void)
{
    struct sigaction action = {.sa_handler = writeCounts, .sa_flags = (int)SA_RESETHAND};
    sigaction(SIGABRT, &action, NULL);
}
