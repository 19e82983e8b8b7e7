"""The Windows packages as their users have them: installer and archive, under Wine.

The environment names the folder of the packages, a folder with what make-windows makes, and the version."""

import os
import pathlib
import shutil
import struct
import unittest
import zipfile

from wine import SYSTEM, Wine, path_in

PACKAGES, FOLDER = (pathlib.Path(os.environ[name]).resolve() for name in ("ORVANE_PACKAGES", "ORVANE_FOLDER"))
VERSION = os.environ["ORVANE_VERSION"]
NAME = f"OrvaneDocumenti-{VERSION}-windows"
INSTALLER = PACKAGES / f"{NAME}.exe"
OLDER = FOLDER / "older.exe"
SCRIPT = pathlib.Path(__file__).resolve().parents[2] / "examples" / "print_job.vbs"
KEY = r"Software\Microsoft\Windows\CurrentVersion\Uninstall\OrvaneDocumenti"
ROOTS = {"/AllUsers": "HKLM\\" + KEY, "/CurrentUser": "HKCU\\" + KEY}

LIBRARY = r"Software\Classes\TypeLib\{FED23F78-B579-4FA6-980C-64D2009A38BE}\1.0\0"

wine = None
before = None


def setUpModule():
    global wine, before
    wine = Wine(FOLDER / "wine")
    before = wine.state()


def tearDownModule():
    wine.stop()


def version_of(path):
    """The file version of a program's version resource, of which the fixed part begins with a signature."""
    data = path.read_bytes()
    at = data.index(struct.pack("<I", 0xFEEF04BD))
    upper, lower = struct.unpack_from("<II", data, at + 8)
    return f"{upper >> 16}.{upper & 0xFFFF}.{lower >> 16}.{lower & 0xFFFF}"


class WindowsTest(unittest.TestCase):
    def setUp(self):
        self.jobs = FOLDER / "jobs"
        shutil.rmtree(self.jobs, ignore_errors=True)
        self.jobs.mkdir()

    def composes(self, *program):
        """Runs a client, which is to compose job 1 in the folder that it is given last."""
        code, output = wine.run(*program, f"z:{self.jobs}")
        self.assertEqual((0, ["ready", "Laser"]), (code, output.split()))
        (self.jobs / "1.vqs").unlink()

    def leaves_nothing(self):
        after = wine.state()
        self.assertEqual([], sorted(map(str, after - before))[:20])
        self.assertEqual([], sorted(map(str, before - after))[:20])


class Archive(WindowsTest):
    def setUp(self):
        super().setUp()
        shutil.rmtree(FOLDER / NAME, ignore_errors=True)
        with zipfile.ZipFile(PACKAGES / f"{NAME}.zip") as archive:
            archive.extractall(FOLDER)

    def test_a_program_with_the_manifest_needs_no_registration(self):
        for architecture in SYSTEM:
            with self.subTest(architecture=architecture):
                program = FOLDER / "program" / architecture
                shutil.rmtree(program, ignore_errors=True)
                shutil.copytree(FOLDER / architecture, program)
                code, output = wine.run(program / "client.exe", f"z:{self.jobs}")
                self.assertEqual((1, "program id: 0x800401F3\n"), (code, output.replace("\r", "")))
                unpacked = FOLDER / NAME / architecture
                shutil.copy(unpacked / "OrvaneDocumenti.dll", program)
                shutil.copy(unpacked / "client.manifest", program / "client.exe.manifest")
                self.composes(program / "client.exe")
        self.leaves_nothing()

    def test_every_program_has_the_version(self):
        for architecture in SYSTEM:
            unpacked = FOLDER / NAME / architecture
            self.assertEqual(f"{VERSION}.0", version_of(unpacked / "OrvaneDocumenti.dll"))
            self.assertEqual((0, f"orvane {VERSION}\n"), wine.run(unpacked / "orvane.exe", "--version"))
        self.assertEqual(f"{VERSION}.0", version_of(INSTALLER))


class Installer(WindowsTest):
    def install(self, installer, *options):
        code, _ = wine.run(installer, "/S", *options)
        self.assertEqual(0, code)

    def location(self, scope):
        return wine.value(ROOTS[scope], "InstallLocation")

    def uninstall(self, scope):
        """By the command that the system has of the installer, which ends before its work is done."""
        command = wine.value(ROOTS[scope], "QuietUninstallString")
        self.assertRegex(command, r'^"[^"]+" /S$')
        code, _ = wine.run(command.split('"')[1], "/S")
        self.assertEqual(0, code)

    def script_composes(self):
        for architecture in SYSTEM:
            for job in self.jobs.iterdir():
                job.unlink()
            code, output = wine.script(architecture, f"z:{SCRIPT}", "compose", f"z:{self.jobs}")
            self.assertEqual(0, code)
            self.assertTrue(output.startswith("100.vqs: Stampa su Laser, copie 2, A4 (21 x 29,7 cm)"), output)
            self.assertTrue((self.jobs / "100.vqs").stat().st_size > 0)

    def is_installed(self, scope, location):
        self.assertEqual(location, self.location(scope))
        self.assertEqual(VERSION, wine.value(ROOTS[scope], "DisplayVersion"))
        self.assertTrue(path_in(wine.drive, location).joinpath("README.txt").exists())
        for folder, platform in [("x86", "win32"), ("x64", "win64")]:
            library = wine.value(f"{ROOTS[scope][:4]}\\{LIBRARY}\\{platform}", "")
            self.assertEqual(f"{location}\\{folder}\\OrvaneDocumenti.dll", library)

    def test_for_all_users(self):
        self.install(INSTALLER, "/AllUsers")
        self.is_installed("/AllUsers", r"C:\Program Files (x86)\OrvaneDocumenti")
        self.assertIsNone(self.location("/CurrentUser"))
        self.script_composes()
        self.uninstall("/AllUsers")
        self.leaves_nothing()

    # Wine does not look for classes in the user's part of the registry, so that no program can be tried.
    def test_for_one_user_in_a_chosen_folder(self):
        self.install(INSTALLER, "/CurrentUser", *r"/D=C:\Dove voglio\io".split())
        self.is_installed("/CurrentUser", r"C:\Dove voglio\io")
        self.assertIsNone(self.location("/AllUsers"))
        self.assertIsNone(wine.value(f"HKLM\\{LIBRARY}\\win32", ""))
        self.uninstall("/CurrentUser")
        wine.shut_down()
        path_in(wine.drive, r"C:\Dove voglio").rmdir()
        self.leaves_nothing()

    def test_a_newer_one_takes_the_place_of_an_older_one(self):
        self.install(OLDER, "/AllUsers", r"/D=C:\Prima")
        self.assertEqual("0.0.1", wine.value(ROOTS["/AllUsers"], "DisplayVersion"))
        self.install(INSTALLER, "/AllUsers")
        self.is_installed("/AllUsers", r"C:\Prima")
        self.install(INSTALLER, "/AllUsers", r"/D=C:\Dopo")
        self.is_installed("/AllUsers", r"C:\Dopo")
        self.script_composes()
        self.assertFalse(path_in(wine.drive, r"C:\Prima").exists())
        self.uninstall("/AllUsers")
        self.leaves_nothing()

    def test_a_program_that_uses_the_server_is_not_disturbed(self):
        self.install(OLDER, "/AllUsers")
        go = FOLDER / "go"
        go.unlink(missing_ok=True)
        clients = [wine.start(FOLDER / architecture / "client.exe", f"z:{self.jobs}", f"z:{go}")
                   for architecture in SYSTEM]
        for client in clients:
            self.assertEqual("ready", client.stdout.readline().strip())
        self.install(INSTALLER, "/AllUsers")
        self.is_installed("/AllUsers", r"C:\Program Files (x86)\OrvaneDocumenti")
        self.uninstall("/AllUsers")
        go.touch()
        for client in clients:
            self.assertEqual("Laser", client.stdout.readline().strip())
            client.stdout.close()
            self.assertEqual(0, client.wait(timeout=600))
            (self.jobs / "1.vqs").unlink(missing_ok=True)
        self.leaves_nothing()

    def test_what_cannot_be_installed_is_taken_back(self):
        blocked = wine.drive / "Bloccata" / "x86" / "OrvaneDocumenti.dll"
        blocked.mkdir(parents=True)
        code, _ = wine.run(INSTALLER, "/S", "/AllUsers", r"/D=C:\Bloccata")
        self.assertEqual(1, code)
        self.assertIsNone(self.location("/AllUsers"))
        shutil.rmtree(wine.drive / "Bloccata")
        self.leaves_nothing()


if __name__ == "__main__":
    unittest.main()
