"""What a DLL or a program exports and imports, its version, and what a .def file lists."""

import re
import struct
import subprocess

import settings


def listed_exports(def_path):
    """The names under EXPORTS of a .def file, in their order."""
    with open(def_path, encoding="utf-8") as file:
        lines = [line.split(";")[0].strip() for line in file]
    return [line for line in lines[lines.index("EXPORTS") + 1:] if line]


def headers_of(path):
    return subprocess.run([settings.OBJDUMP, "-p", path], capture_output=True, text=True, check=True).stdout


def exports(path):
    """The names in the export table."""
    table = re.search(r"^\[Ordinal/Name Pointer\] Table\n((?:\s*\[.*\n)*)", headers_of(path), re.MULTILINE)
    return re.findall(r"\]\s+(\S+)$", table[1], re.MULTILINE) if table else []


def imports(path):
    """The import table: {library: [names]}; names that are imported by number are left out."""
    found = {}
    library = None
    for line in headers_of(path).split("\n"):
        if match := re.match(r"\s*DLL Name: (\S+)", line):
            library = found.setdefault(match[1], [])
        elif match := re.match(r"\s+[0-9a-f]+\s+\d+\s+(\w+)\s*$", line):
            if library is not None:
                library.append(match[1])
        elif not line.strip():
            library = None
    return found


def file_version(path):
    """The four numbers of the version resource; None when there is none."""
    with open(path, "rb") as file:
        data = file.read()
    # VS_FIXEDFILEINFO: signature, structure version, then the file's version in two halves.
    position = data.find(struct.pack("<II", 0xFEEF04BD, 0x00010000))
    if position < 0:
        return None
    high, low = struct.unpack_from("<II", data, position + 8)
    return (high >> 16, high & 0xFFFF, low >> 16, low & 0xFFFF)


def import_library_names(path):
    """The functions that an import library offers."""
    output = subprocess.run([settings.OBJDUMP, "-t", path], capture_output=True, text=True, check=True).stdout
    return sorted(set(re.findall(r"__imp_(\S+)", output)))
