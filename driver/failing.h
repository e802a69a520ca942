// SPDX-License-Identifier: LicenseRef-Proprietary
// What functions of the interface answer when they fail.
#ifndef SOREL_DRIVER_FAILING_H
#define SOREL_DRIVER_FAILING_H

#include "sorel.h"

#include <limits>
#include <type_traits>

namespace sorel
{

// The failing value of a reading; of a status, that the hardware did not answer.
template <class Value>
constexpr Value failing()
{
    if constexpr (std::is_same_v<Value, RadioReturn>)
        return RADIO_EIO;
    else if constexpr (std::is_floating_point_v<Value>)
        return std::numeric_limits<Value>::quiet_NaN();
    else if constexpr (std::is_signed_v<Value>)
        return std::numeric_limits<Value>::min();
    else if constexpr (std::is_unsigned_v<Value>)
        return std::numeric_limits<Value>::max();
    else
        return Value{}; // a null pointer
}

} // namespace sorel

#endif
