// SPDX-License-Identifier: LicenseRef-Proprietary
// What stands behind one open context.
#ifndef SOREL_DRIVER_BOARD_H
#define SOREL_DRIVER_BOARD_H

#include "calibration.h"
#include "debug_log.h"
#include "front_end.h"
#include "scenario.h"

#include <memory>

namespace sorel
{

struct Board {
    std::shared_ptr<const Scenario> scenario;
    FrontEnd frontEnd;
    Calibration calibration;
    DebugLog log;
};

} // namespace sorel

#endif
