// SPDX-License-Identifier: LicenseRef-Proprietary
// The functions of the interface by name, and what kind of result each returns.
#include "functions.h"

#include "sorel.h"

#include <type_traits>

namespace sorel
{

namespace
{

template <class Result>
constexpr ResultKind kindOf()
{
    if constexpr (std::is_pointer_v<Result>)
        return ResultKind::Pointer;
    else if constexpr (std::is_same_v<Result, float>)
        return ResultKind::Float;
    else if constexpr (std::is_same_v<Result, int32_t>)
        return ResultKind::Int32;
    else if constexpr (std::is_same_v<Result, uint32_t>)
        return ResultKind::Uint32;
    else {
        static_assert(std::is_same_v<Result, RadioReturn>);
        return ResultKind::Status;
    }
}

template <class Result, class... Parameters>
constexpr Function row(std::string_view name, Result (*)(Parameters...))
{
    return {name, kindOf<Result>()};
}

// The kind of the result follows from the declaration.
const Function functions[] = {
#define FUNCTION(name) row(#name, name),
#include "functions.inc"
#undef FUNCTION
};

} // namespace

const Function *functionNamed(std::string_view name)
{
    for (const Function &function : functions)
        if (function.name == name)
            return &function;
    return nullptr;
}

} // namespace sorel
