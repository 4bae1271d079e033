"""The tree keeps its rules; and the checks see it when a tree does not."""

import os
import tempfile
import unittest

import settings
import tree_rules


def findings_of(check, files):
    """What a check finds in a tree of the files given as {path: text}."""
    with tempfile.TemporaryDirectory() as root:
        for path, text in files.items():
            full = os.path.join(root, path)
            os.makedirs(os.path.dirname(full), exist_ok=True)
            with open(full, "w", encoding="utf-8") as file:
                file.write(text)
        return check(root)


class TheTree(unittest.TestCase):
    maxDiff = None

    def test_no_include_leads_upwards(self):
        self.assertEqual(tree_rules.check_arrows(settings.SOURCE), [])

    def test_windows_is_called_in_windows_files_only(self):
        self.assertEqual(tree_rules.check_system_names(settings.SOURCE), [])

    def test_the_library_reaches_the_world_through_the_seam(self):
        self.assertEqual(tree_rules.check_runtime_calls(settings.SOURCE), [])

    def test_every_folder_of_the_rules_has_sources(self):
        files = tree_rules.source_files(settings.SOURCE)
        for folder in [tree_rules.PUBLIC, *tree_rules.ARROWS, *tree_rules.UNRULED]:
            self.assertTrue(any(path.startswith(folder + "/") for path in files), folder)


class TheArrowCheck(unittest.TestCase):
    def test_sees_an_arrow_that_points_back(self):
        found = findings_of(tree_rules.check_arrows, {
            "reader/records.h": "",
            "config/load.cpp": '// text\n#include "reader/records.h"\n',
        })
        self.assertEqual(found, ["config/load.cpp:2: config may not include reader/records.h"])

    def test_sees_it_through_a_relative_path(self):
        found = findings_of(tree_rules.check_arrows, {
            "api/handle.h": "",
            "base/text.cpp": '#include "../api/handle.h"\n',
        })
        self.assertEqual(found, ["base/text.cpp:1: base may not include api/handle.h"])

    def test_sees_a_public_header_that_includes_an_internal_one(self):
        found = findings_of(tree_rules.check_arrows, {
            "base/text.h": "",
            "include/zantlog/message.h": '#include "base/text.h"\n',
        })
        self.assertEqual(found, ["include/zantlog/message.h:1: include/zantlog may not include base/text.h"])

    def test_sees_a_tool_that_includes_an_internal_header(self):
        found = findings_of(tree_rules.check_arrows, {
            "logfile/os/os_file.h": "",
            "tools/logger.cpp": '#include <logfile/os/os_file.h>\n',
        })
        self.assertEqual(found, ["tools/logger.cpp:1: tools may not include logfile/os/os_file.h"])

    def test_sees_a_quoted_include_of_no_file(self):
        found = findings_of(tree_rules.check_arrows, {"base/text.cpp": '#include "base/missing.h"\n'})
        self.assertEqual(found, ['base/text.cpp:1: "base/missing.h" is no file of the tree; foreign headers take <>'])

    def test_sees_a_source_outside_the_folders(self):
        found = findings_of(tree_rules.check_arrows, {"extra/new.cpp": ""})
        self.assertEqual(found, ["extra/new.cpp: stands in no folder that has rules"])

    def test_accepts_arrows_that_point_down(self):
        found = findings_of(tree_rules.check_arrows, {
            "include/zantlog/message.h": "#include <stdint.h>\n",
            "base/text.h": '#include "zantlog/message.h"\n',
            "propstore/store.h": '#include "base/text.h"\n',
            "config/load.h": '#include "propstore/store.h"\n',
            "reader/records.h": '#include "config/load.h"\n#include "records_detail.h"\n',
            "reader/records_detail.h": "",
            "logfile/writer/append.cpp": '#include "reader/records.h"\n#include "propstore/store.h"\n',
            "tests/reader/records_test.cpp": '#include "reader/records.h"\n',
        })
        self.assertEqual(found, [])


class TheWindowsCheck(unittest.TestCase):
    def test_sees_the_header_a_type_and_a_function(self):
        found = findings_of(tree_rules.check_system_names, {
            "reader/records.cpp": "#include <windows.h>\nHANDLE file;\nauto f = ::CreateFileA(0);\nint h = htonl(1);\n",
        })
        self.assertEqual(found, [
            "reader/records.cpp:1: <windows.h> outside *_windows",
            "reader/records.cpp:2: HANDLE outside *_windows",
            "reader/records.cpp:3: CreateFileA outside *_windows",
            "reader/records.cpp:4: htonl outside *_windows",
        ])

    def test_sees_it_in_a_header(self):
        found = findings_of(tree_rules.check_system_names, {"logfile/os/os_file.h": "inline DWORD n;\n"})
        self.assertEqual(found, ["logfile/os/os_file.h:1: DWORD outside *_windows"])

    def test_sees_a_windows_header_outside_the_windows_files(self):
        found = findings_of(tree_rules.check_system_names, {
            "logfile/os/filetime_windows.h": "#include <windows.h>\ninline FILETIME t;\n",
            "logfile/os/file_windows.cpp": '#include "logfile/os/filetime_windows.h"\n',
            "reader/records.cpp": '#include "logfile/os/filetime_windows.h"\n',
        })
        self.assertEqual(found, ["reader/records.cpp:1: <logfile/os/filetime_windows.h> outside *_windows"])

    def test_overlooks_comments_and_texts(self):
        found = findings_of(tree_rules.check_system_names, {
            "reader/records.cpp": '// as CreateFileA(x) does\n/* HANDLE\n */ const char *t = "DWORD \\" Sleep(1)";\n',
        })
        self.assertEqual(found, [])

    def test_overlooks_types_of_our_own(self):
        found = findings_of(tree_rules.check_system_names, {
            "reader/records.cpp": "class OpenFile { OpenFile(); };\nvoid f() { OpenFile(); }\n",
        })
        self.assertEqual(found, [])

    def test_overlooks_methods_and_the_windows_files(self):
        found = findings_of(tree_rules.check_system_names, {
            "reader/records.cpp": "void f() { clock.Sleep(1); clock->Sleep(1); }\n",
            "logfile/os/clock_windows.cpp": "#include <windows.h>\nvoid f() { Sleep(1); }\n",
        })
        self.assertEqual(found, [])


class TheRuntimeCheck(unittest.TestCase):
    def test_sees_calls_of_the_runtime(self):
        found = findings_of(tree_rules.check_runtime_calls, {
            "base/a.cpp": "void *p = malloc(1);\nint n = std::printf(t);\nauto t = ::time(0);\nauto l = wcslen(w);\n",
        })
        self.assertEqual(found, [
            "base/a.cpp:1: malloc() outside *_windows",
            "base/a.cpp:2: printf() outside *_windows",
            "base/a.cpp:3: time() outside *_windows",
            "base/a.cpp:4: wcslen() outside *_windows",
        ])

    def test_sees_headers_whose_types_allocate(self):
        found = findings_of(tree_rules.check_runtime_calls, {"api/a.cpp": "#include <string>\n#include <cstdint>\n"})
        self.assertEqual(found, ["api/a.cpp:1: <string> in the library"])

    def test_overlooks_our_own_names(self):
        found = findings_of(tree_rules.check_runtime_calls, {
            "base/a.cpp": "auto a = os::time(0);\nstream.write(1);\nfile->close();\nint timeOf(int);\nwcs2utf8(o, t);\n",
            "tools/a.cpp": '#include <string>\nint main() { printf("x"); }\n',
        })
        self.assertEqual(found, [])
