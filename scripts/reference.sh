# SPDX-License-Identifier: LicenseRef-Proprietary
# ./dev reference: what is made from lua/sorel/reference/.

# Always on the simulated board of this tree.
make_reference() {
    local folder
    folder=$(realpath -e "${1-$root}" 2>/dev/null) && [ -d "$folder" ] ||
        fail "there is no folder '${1-}'"
    prepare release
    mkdir -p "$folder/docs" "$folder/packaging/editor/library/sorel" "$folder/packaging/rlwrap"
    rm -f "$folder"/packaging/editor/library/sorel/*.lua # of modules that may be no more
    env -u LD_LIBRARY_PATH -u SOREL_SIM_SCENARIO -u SOREL_SIM_TRACE REFERENCE_FOLDER="$folder" \
        "$root/build/release/app/sorelapp" -b "$root/docs/generate/main.lua" ||
        fail "making the reference failed"
    say "made $folder/docs/reference.md, and what is in packaging/editor and packaging/rlwrap there"
}
