/* SPDX-License-Identifier: LicenseRef-Proprietary */
/* The command line cannot be parsed for want of memory. */
#include <argp.h>
#include <errno.h>

error_t argp_parse(const struct argp *parser, int count, char **arguments, unsigned flags, int *end,
                   void *input)
{
    (void)parser;
    (void)count;
    (void)arguments;
    (void)flags;
    (void)end;
    (void)input;
    return ENOMEM;
}
