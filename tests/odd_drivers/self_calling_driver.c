/* SPDX-License-Identifier: LicenseRef-Proprietary */
/* The recording driver, but that one of its functions calls another, both by their exported names:
 * radioReset() calls radioGetDebugLevel(). */
#define radioReset recordedReset
#include "recording_driver.c"
#undef radioReset

__attribute__((visibility("default"))) RadioReturn radioReset(RadioContext *context);

RadioReturn radioReset(RadioContext *context)
{
    radioGetDebugLevel(context);
    return recordedReset(context);
}
