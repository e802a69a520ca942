// SPDX-License-Identifier: LicenseRef-Proprietary
// Calibration data: integers and texts by name, and corrections of the measurements, from a TOML
// file.
#ifndef SOREL_DRIVER_CALIBRATION_H
#define SOREL_DRIVER_CALIBRATION_H

#include "outcome.h"

#include <functional>
#include <map>
#include <string>

namespace sorel
{

struct Board;

// Maps whose nodes keep their place, as texts are handed out by address; looked up without a copy
// of the name.
struct Calibration {
    std::map<std::string, int32_t, std::less<>> integers;
    std::map<std::string, std::string, std::less<>> strings;
    std::string refusal; // why a file was refused last
};

// Loads the file in place of what was loaded before. RADIO_EINVAL, and no change, for a file that
// cannot be read, holds something else than README.md says, or is of another platform or board.
Outcome loadCalibration(Board &board, const char *path);

// RADIO_EINVAL: a null pointer, or no such name.
Outcome findInteger(const Calibration &calibration, const char *name, int32_t *value);
Outcome findString(const Calibration &calibration, const char *name, const char **value);

} // namespace sorel

#endif
