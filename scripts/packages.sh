# SPDX-License-Identifier: LicenseRef-Proprietary
# What the verbs of ./dev need from Debian.

build_packages=(cmake g++ ninja-build pkg-config
    liblua5.1-0-dev lua-bitop-dev lua-socket-dev libtomlplusplus-dev)
test_packages=(bash-completion binutils busybox git gnuplot-nox libgtest-dev libxml2-utils
    lua-check lua-socket lua-unit lua5.1 man-db mandoc python3-pexpect python3-pytest rlwrap
    valgrind)
coverage_packages=(gcovr)
mutation_packages=(git python3)
fuzz_packages=(clang-14 libclang-rt-14-dev)
checked_lua_packages=(dpkg-dev)
valgrind_packages=(libc6-dbg)
lint_packages=(clang clang-format clang-tidy cppcheck git libbenchmark-dev lua-check shellcheck)
picture_packages=(gnuplot-nox)
bench_packages=(gnuplot-nox hyperfine libbenchmark-dev lua5.1 python3 valgrind)
package_packages=(binutils debootstrap dpkg-dev git lintian python3-pexpect python3-pytest)
package_architectures=(amd64 armhf)
size_packages=(binutils lua5.1 lua-bitop lua-socket python3)

# The presets for another machine than this one, with Debian's name of its architecture; and the
# compilers for those.
declare -A architectures=([arm]=armhf [release-arm]=armhf [board-arm]=armhf
    [bench-arm]=armhf [package-armhf]=armhf [arm64]=arm64 [s390x]=s390x)
declare -A cross_compilers=([armhf]=g++-arm-linux-gnueabihf [arm64]=g++-aarch64-linux-gnu
    [s390x]=g++-s390x-linux-gnu)

missing_packages() {
    local installed
    installed=$(dpkg-query -W -f '${db:Status-Status} ${Package}\n' "$@" 2>/dev/null || true)
    local package
    for package in "$@"; do
        grep -qxF "installed $package" <<<"$installed" || echo "$package"
    done
}

need_packages() {
    command -v dpkg-query >/dev/null ||
        fail "this needs Debian 12 or a relative, with the packages: $*"
    local missing
    mapfile -t missing < <(missing_packages "$@")
    [ ${#missing[@]} -eq 0 ] && return

    local by_hand="install by hand, then try again: apt-get install ${missing[*]}"
    local as_root=(env DEBIAN_FRONTEND=noninteractive)
    if [ "$(id -u)" -ne 0 ]; then
        command -v sudo >/dev/null ||
            fail "missing packages, and neither root nor sudo to install them; $by_hand"
        sudo -v || fail "missing packages, and sudo refused; $by_hand"
        as_root=(sudo "${as_root[@]}")
    fi
    say "installing packages: ${missing[*]}"
    logged "${as_root[@]}" apt-get -q update || fail "apt-get update failed; $by_hand"
    logged "${as_root[@]}" apt-get -q -y --no-install-recommends install "${missing[@]}" ||
        fail "apt-get install failed; $by_hand"
}

# The libraries of the architecture that is built for, if it is another one than this machine's.
need_sysroot() {
    local architecture=$1
    [ -n "$architecture" ] || return 0
    [ -d "$root/build/sysroot/$architecture" ] || say "fetching the libraries of $architecture"
    logged "$root/cmake/toolchains/debian-sysroot" "$architecture" ||
        fail "there are no libraries of $architecture to build with"
}

# The Lua that programs with sanitizers run on. In its own code integers may overflow, which it means
# to wrap (luaH_getnum), doubles become integers whatever they are (lua_number2integer), and no bytes
# are copied from a null pointer (file:read(0)): so is every Lua 5.1.
need_checked_lua() {
    local folder=$root/build/checked-lua/asan
    [ -d "$folder" ] || say "building Lua with its own checks"
    logged "$root/cmake/checked-lua" "$folder" -fwrapv -fsanitize=address,undefined \
        -fno-sanitize=nonnull-attribute -fsanitize-undefined-trap-on-error || fail "there is no Lua with its own checks"
}
