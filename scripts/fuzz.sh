# SPDX-License-Identifier: LicenseRef-Proprietary
# ./dev fuzz: inputs that nobody thought of. Each target has a folder in build/fuzz: corpus/ keeps
# the inputs that reached something new, crashes/ those that found a mistake, log what libFuzzer
# said, and cells how often each cell of the tables was met.

fuzz_seconds=60 # for each target, unless the person says otherwise
# Of a run of all targets, so that in a fresh checkout, as in CI, each change is given the same
# inputs and what fails is the change; 0 is another one each time.
fuzz_seed=1

list_fuzz_targets() {
    local file
    for file in "$root"/fuzz/*/CMakeLists.txt; do
        basename "$(dirname "$file")"
    done
}

# Runs what is checked in, and then, for some seconds, what comes of it, in so many processes, from
# that seed of random numbers.
fuzz_target() {
    local name=$1 seconds=$2 processes=$3 seed=$4
    local program=$root/build/fuzz/fuzz/$name/fuzz_$name source=$root/fuzz/$name
    local folder=$root/build/fuzz/$name
    mkdir -p "$folder/corpus" "$folder/crashes"
    rm -f "$folder/cells" "$folder/status"
    local inputs=("$source/corpus") options=(-timeout=120 -rss_limit_mb=2048 -print_final_stats=1
        "-seed=$seed" "-artifact_prefix=$folder/crashes/")
    [ ! -d "$source/regressions" ] || inputs+=("$source/regressions")
    [ ! -f "$source/dictionary" ] || options+=("-dict=$source/dictionary")
    [ ! -f "$source/options" ] || mapfile -t -O ${#options[@]} options <"$source/options"
    local status=0
    (
        export FUZZ_CELLS=$folder/cells
        cd "$folder"
        "$program" "${options[@]}" -runs=0 "${inputs[@]}" >log 2>&1 </dev/null || exit
        [ "$processes" -eq 1 ] || options+=("-fork=$processes")
        "$program" "${options[@]}" "-max_total_time=$seconds" "$folder/corpus" "${inputs[@]}" \
            >>log 2>&1 </dev/null
    ) || status=$?
    echo "$status" >"$folder/status"
}

# The last number of that name in what libFuzzer said.
fuzz_figure() {
    { grep -aoP "$2\s*\K[0-9]+" "$root/build/fuzz/$1/log" || echo -; } | tail -n 1
}

# The line of the last table. Fails where a mistake was found, or a cell is empty.
tell_fuzz_result() {
    local name=$1 folder=$root/build/fuzz/$1 cells empty
    read -r cells empty < <(sed -nE 's/^cells: ([0-9]+), ([0-9]+) empty$/\1 \2/p' "$folder/table")
    local result=good
    [ "$empty" = 0 ] || result="empty cells"
    [ "$(cat "$folder/status")" = 0 ] || result="FAILED, see build/fuzz/$name/log"
    printf '%-14s %11s %9s %8s %7s %6s %6s  %s\n' "$name" \
        "$(fuzz_figure "$name" '^(stat::number_of_executed_units:|#)')" \
        "$(fuzz_figure "$name" '(^stat::average_exec_per_sec:|exec/s:?)')" \
        "$(fuzz_figure "$name" ' cov:')" "$(find "$folder/corpus" -type f | wc -l)" \
        "$cells" "$empty" "$result"
    [ "$result" = good ]
}

tell_fuzz_results() {
    local name status=0
    for name in "$@"; do
        local folder=$root/build/fuzz/$name
        FUZZ_CELLS=$folder/cells "$root/build/fuzz/fuzz/$name/fuzz_$name" --cells \
            >"$folder/table" || true
        echo "$name"
        echo
        cat "$folder/table"
        echo
        [ "$(cat "$folder/status")" = 0 ] || tail -n 60 "$folder/log"
    done
    printf '%-14s %11s %9s %8s %7s %6s %6s\n' target inputs "a second" edges kept cells empty
    for name in "$@"; do
        tell_fuzz_result "$name" || status=1
    done
    return "$status"
}

run_fuzz() {
    local targets seconds=${2-$fuzz_seconds} name
    mapfile -t targets < <(list_fuzz_targets)
    if [ $# -gt 0 ]; then
        grep -qxF -e "$1" < <(list_fuzz_targets) ||
            fail "there is no target '$1'; there are: ${targets[*]}"
        targets=("$1")
    fi
    [[ $# -le 2 && $seconds =~ ^[1-9][0-9]*$ ]] || fail "fuzz takes a target and a number of seconds"
    prepare fuzz "${fuzz_packages[@]}"
    if [ $# -eq 2 ]; then
        fuzz_target "$1" "$seconds" "$(nproc)" 0
    elif [ $# -eq 1 ]; then
        fuzz_target "$1" "$seconds" 1 0
    else
        say "$((${#targets[@]})) targets, $seconds s each, two at a time"
        for name in "${targets[@]}"; do
            while [ "$(jobs -rp | wc -l)" -ge 2 ]; do
                wait -n
            done
            fuzz_target "$name" "$seconds" 1 "$fuzz_seed" &
        done
        wait
    fi
    tell_fuzz_results "${targets[@]}"
}
