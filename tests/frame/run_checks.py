"""Runs all checks of this folder and prints the counts in the line that scripts/test.sh adds up.

usage: run_checks.py NAME=VALUE... [TEST...]      the names are those of settings.py"""

import os
import sys
import unittest

import settings


def main():
    folder = os.path.dirname(os.path.abspath(__file__))
    names = []
    for argument in sys.argv[1:]:
        name, equals, value = argument.partition("=")
        if equals and hasattr(settings, name):
            setattr(settings, name, value)
        else:
            names.append(argument)

    loader = unittest.defaultTestLoader
    tests = loader.loadTestsFromNames(names) if names else loader.discover(folder, pattern="test_*.py")
    result = unittest.TextTestRunner(stream=sys.stdout, verbosity=2).run(tests)
    # Several parts of one test may have failed.
    bad = len({getattr(test, "test_case", test) for test, _ in result.failures + result.errors})
    skipped = len(result.skipped)
    print(f"zantlog-tests: {result.testsRun - bad - skipped} passed, {bad} failed, {skipped} skipped")
    return 0 if result.wasSuccessful() and result.testsRun > 0 else 1


if __name__ == "__main__":
    sys.exit(main())
