# SPDX-License-Identifier: LicenseRef-Proprietary
# ./dev package: Debian packages.

# The packages of an architecture, as lintian lets them pass.
make_packages() {
    local tree=$root/build/package-$1 folder=$2
    say "packaging build/package-$1"
    logged "$root/packaging/debian/make-packages" "$tree" "$folder" ||
        fail "packaging build/package-$1 failed"
    logged lintian --allow-root --fail-on error,warning "$folder"/*_"$1".deb ||
        fail "lintian found the above"
}

run_package() {
    [ "$(dpkg --print-architecture)" = amd64 ] || fail "packages are made on amd64"
    local folder=$root/build/packages architecture
    for architecture in "${package_architectures[@]}"; do
        prepare "package-$architecture" "${package_packages[@]}" qemu-user
    done
    rm -rf "$folder"
    for architecture in "${package_architectures[@]}"; do
        make_packages "$architecture" "$folder"
    done
    cd "$root"
    ls build/packages/*.deb
    export PYTHONDONTWRITEBYTECODE=1 PYTHONPATH=$root/tests/e2e SORELAPP_SOURCE_DIR=$root
    exec /usr/bin/python3 -m pytest -v -rs --no-header -p no:cacheprovider tests/packaging/debian "$@"
}
