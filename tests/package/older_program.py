#!/usr/bin/env python3
"""Makes a program that the system takes for an older one: the same, with a lower number in its version resource.

Usage: tests/package/older_program.py PROGRAM OLDER
"""

import pathlib
import struct
import sys

FIXED_VERSION = struct.pack("<II", 0xFEEF04BD, 0x00010000)
OLDER = struct.pack("<IIII", 0x00010000, 1 << 16, 0x00010000, 1 << 16)  # file and product: 1.0.1.0

if len(sys.argv) != 3:
    sys.exit(__doc__)
content = bytearray(pathlib.Path(sys.argv[1]).read_bytes())
place = content.index(FIXED_VERSION) + len(FIXED_VERSION)
content[place:place + len(OLDER)] = OLDER
pathlib.Path(sys.argv[2]).write_bytes(content)
