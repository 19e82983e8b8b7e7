#!/usr/bin/env python3
"""Takes the time of its making out of a type library, so that equal descriptions make equal bytes: undate.py TLB"""

import pathlib
import re
import sys

# widl says it twice, one behind the other: as text, and as seconds in a number of the type VT_UI4 (0x13).
MADE = re.compile(rb"(Created by WIDL version \S+ at ).{24}(\nW*\x13\0).{4}", re.DOTALL)
EPOCH = rb"\1Thu Jan  1 00:00:00 1970\2" + bytes(4)

path = pathlib.Path(sys.argv[1])
path.write_bytes(MADE.sub(EPOCH, path.read_bytes()))
