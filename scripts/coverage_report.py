"""Adds up what gcov says of a build: usage: coverage_report.py BUILD 0|1 FOLDER..."""
import gzip
import json
import os
import subprocess
import sys
import tempfile
from collections import defaultdict

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))


def counts_of(build):
    """By source: the count of each line, and of each branch of a line, over all objects and copies of a function."""
    lines = defaultdict(lambda: defaultdict(int))
    branches = defaultdict(lambda: defaultdict(int))
    data = [os.path.join(top, name) for top, _, names in os.walk(build) for name in names if name.endswith(".gcda")]
    with tempfile.TemporaryDirectory() as scratch:
        for i in range(0, len(data), 50):
            subprocess.run(["gcov", "--json-format", "--branch-probabilities", *data[i : i + 50]], cwd=scratch,
                           check=True, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
            for name in os.listdir(scratch):
                path = os.path.join(scratch, name)
                with gzip.open(path) as file:
                    add(json.load(file), lines, branches)
                os.remove(path)
    return lines, branches


def add(report, lines, branches):
    for file in report["files"]:
        source = os.path.relpath(os.path.join(report["current_working_directory"], file["file"]), ROOT)
        for line in file["lines"]:
            number = line["line_number"]
            lines[source][number] += line["count"]
            ordinary = [branch for branch in line["branches"] if not branch["throw"]]
            for index, branch in enumerate(ordinary):
                branches[source][(number, index)] += branch["count"]


def percent(counts):
    reached = sum(1 for count in counts if count)
    return f"{100 * reached / len(counts):6.1f} % of {len(counts):5}" if counts else "     - % of     0"


def unreached(counts):
    numbers = sorted({key[0] if isinstance(key, tuple) else key for key, count in counts.items() if not count})
    return " ".join(map(str, numbers))


def main():
    build, verbose, folders = os.path.abspath(sys.argv[1]), sys.argv[2] == "1", sys.argv[3:]
    lines, branches = counts_of(build)
    all_lines, all_branches = [], []
    print(f"{'':16} {'lines':>17}   {'branches':>17}")
    for folder in folders:
        sources = sorted(source for source in lines if os.path.dirname(source) == folder)
        of_lines = [count for source in sources for count in lines[source].values()]
        of_branches = [count for source in sources for count in branches[source].values()]
        all_lines += of_lines
        all_branches += of_branches
        print(f"{folder:16} {percent(of_lines):>17}   {percent(of_branches):>17}")
        for source in sources if verbose else []:
            print(f"    {os.path.basename(source)}: lines {percent(lines[source].values()).strip()}, "
                  f"branches {percent(branches[source].values()).strip()}")
            for what, counts in (("lines", lines[source]), ("branches in lines", branches[source])):
                if unreached(counts):
                    print(f"        {what} that are not reached: {unreached(counts)}")
    print(f"{'all':16} {percent(all_lines):>17}   {percent(all_branches):>17}")


if __name__ == "__main__":
    main()
