#!/usr/bin/env bash
# Builds zantlog and shows its main job on real input: two processes log the lines of a text file at once, into
# files that roll over by size; a small C program reads every record back, and what it read is compared with what
# was logged, line by line.
#
# usage: scripts/demo.sh [TEXT-FILE]    (default: the log of this machine's package manager)
set -euo pipefail

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
build=$root/build/windows-release
work=$root/build/demo
input=${1:-/var/log/dpkg.log}
maximum_kb=256
maximum_lines=4000

say() { printf '\n== %s\n' "$*"; }

# The name that a Windows program uses for a file of this machine: Wine's drive Z: is the root directory.
windows_path() {
    local path
    path=$(realpath -m "$1")
    printf 'Z:%s' "${path//\//\\}"
}

run() { "$root/scripts/wine-run" "$build/bin/$1.exe" "${@:2}"; }

build_everything() {
    "$root/scripts/setup.sh" --without-browser
    cd "$root"
    cmake --preset windows-release >"$root/build/configure.log" || { cat "$root/build/configure.log" >&2; exit 1; }
    echo "building the library and its tools"
    cmake --build --preset windows-release --target qzlogger qzlogcfg qzlogview read_log >"$root/build/demo-build.log" || {
        tail -n 30 "$root/build/demo-build.log" >&2
        exit 1
    }
}

# The lines to log: those of the input that hold something, so that a line is a message.
take_input() {
    if [[ ! -s $input ]]; then
        echo "demo: $input is missing or empty; name a text file: scripts/demo.sh FILE" >&2
        exit 2
    fi
    tr -d '\r\000' <"$input" | awk -v most="$maximum_lines" '/[^[:space:]]/ && ++lines <= most' >"$work/input.txt"
}

# Registers product 12 and says where its log files go. The configuration is kept in files of this demo's.
configure() {
    export ZANTLOG_CFG_LOC
    ZANTLOG_CFG_LOC=$(windows_path "$work/products.conf")
    run qzlogcfg register 12 --names demo --config "$(windows_path "$work/product-12.conf")"
    run qzlogcfg set demo default "LogDirectory=$(windows_path "$work/logs")" RolloverMode=FileSize \
        "MaxLogFileSizeKB=${maximum_kb}KB"
}

log_with_two_processes() {
    local first second
    run qzlogger --product 12 --originator 3 --app --severity 0 --from "$(windows_path "$work/input.txt")" &
    first=$!
    run qzlogger --product 12 --originator 3 --app --severity 1 --from "$(windows_path "$work/input.txt")" &
    second=$!
    wait "$first"
    wait "$second"
}

read_back() {
    local files=()
    local file
    for file in "$work"/logs/*.log; do files+=("$(windows_path "$file")"); done
    run read_log -o "$(windows_path "$work/read")" "${files[@]}" | tr -d '\r'
}

compare() {
    local lines processes=0 text
    lines=$(wc -l <"$work/input.txt")
    for text in "$work"/read/*.txt; do
        if ! cmp -s "$text" "$work/input.txt"; then
            echo "demo: what process $(basename "$text" .txt) logged was not read back as it was:" >&2
            diff "$work/input.txt" "$text" | head -n 10 >&2
            exit 1
        fi
        processes=$((processes + 1))
    done
    if [[ $processes != 2 ]]; then
        echo "demo: expected the records of 2 processes, found $processes" >&2
        exit 1
    fi
    echo "2 processes x $lines lines = $((2 * lines)) records: nothing lost, nothing interleaved, order kept."
}

build_everything
rm -rf "$work"
mkdir -p "$work/read"
take_input
say "product 12 is registered and configured"
configure
say "two processes log the $(wc -l <"$work/input.txt") lines of $input at once"
log_with_two_processes
say "the files (a new one at $maximum_kb KB)"
(cd "$work/logs" && ls -l --time-style=+%T *.log | awk '{ print "  " $NF "  " $5 " bytes" }')
say "read back with examples/read_log.c"
read_back
say "compared with the input"
compare
say "the last three, as qzlogview shows them, and what it says of the files"
run qzlogview -n 3
run qzlogview --verify
