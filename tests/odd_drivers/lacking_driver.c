/* SPDX-License-Identifier: LicenseRef-Proprietary */
/* A driver that lacks most functions. */
#include "sorel.h"

RadioContext *radioOpen(void)
{
    return NULL;
}

RadioReturn radioClose(RadioContext *context)
{
    return context == NULL ? RADIO_EINVAL : RADIO_ESUCCESS;
}
