"""The generator's part for the automation server, on small descriptions and on ones that it must refuse."""

import pathlib
import subprocess
import sys
import tempfile
import unittest
import xml.etree.ElementTree

TYPELIB = pathlib.Path(__file__).parents[2] / "typelib"
BOXES = pathlib.Path(__file__).parent / "data" / "boxes.idl"
sys.path.insert(0, str(TYPELIB))

import emit_glue  # noqa: E402
import emit_registration  # noqa: E402
import idl  # noqa: E402

ASSEMBLY = "{urn:schemas-microsoft-com:asm.v1}"


def compact(text):
    return " ".join(text.split())


class Glue(unittest.TestCase):
    def setUp(self):
        self.library = idl.read_file(BOXES)
        self.text = compact(emit_glue.source(self.library.coclasses))

    def test_has_every_slot_in_the_order_of_the_interface(self):
        for coclass in self.library.coclasses:
            glue = compact(emit_glue.glue_class(coclass))
            places = [glue.find(f"STDMETHODIMP {emit_glue.PREFIXES[member.kind]}{member.name}(")
                      for member in coclass.members]
            self.assertNotIn(-1, places, coclass.name)
            self.assertEqual(places, sorted(places), coclass.name)

    def test_every_class_is_in_one_part(self):
        parts = [self.library.coclasses[index::emit_glue.PARTS] for index in range(emit_glue.PARTS)]
        names = sorted(coclass.name for part in parts for coclass in part)
        self.assertEqual(names, sorted(coclass.name for coclass in self.library.coclasses))

    def test_a_method_passes_its_arguments_converted(self):
        self.assertIn("STDMETHODIMP NuovaScatola(", self.text)
        self.assertIn("core().NuovaScatola(take(a0), take(a1), take(a2))", self.text)

    def test_an_object_by_reference_is_looked_up(self):
        self.assertIn("core().Add(takeObject<VqDocScatola>(pointed(a0)))", self.text)

    def test_an_array_comes_by_reference_and_is_copied(self):
        self.assertIn("STDMETHODIMP put_Righe(SAFEARRAY** a0) override "
                      "{ return run([&] { core().Righe = take(pointed(a0)); }); }", self.text)

    def test_a_let_assigns_and_a_get_gives(self):
        self.assertIn("STDMETHODIMP put_Nome(BSTR a0) override { return run([&] { core().Nome = take(a0); }); }",
                      self.text)
        self.assertIn("STDMETHODIMP get_Nome(BSTR* result) override "
                      "{ return give(result, [&] { return valueOf<Text>(read::Nome(core())); }); }", self.text)


class Registration(unittest.TestCase):
    def setUp(self):
        self.library = idl.read_file(BOXES)

    def test_a_guid_is_an_initialiser(self):
        self.assertEqual(emit_registration.guid("01234567-89ab-cdef-0123-456789abcdef"),
                         "{0x01234567, 0x89ab, 0xcdef, {0x01, 0x23, 0x45, 0x67, 0x89, 0xab, 0xcd, 0xef}}")

    def test_only_creatable_classes_have_a_program_id(self):
        rows = emit_registration.identities(self.library)
        creatable = [coclass for coclass in self.library.coclasses if coclass.creatable]
        self.assertEqual(rows.count("nullptr, nullptr"), len(self.library.coclasses) - len(creatable))
        for coclass in creatable:
            self.assertIn(f'L"{coclass.progid}", L"Apartment"', rows)

    def test_the_manifest_names_every_interface_and_counts_its_slots(self):
        root = xml.etree.ElementTree.fromstring(emit_registration.assembly(self.library, "x86").encode())
        stubs = {stub.get("name"): int(stub.get("numMethods"))
                 for stub in root.iter(ASSEMBLY + "comInterfaceExternalProxyStub")}
        self.assertEqual(stubs, {coclass.interface.name: 7 + len(coclass.members)
                                 for coclass in self.library.coclasses})
        classes = [entry.get("clsid") for entry in root.iter(ASSEMBLY + "comClass")]
        self.assertEqual(classes, ["{" + coclass.uuid.upper() + "}" for coclass in self.library.coclasses
                                   if coclass.creatable])
        self.assertEqual(root.find(ASSEMBLY + "assemblyIdentity").get("processorArchitecture"), "x86")

    def test_a_client_depends_on_the_assembly_by_its_identity(self):
        texts = [emit(self.library, "amd64") for emit in (emit_registration.assembly, emit_registration.dependency)]
        server, client = (xml.etree.ElementTree.fromstring(text.encode()) for text in texts)
        path = "/".join(ASSEMBLY + name for name in ("dependency", "dependentAssembly", "assemblyIdentity"))
        self.assertEqual(client.find(path).attrib, server.find(ASSEMBLY + "assemblyIdentity").attrib)


class Undate(unittest.TestCase):
    def undated(self, date, seconds):
        text = b"MSFT Created by WIDL version 7.0 at " + date + b"\nWW\x13\0" + seconds + b"WW"
        with tempfile.TemporaryDirectory() as folder:
            library = pathlib.Path(folder, "x.tlb")
            library.write_bytes(text)
            subprocess.run([sys.executable, "-B", str(TYPELIB / "undate.py"), str(library)], check=True)
            self.assertEqual(library.stat().st_size, len(text))
            return library.read_bytes()

    def test_type_libraries_of_different_days_become_the_same(self):
        first = self.undated(b"Sat Nov 21 15:02:20 2026", b"\x7c\xb2\x01\x6b")
        second = self.undated(b"Sun Nov 22 03:12:21 2026", b"\x00\x0a\x02\x6b")
        self.assertEqual(first, second)


class Command(unittest.TestCase):
    def run_generator(self, text):
        with tempfile.TemporaryDirectory() as folder:
            source = pathlib.Path(folder, "bad.idl")
            source.write_text(text, encoding="utf-8")
            command = [sys.executable, "-B", str(TYPELIB / "generate.py"), "--automation", str(source), folder + "/out"]
            outcome = subprocess.run(command, capture_output=True, text=True, check=False)
            return outcome, pathlib.Path(folder, "out").exists()

    def test_a_bad_description_makes_nothing_and_is_told_by_its_line(self):
        text = BOXES.read_text(encoding="utf-8")
        first = text.index("HRESULT")
        outcome, made = self.run_generator(text[:first] + "HRISULT" + text[first + 7:])
        self.assertNotEqual(outcome.returncode, 0)
        self.assertRegex(outcome.stderr, r"bad\.idl:\d+: ")
        self.assertFalse(made)


if __name__ == "__main__":
    unittest.main()
