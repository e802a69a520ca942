# SPDX-License-Identifier: LicenseRef-Proprietary
# ./dev board: the shell for another driver.

# Whether a file is an ELF file for 32-bit ARM.
is_for_arm() {
    [ "$(od -An -tx1 -N6 "$1" | tr -d ' ')$(od -An -tx1 -j18 -N2 "$1" | tr -d ' ')" = 7f454c4601012800 ]
}

build_for_board() {
    [ $# -eq 2 ] || fail "board takes the driver's libsorel.so and the folder of its sorel.h"
    driver_library=$(realpath -es "$1" 2>/dev/null) && [ -f "$driver_library" ] ||
        fail "there is no file '$1'"
    driver_header=$(realpath -es "$2" 2>/dev/null) && [ -d "$driver_header" ] ||
        fail "there is no folder '$2'"
    local preset=board
    if is_for_arm "$driver_library" && [ "$(dpkg --print-architecture)" != armhf ]; then
        preset=board-arm
    fi
    prepare "$preset"
    local tree=build/$preset
    (
        cd "$root"
        rm -rf "$tree/installed"
        logged cmake --install "$tree" --strip --prefix "$tree/installed" ||
            fail "installing into $tree/installed failed"
    )
    say "the shell is $root/$tree/app/sorelapp; for the board, it and its files are in $tree/installed"
}
