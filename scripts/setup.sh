#!/usr/bin/env bash
# Makes a bare Debian 12 ready to build and test zantlog: Debian packages, GoogleTest and a static ICU for
# Windows (built once into a cache), the driver of the browser tests (from npm, into the cache), a Wine prefix.
# Run it as often as you like; it does only what is missing.
#
# usage: scripts/setup.sh [--without-browser]    (without: what the browser tests need is left out)
#
# ZANTLOG_CACHE  where the built dependencies are kept (default: ~/.cache/zantlog)
set -euo pipefail

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
cache=${ZANTLOG_CACHE:-${XDG_CACHE_HOME:-$HOME/.cache}/zantlog}
build=$root/build
logs=$build/setup-logs
toolchain=$root/cmake/mingw-w64-toolchain.cmake
windows_compiler=x86_64-w64-mingw32-g++-posix
jobs=$(nproc)
with_browser=1
if [[ ${1:-} == --without-browser ]]; then with_browser=0; fi
steps=$((5 + with_browser))
step=0
mkdir -p "$cache" "$logs"

packages=(
    ca-certificates cmake ninja-build g++
    g++-mingw-w64-x86-64-posix gcc-mingw-w64-x86-64-posix binutils-mingw-w64-x86-64
    wine wine64
    googletest libicu-dev icu-devtools libcli11-dev libfmt-dev nlohmann-json3-dev libbenchmark-dev
    clang-format clang-tidy python3
    dpkg-dev patch xz-utils
)

# begin TITLE: announces a step, without ending the line.
begin() {
    step=$((step + 1))
    step_start=$SECONDS
    printf 'set-up %d/%d: %s' "$step" "$steps" "$1"
}

# finish WORD: ends the line of the step.
finish() {
    local seconds=$((SECONDS - step_start))
    if ((seconds > 0)); then printf ' %s (%d s)\n' "$1" "$seconds"; else printf ' %s\n' "$1"; fi
}

# quietly LOG COMMAND...: runs a command with its output in a log; on failure shows the log's end and stops.
quietly() {
    local log=$logs/$1.log
    shift
    if ! "$@" >>"$log" 2>&1 </dev/null; then
        printf ' failed\n' >&2
        printf '%s\n' "--- the command: $*" "--- the end of $log:" >&2
        tail -n 30 "$log" >&2
        exit 1
    fi
}

as_root() {
    if [[ $(id -u) == 0 ]]; then "$@"; else sudo "$@"; fi
}

# ---- Debian packages

install_packages() {
    local missing=()
    local package
    for package in "${packages[@]}"; do
        dpkg-query -W -f '${db:Status-Status}' "$package" 2>/dev/null | grep -qx installed || missing+=("$package")
    done
    if ((with_browser)); then
        command -v chromium >/dev/null || missing+=(chromium)
        # Another nodejs than Debian's brings npm with it, and is at odds with Debian's.
        command -v node >/dev/null || missing+=(nodejs)
        command -v npm >/dev/null || missing+=(npm)
    fi
    begin "Debian packages"
    if ((${#missing[@]} == 0)); then
        finish "are all there"
        return
    fi
    printf ': %s ...' "${missing[*]}"
    quietly packages as_root apt-get update
    quietly packages as_root env DEBIAN_FRONTEND=noninteractive apt-get install -y --no-install-recommends "${missing[@]}"
    finish "installed"
}

# ---- built dependencies, each in a folder of the cache named by all that its build depends on

key() {
    printf '%s\n' "$@" | sha256sum | cut -c1-12
}

# build_googletest TARGET FLAGS CMAKE_ARGUMENT...
build_googletest() {
    local destination=$1 flags=$2
    shift 2
    if [[ -f $destination/.complete ]]; then
        finish "is there"
        return
    fi
    printf ': building ...'
    local work=$destination.build
    rm -rf "$work" "$destination"
    quietly googletest cmake -G Ninja -S /usr/src/googletest -B "$work" "$@" \
        -DCMAKE_BUILD_TYPE=Release -DCMAKE_CXX_STANDARD=20 -DCMAKE_CXX_FLAGS="$flags" \
        -DCMAKE_INSTALL_LIBDIR=lib -DCMAKE_INSTALL_PREFIX="$destination"
    quietly googletest ninja -C "$work" -j "$jobs" install
    rm -rf "$work"
    touch "$destination/.complete"
    finish "built"
}

# Lists the machine's own package sources for this release once more, as sources of source packages, in FILE;
# the machine's configuration is left alone.
list_source_packages() {
    local file=$1
    local codename
    codename=$(. /etc/os-release && echo "$VERSION_CODENAME")
    python3 - "$codename" >"$file" <<'PYTHON'
import glob, re, sys

codename = sys.argv[1]

def ours(suite):
    return re.fullmatch(re.escape(codename) + r"([-/](updates|security))?", suite) is not None

def one_line(path):
    for line in open(path, encoding="utf-8", errors="replace"):
        match = re.match(r"\s*deb(?:-src)?\s+(\[[^]]*\]\s+)?(\S+)\s+(\S+)\s+(.+?)\s*(#.*)?$", line)
        if match and ours(match[3]) and "main" in match[4].split():
            options = re.sub(r"arch=[^]\s]*\s*", "", match[1] or "")
            yield f"deb-src {options if options.strip('[] ') else ''}{match[2]} {match[3]} main"

def deb822(path):
    text = open(path, encoding="utf-8", errors="replace").read()
    text = "\n".join(line for line in text.split("\n") if not line.startswith("#"))
    for stanza in re.split(r"\n\s*\n", text):
        fields = dict(re.findall(r"^([A-Za-z-]+):[ \t]*((?:.*)(?:\n[ \t].*)*)", stanza, re.MULTILINE))
        fields = {name.lower(): value.strip() for name, value in fields.items()}
        if fields.get("enabled", "yes").lower() in ("no", "false", "0"):
            continue
        if "main" not in fields.get("components", "").split():
            continue
        signed = fields.get("signed-by", "")
        options = f"[signed-by={signed}] " if signed.startswith("/") else ""
        for uri in fields.get("uris", "").split():
            for suite in filter(ours, fields.get("suites", "").split()):
                yield f"deb-src {options}{uri} {suite} main"

lines = []
for path in ["/etc/apt/sources.list"] + sorted(glob.glob("/etc/apt/sources.list.d/*")):
    try:
        lines += one_line(path) if path.endswith(".list") else deb822(path) if path.endswith(".sources") else []
    except FileNotFoundError:
        pass
print("\n".join(dict.fromkeys(lines)))
PYTHON
}

# fetch_source PACKAGE FOLDER: unpacks the newest source package of this release into FOLDER/PACKAGE-VERSION.
fetch_source() {
    local package=$1 folder=$2
    mkdir -p "$folder/apt/lists/partial" "$folder/apt/cache/archives/partial"
    list_source_packages "$folder/apt/sources.list"
    if [[ ! -s $folder/apt/sources.list ]]; then
        echo "no package source of this release found in /etc/apt" >>"$logs/icu.log"
    fi
    local options=(
        -o "Dir::Etc::sourcelist=$folder/apt/sources.list" -o Dir::Etc::sourceparts=/dev/null
        -o "Dir::State::lists=$folder/apt/lists" -o "Dir::Cache=$folder/apt/cache"
        -o "APT::Sandbox::User=$(id -un)"
    )
    quietly icu apt-get "${options[@]}" update
    quietly icu env -C "$folder" apt-get "${options[@]}" source "$package"
}

build_icu() {
    local destination=$1
    if [[ -f $destination/.complete ]]; then
        finish "is there"
        return
    fi
    printf ': fetching the source package ...'
    local work=$destination.build
    rm -rf "$work" "$destination"
    mkdir -p "$work"
    fetch_source icu "$work"
    printf ' building (about a minute) ...'
    local source
    source=$(dirname "$(find "$work" -maxdepth 3 -type d -path '*/source/common' -print -quit)")
    quietly icu cmake -G Ninja -S "$root/cmake/icu" -B "$work/build" -DCMAKE_TOOLCHAIN_FILE="$toolchain" \
        -DCMAKE_BUILD_TYPE=Release -DICU_SOURCE="$source" -DCMAKE_INSTALL_PREFIX="$destination"
    quietly icu ninja -C "$work/build" -j "$jobs" install
    rm -rf "$work"
    touch "$destination/.complete"
    finish "built"
}

# ---- the driver of the browser; its lock file names the version and the checksum

install_browser_driver() {
    local destination=$1
    begin "driver of the browser"
    if [[ -f $destination/.complete ]]; then
        finish "is there"
        return
    fi
    printf ': fetching ...'
    rm -rf "$destination"
    mkdir -p "$destination"
    cp "$root/tests/browser/package.json" "$root/tests/browser/package-lock.json" "$destination"
    quietly browser_driver npm ci --prefix "$destination" --ignore-scripts --no-audit --no-fund
    touch "$destination/.complete"
    finish "fetched"
}

# ---- Wine

make_wine_prefix() {
    local prefix=$build/wine
    begin "Wine prefix"
    if [[ -f $prefix/.complete ]]; then
        finish "is there"
        return
    fi
    printf ': making it ...'
    rm -rf "$prefix"
    mkdir -p "$prefix"
    local wine_environment=(env -u DISPLAY -u WAYLAND_DISPLAY WINEPREFIX="$prefix" WINEARCH=win64 WINEDEBUG=-all
        WINEDLLOVERRIDES=mscoree,mshtml=)
    quietly wine "${wine_environment[@]}" wineboot --init
    quietly wine "${wine_environment[@]}" wineserver -w
    touch "$prefix/.complete"
    finish "made"
}

main() {
    rm -f "$logs"/*.log
    install_packages

    # One set-up at a time per cache and tree: others wait.
    exec 9>"$cache/.lock"
    flock 9
    exec 8>"$build/.setup-lock"
    flock 8

    local googletest_version windows_version native_version
    googletest_version=$(dpkg-query -W -f '${Version}' googletest)
    windows_version=$($windows_compiler -dumpfullversion)
    native_version=$(g++ -dumpfullversion)
    local native_flags=-fshort-wchar
    local windows_googletest native_googletest windows_icu browser_driver
    windows_googletest=$cache/windows-googletest-$(key "$googletest_version" "$windows_version")
    native_googletest=$cache/native-googletest-$(key "$googletest_version" "$native_version" "$native_flags")
    windows_icu=$cache/windows-icu-$(key "$windows_version" "$(cat "$root/cmake/icu/CMakeLists.txt")")
    browser_driver=$cache/browser-driver-$(key "$(cat "$root/tests/browser/package-lock.json")")

    begin "GoogleTest for Windows"
    build_googletest "$windows_googletest" "" -DCMAKE_TOOLCHAIN_FILE="$toolchain"
    begin "GoogleTest for this machine"
    build_googletest "$native_googletest" "$native_flags"
    begin "ICU for Windows"
    build_icu "$windows_icu"
    if ((with_browser)); then install_browser_driver "$browser_driver"; fi

    local settings
    settings=$(printf 'set(ZANTLOG_%s "%s")\n' WINDOWS_GOOGLETEST "$windows_googletest" \
        NATIVE_GOOGLETEST "$native_googletest" WINDOWS_ICU "$windows_icu" BROWSER_DRIVER "$browser_driver")
    if [[ ! -f $build/dependencies.cmake || $(<"$build/dependencies.cmake") != "$settings" ]]; then
        printf '%s\n' "$settings" >"$build/dependencies.cmake"
    fi

    make_wine_prefix
}

main "$@"
