# SPDX-License-Identifier: LicenseRef-Proprietary
# ./dev lint: the form of the code.

check_format() {
    cd "$root"
    git ls-files -z '*.c' '*.h' '*.cpp' | xargs -0 clang-format --dry-run -Werror
}

check_tidy() {
    cd "$root"
    git ls-files -z 'app/*.cpp' 'binding/*.cpp' 'driver/*.cpp' 'bench/*.cpp' |
        xargs -0 -n 4 -P "$(nproc)" clang-tidy --quiet -p build/clang 2>/dev/null
}

check_lua() {
    cd "$root"
    local found
    found=$(git ls-files -z '*.lua' | xargs -0 luacheck --quiet --codes) || {
        echo "$found"
        return 1
    }
}

# The scripts that are installed.
check_shell() {
    cd "$root"
    git ls-files -z 'packaging/*/sorelapp-*' | xargs -0 shellcheck
}

run_lint() {
    prepare clang "${test_packages[@]}" "${lint_packages[@]}"
    check_format || fail "clang-format would change the code; run: clang-format -i FILE"
    check_tidy || fail "clang-tidy found the above"
    check_lua || fail "luacheck found the above"
    check_shell || fail "shellcheck found the above"
    say "no complaints from clang, clang-format, clang-tidy, luacheck and shellcheck"
}
