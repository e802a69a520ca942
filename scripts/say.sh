# SPDX-License-Identifier: LicenseRef-Proprietary
# What ./dev tells the person.

say() {
    echo "dev: $*" >&2
}

fail() {
    say "$*"
    exit 1
}

# Runs a command with its output in build/dev.log, which is shown when it fails.
logged() {
    if ! "$@" >"$root/build/dev.log" 2>&1 </dev/null; then
        cat "$root/build/dev.log" >&2
        return 1
    fi
}
