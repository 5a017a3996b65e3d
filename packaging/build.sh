#!/usr/bin/env bash
# Configures and builds the release in build/release: everything, or the targets given.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

log=build/configure.log
mkdir -p build
# Always configured, which takes a second and rebuilds nothing: a new folder of sources is noticed only here.
if ! cmake --preset release >"$log" 2>&1; then
    cat "$log" >&2
    exit 1
fi
echo "Building${1:+ $*} in build/release"
cmake --build --preset release ${1:+--target "$@"}
