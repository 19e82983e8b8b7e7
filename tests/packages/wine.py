"""A Windows of Wine that nothing was installed on yet."""

import os
import pathlib
import shutil
import subprocess

SYSTEM = {"x86": "c:/windows/syswow64", "x64": "c:/windows/system32"}
# The loader for 32-bit programs sees the 32-bit system folder only, and never says so.
LOADER = {"x86": "wine", "x64": shutil.which("wine64") or "/usr/lib/wine/wine64"}
PROCESSOR = {"x86": "x86", "x64": "AMD64"}


def wineserver():
    return shutil.which("wineserver") or "/usr/lib/wine/wineserver"


class Wine:
    def __init__(self, folder):
        self.folder, self.drive = folder, folder / "drive_c"
        self.environment = {name: value for name, value in os.environ.items() if name != "DISPLAY"} | {
            "WINEPREFIX": str(folder), "WINEDEBUG": "-all", "WINEDLLOVERRIDES": "winemenubuilder.exe="}
        shutil.rmtree(folder, ignore_errors=True)
        folder.mkdir(parents=True)
        self.run("wineboot", "--init", timeout=600)
        # The first script has Wine register what scripts need.
        script = self.drive / "first.vbs"
        script.write_text('WScript.Echo CreateObject("WScript.Shell").ExpandEnvironmentStrings("%PROCESSOR_ARCHITECTURE%")\r\n',
                          encoding="ascii")
        for architecture, processor in PROCESSOR.items():
            told = self.script(architecture, "c:/first.vbs")[1].strip()
            assert told == processor, f"the {architecture} script host is one for {told}"
        script.unlink()
        # Every user of Windows has this key, of Wine only those who have something in it.
        self.run("reg", "add", r"HKCU\Software\Classes", "/f")

    def start(self, *command):
        return subprocess.Popen(["wine", *map(str, command)], env=self.environment, stdout=subprocess.PIPE,
                                stderr=subprocess.DEVNULL, encoding="utf-8")

    def run(self, *command, timeout=600, loader="wine"):
        """Exit code and output."""
        done = subprocess.run([loader, *map(str, command)], env=self.environment, stdout=subprocess.PIPE,
                              stderr=subprocess.DEVNULL, encoding="utf-8", timeout=timeout, check=False)
        return done.returncode, done.stdout

    def script(self, architecture, *command):
        return self.run(f"{SYSTEM[architecture]}/cscript.exe", "//nologo", *command, loader=LOADER[architecture])

    def shut_down(self):
        """Once all programs have ended; then the registry is on the disk."""
        subprocess.run([wineserver(), "-w"], env=self.environment, timeout=600, check=True)

    def stop(self):
        subprocess.run([wineserver(), "-k"], env=self.environment, timeout=600, check=False)

    def state(self):
        """What is on the disk and in the registry when the machine has been started again, which is when files that
        were in use are removed."""
        self.shut_down()
        self.run("wineboot")
        self.shut_down()
        return self.files() | self.registry()

    def files(self):
        return {str(path.relative_to(self.drive)) for path in self.drive.rglob("*")}

    def registry(self):
        """Each line with its key, of what programs write. Wine keeps some of its own, which come and go."""
        found = self.saved("system.reg") | self.saved("user.reg")
        return {(key, line) for key, line in found
                if key.startswith(r"[Software\\") and not key.startswith(r"[Software\\Wine\\")}

    def saved(self, name):
        """A key's line has the time of its last change behind it, and a line of its own with the same."""
        found, key = set(), ""
        for line in (self.folder / name).read_text(encoding="utf-8", errors="replace").splitlines():
            if line.startswith("["):
                key = line[:line.rindex("]")]
                line = ""
            if not line.startswith("#time="):
                found.add((key, line))
        return found

    def value(self, key, name):
        """Of the registry that 32-bit programs see; None if it is missing."""
        option = ["/ve"] if not name else ["/v", name]
        code, output = self.run("reg", "query", key, *option, "/reg:32")
        lines = [line.split("REG_SZ")[1].strip() for line in output.splitlines() if "REG_SZ" in line]
        return lines[0] if code == 0 and lines else None


def path_in(drive, windows_path):
    """Where a path of drive C: is for the host."""
    return pathlib.Path(drive, *windows_path.split("\\")[1:])
