// SPDX-License-Identifier: LicenseRef-Proprietary
// What the event register remembers until it is cleared.
#ifndef SOREL_DRIVER_EVENTS_H
#define SOREL_DRIVER_EVENTS_H

#include <cstdint>

namespace sorel
{

enum Event : uint32_t {
    TxUnlocked = 1 << 0, // the transmit synthesiser has been without lock
    RxUnlocked = 1 << 1,
    FirstOverload = 1 << 4, // shifted by the path: that receive converter has been overloaded
    ShutDown = 1 << 8,      // the transmitters have been switched off by the heat
};

} // namespace sorel

#endif
