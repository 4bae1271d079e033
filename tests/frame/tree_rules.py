"""The rules of the source tree: which folder may include which, and who may call the system and its C runtime.

Each check takes the tree's folder and returns a list of findings, one line of text each; none is good."""

import functools
import os
import re
import subprocess

# A folder may include itself, the public headers, and all folders that can be reached from it along these arrows.
ARROWS = {
    "logfile/os": [],
    "base": ["logfile/os"],
    "logfile/format": ["base", "logfile/os"],
    "propstore": ["base", "logfile/os"],
    "config": ["propstore", "base", "logfile/os"],
    "reader": ["logfile/format", "config", "base", "logfile/os"],
    "logfile/writer": ["reader", "logfile/format", "config", "base", "logfile/os"],
    "api": ["logfile/writer", "reader", "logfile/format", "config", "propstore", "base", "logfile/os"],
    # Loaded by the library, and over its exports.
    "localizer": ["base", "logfile/os"],
    # Outside the library: the public headers only.
    "catalog": [],
    "tools": [],
    "examples": [],
}
PUBLIC = "include/zantlog"
# These may include everything.
UNRULED = ["tests", "bench"]
LIBRARY = [folder for folder in ARROWS if folder not in ("tools", "examples", "catalog")]

INCLUDE = re.compile(r'^\s*#\s*include\s*([<"])([^>"]+)[>"]', re.MULTILINE)

# Files that call Windows; a header of them is for others of them only.
WINDOWS_FILE = re.compile(r"_windows\.(cpp|h)$")
# Headers of the system that no other file has a use for.
SYSTEM_HEADERS = re.compile(
    r"(?i)^(windows|winsock2?|ws2tcpip|winbase|windef|winnt|winreg|winerror|shlwapi|shlobj|sddl|aclapi|fileapi"
    r"|io|direct|process|share|conio|unistd|fcntl|pthread|sys/\w+)\.h$")
# Types and constants of the system, which the import libraries do not list.
SYSTEM_NAMES = re.compile(
    r"\b(?:HANDLE|HMODULE|HINSTANCE|HKEY|HRESULT|DWORD|DWORD64|ULONGLONG|WORD|BYTE|BOOL|LONG|ULONG|UINT|LPVOID|LPCVOID"
    r"|LPSTR|LPCSTR|LPWSTR|LPCWSTR|TCHAR|WCHAR|FILETIME|SYSTEMTIME|CRITICAL_SECTION|SECURITY_ATTRIBUTES"
    r"|SECURITY_DESCRIPTOR|LARGE_INTEGER|WIN32_FIND_DATA[AW]?|WSADATA|INVALID_HANDLE_VALUE|INVALID_FILE_ATTRIBUTES"
    r"|(?:ERROR|GENERIC|FILE_SHARE|FILE_ATTRIBUTE|FILE_FLAG|WAIT|KEY|REG|HKEY|MOVEFILE|STD|EVENTLOG|OPEN|CREATE)"
    r"_[A-Z][A-Z_]*)\b")
IMPORT_LIBRARIES = ["kernel32", "advapi32", "user32", "shlwapi", "shell32"]
IMPORT_LIBRARY_FOLDER = "/usr/x86_64-w64-mingw32/lib"
SOCKET_FUNCTIONS = ["WSAStartup", "WSACleanup", "WSAGetLastError", "gethostname", "getaddrinfo", "freeaddrinfo", "htonl",
                    "ntohl", "htons", "ntohs"]

# What the C runtime knows of the world, and what it does with wide characters: both differ between platforms.
# A name after a dot, an arrow or a scope other than std is somebody else's; wcs2utf8 and mbs2utf8 are ours.
RUNTIME_CALLS = re.compile(
    r"(?<![\w.>:])(?:::|std::)?"
    r"(wcs(?!2)\w+|mbs(?!2)\w+|wmem\w+|mbto\w+|wcto\w+|localtime(?:_r|_s)?|gmtime(?:_r|_s)?|mktime|time|clock|getenv|_?putenv\w*"
    r"|v?f?w?printf|puts|putchar|fputs|malloc|calloc|realloc|free|_?strdup|fopen|fclose|fread|fwrite|fflush|tmpnam"
    r"|remove|rename|system|_?open|_?read|_?write|_?close|_?getpid|exit|setlocale)\s*\(")
# Headers whose types allocate behind the back of zantLogMalloc, throw, or reach for the system.
ALLOCATING_HEADERS = re.compile(
    r"^(string|vector|map|set|list|deque|queue|stack|unordered_map|unordered_set|functional|any|iostream|ostream"
    r"|istream|fstream|sstream|iomanip|filesystem|thread|mutex|shared_mutex|condition_variable|future|regex|locale"
    r"|codecvt|chrono|format|random)$")


def source_files(root):
    """Paths of all sources relative to the root, with slashes, sorted."""
    found = []
    for folder, names, files in os.walk(root):
        relative = os.path.relpath(folder, root).replace(os.sep, "/")
        names[:] = [n for n in names if not n.startswith(".") and not (relative == "." and n == "build")]
        for name in files:
            if name.endswith((".h", ".c", ".cpp")):
                found.append(name if relative == "." else f"{relative}/{name}")
    return sorted(found)


def folder_of(path):
    """The folder of ARROWS, or PUBLIC, or the unruled one, that holds a path; None for none."""
    for folder in [PUBLIC, *ARROWS, *UNRULED]:
        if path.startswith(folder + "/"):
            return folder
    return None


def reachable(folder):
    """All folders that a folder may include."""
    found = set()
    waiting = list(ARROWS[folder])
    while waiting:
        lower = waiting.pop()
        if lower not in found:
            found.add(lower)
            waiting += ARROWS[lower]
    return found


def read(root, path):
    with open(os.path.join(root, path), encoding="utf-8") as file:
        return file.read()


def code_only(text):
    """The text without comments, literals and #include lines; lines stay where they are."""
    pattern = re.compile(
        r'//[^\n]*|/\*.*?\*/|R"(?P<tag>[^(\s]*)\(.*?\)(?P=tag)"|"(?:\\.|[^"\\\n])*"'
        r"|(?<![0-9A-Fa-f])'(?:\\.|[^'\\\n])*'|^\s*#\s*include[^\n]*", re.DOTALL | re.MULTILINE)
    return pattern.sub(lambda match: "\n" * match[0].count("\n") or " ", text)


def line_of(text, position):
    return text.count("\n", 0, position) + 1


def resolve(root, path, name):
    """The tree's file that an include of `name` in `path` means; None when it is not of the tree."""
    for candidate in [os.path.normpath(os.path.join(os.path.dirname(path), name)), name, f"include/{name}"]:
        candidate = candidate.replace(os.sep, "/")
        if os.path.isfile(os.path.join(root, candidate)):
            return candidate
    return None


def check_arrows(root):
    """Include lines: none leads upwards, and every quoted one leads to a file of the tree."""
    findings = []
    for path in source_files(root):
        folder = folder_of(path)
        text = read(root, path)
        if folder is None:
            findings.append(f"{path}: stands in no folder that has rules")
            continue
        for match in INCLUDE.finditer(text):
            where = f"{path}:{line_of(text, match.start(1))}"
            target = resolve(root, path, match[2])
            if target is None:
                if match[1] == '"':
                    findings.append(f'{where}: "{match[2]}" is no file of the tree; foreign headers take <>')
                continue
            lower = folder_of(target)
            if lower in (folder, PUBLIC) or folder in UNRULED:
                continue
            if folder == PUBLIC or lower not in reachable(folder):
                findings.append(f"{where}: {folder} may not include {target}")
    return findings


@functools.cache
def system_functions():
    """Every function that Windows' own libraries export."""
    names = set(SOCKET_FUNCTIONS)
    for library in IMPORT_LIBRARIES:
        path = f"{IMPORT_LIBRARY_FOLDER}/lib{library}.a"
        output = subprocess.run(["nm", path], capture_output=True, text=True, check=True).stdout
        names.update(re.findall(r" T ([A-Z]\w+)$", output, re.MULTILINE))
    return names


def own_types(text):
    """Types that a text declares: they may share a name with a function of Windows."""
    return set(re.findall(r"\b(?:struct|class|enum|using)\s+(\w+)", text))


def check_system_names(root):
    """Nothing of Windows outside the files named *_windows.cpp and *_windows.h."""
    functions = set(system_functions())
    findings = []
    for path in source_files(root):
        if not WINDOWS_FILE.search(path):
            functions -= own_types(code_only(read(root, path)))
    for path in source_files(root):
        if WINDOWS_FILE.search(path) or folder_of(path) in UNRULED:
            continue
        text = read(root, path)
        for match in INCLUDE.finditer(text):
            if SYSTEM_HEADERS.match(match[2]) or WINDOWS_FILE.search(match[2]):
                findings.append(f"{path}:{line_of(text, match.start(1))}: <{match[2]}> outside *_windows")
        code = code_only(text)
        for match in SYSTEM_NAMES.finditer(code):
            findings.append(f"{path}:{line_of(code, match.start())}: {match[0]} outside *_windows")
        for match in re.finditer(r"(?<![\w.>])[A-Za-z]\w+(?=\s*\()", code):
            if match[0] in functions:
                findings.append(f"{path}:{line_of(code, match.start())}: {match[0]} outside *_windows")
    return findings


def check_runtime_calls(root):
    """The library reaches the world, and allocates, through the seam only."""
    findings = []
    for path in source_files(root):
        if folder_of(path) not in LIBRARY or WINDOWS_FILE.search(path):
            continue
        text = read(root, path)
        for match in INCLUDE.finditer(text):
            if ALLOCATING_HEADERS.match(match[2]):
                findings.append(f"{path}:{line_of(text, match.start(1))}: <{match[2]}> in the library")
        code = code_only(text)
        for match in RUNTIME_CALLS.finditer(code):
            findings.append(f"{path}:{line_of(code, match.start(1))}: {match[1]}() outside *_windows")
    return findings
