# SPDX-License-Identifier: LicenseRef-Proprietary
# The warnings that all code of this tree is free of.
add_compile_options(-Wall -Wextra -Wpedantic -Wconversion -Wshadow)
if(SORELAPP_WERROR)
    add_compile_options(-Werror)
endif()
