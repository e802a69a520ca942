# SPDX-License-Identifier: LicenseRef-Proprietary
"""The tests of the Debian packages in build/packages; `./dev package` makes those, then runs these.

Environment: SORELAPP_SOURCE_DIR, the root of the source tree. PYTHONPATH has tests/e2e.
"""

import pytest

pytest.register_assert_rewrite("debian")
