// SPDX-License-Identifier: LicenseRef-Proprietary
// Bindings with their types and casts, and what is to be done with them, as an input says it.
//
// An input is text. Each line begins with a letter; numbers are one character, '0' for the first,
// and begin again where there are not so many.
//
//     L               the bindings are linked from the beginning, and not by SWIG_InitTypes
//     M               a binding; the lines that follow are of it
//     tNAME           a type without a name for people
//     tNAME<tab>STR   a type
//     n<tab>STR       a type whose name is null, where bindings are linked from the beginning
//     cN vN aN        a cast of the last type from type N: none, a converter, one that allocates
//     d               the last type has client data
//     IM              SWIG_InitTypes for binding M
//     FSENAME         SWIG_FindType from binding S to E
//     ESENAME         SWIG_FindMangledType
//     STV             SWIG_SetClientData of type T to V, of which the first is null
//     KTU             SWIG_FindCast for T from U
//     BTNAME          SWIG_FindCastByName for T
//     PTU             SWIG_Lua_ConvertPtr of a pointer object of U to T
//     NT              SWIG_Lua_TypeName of a pointer object of T
#pragma once

#include "binding/runtime/records.h"

#include <deque>
#include <string>
#include <string_view>
#include <vector>

struct Operation {
    char letter;
    std::string text;
};

struct Type {
    TypeRecord record;
    std::vector<CastRecord> casts; // with the one that ends them
    std::vector<std::size_t> from; // of the casts: the number of the type
};

struct Binding {
    ModuleRecord record;
    std::vector<TypeRecord *> types; // with the null
    std::vector<TypeRecord *> typeInitial;
    std::vector<CastRecord *> castInitial;
};

class Tables
{
public:
    explicit Tables(std::string_view input);
    Tables(const Tables &) = delete;
    Tables &operator=(const Tables &) = delete;

    bool linked = false;
    std::deque<Binding> bindings;
    std::deque<Type> types; // of all bindings, in order
    std::vector<Operation> operations;

    // The numbers that characters stand for.
    Binding &binding(char character);
    Type &type(char character);

private:
    void readLine(std::string_view line);
    void addType(std::string_view text, bool named);
    void addCast(char kind, std::string_view text);
    void finish();
    const char *keep(std::string_view text);

    std::deque<std::string> texts_;
    std::deque<std::size_t> bindingOf_;
};

// Client data that types are given; the first is null.
void *clientData(char character);

// What the converters of casts make of a pointer.
void *convertPlainly(void *pointer, int *newMemory);
void *convertAllocating(void *pointer, int *newMemory);
