/* SPDX-License-Identifier: LicenseRef-Proprietary */
/* sorel.h as a C99 program sees it. Nothing is included before it: it must stand alone. */
#include <sorel.h>

#if !defined __STDC_VERSION__ || __STDC_VERSION__ != 199901L || !defined __STRICT_ANSI__
#error "this must be compiled as plain C99"
#endif

static int failures;

static void check(int holds, const char *what, const char *of)
{
    if (!holds) {
        fprintf(stderr, "%s: %s\n", of, what);
        ++failures;
    }
}

/* The value comes from memory, so that the conversions are those of the type. */
#define ENUMERATION(type)                                                                          \
    {                                                                                              \
        volatile type value = (type)-1;                                                            \
        check(sizeof(type) == 4, "is not 4 bytes", #type);                                         \
        check(value < 0, "is not signed", #type);                                                  \
        check((double)value < 0, "does not convert to a negative floating-point number", #type);   \
        check((int64_t)value == -1, "does not convert to a negative 64-bit integer", #type);       \
        check((uint64_t)value == UINT64_MAX, "is not sign-extended", #type);                       \
        value = (type)INT32_MIN;                                                                   \
        check((int64_t)value == INT32_MIN, "does not hold the lowest integer", #type);             \
        value = (type)INT32_MAX;                                                                   \
        check((int64_t)value == INT32_MAX, "does not hold the highest integer", #type);            \
    }

static void checkEnumerations(void)
{
#include "enumerations.inc"
}

#define MEMBER(enumeration, member, expected)                                                      \
    {                                                                                              \
        const enumeration value = member;                                                          \
        check((int64_t)value == (expected), "is not " #expected, #member);                         \
        ++count;                                                                                   \
    }

static void checkMembers(void)
{
    int count = 0;
#include "members.inc"
    check(count == 118, "are not 118", "the members");
}

static void *allocateNothing(size_t size)
{
    (void)size;
    return NULL;
}

static void releaseNothing(void *block)
{
    (void)block;
}

static void checkHooks(void)
{
    const RadioHooks hooks = {allocateNothing, releaseNothing};
    const struct RadioHooks *const byTag = &hooks;
    void *(*const allocate)(size_t) = hooks.malloc;
    void (*const release)(void *) = hooks.free;

    check(allocate == allocateNothing, "is not the first field", "RadioHooks.malloc");
    check(release == releaseNothing, "is not the second field", "RadioHooks.free");
    check(byTag->malloc == allocate, "is not the type of struct RadioHooks", "RadioHooks");
    check(offsetof(RadioHooks, malloc) == 0, "is not at the start", "RadioHooks.malloc");
    check(offsetof(RadioHooks, free) == sizeof allocate, "is not behind malloc", "RadioHooks.free");
    check(sizeof hooks == 2 * sizeof allocate, "is more than two pointers", "RadioHooks");
}

/* A pointer to the function, of the type that it must have: another one does not compile. */
#define FUNCTION(result, name, parameters)                                                         \
    static result(*const volatile name##Pointer) parameters = name;
#include "functions.inc"
#undef FUNCTION

#define FUNCTION(result, name, parameters)                                                         \
    check(name##Pointer != NULL, "has no address", #name);                                         \
    ++count;

static void checkFunctions(void)
{
    int count = 0;
#include "functions.inc"
    check(count == 46, "are not 46", "the functions");
}

int main(void)
{
    checkEnumerations();
    checkMembers();
    checkHooks();
    checkFunctions();
    return failures == 0 ? 0 : 1;
}
