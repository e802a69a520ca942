// SPDX-License-Identifier: LicenseRef-Proprietary
// The records of the binding runtime. Other bindings of this runtime that are loaded into the same
// Lua state read and link them through the Lua registry, so their layout is a binary interface:
// fields, order and types are fixed.
#pragma once

#include <cstddef>
#include <lua.hpp>
#include <type_traits>

struct CastRecord;
struct TypeRecord;

// Converts a pointer for a cast. Sets *newMemory when the result is newly allocated memory.
using PointerConverter = void *(*)(void *pointer, int *newMemory);

// Finds the dynamic type behind a pointer. No type of this runtime has one.
using DynamicCast = TypeRecord *(*)(void **pointer);

// A native pointer type that the binding knows.
struct TypeRecord {
    const char *name;  // mangled name, the key of exact lookups: "_p_RadioHooks"
    const char *str;   // name for people, alternatives separated by '|'; may be null
    DynamicCast dcast; // always null
    CastRecord *cast;  // the types whose objects are accepted where this one is expected
    void *clientData;  // the ClassRecord of the class bound to this type, or null
    int ownData;       // always 0
};

// One accepted type in the cast list of another; a node of a doubly linked list.
struct CastRecord {
    TypeRecord *type;           // the type that is converted from
    PointerConverter converter; // null: the pointer is passed unchanged
    CastRecord *next;
    CastRecord *prev; // null at the head
};

// One binding. The records of the bindings in a Lua state form a circular list.
struct ModuleRecord {
    TypeRecord **types;       // size entries sorted by name, then a null
    std::size_t size;         // number of types
    ModuleRecord *next;       // null until the first initialisation
    TypeRecord **typeInitial; // the binding's own records, in the order of types
    CastRecord **castInitial; // per type, its casts, ended by one without a type
    void *clientData;         // null
};

// A native pointer in Lua: the block of a full userdata.
struct PointerObject {
    TypeRecord *type;
    int own; // 1: Lua owns the native object, and the class destructor frees it at collection
    void *ptr;
};

// A copy of some native bytes in Lua: the block of a full userdata, longer than this record.
struct PackedObject {
    TypeRecord *type;
    int own; // always 0
    char data[1];
};

struct MethodEntry {
    const char *name; // null ends the list
    lua_CFunction method;
};

struct AttributeEntry {
    const char *name; // null ends the list
    lua_CFunction getter;
    lua_CFunction setter; // null: read-only
};

// A native structure bound as a Lua class.
struct ClassRecord {
    const char *name;
    TypeRecord **type;          // the slot of ModuleRecord::types
    lua_CFunction constructor;  // or null
    void (*destructor)(void *); // or null
    MethodEntry *methods;
    AttributeEntry *attributes;
    ClassRecord **bases;    // one per base name, filled when it is found, ended by null
    const char **baseNames; // ended by null
};

static_assert(std::is_standard_layout_v<TypeRecord>);
static_assert(std::is_standard_layout_v<CastRecord>);
static_assert(std::is_standard_layout_v<ModuleRecord>);
static_assert(std::is_standard_layout_v<PointerObject>);
static_assert(std::is_standard_layout_v<PackedObject>);
static_assert(std::is_standard_layout_v<ClassRecord>);

static_assert(offsetof(TypeRecord, name) == 0 * sizeof(void *));
static_assert(offsetof(TypeRecord, str) == 1 * sizeof(void *));
static_assert(offsetof(TypeRecord, dcast) == 2 * sizeof(void *));
static_assert(offsetof(TypeRecord, cast) == 3 * sizeof(void *));
static_assert(offsetof(TypeRecord, clientData) == 4 * sizeof(void *));
static_assert(offsetof(TypeRecord, ownData) == 5 * sizeof(void *));

static_assert(offsetof(CastRecord, type) == 0 * sizeof(void *));
static_assert(offsetof(CastRecord, converter) == 1 * sizeof(void *));
static_assert(offsetof(CastRecord, next) == 2 * sizeof(void *));
static_assert(offsetof(CastRecord, prev) == 3 * sizeof(void *));

static_assert(offsetof(ModuleRecord, types) == 0 * sizeof(void *));
static_assert(offsetof(ModuleRecord, size) == 1 * sizeof(void *));
static_assert(offsetof(ModuleRecord, next) == 2 * sizeof(void *));
static_assert(offsetof(ModuleRecord, typeInitial) == 3 * sizeof(void *));
static_assert(offsetof(ModuleRecord, castInitial) == 4 * sizeof(void *));
static_assert(offsetof(ModuleRecord, clientData) == 5 * sizeof(void *));

static_assert(offsetof(PointerObject, type) == 0 * sizeof(void *));
static_assert(offsetof(PointerObject, own) == 1 * sizeof(void *));
static_assert(offsetof(PointerObject, ptr) == 2 * sizeof(void *));

static_assert(offsetof(PackedObject, type) == 0);
static_assert(offsetof(PackedObject, own) == sizeof(void *));
static_assert(offsetof(PackedObject, data) == sizeof(void *) + sizeof(int));

static_assert(offsetof(ClassRecord, name) == 0 * sizeof(void *));
static_assert(offsetof(ClassRecord, type) == 1 * sizeof(void *));
static_assert(offsetof(ClassRecord, constructor) == 2 * sizeof(void *));
static_assert(offsetof(ClassRecord, destructor) == 3 * sizeof(void *));
static_assert(offsetof(ClassRecord, methods) == 4 * sizeof(void *));
static_assert(offsetof(ClassRecord, attributes) == 5 * sizeof(void *));
static_assert(offsetof(ClassRecord, bases) == 6 * sizeof(void *));
static_assert(offsetof(ClassRecord, baseNames) == 7 * sizeof(void *));
