# SPDX-License-Identifier: LicenseRef-Proprietary
# Build trees: one for each preset, in build/.

# The driver that trees are built for, and the folder of its header: the simulated board.
driver_library='' driver_header=''

# The value of a variable in a tree's cache; nothing where there is none.
cached() {
    sed -n "s/^$2:[A-Z]*=//p" "$1/CMakeCache.txt"
}

# Says why a tree has to be configured, if it has to be.
why_configure() {
    local preset=$1 tree=$2
    if [ ! -f "$tree/build.ninja" ]; then
        echo "it is new"
    elif [ "$(cached "$tree" CMAKE_HOME_DIRECTORY)" != "$root" ]; then
        echo "it has moved"
    elif [ "$root/build/sysroot/${architectures[$preset]-none}/contents" -nt "$tree/CMakeCache.txt" ] ||
        [ "$root/build/checked-lua/$preset/contents" -nt "$tree/CMakeCache.txt" ]; then
        echo "its libraries are new"
    elif [ "$(cached "$tree" SOREL_LIBRARY)" != "$driver_library" ] ||
        [ "$(cached "$tree" SOREL_INCLUDE_DIR)" != "$driver_header" ]; then
        # Whoever asks for the simulated board must never reach a real one.
        echo "it was for another driver"
    fi
}

# Configures and builds a preset, quietly when there is nothing to do.
build() {
    local preset=$1
    local tree=$root/build/$preset
    cd "$root"
    local why
    why=$(why_configure "$preset" "$tree")
    if [ -n "$why" ]; then
        say "configuring build/$preset: $why"
        rm -f "$tree/build.ninja" # so that what fails now is not taken for configured later
        logged cmake --fresh --log-level=WARNING --preset "$preset" \
            "-DSOREL_LIBRARY=$driver_library" "-DSOREL_INCLUDE_DIR=$driver_header" ||
            fail "configuring build/$preset failed"
    fi
    if ! ninja -C "$tree" -n | grep -q 'no work to do'; then
        say "building build/$preset"
        logged cmake --build --preset "$preset" || fail "building build/$preset failed"
        grep -A3 'warning:' "$root/build/dev.log" >&2 || true
    fi
}

# Builds a preset, after installing the packages for that and those named.
# In a subshell: the caller stays where the person stands, and whatever runs next does not hold the
# lock that keeps two builds of one tree apart.
prepare() {
    mkdir -p "$root/build" && [ -w "$root/build" ] ||
        fail "cannot write to $root/build; make it yours or remove it"
    (
        flock -n 9 || {
            say "waiting for another ./dev to finish its build"
            flock 9
        }
        local architecture=${architectures[$1]-}
        need_packages "${build_packages[@]}" ${architecture:+"${cross_compilers[$architecture]}"} \
            "${@:2}"
        need_sysroot "$architecture"
        [ "$1" != asan ] || need_checked_lua
        build "$1"
    ) 9>"$root/build/.lock"
}
