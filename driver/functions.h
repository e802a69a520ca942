// SPDX-License-Identifier: LicenseRef-Proprietary
// The functions of the interface by name, and what kind of result each returns.
#ifndef SOREL_DRIVER_FUNCTIONS_H
#define SOREL_DRIVER_FUNCTIONS_H

#include <string_view>

namespace sorel
{

enum class ResultKind { Status, Pointer, Float, Int32, Uint32 };

struct Function {
    std::string_view name;
    ResultKind result;
};

// Null where the interface has no function of that name.
const Function *functionNamed(std::string_view name);

} // namespace sorel

#endif
