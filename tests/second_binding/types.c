/* SPDX-License-Identifier: LicenseRef-Proprietary */
#include "types.h"

#include "classes.h"

#include <lauxlib.h>
#include <string.h>

static void *toSecondInt(void *pair, int *newMemory)
{
    (void)newMemory;
    return (int *)pair + 1;
}

/* Says that it has allocated what it returns. */
static void *toNewInt(void *original, int *newMemory)
{
    *newMemory = 1;
    return original;
}

/* A type that this binding can have a record of. */
struct KnownType {
    struct TypeRecord record;
    int wanted;
    struct ClassRecord *ofClass; /* bound by "class"; null: none */
    struct CastRecord casts[4];  /* itself, those added by "casts", one without a type */
};

enum { HOOKS_VIEW = 2, INT_COPY, INT_PAIR, HOOKS = 6, INT = 9, TYPES = 11 };

#define RECORD(name, str)                                                                          \
    {                                                                                              \
        name, str, NULL, NULL, NULL, 0                                                             \
    }

/* Sorted by name. */
static struct KnownType known[TYPES] = {
    {RECORD("_p_FILE", "FILE *"), 0, NULL, {{0}}},
    {RECORD("_p_Gadget", "struct Gadget *|Gadget *"), 1, &gadgetClass, {{0}}},
    {RECORD("_p_HooksView", "HooksView *"), 1, NULL, {{0}}},
    {RECORD("_p_IntCopy", "IntCopy *"), 1, NULL, {{0}}},
    {RECORD("_p_IntPair", "IntPair *"), 1, NULL, {{0}}},
    {RECORD("_p_Packet", "Packet"), 1, NULL, {{0}}},
    {RECORD("_p_RadioHooks", "struct RadioHooks *|RadioHooks *"), 0, &otherHooksClass, {{0}}},
    {RECORD("_p_f_p_void__void", "void (*)(void *)"), 0, NULL, {{0}}},
    {RECORD("_p_f_size_t__p_void", "void *(*)(size_t)"), 0, NULL, {{0}}},
    {RECORD("_p_int", "int *|int32_t *"), 0, &intClass, {{0}}},
    {RECORD("_p_p_char", "char **"), 0, NULL, {{0}}},
};

static struct TypeRecord *types[TYPES + 1];
static struct TypeRecord *typeInitial[TYPES];
static struct CastRecord *castInitial[TYPES];

struct ModuleRecord secondModule = {types, 0, NULL, typeInitial, castInitial, NULL};

static void addCast(struct KnownType *to, struct TypeRecord *from,
                    void *(*converter)(void *, int *))
{
    struct CastRecord *cast = to->casts;
    while (cast->type != NULL) {
        ++cast;
    }
    cast->type = from;
    cast->converter = converter;
}

static void addCastsOf(struct KnownType *type)
{
    if (type == &known[INT]) {
        addCast(type, &known[INT_PAIR].record, toSecondInt);
        addCast(type, &known[INT_COPY].record, toNewInt);
    } else if (type == &known[HOOKS]) {
        addCast(type, &known[HOOKS_VIEW].record, NULL);
    }
}

static void follow(lua_State *L, const char *word, size_t length)
{
    for (int i = 0; i < TYPES; ++i) {
        struct KnownType *type = &known[i];
        const size_t nameLength = strlen(type->record.name);
        if (length < nameLength || strncmp(word, type->record.name, nameLength) != 0) {
            continue;
        }
        const char *detail = word + nameLength;
        const size_t detailLength = length - nameLength;
        if (detailLength == 6 && strncmp(detail, ":class", 6) == 0) {
            type->record.clientData = type->ofClass;
        } else if (detailLength == 6 && strncmp(detail, ":casts", 6) == 0) {
            addCastsOf(type);
        } else if (detailLength != 0) {
            continue;
        }
        type->wanted = 1;
        return;
    }
    luaL_error(L, "the second binding has no option '%s'", word);
}

void chooseTypes(lua_State *L, const char *options)
{
    known[1].record.clientData = known[1].ofClass;
    for (int i = 0; i < TYPES; ++i) {
        addCast(&known[i], &known[i].record, NULL);
    }
    for (const char *word = options + strspn(options, " "); *word != '\0';) {
        const size_t length = strcspn(word, " ");
        follow(L, word, length);
        word += length + strspn(word + length, " ");
    }
    for (int i = 0; i < TYPES; ++i) {
        if (!known[i].wanted) {
            continue;
        }
        typeInitial[secondModule.size] = &known[i].record;
        castInitial[secondModule.size] = known[i].casts;
        if (known[i].record.clientData != NULL) {
            known[i].ofClass->type = &types[secondModule.size];
        }
        ++secondModule.size;
    }
}
