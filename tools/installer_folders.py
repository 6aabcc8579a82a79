#!/usr/bin/env python3
"""Writes what the installer says about the folders beside the program: every file in them, one component for each folder.

Usage: tools/installer_folders.py CONTENT VERSION >folders.wxs

CONTENT is the folder of the package. wixl reads the result together with resources/package/installer.wxs, which names the
directory INSTALLDIR and refers to the group Folders. An upgrade removes the older version first, so the components of a
version are its own.
"""

import pathlib
import re
import sys
import uuid
from xml.sax.saxutils import quoteattr


def identifier(*parts):
    return re.sub(r"[^A-Za-z0-9_.]", "_", ".".join(parts))


def guid(name, version):
    return str(uuid.uuid5(uuid.NAMESPACE_URL, f"Brisgate {version} folder {name}")).upper()


def folder(path, content, version, components):
    """The lines of a folder and of those in it; the names of their components go into the list."""
    name = path.relative_to(content).as_posix()
    yield f"<Directory Id={quoteattr(identifier('folder', name))} Name={quoteattr(path.name)}>"
    files = sorted(entry for entry in path.iterdir() if entry.is_file())
    if files:
        components.append(identifier("files", name))
        yield f'<Component Id="{components[-1]}" Guid="{guid(name, version)}" Win64="yes">'
        for number, file in enumerate(files):
            key = ' KeyPath="yes"' if number == 0 else ""
            file_id = identifier("file", file.relative_to(content).as_posix())
            yield f"<File Id={quoteattr(file_id)} Name={quoteattr(file.name)} Source={quoteattr(str(file))}{key}/>"
        yield "</Component>"
    for entry in sorted(path.iterdir()):
        if entry.is_dir():
            yield from folder(entry, content, version, components)
    yield "</Directory>"


def main():
    if len(sys.argv) != 3:
        sys.exit(__doc__)
    content, version = pathlib.Path(sys.argv[1]), sys.argv[2]
    components = []
    lines = ['<?xml version="1.0" encoding="UTF-8"?>', '<Wix xmlns="http://schemas.microsoft.com/wix/2006/wi">', "<Fragment>",
             '<DirectoryRef Id="INSTALLDIR">']
    for path in sorted(content.iterdir()):
        if path.is_dir():
            lines.extend(folder(path, content, version, components))
    lines += ["</DirectoryRef>", '<ComponentGroup Id="Folders">']
    lines += [f'<ComponentRef Id="{name}"/>' for name in components]
    lines += ["</ComponentGroup>", "</Fragment>", "</Wix>"]
    print("\n".join(lines))


main()
