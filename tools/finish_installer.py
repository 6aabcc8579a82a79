#!/usr/bin/env python3
"""Adds to an installer what wixl leaves out, and takes from it what differs from one run to the next.

Usage: tools/finish_installer.py INSTALLER VERSION PACKAGE_CODE [PROPERTY=VALUE]...

Without its version in the File table, a file counts as older than any versioned one: an upgrade would keep the program that
is there, and then remove it together with the older product. The creation time of the installer is SOURCE_DATE_EPOCH. A property
without a value is left out.
"""

import os
import struct
import subprocess
import sys

BEFORE_COSTING = 60  # between AppSearch and the actions that ask for folders
AFTER_COSTING = 1010  # once the folders stand
SET_PROPERTY = 51

# Which action takes place when, and what it needs.
ACTIONS = (
    ("TakeRememberedFolder", "INSTALLDIR", "[REMEMBEREDFOLDER]", BEFORE_COSTING,
     "NOT INSTALLDIR AND REMEMBEREDFOLDER", ("InstallExecuteSequence", "InstallUISequence")),
    ("TellFolder", "ARPINSTALLLOCATION", "[INSTALLDIR]", AFTER_COSTING, "", ("InstallExecuteSequence",)),
    ("TellGuide", "ARPHELPLINK", "file:///[INSTALLDIR]guide\\index.html", AFTER_COSTING + 1, "NOT ARPHELPLINK",
     ("InstallExecuteSequence",)),
)

SUMMARY_FORMAT = bytes.fromhex("e0859ff2f94f6810ab9108002b27b3d9")
PACKAGE_CODE, CREATED, LAST_SAVED = 9, 12, 13
SECONDS_FROM_1601_TO_1970 = 11_644_473_600


def queries(version, properties):
    yield f"UPDATE `File` SET `Version` = '{version}', `Language` = '1033' WHERE `File` = 'Executable'"
    yield "DELETE FROM `MsiFileHash` WHERE `File_` = 'Executable'"  # only for files without a version
    secure = "INSTALLDIR;REMEMBEREDFOLDER;WIX_DOWNGRADE_DETECTED;WIX_UPGRADE_DETECTED"
    yield f"UPDATE `Property` SET `Value` = '{secure}' WHERE `Property` = 'SecureCustomProperties'"
    for name, value in properties:
        text = value.replace("'", "\u2019")  # the language of the queries knows no way to write the straight one
        yield f"INSERT INTO `Property` (`Property`, `Value`) VALUES ('{name}', '{text}')"
    for name, target, value, number, condition, sequences in ACTIONS:
        yield ("INSERT INTO `CustomAction` (`Action`, `Type`, `Source`, `Target`) "
               f"VALUES ('{name}', {SET_PROPERTY}, '{target}', '{value}')")
        for sequence in sequences:
            yield (f"INSERT INTO `{sequence}` (`Action`, `Condition`, `Sequence`) "
                   f"VALUES ('{name}', '{condition}', {number})")


def summary_properties(content):
    """Yields the number of each property of the summary and the place of its type."""
    found = content.find(SUMMARY_FORMAT)
    if found < 0 or content.find(SUMMARY_FORMAT, found + 1) >= 0:
        sys.exit("the installer has not exactly one summary")
    header = found - 28
    section = header + struct.unpack_from("<I", content, found + len(SUMMARY_FORMAT))[0]
    for i in range(struct.unpack_from("<I", content, section + 4)[0]):
        number, offset = struct.unpack_from("<II", content, section + 8 + 8 * i)
        yield number, section + offset


def settle(content, package_code, seconds):
    """Puts the package code and the times into the summary, in the room that is there for them."""
    ticks = (seconds + SECONDS_FROM_1601_TO_1970) * 10_000_000
    code = b"{" + package_code.upper().encode("ascii") + b"}\0"
    settled = set()
    for number, place in summary_properties(content):
        if number in (CREATED, LAST_SAVED):
            struct.pack_into("<Q", content, place + 4, ticks)
        elif number == PACKAGE_CODE and struct.unpack_from("<I", content, place + 4)[0] == len(code):
            content[place + 8:place + 8 + len(code)] = code
        else:
            continue
        settled.add(number)
    if settled != {PACKAGE_CODE, CREATED, LAST_SAVED}:
        sys.exit(f"the summary of the installer has only {sorted(settled)}")


def main():
    if len(sys.argv) < 4:
        sys.exit(__doc__)
    path, version, package_code, *words = sys.argv[1:]
    properties = [(name, value) for name, _, value in (word.partition("=") for word in words) if value]
    subprocess.run(["msibuild", path, "-q", *queries(version, properties)], check=True)
    with open(path, "rb") as file:
        content = bytearray(file.read())
    settle(content, package_code, int(os.environ["SOURCE_DATE_EPOCH"]))
    with open(path, "wb") as file:
        file.write(content)


main()
