/* SPDX-License-Identifier: LicenseRef-Proprietary */
/* At the end of the command line, the parser is told of an argument that it has taken. */
#include <argp.h>
#include <stdio.h>

error_t argp_parse(const struct argp *parser, int count, char **arguments, unsigned flags, int *end,
                   void *input)
{
    (void)end;
    struct argp_state state = {
        .root_argp = parser,
        .argc = count,
        .argv = arguments,
        .flags = flags,
        .arg_num = 1,
        .input = input,
        .name = "sorelapp",
        .err_stream = stderr,
        .out_stream = stdout,
    };
    return parser->parser(ARGP_KEY_END, NULL, &state);
}
