// SPDX-License-Identifier: LicenseRef-Proprietary
// Compiles with a driver's header if that has what the shell takes from it, and links with the
// driver's library if that has every function.
#include <sorel.h>

#define TYPE(name) using name##Pointer = ::name *
TYPE(RadioBand);
TYPE(RadioConf);
TYPE(RadioContext);
TYPE(RadioCpriRate);
TYPE(RadioDebug);
TYPE(RadioHooks);
TYPE(RadioLoopback);
TYPE(RadioMode);
TYPE(RadioPlatformSelectIndex);
TYPE(RadioReturn);
TYPE(RadioRxAntenna);
TYPE(RadioRxGainMode);
TYPE(RadioSelectIndex);
TYPE(RadioState);
TYPE(RadioTxAntenna);
#undef TYPE

#define FUNCTION(name) using name##Type = decltype(&(name));
#include "../driver/functions.inc"
#undef FUNCTION

#ifdef WITH_LIBRARY
// Volatile, so that every function has to be there.
void *volatile functions[] = {
#define FUNCTION(name) reinterpret_cast<void *>(&(name)),
#include "../driver/functions.inc"
#undef FUNCTION
};
#endif

int main()
{
#ifdef WITH_LIBRARY
    for (void *const function : functions)
        if (!function)
            return 1;
#endif
    return 0;
}
