#!/usr/bin/env bash
# Compares qzlogview, under Wine, with sort -m and grep on the same log files, and prints seconds and ratios.
# Every contender reads all files and writes to a file; the files are in the system's cache.
# usage: scripts/view_comparison.sh [FILES [MEGABYTES_EACH]]     100 files of 10 MB unless given
set -euo pipefail

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
viewer=$root/build/windows-release/bin/qzlogview.exe
files=${1:-100}
megabytes=${2:-10}
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

# Times overlap and are in order; messages are of about 130 bytes. The times have the same number of digits, so sort
# -m merges the files by their sixth field as qzlogview does.
mkdir "$work/logs"
for ((file = 0; file < files; ++file)); do
    awk -v file="$file" -v size=$((megabytes * 1000000)) 'BEGIN {
        print line = "$Header 65543,12,3,1763249000,-3600,buildhost"
        written = length(line) + 1
        now = 1763249000000 + file
        for (number = 1; written < size; ++number) {
            now += 3 + (number * 7919 + file * 31) % 100
            text = "request " number * 977 + file " was served, and its answer went back to the client in time"
            if (number % 1000 == 0) text = text ", late"
            line = sprintf("2,12,3,3,%d,%.0f,%d,777,0:,%d:%s,6:server,%d,(0|)", number, now, 4000 + file % 8,
                           length(text), text, number % 3)
            print line
            written += length(line) + 1
        }
    }' >"$work/logs/$((1000 + file)).log"
done
total=$(du -sb "$work/logs" | cut -f1)
cat "$work"/logs/*.log >/dev/null
printf '%d files, %d MB\n' "$files" $((total / 1000000))

# The better of two runs, in seconds.
seconds() {
    local best=
    for _ in 1 2; do
        local begin end
        begin=$(date +%s.%N)
        "$@" >"$work/out"
        end=$(date +%s.%N)
        best=$(awk -v b="$begin" -v e="$end" -v old="$best" 'BEGIN { t = e - b; print (old == "" || t < old) ? t : old }')
    done
    printf '%s' "$best"
}

view() { "$root/scripts/wine-run" "$viewer" "$@" "Z:${work//\//\\}\\logs"; }
merge() { LC_ALL=C sort -m -t, -k6,6 "$work"/logs/*.log; }
search() { LC_ALL=C grep -h 'late' "$work"/logs/*.log; }

report() {
    awk -v what="$1" -v own="$2" -v other="$3" -v bytes="$total" 'BEGIN {
        printf "  %-34s %7.2f s  %7.1f MB/s", what, own, bytes / own / 1e6
        if (other != "") printf "  %6.2f x", own / other
        printf "\n" }'
}

merged=$(seconds merge)
report 'sort -m' "$merged" ''
report 'qzlogview -o raw' "$(seconds view -o raw)" "$merged"
report 'qzlogview' "$(seconds view)" "$merged"
found=$(seconds search)
report 'grep' "$found" ''
report 'qzlogview --grep' "$(seconds view --grep late)" "$found"
report 'qzlogview -n 10' "$(seconds view -n 10)" ''
