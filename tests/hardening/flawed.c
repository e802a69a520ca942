/* SPDX-License-Identifier: LicenseRef-Proprietary */
/* A program that is built well once, and once with each flaw that the checks are to see. It prints
 * what it has in memory. */
#include <stdio.h>
#include <stdlib.h>

#ifdef WRITABLE_CODE
__asm__(".section .writable_code,\"awx\",%progbits\n\t.long 0\n\t.text\n");
#endif

int main(void)
{
    char line[256];
    FILE *maps = fopen("/proc/self/maps", "r");
    if (maps == NULL) {
        return EXIT_FAILURE;
    }
    while (fgets(line, sizeof line, maps) != NULL) {
        printf("%s", line);
    }
    fclose(maps);
    return EXIT_SUCCESS;
}
