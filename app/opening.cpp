// SPDX-License-Identifier: LicenseRef-Proprietary
#include "app/opening.h"

#include "app/context.h"
#include "app/libraries.h"
#include "app/scripts.h"
#include "binding/radio_wrap.h"

bool openShellLibraries(lua_State *L)
{
    if (radioModuleOpen(L) == 0) {
        return false;
    }
    registerRadioNative(L);
    copyRadioToGlobals(L);
    openBitLibrary(L);
    openSocketLibrary(L);
    registerRadioInternal(L);
    return true;
}
