#!/usr/bin/env bash
# Searches with the fuzz targets for inputs that break the library, on the simulated system.
#
# usage: scripts/fuzz.sh [--seconds N] [--merge] [TARGET...]     for example: scripts/fuzz.sh --seconds 60 conf_store
#
# Without targets all of them run, as many at a time as there are processors, N seconds each (600). What was found of new
# inputs stays in build/fuzz/corpus/TARGET; findings are files in build/fuzz/findings. --merge adds to tests/fuzz/corpus
# the inputs that reach code which those there do not. The exit code is 1 when anything was found.
set -uo pipefail

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
cd "$root" || exit 1
seconds=600
merge=0
targets=()
while (($# > 0)); do
    case $1 in
        --seconds)
            seconds=${2:?a number of seconds}
            shift
            ;;
        --merge) merge=1 ;;
        -*)
            sed -n '2,8s/^# \{0,1\}//p' "$0" >&2
            exit 2
            ;;
        *) targets+=("$1") ;;
    esac
    shift
done
if ((${#targets[@]} == 0)); then
    for source in tests/fuzz/*_fuzz.cpp; do
        source=${source##*/}
        targets+=("${source%_fuzz.cpp}")
    done
fi

if ! command -v clang++ >/dev/null; then
    echo "clang is missing, with its fuzzing library: apt-get install clang libclang-rt-14-dev" >&2
    exit 1
fi
scripts/setup.sh --without-browser || exit 1

build=build/fuzz
echo "building ${#targets[@]} targets"
if ! { cmake --preset fuzz && cmake --build --preset fuzz --target "${targets[@]/#/fuzz_}"; } >build/fuzz.log 2>&1; then
    grep -E 'error|Error' build/fuzz.log | head
    echo "they do not build; see build/fuzz.log" >&2
    exit 1
fi

# search TARGET: one line of what came of it. The heap of one input may have 2 GiB, an input 10 s.
search() {
    local target=$1
    local corpus=$build/corpus/$target
    local log=$build/$target.log
    mkdir -p "$corpus" "$build/findings"
    local options=(-max_total_time="$seconds" -timeout=10 -rss_limit_mb=2048 -max_len=4096 -print_final_stats=1
        -artifact_prefix="$build/findings/$target-" -dict="tests/fuzz/dictionaries/$target.dict")
    local result="nothing found"
    if ! "$build/bin/fuzz_$target" "${options[@]}" "$corpus" "tests/fuzz/corpus/$target" >"$log" 2>&1; then
        result="FOUND: $(grep -m1 -oE 'does not hold.*|runtime error.*|ERROR: .*' "$log")"
    elif ((merge)); then
        "$build/bin/fuzz_$target" -merge=1 -max_len=4096 "tests/fuzz/corpus/$target" "$corpus" >>"$log" 2>&1
    fi
    printf '%-20s %10s inputs, %6s places reached, %s\n' "$target" \
        "$(awk '/number_of_executed_units/ { print $2 }' "$log")" \
        "$(grep -oE 'cov: [0-9]+' "$log" | tail -n 1 | cut -d' ' -f2)" "$result"
    [[ $result == "nothing found" ]]
}

failed=0
running=0
for target in "${targets[@]}"; do
    if ((running == $(nproc))); then
        wait -n || failed=1
        running=$((running - 1))
    fi
    search "$target" &
    running=$((running + 1))
done
while ((running > 0)); do
    wait -n || failed=1
    running=$((running - 1))
done
if ((failed)); then echo "the inputs are in $build/findings; docs/testing.md says how to replay them"; fi
exit $failed
