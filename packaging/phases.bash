# shellcheck shell=bash
# SPDX-License-Identifier: MIT
# What ./run and ./test share: phases that tell what is done and how long it took, and builds that
# do nothing twice.

# Where a compiler cache is installed, it stays in the build folder like everything else.
export CCACHE_DIR=$PWD/build/ccache

current_phase=

# phase NAME COMMAND...: runs the command, whose output is shown as it comes. When it fails the script ends,
# and `current_phase` tells where.
phase() {
    local started=$SECONDS
    current_phase=$1
    shift
    echo "== $current_phase ..."
    "$@"
    echo "== $current_phase: done, $((SECONDS - started)) s"
    current_phase=
}

# configure PRESET [-DNAME=VALUE...]: writes the build files, unless they are there with these values
# already. What changes in the build description later, the build itself notices.
configure() {
    local preset=$1 cache=build/$1/CMakeCache.txt definition
    shift
    if [[ -f $cache ]] && ! grep -qxF "CMAKE_HOME_DIRECTORY:INTERNAL=$PWD" "$cache"; then
        rm -rf "build/$preset" # this folder was moved or copied: the old paths are no good
    fi
    if [[ -f build/$preset/build.ninja ]]; then
        local all_set=yes
        for definition in "$@"; do
            definition=${definition#-D}
            grep -qE "^${definition%%=*}:[A-Z]+=${definition#*=}\$" "$cache" || all_set=no
        done
        if [[ $all_set == yes ]]; then
            return
        fi
    fi
    cmake --preset "$preset" "$@"
}
