/* SPDX-License-Identifier: LicenseRef-Proprietary */
/* A driver that does nothing: every call succeeds, every reading is zero, every text is missing.
 * On it is measured what the shell by itself costs. */
#include "sorel.h"

struct RadioContext {
    char unused;
};

static RadioContext onlyContext;

/* A context, or zero of any other type. */
#define ANSWER(result) _Generic((result)0, RadioContext * : &onlyContext, default : (result)0)

#define FUNCTION(result, name, parameters)                                                         \
    result name parameters                                                                         \
    {                                                                                              \
        return ANSWER(result);                                                                     \
    }
#include "../../tests/include/functions.inc"
