"""The examples in README.md are what examples/ holds, and do what README.md says of them."""

import glob
import os
import re
import subprocess
import tempfile
import unittest

import settings


def read(path):
    with open(os.path.join(settings.SOURCE, path), encoding="utf-8") as file:
        return file.read()


def code_blocks(text, language):
    return re.findall(rf"^```{language}\n(.*?)^```$", text, re.MULTILINE | re.DOTALL)


def windows_path(path):
    return "Z:" + os.path.abspath(path).replace("/", "\\")


def run(program, *arguments, location):
    environment = dict(os.environ, ZANTLOG_CFG_LOC=windows_path(location))
    command = [os.path.join(settings.SOURCE, "scripts/wine-run"), os.path.join(settings.BIN, program), *arguments]
    return subprocess.run(command, env=environment, capture_output=True, text=True, timeout=60)


def words_of(command):
    return [quoted or plain for quoted, plain in re.findall(r'"([^"]*)"|(\S+)', command)]


def bat_blocks():
    return [block.splitlines() for block in code_blocks(read("README.md"), "bat")]


class Readme(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = folder.name
        self.location = os.path.join(self.folder, "products.conf")

        # Registered as README.md shows it, in a folder of this test's.
        setting, *commands = bat_blocks()[0]
        self.assertEqual(setting, "set ZANTLOG_CFG_LOC=C:\\logs\\products.conf")
        for command in commands:
            program, *arguments = words_of(command.replace("C:\\logs", windows_path(self.folder)))
            done = run(program + ".exe", *arguments, location=self.location)
            self.assertEqual((done.returncode, done.stderr), (0, ""), command)

    def log_lines(self):
        (path,) = glob.glob(os.path.join(self.folder, "12-3-*.log"))
        self.assertRegex(os.path.basename(path), r"^12-3-[0-9]+-[0-9]{6}-0000000000\.log$")
        with open(path, "rb") as file:
            return file.read().decode("ascii").split("\n")

    def test_the_scenario_in_the_page_on_testing_is_one_that_runs(self):
        sweeps = read("tests/sweeps/rollover_sweeps.cpp")
        blocks = code_blocks(read("docs/testing.md"), "cpp")
        self.assertEqual(len(blocks), 1)
        scenario, test = blocks[0].split("\n\nTEST")
        self.assertIn(scenario.strip(), sweeps)
        self.assertIn("TEST" + test.strip(), sweeps)

    def test_the_c_example_is_examples_hello(self):
        self.assertEqual(code_blocks(read("README.md"), "c"), [read("examples/hello.c")])

    def test_the_c_example_logs_its_message(self):
        done = run("hello.exe", location=self.location)
        self.assertEqual((done.returncode, done.stdout, done.stderr), (0, "", ""))
        header, record, end = self.log_lines()
        self.assertTrue(header.startswith("$Header 65543,12,3,"), header)
        self.assertRegex(record, r"^2,12,3,3,1,[0-9]{13},[0-9]+,[0-9]+,0:,20:disk C: is 93 % full,0:,2,\(0\|\)$")
        self.assertEqual(end, "")

    def test_the_command_line_logs_the_same(self):
        (command,) = bat_blocks()[1]
        program, *arguments = words_of(command)
        self.assertEqual(program, "qzlogger")
        done = run("qzlogger.exe", *arguments, location=self.location)
        self.assertEqual((done.returncode, done.stdout, done.stderr), (0, "", ""))
        self.assertRegex(self.log_lines()[1], r"^2,12,3,3,1,.*,20:disk C: is 93 % full,0:,2,\(0\|\)$")


class Tools(unittest.TestCase):
    """The examples of docs/tools.md, one after the other as they stand there."""

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = folder.name
        self.location = os.path.join(self.folder, "products.conf")

    def qzlogcfg(self, *arguments):
        return run("qzlogcfg.exe", *arguments, location=self.location)

    def test_the_examples_of_the_configuration_tool(self):
        (block,) = code_blocks(read("docs/tools.md"), "console")
        for command in block.splitlines():
            program, *arguments = words_of(command.replace("C:\\shop", windows_path(self.folder)))
            self.assertEqual(program, "qzlogcfg")
            done = self.qzlogcfg(*arguments)
            self.assertEqual((done.returncode, done.stderr), (0, ""), command + done.stdout)

    def completed(self, *words):
        """What bash offers for the last word."""
        script = self.qzlogcfg("completion", "bash").stdout
        line = "COMP_WORDS=(qzlogcfg " + " ".join(f"'{word}'" for word in words) + f"); COMP_CWORD={len(words)}"
        ask = f'{script}\n{line}\ncompopt() {{ :; }}\n_qzlogcfg\nprintf "%s\\n" "${{COMPREPLY[@]}}"'
        done = subprocess.run(["bash", "-c", ask], capture_output=True, text=True, timeout=60)
        self.assertEqual(done.stderr, "")
        return done.stdout.split()

    def test_bash_completes_commands_options_and_keys(self):
        self.assertEqual(self.completed("un"), ["unset", "unregister"])
        self.assertEqual(self.completed("--location", "x.conf", "di"), ["diff"])
        self.assertEqual(self.completed("set", "12", "3", "Debug"), ["DebugLevel="])
        self.assertEqual(self.completed("unset", "12", "3", "Debug"), ["DebugLevel"])
        self.assertEqual(self.completed("import", "x.json", "--r"), ["--replace"])
