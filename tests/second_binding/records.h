/* SPDX-License-Identifier: LicenseRef-Proprietary */
/* The records of the binding runtime, data version 4, as this binding has them. They are written
 * out here once more on purpose: two bindings that share a Lua state agree on nothing but memory.
 */
#ifndef SECOND_BINDING_RECORDS_H
#define SECOND_BINDING_RECORDS_H

#include <lua.h>
#include <stddef.h>

struct TypeRecord;

struct CastRecord {
    struct TypeRecord *type;
    void *(*converter)(void *pointer, int *newMemory);
    struct CastRecord *next;
    struct CastRecord *prev;
};

struct TypeRecord {
    const char *name;
    const char *str;
    struct TypeRecord *(*dcast)(void **pointer);
    struct CastRecord *cast;
    void *clientData;
    int ownData;
};

struct ModuleRecord {
    struct TypeRecord **types;
    size_t size;
    struct ModuleRecord *next;
    struct TypeRecord **typeInitial;
    struct CastRecord **castInitial;
    void *clientData;
};

struct PointerObject {
    struct TypeRecord *type;
    int own;
    void *ptr;
};

struct PackedObject {
    struct TypeRecord *type;
    int own;
    char data[1];
};

struct MethodEntry {
    const char *name;
    lua_CFunction method;
};

struct AttributeEntry {
    const char *name;
    lua_CFunction getter;
    lua_CFunction setter;
};

struct ClassRecord {
    const char *name;
    struct TypeRecord **type;
    lua_CFunction constructor;
    void (*destructor)(void *object);
    struct MethodEntry *methods;
    struct AttributeEntry *attributes;
    struct ClassRecord **bases;
    const char **baseNames;
};

#endif
