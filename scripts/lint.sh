# SPDX-License-Identifier: LicenseRef-Proprietary
# ./dev lint: the form of the code, and what reading it finds.

# What is read: what ships, and what measures it. Tests are not: half of each is the test
# framework's macros.
read_folders=(app binding driver bench)

check_format() {
    cd "$root"
    git ls-files -z '*.c' '*.h' '*.cpp' | xargs -0 clang-format --dry-run -Werror
}

# How those files are compiled, without those that tests compile once more.
write_database() {
    cd "$root"
    mkdir -p build/clang/lint
    scripts/lint-database build/clang/compile_commands.json "${read_folders[@]}" \
        >build/clang/lint/compile_commands.json
}

# Beside what it finds, clang-tidy counts what it does not show. That is of interest only where it
# fails for another reason.
check_tidy() {
    cd "$root"
    local log=build/clang/lint/tidy.log
    git ls-files -z -- "${read_folders[@]}" | grep -zE '\.(c|cpp)$' |
        xargs -0 -n 4 -P "$(nproc)" clang-tidy --quiet -p build/clang/lint 2>"$log" || {
        grep -vE '^[0-9]+ (warning|error)s? (generated|treated)|^Suppressed|^Use -' "$log" >&2
        return 1
    }
}

# Without its opinions on style, of which clang-tidy has enough.
check_cppcheck() {
    cd "$root"
    cppcheck --quiet --error-exitcode=1 -j "$(nproc)" --enable=warning,performance,portability \
        --suppressions-list=.cppcheck-suppressions \
        --project=build/clang/lint/compile_commands.json >&2
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
    write_database || fail "what to read could not be found out"
    check_tidy || fail "clang-tidy found the above"
    check_cppcheck || fail "cppcheck found the above"
    check_lua || fail "luacheck found the above"
    check_shell || fail "shellcheck found the above"
    say "no complaints from clang, clang-format, clang-tidy, cppcheck, luacheck and shellcheck"
}
