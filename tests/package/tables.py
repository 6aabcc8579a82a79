#!/usr/bin/env python3
"""Reads the tables of an installer: what Windows will make of it when it installs or replaces the program.

Usage: tests/package/tables.py INSTALLER FOLDER

FOLDER holds the files of the installer as they are installed. Every difference is named; the exit code says whether there
are any.
"""

import pathlib
import re
import struct
import subprocess
import sys

FIXED_VERSION = struct.pack("<II", 0xFEEF04BD, 0x00010000)
ORDER = (  # in which Windows has to do what
    "AppSearch", "TakeRememberedFolder", "CostInitialize", "FileCost", "CostFinalize", "TellFolder", "InstallValidate",
    "RemoveExistingProducts", "InstallInitialize", "InstallFiles", "WriteRegistryValues", "RegisterProduct", "InstallFinalize")
PROPERTIES = {"REINSTALLMODE": "amus", "ALLUSERS": "1", "ARPNOMODIFY": "1", "ProductName": "Client QLD"}
VALID_64_BIT_TEXT = 18  # a value of the registry as it is, read from the 64-bit half

differences = []


def expect(found, wanted, what):
    if found != wanted:
        differences.append(f"{what}: {found!r}, not {wanted!r}")


class Installer:
    def __init__(self, path):
        self.path = path

    def rows(self, table):
        """The rows of a table: one dictionary each, after the three lines that describe the columns."""
        text = subprocess.run(["msiinfo", "export", self.path, table], check=True, capture_output=True).stdout
        lines = text.decode("utf-8").replace("\r\n", "\n").rstrip("\n").split("\n")
        names = lines[0].split("\t")
        return [dict(zip(names, line.split("\t"))) for line in lines[3:]]

    def tables(self):
        return subprocess.run(["msiinfo", "tables", self.path], check=True, capture_output=True, text=True).stdout.split()


def version_of(program):
    content = program.read_bytes()
    high, low = struct.unpack_from("<II", content, content.index(FIXED_VERSION) + len(FIXED_VERSION))
    return f"{high >> 16}.{high & 0xFFFF}.{low >> 16}.{low & 0xFFFF}"


def check_program(installer, folder):
    programs = [row for row in installer.rows("File") if row["File"] == "Executable"]
    expect(len(programs), 1, "number of programs")
    expect(programs[0]["Version"], version_of(folder / "brisgate.exe"), "version of the program in the File table")
    expect(programs[0]["Language"], "1033", "language of the program in the File table")
    hashed = {row["File_"] for row in installer.rows("MsiFileHash")}
    unversioned = {row["File"] for row in installer.rows("File") if not row["Version"]}
    expect(hashed, unversioned, "files with a hash")


def check_order(installer):
    numbers = {row["Action"]: int(row["Sequence"]) for row in installer.rows("InstallExecuteSequence")}
    expect([name for name in ORDER if name not in numbers], [], "actions that are missing")
    present = [name for name in ORDER if name in numbers]
    expect(sorted(present, key=numbers.get), present, "sequence of actions")
    expect(len(set(numbers.values())), len(numbers), "number of different places in the sequence")
    early = {row["Action"]: int(row["Sequence"]) for row in installer.rows("InstallUISequence")}
    expect(early["AppSearch"] < early["TakeRememberedFolder"] < early["CostInitialize"], True, "sequence with windows")


def check_properties(installer):
    properties = {row["Property"]: row["Value"] for row in installer.rows("Property")}
    for name, value in PROPERTIES.items():
        expect(properties.get(name), value, name)
    expect({"INSTALLDIR", "REMEMBEREDFOLDER"} <= set(properties["SecureCustomProperties"].split(";")), True,
           "folders handed over to the service of the installer")


def check_remembered_folder(installer):
    searches = installer.rows("RegLocator")
    expect([row["Type"] for row in searches], [str(VALID_64_BIT_TEXT)], "kind of the search")
    written = [(row["Root"], row["Key"], row["Name"]) for row in installer.rows("Registry") if row["Value"] == "[INSTALLDIR]"]
    expect([(row["Root"], row["Key"], row["Name"]) for row in searches], written, "where the folder is remembered")
    actions = {row["Action"]: (row["Source"], row["Target"], row["Type"]) for row in installer.rows("CustomAction")}
    expect(actions.get("TakeRememberedFolder"), ("INSTALLDIR", "[REMEMBEREDFOLDER]", "51"), "taking the folder over")
    expect(actions.get("TellGuide"), ("ARPHELPLINK", "file:///[INSTALLDIR]guide\\index.html", "51"), "telling the guide")
    expect(actions.get("TellFolder"), ("ARPINSTALLLOCATION", "[INSTALLDIR]", "51"), "telling the folder")


def promised_files():
    """The files that README says the packages hold."""
    readme = pathlib.Path("README.md").read_text(encoding="utf-8")
    listed = re.search(r"<!-- files of the packages -->\n(.*?)\n\n[^ ]", readme, re.DOTALL)
    return sorted(line.split()[0] for line in listed.group(1).split("\n") if line.strip())


def check_files(folder):
    found = {path.relative_to(folder).as_posix() for path in folder.rglob("*") if path.is_file()}
    top = sorted({name.split("/")[0] + "/" if "/" in name else name for name in found})
    expect(top, promised_files(), "files, beside what README says,")


def main():
    if len(sys.argv) != 3:
        sys.exit(__doc__)
    installer, folder = Installer(sys.argv[1]), pathlib.Path(sys.argv[2])
    check_program(installer, folder)
    check_order(installer)
    check_properties(installer)
    check_remembered_folder(installer)
    check_files(folder)
    for difference in differences:
        print(f"FAILED: {difference}", file=sys.stderr)
    sys.exit(1 if differences else 0)


main()
