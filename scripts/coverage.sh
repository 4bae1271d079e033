#!/usr/bin/env bash
# Line and branch coverage of the library by the tests on the simulated system, by folder; with -v by file, with the
# lines and branches that no test reaches. Branches that only an exception takes do not count: the library throws none.
#
# usage: scripts/coverage.sh [-v]
set -euo pipefail

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
cd "$root"
preset=sim-coverage
build=$root/build/$preset
folders=(api base catalog config logfile/format logfile/os logfile/writer propstore reader)
verbose=0
if [[ ${1:-} == -v ]]; then verbose=1; fi

scripts/setup.sh
cmake --preset "$preset" >"$root/build/$preset-configure.log"
cmake --build --preset "$preset" -j "$(nproc)" >"$root/build/$preset-build.log" ||
    { tail -n 30 "$root/build/$preset-build.log" >&2; exit 1; }
find "$build" -name '*.gcda' -delete
(cd "$build" && ctest --output-on-failure >"$root/build/$preset-test.log") ||
    { tail -n 40 "$root/build/$preset-test.log" >&2; exit 1; }

python3 "$root/scripts/coverage_report.py" "$build" "$verbose" "${folders[@]}"
