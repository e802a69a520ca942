/* SPDX-License-Identifier: LicenseRef-Proprietary */
/* footprint reserve|write|read MIB FILE: gets so much memory, or that much of the file in order to
 * read; touches every page of it in order to write or read. Prints a prompt and waits for input. */
#include <fcntl.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/mman.h>

int main(int argc, char **argv)
{
    if (argc != 4) {
        puts("wrong arguments");
        return EXIT_FAILURE;
    }
    const int reads = strcmp(argv[1], "read") == 0;
    const int writes = strcmp(argv[1], "write") == 0;
    const size_t size = strtoul(argv[2], NULL, 10) << 20;
    volatile char *const memory =
        reads ? mmap(NULL, size, PROT_READ, MAP_PRIVATE, open(argv[3], O_RDONLY), 0) : malloc(size);
    for (size_t place = 0; place < size; place += 4096) {
        if (writes) {
            memory[place] = 1;
        } else if (reads) {
            (void)memory[place];
        }
    }
    printf("> ");
    return getchar();
}
