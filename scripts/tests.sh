# SPDX-License-Identifier: LicenseRef-Proprietary
# ./dev test, and the same on other machines.

# The checks that the last run of tests left out, each with its reason.
skipped_checks() {
    local log=$root/build/$1/Testing/Temporary/LastTest.log
    [ ! -f "$log" ] || sed -n 's|^SKIPPED [^ ]* \(\.\./\)*|skipped: |p' "$log" | sort -u
}

run_tests() {
    local preset=$1 status=0
    prepare "$preset" "${test_packages[@]}" ${architectures[$preset]+qemu-user}
    cd "$root"
    ctest --preset "$preset" "${@:2}" || status=$?
    skipped_checks "$preset"
    return "$status"
}
