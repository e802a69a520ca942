# SPDX-License-Identifier: LicenseRef-Proprietary
"""What pytest reads first: failing checks inside the harness explain themselves too."""

import pytest

pytest.register_assert_rewrite("shell")
