#!/usr/bin/env bash
# Runs clang-tidy on the sources of the Windows build, or on those named. Slow: seconds a file.
#
# usage: scripts/lint.sh [FILE...]
set -euo pipefail

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
cd "$root"
build=build/windows-release
if [[ ! -f $build/compile_commands.json ]]; then
    scripts/setup.sh --without-browser
    cmake --preset windows-release >/dev/null
fi

files=("$@")
if ((${#files[@]} == 0)); then
    mapfile -t files < <(python3 -c '
import json, os, sys
for entry in json.load(open(sys.argv[1])):
    if entry["file"].endswith((".c", ".cpp")):
        print(os.path.relpath(entry["file"]))' "$build/compile_commands.json" | sort -u)
fi

# clang reads the cross-compiler's own headers; it does not look for the posix flavour by itself.
version=$(x86_64-w64-mingw32-g++-posix -dumpversion)
headers=/usr/lib/gcc/x86_64-w64-mingw32/$version/include
arguments=(
    --extra-arg=--target=x86_64-w64-mingw32
    --extra-arg=-isystem"$headers/c++" --extra-arg=-isystem"$headers/c++/x86_64-w64-mingw32"
    --extra-arg=-Wno-unused-command-line-argument
)
echo "${#files[@]} files"
printf '%s\0' "${files[@]}" |
    xargs -0 -n 1 -P "$(nproc)" clang-tidy -p "$build" --quiet "${arguments[@]}" 2> >(grep -vE 'warnings? generated|^Suppressed|^Use -header-filter' >&2)
echo "nothing found"
