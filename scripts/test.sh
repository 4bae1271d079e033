#!/usr/bin/env bash
# Sets up, builds and tests everything from a clean clone: the Windows build under Wine, and on the simulated system,
# under the address and behaviour sanitizers, all that stands above the operating system's calls, and several threads
# under the thread sanitizer. The last line is "N passed, N failed"; the exit code is 0 only when tests ran and none failed.
#
# usage: scripts/test.sh [ARGUMENT FOR CTEST...]     for example: scripts/test.sh -L reader
set -uo pipefail

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
cd "$root" || exit 1
jobs=$(nproc)
passed=0
failed=0

# end: prints the closing line and leaves.
end() {
    printf '%d passed, %d failed\n' "$passed" "$failed"
    if ((failed > 0)); then exit 1; fi
    if ((passed == 0)); then
        echo "no test ran" >&2
        exit 1
    fi
    exit 0
}

# stop TEXT: what cannot be built cannot be tested.
stop() {
    echo "$1" >&2
    failed=$((failed + 1))
    end
}

# sources: every C and C++ source of the tree, tracked or new.
sources() {
    if git rev-parse --git-dir >/dev/null 2>&1; then
        git ls-files --cached --others --exclude-standard -- '*.c' '*.cpp' '*.h' | while read -r file; do
            if [[ -f $file ]]; then echo "$file"; fi
        done
    else
        find . -path ./build -prune -o -type f \( -name '*.c' -o -name '*.cpp' -o -name '*.h' \) -print
    fi
}

check_format() {
    printf 'format: '
    local log=build/format.log
    if sources | xargs -r clang-format --dry-run -Werror >"$log" 2>&1; then
        echo "every source is as .clang-format has it"
    else
        echo "these are not; run clang-format -i on them:"
        grep -oE '^[^ :][^:]*:[0-9]+:[0-9]+: ' "$log" | cut -d: -f1 | sort | uniq -c
        failed=$((failed + 1))
    fi
}

# build PRESET [TARGET]
build() {
    local preset=$1
    local target=(${2:+--target "$2"})
    local log=build/$preset.log
    local start=$SECONDS
    printf '%s: building ...' "$preset"
    if ! { cmake --preset "$preset" && cmake --build --preset "$preset" -j "$jobs" "${target[@]}"; } >"$log" 2>&1; then
        echo " failed"
        grep -nE 'FAILED|error|Error|undefined reference|cannot export' "$log" | head -n 40
        echo "--- the end of $log:"
        tail -n 15 "$log"
        stop "$preset does not build"
    fi
    echo " built ($((SECONDS - start)) s)"
}

# count LOG: adds up what the tests of one CTest run said of themselves. One that failed without a word, by a crash
# or a time-out, counts as one; so does a test executable that CTest holds passed, but that never came to its counts.
count() {
    local sums
    sums=$(awk '
        / Testing: / { name = $NF; said = 0; p = 0; f = 0 }
        match($0, /zantlog-tests: [0-9]+ passed, [0-9]+ failed/) {
            split(substr($0, RSTART, RLENGTH), word, " ")
            p += word[2]; f += word[4]; said = 1
        }
        /^Test (Passed|Failed|time-out)|^Test .*(Timeout|Exception|Not Run|SEGFAULT)/ {
            if (f == 0 && ($0 !~ /^Test Passed/ || (!said && name ~ /_tests$/))) f = 1
            if (f == 0 && !said) p = 1
            passed += p; failed += f
            p = 0; f = 0
        }
        END { print passed + 0, failed + 0 }' "$1")
    passed=$((passed + ${sums% *}))
    failed=$((failed + ${sums#* }))
}

# run_tests PRESET ARGUMENT...
run_tests() {
    local preset=$1
    shift
    local log=build/$preset/Testing/Temporary/LastTest.log
    local failed_before=$failed
    rm -f "$log"
    echo "$preset: testing"
    local code=0
    (cd "build/$preset" && ctest --output-on-failure "$@") || code=$?
    if [[ -f $log ]]; then count "$log"; fi
    # Whatever the counts say: CTest's own verdict stands.
    if ((code != 0 && failed == failed_before)); then failed=$((failed + 1)); fi
}

scripts/setup.sh || stop "the set-up failed"
check_format
build windows-release
build sim-asan
build sim-tsan threads_tests
run_tests windows-release "$@"
run_tests sim-asan "$@"
run_tests sim-tsan -R '^threads_tests$' "$@"
end
