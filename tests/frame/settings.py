"""Where things are; run_checks.py sets it from its arguments."""

SOURCE = ""
BIN = ""
LIB = ""
C_COMPILER = ""
CXX_COMPILER = ""
OBJDUMP = ""
