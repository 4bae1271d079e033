#!/usr/bin/env bash
# Builds and runs the benchmarks; docs/performance.md says what they measure and what they gave.
#
# Client and Wine server share one processor where that is said: across processors a server round trip costs several
# times as much and varies.
set -euo pipefail

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
build=$root/build/windows-release
native=$root/build/native-release
work=$root/build/bench-store

"$root/scripts/setup.sh" --without-browser
cd "$root"
cmake --preset windows-release >/dev/null
cmake --build --preset windows-release --target append_bench serialize_bench allocation_bench read_bench parse_bench query_bench selection_bench reload_bench
cmake --preset native-release >/dev/null
cmake --build --preset native-release --target serialize_bench read_bench parse_bench query_bench selection_bench view_bench

title() { printf '\n== %s\n' "$*"; }

title "serializing, natively"
"$native/bin/serialize_bench"
title "serializing, under Wine"
scripts/wine-run "$build/bin/serialize_bench.exe"

title "reading, natively"
"$native/bin/read_bench"
"$native/bin/parse_bench"
title "reading, under Wine"
scripts/wine-run "$build/bin/read_bench.exe"
scripts/wine-run "$build/bin/parse_bench.exe"

title "selecting, natively"
"$native/bin/selection_bench"
title "selecting, under Wine"
scripts/wine-run "$build/bin/selection_bench.exe"

title "queries, natively"
"$native/bin/query_bench"
title "queries, under Wine"
scripts/wine-run "$build/bin/query_bench.exe"

title "showing many files, natively"
"$native/bin/view_bench"

title "levels that follow the store, under Wine"
scripts/wine-run "$build/bin/reload_bench.exe"

title "heap blocks"
rm -rf "$work"
mkdir -p "$work"
folder=Z:${work//\//\\}
printf '12.Configuration=%s\\product.conf\r\n' "$folder" >"$work/products.conf"
printf 'Default.LogDirectory=%s\\logs\\\r\n' "$folder" >"$work/product.conf"
ZANTLOG_CFG_LOC="$folder\\products.conf" scripts/wine-run "$build/bin/allocation_bench.exe"

# The server must be started on that processor too.
WINEPREFIX=$root/build/wine wineserver -k || true
title "appending, client and server on processor 0"
taskset -c 0 scripts/wine-run "$build/bin/append_bench.exe"
WINEPREFIX=$root/build/wine wineserver -k || true
title "appending, all processors"
scripts/wine-run "$build/bin/append_bench.exe"
