"""zantlog_3.dll is what its .def file says, and needs nothing but Windows and the catalog library."""

import glob
import os
import unittest

import dll_file
import settings

CATALOG = "qzlis_3.dll"
OF_WINDOWS = {"kernel32.dll", "msvcrt.dll", "advapi32.dll", "user32.dll", "shlwapi.dll", "ws2_32.dll"}


class TheDll(unittest.TestCase):
    maxDiff = None

    def setUp(self):
        self.dll = os.path.join(settings.BIN, "zantlog_3.dll")
        self.listed = dll_file.listed_exports(os.path.join(settings.SOURCE, "api/zantlog_3.def"))

    def test_exports_what_the_def_file_lists(self):
        self.assertEqual(sorted(dll_file.exports(self.dll)), sorted(self.listed))

    def test_the_def_file_is_sorted_and_names_nothing_twice(self):
        self.assertEqual(self.listed, sorted(set(self.listed)))
        self.assertGreater(len(self.listed), 0)

    def test_imports_only_windows_own_dlls_and_the_catalog_library(self):
        imported = {name.lower() for name in dll_file.imports(self.dll)}
        self.assertIn(CATALOG, imported)
        self.assertEqual(imported - OF_WINDOWS - {CATALOG}, set())

    def test_imports_nothing_but_listed_names_from_the_catalog_library(self):
        offered = dll_file.listed_exports(os.path.join(settings.SOURCE, "catalog/qzlis_3.def"))
        used = dll_file.imports(self.dll)[CATALOG]
        self.assertGreater(len(used), 0)
        self.assertEqual(set(used) - set(offered), set())

    def test_has_version_3_9_0_3(self):
        self.assertEqual(dll_file.file_version(self.dll), (3, 9, 0, 3))

    def test_both_import_libraries_offer_every_export(self):
        for name in ["libzantlog.dll.a", "zantlog_3.lib"]:
            with self.subTest(name):
                offered = dll_file.import_library_names(os.path.join(settings.LIB, name))
                self.assertEqual(offered, sorted(self.listed))

    def test_every_export_is_called_by_a_test_of_the_dll(self):
        called = set()
        for program in glob.glob(os.path.join(settings.BIN, "*_interface_tests.exe")):
            called.update(dll_file.imports(program).get("zantlog_3.dll", []))
        self.assertEqual(sorted(set(self.listed) - called), [])


class TheCatalogDll(unittest.TestCase):
    def setUp(self):
        self.dll = os.path.join(settings.BIN, CATALOG)

    def test_exports_what_its_def_file_lists(self):
        listed = dll_file.listed_exports(os.path.join(settings.SOURCE, "catalog/qzlis_3.def"))
        self.assertEqual(sorted(dll_file.exports(self.dll)), sorted(listed))

    def test_imports_only_windows_own_dlls(self):
        imported = {name.lower() for name in dll_file.imports(self.dll)}
        self.assertGreater(len(imported), 0)
        self.assertEqual(imported - OF_WINDOWS, set())


class TheLocalizerDll(unittest.TestCase):
    def setUp(self):
        self.dll = os.path.join(settings.BIN, "localizer/zantLogFormatMsg_3.dll")

    def test_exports_what_its_def_file_lists(self):
        listed = dll_file.listed_exports(os.path.join(settings.SOURCE, "localizer/zantLogFormatMsg_3.def"))
        self.assertEqual(sorted(dll_file.exports(self.dll)), sorted(listed))

    def test_imports_only_windows_own_dlls_and_the_two_of_the_library(self):
        imported = {name.lower() for name in dll_file.imports(self.dll)}
        self.assertEqual(imported - OF_WINDOWS - {CATALOG}, {"zantlog_3.dll"})

    def test_has_allocator_lock_and_configuration_from_the_library(self):
        used = set(dll_file.imports(self.dll)["zantlog_3.dll"])
        self.assertEqual(used, {"strncatlis", "zantLockCommon", "zantLogFree", "zantLogFreeCfg", "zantLogMalloc",
                                "zantLogReadCfg", "zantLogSafeStrdup", "zantUnlockCommon"})

    def test_has_version_3_9_0_3(self):
        self.assertEqual(dll_file.file_version(self.dll), (3, 9, 0, 3))
