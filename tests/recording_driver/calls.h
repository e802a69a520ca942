/* SPDX-License-Identifier: LicenseRef-Proprietary */
/* The log of calls. */
#ifndef RECORDING_DRIVER_CALLS_H
#define RECORDING_DRIVER_CALLS_H

#include "sorel.h"

/* Contexts that can be opened in one process. */
enum { CONTEXTS = 1000 };

/* A context is told by its place in contexts; it has no contents. */
struct RadioContext {
    char unused;
};
extern struct RadioContext contexts[CONTEXTS];

/* The list that radioGetDriverNames() hands out. */
extern char *driverNames[];

/* Logs a call. Each character of kinds stands for one argument that follows:
 *   c  RadioContext *
 *   i  int (also an enumeration, int16_t and uint16_t)
 *   u  uint32_t
 *   t  const char *
 *   r  const uint32_t *, then its uint32_t count: logged as two arguments
 *   p  an out pointer, as const void *
 *   f  FILE * */
void logCall(const char *function, const char *kinds, ...);

/* Logs a call of radioOpen() and what it answers. */
void logOpen(const RadioContext *context);

#endif
