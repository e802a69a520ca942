# SPDX-License-Identifier: LicenseRef-Proprietary
# ./dev picture, bench, size and soak: what is measured.

# Always on the simulated board of this tree, whatever the shell stands on otherwise.
draw_picture() {
    local source=$root/driver/pictures
    local folder
    folder=$(realpath -e "${1-$source}" 2>/dev/null) && [ -d "$folder" ] ||
        fail "there is no folder '${1-}'"
    prepare release "${picture_packages[@]}"
    local picture=$folder/gain_modes
    env -u LD_LIBRARY_PATH SOREL_SIM_SCENARIO="$source/gain_modes.toml" \
        "$root/build/release/app/sorelapp" -b "$source/gain_modes.lua" >"$root/build/gain_modes.csv"
    mv "$root/build/gain_modes.csv" "$picture.csv"
    (
        cd "$folder"
        LC_ALL=C.UTF-8 gnuplot -e "data = 'gain_modes.csv'; picture = 'gain_modes.png'" \
            "$source/gain_modes.gnuplot"
    )
    say "the picture is $picture.png, and what it shows is $picture.csv"
}

run_benchmarks() {
    prepare bench "${bench_packages[@]}"
    if [ "${1-}" = driver ]; then
        exec env -u LD_LIBRARY_PATH -u SOREL_SIM_SCENARIO -u SOREL_SIM_TRACE -u SOREL_SIM_LOG \
            "$root/build/bench/bench/driver_calls" "${@:2}"
    fi
    prepare bench-arm "${bench_packages[@]}" qemu-user
    exec /usr/bin/python3 -B "$root/bench/speed" --folder "$root/build/speed" \
        --tree "$(dpkg --print-architecture)=$root/build/bench/bench/speed/tree.json" \
        --tree "armhf=$root/build/bench-arm/bench/speed/tree.json" "$@"
}

measure_size() {
    prepare release "${size_packages[@]}"
    prepare release-arm "${size_packages[@]}" qemu-user
    exec /usr/bin/python3 -B "$root/bench/size" \
        "$(dpkg --print-architecture)=$root/build/release/bench/size/tree.json" \
        "armhf=$root/build/release-arm/bench/size/tree.json" "$@"
}

soak() {
    prepare release python3
    export PYTHONPATH=$root/bench/size:$root/bench/speed
    exec /usr/bin/python3 -B "$root/bench/soak" "$@" "$root/build/release/bench/size/tree.json"
}
