"""scripts/check-structure: a sound tree passes, every planted violation is found."""

import pathlib
import subprocess
import sys
import tempfile
import unittest

SCRIPT = pathlib.Path(__file__).resolve().parents[2] / "scripts" / "check-structure"

SOUND = {
    "CMakeLists.txt": "cmake_minimum_required(VERSION 3.25)\nproject(orvane VERSION 1.2.3 LANGUAGES CXX)\n",
    "README.md": "versions 1.2.30, 1.2.3.4, 11.2.3 and 1.2\n",
    "docs/performance.md": "measured with 1.2.3\n",
    "orvane.h": '#include "core/VqDocumenti.h"\n',
    "core/CMakeLists.txt":
        "orvane_sources(JobFile.cpp VqDocStampa.cpp # Lost.cpp\n  VqDocumenti.cpp PLATFORM Files Clock)\n",
    "core/JobFile.h": "",
    "core/JobFile.cpp": '#include "core/JobFile.h"\n#include <vector>\n#include "generated.inc"\n',
    "core/Files_posix.cpp": "#ifdef __linux__\n#endif\n",
    "core/Files_win32.cpp": "#if defined(_WIN32)\n#endif\n",
    "core/Clock_posix.cpp": "",
    "core/VqDocStampa.h": '#include "pages/VqDocPagine.h"\n#include "queues/VqDocCollegati.h"\n',
    "core/VqDocStampa.cpp": "",
    "core/VqDocProprieta.h": '#include "codes/Codes.h"\n',
    "core/VqDocumenti.h": '#include "core/VqDocStampa.h"\n#include "email/VqDocAnteprima.h"\n',
    "core/VqDocumenti.cpp": "",
    "codes/Codes.h": '#include "core/JobFile.h"\n#if __cplusplus > 202002L\n#endif\n',
    "codes/texts.txt": "1\tx\n" * 500,
    "pages/VqDocPagine.h": '#include "codes/Codes.h"\n',
    "queues/VqDocCollegati.h": "",
    "email/VqDocAnteprima.h": '#include "core/VqDocumenti.h"\n',
    "com/CMakeLists.txt": "add_library(OrvaneDocumenti SHARED Server.cpp)\n",
    "com/Server.h": "#ifdef _WIN32\n#endif\n",
    "com/Server.cpp": '#include "com/Server.h"\n#include "orvane.h"\n',
    "cli/Options.h": "",
    "tests/cli/CMakeLists.txt": "orvane_test(cli OptionsTest.cpp)\n",
    "tests/cli/OptionsTest.cpp": '#include "cli/Options.h"\n',
}

# Name of the file, its text, and the fault that must be reported of it.
VIOLATIONS = [
    ("core/JobFile.h", '\n#include "codes/Codes.h"\n', "core/JobFile.h:2: "
     '"codes/Codes.h" is on a higher floor (codes) than this file (ground)'),
    ("core/JobFile.h", "#include <core/VqDocStampa.h>\n", "core/JobFile.h:1: "
     '"core/VqDocStampa.h" is on a higher floor (documents) than this file (ground)'),
    ("codes/Codes.h", '#  include "pages/VqDocPagine.h"\n', "codes/Codes.h:1: "
     '"pages/VqDocPagine.h" is on a higher floor (components) than this file (codes)'),
    ("pages/VqDocPagine.h", '#include "core/VqDocStampa.h"\n', "pages/VqDocPagine.h:1: "
     '"core/VqDocStampa.h" is on a higher floor (documents) than this file (components)'),
    ("core/VqDocStampa.h", '#include "core/VqDocumenti.h"\n', "core/VqDocStampa.h:1: "
     '"core/VqDocumenti.h" is on a higher floor (factory) than this file (documents)'),
    ("core/VqDocumenti.h", '#include "orvane.h"\n', "core/VqDocumenti.h:1: "
     '"orvane.h" is on a higher floor (umbrella header) than this file (factory)'),
    ("core/VqDocumenti.h", '#include "com/Server.h"\n', "core/VqDocumenti.h:1: "
     '"com/Server.h" belongs to com/, which nothing outside includes'),
    ("com/Server.h", '#include "cli/Options.h"\n', "com/Server.h:1: "
     '"cli/Options.h" belongs to cli/, which nothing outside includes'),
    ("bench/Start.h", '#include "cli/Options.h"\n', "bench/Start.h:1: "
     '"cli/Options.h" belongs to cli/, which nothing outside includes'),
    ("core/JobFile.cpp", '#include "JobFile.h"\n', "core/JobFile.cpp:1: "
     '"JobFile.h" is not written from the root'),
    ("pages/VqDocPagine.h", '#include "core/../core/VqDocStampa.h"\n', "pages/VqDocPagine.h:1: "
     '"core/../core/VqDocStampa.h" is not written in its shortest form'),
    ("core/Lost.cpp", "", "core/Lost.cpp:1: no CMakeLists.txt lists this file, so it is not built"),
    ("core/Lost_posix.cpp", "", "core/Lost_posix.cpp:1: no CMakeLists.txt lists this file, so it is not built"),
    ("tests/unit/LostTest.cpp", "", "tests/unit/LostTest.cpp:1: "
     "no CMakeLists.txt lists this file, so it is not built"),
    ("tests/typelib/test_lost.py", "", "tests/typelib/test_lost.py:1: "
     "no CMakeLists.txt lists this file, so it is not built"),
    ("README.md", "Install\norvane_1.2.3_amd64.deb\n", "README.md:2: the version is stated again"),
    ("docs/job-file.md", "Since 1.2.3.\n", "docs/job-file.md:1: the version is stated again"),
    ("fax/Modem.h", "#include <x>\n#ifdef _WIN32\n#endif\n",
     "fax/Modem.h:2: a platform condition outside a platform file"),
    ("queues/Queue.h", "#if 0\n# elif !defined(__linux__)\n#endif\n",
     "queues/Queue.h:2: a platform condition outside a platform file"),
    ("codes/Codes.h", "#ifndef _MSC_VER\n#endif\n", "codes/Codes.h:1: a platform condition outside a platform file"),
    ("core/JobFile.h", "#if defined(__unix__) || defined(__APPLE__)\n#endif\n",
     "core/JobFile.h:1: a platform condition outside a platform file"),
    ("pages/Long.h", "\n" * 401, "pages/Long.h:401: 401 lines, more than 400"),
    ("tests/typelib/helper.py", "\n" * 500, "tests/typelib/helper.py:401: 500 lines, more than 400"),
]


def check(tree):
    """Exit code and printed lines of the script run on a tree of {file: text}."""
    with tempfile.TemporaryDirectory() as folder:
        for name, text in tree.items():
            path = pathlib.Path(folder, name)
            path.parent.mkdir(parents=True, exist_ok=True)
            path.write_text(text, encoding="utf-8")
        result = subprocess.run([sys.executable, "-B", SCRIPT, folder], capture_output=True, text=True, check=False)
        return result.returncode, (result.stdout + result.stderr).splitlines()


class CheckStructure(unittest.TestCase):
    def test_a_sound_tree_passes(self):
        self.assertEqual(check(SOUND), (0, ["check-structure: no faults"]))

    def test_every_violation_is_found_and_nothing_else(self):
        for name, text, fault in VIOLATIONS:
            with self.subTest(fault=fault):
                self.assertEqual(check({**SOUND, name: text}), (1, [fault]))

    def test_all_faults_are_reported(self):
        code, lines = check({**SOUND, "core/A.cpp": "", "core/B.cpp": ""})
        self.assertEqual((code, len(lines)), (1, 2))


if __name__ == "__main__":
    unittest.main()
