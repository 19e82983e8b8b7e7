#!/usr/bin/env python3
"""The server imports libraries of the system only: imports.py OBJDUMP DLL"""

import re
import subprocess
import sys

ALLOWED = {"advapi32.dll", "kernel32.dll", "msvcrt.dll", "ole32.dll", "oleaut32.dll", "user32.dll", "shlwapi.dll"}

output = subprocess.run([sys.argv[1], "-p", sys.argv[2]], check=True, capture_output=True, text=True).stdout
imported = {name.lower() for name in re.findall(r"DLL Name: (\S+)", output)}
if not imported:
    sys.exit("no import table found")
if imported - ALLOWED:
    sys.exit(f"imports that a plain Windows does not have: {', '.join(sorted(imported - ALLOWED))}")
