/* SPDX-License-Identifier: LicenseRef-Proprietary */
/* The log of calls: one line each, written out before the call returns. */
#include "calls.h"

#include <ctype.h>
#include <inttypes.h>
#include <stdarg.h>
#include <stdlib.h>

struct RadioContext contexts[CONTEXTS];

static FILE *openLog(void)
{
    const char *name = getenv("RECORDING_DRIVER_LOG");
    if (name == NULL) {
        return NULL;
    }
    FILE *log = fopen(name, "a");
    if (log == NULL) {
        fprintf(stderr, "recording driver: cannot write %s\n", name);
        abort();
    }
    return log;
}

static void putContext(FILE *log, const RadioContext *context)
{
    if (context == NULL) {
        fputs("null", log);
    } else if (context >= contexts && context < contexts + CONTEXTS) {
        fprintf(log, "context%d", (int)(context - contexts) + 1);
    } else {
        fputs("unknown", log);
    }
}

static void putText(FILE *log, const char *text)
{
    if (text == NULL) {
        fputs("null", log);
        return;
    }
    putc('"', log);
    for (; *text != '\0'; ++text) {
        const unsigned char byte = (unsigned char)*text;
        if (byte == '"' || byte == '\\') {
            fprintf(log, "\\%c", byte);
        } else if (byte == '\n') {
            fputs("\\n", log);
        } else if (isprint(byte)) {
            putc(byte, log);
        } else {
            fprintf(log, "\\x%02x", byte);
        }
    }
    putc('"', log);
}

static void putRegisters(FILE *log, const uint32_t *registers, uint32_t count)
{
    if (registers == NULL) {
        fprintf(log, "null, %" PRIu32, count);
        return;
    }
    putc('[', log);
    for (uint32_t i = 0; i < count; ++i) {
        fprintf(log, "%s%" PRIu32, i == 0 ? "" : ", ", registers[i]);
    }
    fprintf(log, "], %" PRIu32, count);
}

static void putPointer(FILE *log, const void *pointer)
{
    const char *text = "pointer";
    if (pointer == NULL) {
        text = "null";
    } else if (pointer == driverNames) {
        text = "driverNames";
    }
    fputs(text, log);
}

static void putFile(FILE *log, const FILE *file)
{
    const char *text = "file";
    if (file == NULL) {
        text = "null";
    } else if (file == stdin) {
        text = "stdin";
    } else if (file == stdout) {
        text = "stdout";
    } else if (file == stderr) {
        text = "stderr";
    }
    fputs(text, log);
}

void logCall(const char *function, const char *kinds, ...)
{
    FILE *log = openLog();
    if (log == NULL) {
        return;
    }
    va_list arguments;
    va_start(arguments, kinds);
    fprintf(log, "%s(", function);
    for (const char *kind = kinds; *kind != '\0'; ++kind) {
        if (kind != kinds) {
            fputs(", ", log);
        }
        switch (*kind) {
        case 'c':
            putContext(log, va_arg(arguments, RadioContext *));
            break;
        case 'i':
            fprintf(log, "%d", va_arg(arguments, int));
            break;
        case 'u':
            fprintf(log, "%" PRIu32, va_arg(arguments, uint32_t));
            break;
        case 't':
            putText(log, va_arg(arguments, const char *));
            break;
        case 'p':
            putPointer(log, va_arg(arguments, const void *));
            break;
        case 'f':
            putFile(log, va_arg(arguments, FILE *));
            break;
        case 'r': {
            const uint32_t *registers = va_arg(arguments, const uint32_t *);
            putRegisters(log, registers, va_arg(arguments, uint32_t));
            break;
        }
        default:
            abort();
        }
    }
    fputs(")\n", log);
    va_end(arguments);
    fclose(log);
}

void logOpen(const RadioContext *context)
{
    FILE *log = openLog();
    if (log == NULL) {
        return;
    }
    fputs("radioOpen() = ", log);
    putContext(log, context);
    putc('\n', log);
    fclose(log);
}
