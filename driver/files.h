// SPDX-License-Identifier: LicenseRef-Proprietary
// Reading a file as a whole: calibration data, an initialisation script, a scenario.
#ifndef SOREL_DRIVER_FILES_H
#define SOREL_DRIVER_FILES_H

#include "outcome.h"

#include <string>

namespace sorel
{

// Appends the bytes of a regular file of at most 1 MiB to text. RADIO_EINVAL for anything else at
// that path, or nothing. Never waits, as opening a pipe or a terminal could.
Outcome readFile(const char *path, std::string &text);

} // namespace sorel

#endif
