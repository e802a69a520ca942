# SPDX-License-Identifier: LicenseRef-Proprietary
# ./dev test, and the same on other machines and with checkers.

# The checks that the last run of tests left out, each with its reason.
skipped_checks() {
    local log=$root/build/$1/Testing/Temporary/LastTest.log
    [ ! -f "$log" ] || sed -n 's|^SKIPPED [^ ]* \(\.\./\)*|skipped: |p' "$log" | sort -u
}

run_tests() {
    local preset=$1 status=0 more=()
    case $preset in
    asan) more=("${checked_lua_packages[@]}") ;;
    valgrind) more=("${valgrind_packages[@]}") ;;
    *) [ ! -v "architectures[$preset]" ] || more=(qemu-user) ;;
    esac
    prepare "$preset" "${test_packages[@]}" "${more[@]}"
    cd "$root"
    ctest --preset "$preset" "${@:2}" || status=$?
    skipped_checks "$preset"
    return "$status"
}
