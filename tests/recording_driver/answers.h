/* SPDX-License-Identifier: LicenseRef-Proprietary */
/* What the test wants answered; README.md says how it is written. Each of these counts as one call
 * of the function, and gives what a function answers by itself where the test says nothing. */
#ifndef RECORDING_DRIVER_ANSWERS_H
#define RECORDING_DRIVER_ANSWERS_H

#include "sorel.h"

RadioReturn answerStatus(const char *function);
float answerFloat(const char *function);
int32_t answerInteger(const char *function);
uint32_t answerUnsigned(const char *function);
const char *answerText(const char *function);

/* A pointer that is not a text: this one, null, or one to nothing. */
void *answerPointer(const char *function, void *ok);

/* A status, and a value stored through the pointer if there is a pointer and a value. */
RadioReturn answerIntegerThrough(const char *function, int32_t *value);
RadioReturn answerTextThrough(const char *function, const char **value);

#endif
