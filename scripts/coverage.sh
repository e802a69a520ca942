# SPDX-License-Identifier: LicenseRef-Proprietary
# ./dev coverage and mutate: what the tests see of the shell and the binding.

# By gcovr, which is Debian's, and lets an exception stand in the source with its reason beside it.
measure_coverage() {
    prepare coverage "${test_packages[@]}" "${coverage_packages[@]}"
    cd "$root"
    local tree=build/coverage
    local report=$tree/report
    find "$tree" -name '*.gcda' -delete # what was counted before
    logged ctest --preset coverage "$@" || fail "tests fail"
    rm -rf "$report"
    mkdir -p "$report"
    # Of lines that hold no code, such as a lone brace, the branches are the compiler's own.
    gcovr --root . --filter app/ --filter binding/ --object-directory "$tree" \
        --exclude-unreachable-branches --json "$report/coverage.json" \
        --html-details "$report/index.html" --html-title "The shell and the binding"
    local status=0
    gcovr --root . --add-tracefile "$report/coverage.json" --fail-under-line 100 || status=1
    gcovr --root . --add-tracefile "$report/coverage.json" --branches --fail-under-branch 98 ||
        status=1
    say "what the tests run of each file is in $root/$report/index.html"
    [ "$status" -eq 0 ] || fail "the tests run less than all lines, or than 98 % of the branches"
}

# By a program of this tree: Debian has none that makes such changes in C++.
try_mutations() {
    need_packages "${build_packages[@]}" "${test_packages[@]}" "${mutation_packages[@]}"
    exec /usr/bin/python3 -B "$root/tests/mutation" --root "$root" "$@"
}
