"""A place to run Windows programs in: a Wine prefix on a display of its own, kept for many runs."""

import os
import subprocess

# Shows what it exports, then waits until its input ends.
KEEPER = """
. tools/wine.sh
trap end_wine EXIT
start_display 1280x1024
use_prefix "$1" >&2
without_window_manager
wine reg add 'HKCU\\Software\\Wine\\WineDbg' /v ShowCrashDialog /t REG_DWORD /d 0 /f >/dev/null
wineserver -w
env -0
printf '\\0'
read -r _
"""


class Place:
    def __init__(self, checkout, prefix):
        self._prefix = prefix
        self._keeper = subprocess.Popen(["bash", "-c", KEEPER, "bash", str(prefix)], cwd=checkout,
                                        stdin=subprocess.PIPE, stdout=subprocess.PIPE, start_new_session=True)
        self.environment = {}
        while line := self._line():
            name, _, value = line.partition("=")
            self.environment[name] = value
        if "DISPLAY" not in self.environment:
            raise RuntimeError("Wine does not start")
        self._registry = {file: file.read_bytes() for file in prefix.glob("*.reg")}

    def _line(self):
        text = bytearray()
        while (byte := self._keeper.stdout.read(1)) not in (b"", b"\0"):
            text += byte
        return os.fsdecode(bytes(text))

    def clear(self):
        """Ends what was left running, and takes back what was left in the registry."""
        for option in ("-k", "-w"):
            subprocess.run(["wineserver", option], env=self.environment, stderr=subprocess.DEVNULL, check=False)
        for file, content in self._registry.items():
            file.write_bytes(content)

    def close(self):
        self._keeper.stdin.close()
        self._keeper.wait()
