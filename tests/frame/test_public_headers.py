"""Every public header stands alone, in C11 and in C++20, without a warning; and documents what is exported."""

import concurrent.futures
import os
import re
import subprocess
import unittest

import dll_file
import settings

FOLDER = "include/zantlog"
STRICT = ["-Wall", "-Wextra", "-pedantic", "-Werror", "-fsyntax-only"]
C = ["-x", "c", "-std=c11"]
CXX = ["-x", "c++", "-std=c++20"]


def headers():
    return sorted(name for name in os.listdir(os.path.join(settings.SOURCE, FOLDER)) if name.endswith(".h"))


def compile_errors(compiler, language, text):
    """What the compiler says of a source text; empty when it is content."""
    command = [compiler, *STRICT, *language, "-I", os.path.join(settings.SOURCE, "include"), "-"]
    return subprocess.run(command, input=text, capture_output=True, text=True).stderr


def undocumented(texts, names):
    """The names with no prototype that has a comment of its own right before it; texts are headers."""
    found = set()
    for text in texts:
        for match in re.finditer(r"\*/\n(?:ZANTLOG_API|ZANTLIS_API|ZANTLOG_LOCALIZER_API)[^;{}]*?\b(\w+)\(", text):
            found.add(match[1])
    return sorted(set(names) - found)


class PublicHeaders(unittest.TestCase):
    def check(self, compiler, language):
        with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
            texts = [f'#include "zantlog/{name}"\nextern int used;\n' for name in headers()]
            errors = pool.map(lambda text: compile_errors(compiler, language, text), texts)
            for name, error in zip(headers(), errors):
                with self.subTest(name):
                    self.assertEqual(error, "")

    def test_each_compiles_alone_as_c11(self):
        self.check(settings.C_COMPILER, C)

    def test_each_compiles_alone_as_cxx20(self):
        self.check(settings.CXX_COMPILER, CXX)

    def test_zantlog_h_brings_all(self):
        command = [settings.C_COMPILER, *C, "-M", "-I", os.path.join(settings.SOURCE, "include"), "-"]
        text = '#include "zantlog/zantlog.h"\n'
        read = subprocess.run(command, input=text, capture_output=True, text=True, check=True).stdout
        brought = set(re.findall(r"/zantlog/(\w+\.h)", read))
        self.assertEqual(brought, set(headers()))

    def test_a_bad_header_is_seen(self):
        self.assertIn("error", compile_errors(settings.C_COMPILER, C, "uint32_t undeclared_type;\n"))
        self.assertIn("error", compile_errors(settings.CXX_COMPILER, CXX, "inline int unused(int value) { return 1; }\n"))


class Documentation(unittest.TestCase):
    def texts(self):
        for name in headers():
            with open(os.path.join(settings.SOURCE, FOLDER, name), encoding="utf-8") as file:
                yield file.read()

    def test_every_exported_function_has_a_prototype_with_its_comment(self):
        names = dll_file.listed_exports(os.path.join(settings.SOURCE, "api/zantlog_3.def"))
        self.assertEqual(undocumented(self.texts(), names), [])

    def test_every_catalog_function_has_a_prototype_with_its_comment(self):
        names = dll_file.listed_exports(os.path.join(settings.SOURCE, "catalog/qzlis_3.def"))
        self.assertEqual(undocumented(self.texts(), names), [])

    def test_every_localizer_function_has_a_prototype_with_its_comment(self):
        names = dll_file.listed_exports(os.path.join(settings.SOURCE, "localizer/zantLogFormatMsg_3.def"))
        self.assertEqual(undocumented(self.texts(), names), [])

    def test_a_missing_comment_is_seen(self):
        text = "/** Does. */\nZANTLOG_API int does(int a,\n    int b);\nZANTLOG_API int bare(int a);\n/** x */\n\nint far(void);\n"
        self.assertEqual(undocumented([text], ["does", "bare", "far", "gone"]), ["bare", "far", "gone"])
