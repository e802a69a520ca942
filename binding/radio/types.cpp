// SPDX-License-Identifier: LicenseRef-Proprietary
#include "binding/radio/types.h"

#include "binding/radio/hooks.h"
#include "binding/runtime/registry.h"

#include <array>
#include <utility>

namespace
{

constexpr TypeRecord pointerType(const char *name, const char *str, ClassRecord *ofClass = nullptr)
{
    return {name, str, nullptr, nullptr, ofClass, 0};
}

// In the order of TypePosition.
constinit TypeRecord records[typeCount] = {
    // clang-format off
    pointerType("_p_FILE",                     "FILE *"),
    pointerType("_p_RadioBand",                "enum RadioBand *|RadioBand *"),
    pointerType("_p_RadioConf",                "enum RadioConf *|RadioConf *"),
    pointerType("_p_RadioContext",             "struct RadioContext *|RadioContext *"),
    pointerType("_p_RadioCpriRate",            "enum RadioCpriRate *|RadioCpriRate *"),
    pointerType("_p_RadioDebug",               "enum RadioDebug *|RadioDebug *"),
    pointerType("_p_RadioHooks",               "struct RadioHooks *|RadioHooks *", &hooksClass),
    pointerType("_p_RadioInterfaceMode",       "enum RadioInterfaceMode *|RadioInterfaceMode *"),
    pointerType("_p_RadioLoopback",            "enum RadioLoopback *|RadioLoopback *"),
    pointerType("_p_RadioMode",                "enum RadioMode *|RadioMode *"),
    pointerType("_p_RadioPlatformSelectIndex", "enum RadioPlatformSelectIndex *|RadioPlatformSelectIndex *"),
    pointerType("_p_RadioReturn",              "enum RadioReturn *|RadioReturn *"),
    pointerType("_p_RadioRxAntenna",           "enum RadioRxAntenna *|RadioRxAntenna *"),
    pointerType("_p_RadioRxGainMode",          "enum RadioRxGainMode *|RadioRxGainMode *"),
    pointerType("_p_RadioSelectIndex",         "enum RadioSelectIndex *|RadioSelectIndex *"),
    pointerType("_p_RadioState",               "enum RadioState *|RadioState *"),
    pointerType("_p_RadioTxAntenna",           "enum RadioTxAntenna *|RadioTxAntenna *"),
    pointerType("_p_f_p_void__void",           "void (*)(void *)"),
    pointerType("_p_f_size_t__p_void",         "void *(*)(size_t)"),
    pointerType("_p_int",                      "intptr_t *|int *|int_least32_t *|int_fast32_t *|int32_t *|int_fast16_t *"),
    pointerType("_p_long_long",                "int_least64_t *|int_fast64_t *|int64_t *|long long *|intmax_t *"),
    pointerType("_p_p_char",                   "char **"),
    pointerType("_p_short",                    "short *|int_least16_t *|int16_t *"),
    pointerType("_p_signed_char",              "signed char *|int_least8_t *|int_fast8_t *|int8_t *"),
    pointerType("_p_unsigned_char",            "unsigned char *|uint_least8_t *|uint_fast8_t *|uint8_t *"),
    pointerType("_p_unsigned_int",             "uintptr_t *|uint_least32_t *|uint_fast32_t *|uint32_t *|unsigned int *|uint_fast16_t *"),
    pointerType("_p_unsigned_long_long",       "uint_least64_t *|uint_fast64_t *|uint64_t *|unsigned long long *|uintmax_t *"),
    pointerType("_p_unsigned_short",           "unsigned short *|uint_least16_t *|uint16_t *"),
    // clang-format on
};

// Each type accepts itself, and nothing else: one cast, and the entry without a type that ends the
// array.
struct Casts {
    CastRecord itself;
    CastRecord end;
};

template <std::size_t... position>
constexpr std::array<Casts, typeCount> castsToItself(std::index_sequence<position...>)
{
    return {{{{&records[position], nullptr, nullptr, nullptr}, {}}...}};
}

constinit auto casts = castsToItself(std::make_index_sequence<typeCount>{});

template <std::size_t... position>
constexpr std::array<TypeRecord *, typeCount> pointersToRecords(std::index_sequence<position...>)
{
    return {&records[position]...};
}

template <std::size_t... position>
constexpr std::array<CastRecord *, typeCount> pointersToCasts(std::index_sequence<position...>)
{
    return {&casts[position].itself...};
}

// Constant, so that a page is saved: the rest of what is written to fits into one.
constinit const auto initialTypes = pointersToRecords(std::make_index_sequence<typeCount>{});
constinit const auto initialCasts = pointersToCasts(std::make_index_sequence<typeCount>{});

} // namespace

constinit TypeRecord *radioTypes[typeCount + 1] = {};

constinit ModuleRecord radioModule = {radioTypes, typeCount, nullptr, nullptr, nullptr, nullptr};

void initialiseRadioTypes(lua_State *L)
{
    // The runtime only reads these, but what it keeps them in has no const.
    SWIG_InitTypes(L, &radioModule, const_cast<TypeRecord **>(initialTypes.data()),
                   const_cast<CastRecord **>(initialCasts.data()));
    SWIG_ShareClientData(&radioModule);
}
