/* SPDX-License-Identifier: LicenseRef-Proprietary */
/* Reads the file of answers anew for each call: it is small, and so nothing has to be kept. */
#define _POSIX_C_SOURCE 200809L
#include "answers.h"

#include <errno.h>
#include <stdbool.h>
#include <stdlib.h>
#include <string.h>

enum { LINE = 1000, FUNCTIONS = 64 };

struct Answer {
    char text[LINE]; /* empty: the test says nothing */
};

static __attribute__((noreturn)) void die(const char *what, const char *text)
{
    fprintf(stderr, "recording driver: %s: %s\n", what, text);
    abort();
}

static unsigned long countCall(const char *function)
{
    static struct {
        const char *function;
        unsigned long calls;
    } counts[FUNCTIONS];

    int i = 0;
    while (counts[i].function != NULL && strcmp(counts[i].function, function) != 0) {
        ++i;
    }
    counts[i].function = function;
    return ++counts[i].calls;
}

/* Whether the line's first word is the function, or the function's call of that number. */
static bool fits(const char *line, const char *function, unsigned long call)
{
    const size_t length = strlen(function);
    if (strncmp(line, function, length) != 0) {
        return false;
    }
    if (line[length] != '#') {
        return line[length] == ' ';
    }
    return strtoul(line + length + 1, NULL, 10) == call;
}

static struct Answer findAnswer(const char *function)
{
    struct Answer answer = {""};
    const unsigned long call = countCall(function);
    const char *name = getenv("RECORDING_DRIVER_ANSWERS");
    if (name == NULL) {
        return answer;
    }
    FILE *file = fopen(name, "r");
    if (file == NULL) {
        die("cannot read", name);
    }
    char line[LINE];
    while (fgets(line, sizeof line, file) != NULL) {
        line[strcspn(line, "\n")] = '\0';
        if (fits(line, function, call)) {
            strcpy(answer.text, strchr(line, ' ') + 1);
        }
    }
    fclose(file);
    return answer;
}

/* A number at the text's start; *end is where it ended. */
static long long parseInteger(const char *text, char **end, long long least, long long greatest)
{
    errno = 0;
    const long long value = strtoll(text, end, 0);
    if (*end == text || errno != 0 || value < least || value > greatest) {
        die("not an integer of that range", text);
    }
    return value;
}

static long long wholeInteger(const struct Answer *answer, long long least, long long greatest)
{
    if (answer->text[0] == '\0') {
        return 0;
    }
    char *end;
    const long long value = parseInteger(answer->text, &end, least, greatest);
    if (*end != '\0') {
        die("not an integer", answer->text);
    }
    return value;
}

/* What is never freed: the library's texts outlive the call. */
struct KeptText {
    struct KeptText *before;
    char text[];
};

/* A copy without the quotes, of as many times as the text says in front of them. */
static const char *quoted(const char *text)
{
    static struct KeptText *last;
    char *first = strchr(text, '"');
    const size_t length = first != NULL ? strlen(first) : 0;
    if (length < 2 || first[length - 1] != '"') {
        die("not a text in quotes", text);
    }
    size_t times = 1;
    if (first != text) {
        char *end;
        times = strtoul(text, &end, 10);
        if (end == text || strncmp(end, "*\"", 2) != 0) {
            die("not a number of times", text);
        }
    }
    struct KeptText *const kept = malloc(sizeof *kept + times * (length - 2) + 1);
    if (kept == NULL) {
        die("no memory for", text);
    }
    kept->before = last;
    last = kept;
    for (size_t i = 0; i < times; ++i) {
        memcpy(kept->text + i * (length - 2), first + 1, length - 2);
    }
    kept->text[times * (length - 2)] = '\0';
    return kept->text;
}

RadioReturn answerStatus(const char *function)
{
    return answerInteger(function);
}

float answerFloat(const char *function)
{
    const struct Answer answer = findAnswer(function);
    char *end;
    const float value = strtof(answer.text, &end);
    if (*end != '\0') {
        die("not a number", answer.text);
    }
    return value;
}

int32_t answerInteger(const char *function)
{
    const struct Answer answer = findAnswer(function);
    return (int32_t)wholeInteger(&answer, INT32_MIN, INT32_MAX);
}

uint32_t answerUnsigned(const char *function)
{
    const struct Answer answer = findAnswer(function);
    return (uint32_t)wholeInteger(&answer, 0, UINT32_MAX);
}

const char *answerText(const char *function)
{
    const struct Answer answer = findAnswer(function);
    if (answer.text[0] == '\0') {
        return "recording driver";
    }
    return strcmp(answer.text, "null") == 0 ? NULL : quoted(answer.text);
}

void *answerPointer(const char *function, void *ok)
{
    const struct Answer answer = findAnswer(function);
    if (answer.text[0] == '\0' || strcmp(answer.text, "ok") == 0) {
        return ok;
    }
    if (strcmp(answer.text, "wild") == 0) {
        return (void *)1;
    }
    if (strcmp(answer.text, "null") != 0) {
        die("neither null nor wild nor ok", answer.text);
    }
    return NULL;
}

RadioReturn answerIntegerThrough(const char *function, int32_t *value)
{
    const struct Answer answer = findAnswer(function);
    char *rest = NULL;
    if (answer.text[0] == '\0') {
        return RADIO_ESUCCESS;
    }
    const RadioReturn status = (RadioReturn)parseInteger(answer.text, &rest, INT32_MIN, INT32_MAX);
    if (*rest != '\0' && value != NULL) {
        *value = (int32_t)parseInteger(rest, &rest, INT32_MIN, INT32_MAX);
    }
    return status;
}

RadioReturn answerTextThrough(const char *function, const char **value)
{
    const struct Answer answer = findAnswer(function);
    char *rest = NULL;
    if (answer.text[0] == '\0') {
        return RADIO_ESUCCESS;
    }
    const RadioReturn status = (RadioReturn)parseInteger(answer.text, &rest, INT32_MIN, INT32_MAX);
    if (*rest != '\0' && value != NULL) {
        *value = strcmp(rest, " null") == 0 ? NULL : quoted(rest + 1);
    }
    return status;
}
