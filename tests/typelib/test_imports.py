"""What the generator makes for compilers that would import the type library, on a small description."""

import pathlib
import re
import sys
import unittest

TYPELIB = pathlib.Path(__file__).parents[2] / "typelib"
BOXES = pathlib.Path(__file__).parent / "data" / "boxes.idl"
sys.path.insert(0, str(TYPELIB))

import emit_csharp  # noqa: E402
import emit_pascal  # noqa: E402
import idl  # noqa: E402


class Pascal(unittest.TestCase):
    def setUp(self):
        self.library = idl.read_file(BOXES)
        self.text = emit_pascal.unit(self.library)

    def test_has_every_slot_in_the_order_of_the_interface(self):
        for coclass in self.library.coclasses:
            slots = re.findall(r"(?:function|procedure) (\w+).*safecall;", emit_pascal.interface(coclass))
            self.assertEqual([emit_pascal.free(emit_pascal.PREFIXES[member.kind] + member.name)
                              for member in coclass.members], slots)

    def test_an_object_by_reference_is_a_variable(self):
        self.assertIn("procedure Add(var Scatola: _VqDocScatola); safecall;", self.text)

    def test_a_new_value_by_reference_is_given_by_its_procedure(self):
        self.assertIn("procedure Set_Righe(var Nuovo_Righe: PSafeArray); safecall;", self.text)
        self.assertIn("property Righe: PSafeArray read Get_Righe;", self.text)

    def test_a_property_has_the_accessors_that_there_are(self):
        self.assertIn("property Nome: WideString read Get_Nome write Set_Nome;", self.text)
        self.assertRegex(self.text, r"property Count: Integer read Get_Count;")

    def test_a_word_of_the_language_is_no_name(self):
        self.assertEqual(["File_", "Get_File"], [emit_pascal.free("File"), emit_pascal.free("Get_File")])

    def test_only_creatable_classes_can_be_made(self):
        self.assertEqual(2 * sum(coclass.creatable for coclass in self.library.coclasses),
                         len(re.findall(r"class function", self.text)))


class CSharp(unittest.TestCase):
    def setUp(self):
        self.library = idl.read_file(BOXES)
        self.text = emit_csharp.source(self.library)

    def test_every_member_has_its_id(self):
        for coclass in self.library.coclasses:
            ids = set(map(int, re.findall(r"DispId\((-?\d+)\)", emit_csharp.interface(coclass))))
            self.assertEqual({member.id for member in coclass.members if member.result.kind != "Enumerator"}, ids)

    def test_a_method_keeps_its_defaults(self):
        self.assertIn('VqDocScatola NuovaScatola(string @Nome, int @Lati = 3, string @Colore = "blu");', self.text)

    def test_an_object_by_reference_is_passed_by_ref(self):
        self.assertIn("void Add(ref VqDocScatola @Scatola);", self.text)

    def test_a_new_value_by_reference_makes_two_methods_of_its_property(self):
        self.assertIn("[DispId(8)] Array get_Righe();", self.text)
        self.assertIn("[DispId(8)] void set_Righe(ref Array @Nuovo_Righe);", self.text)
        self.assertNotIn(" Righe {", self.text)

    def test_only_creatable_classes_are_made_by_new(self):
        self.assertEqual(sum(coclass.creatable for coclass in self.library.coclasses), self.text.count("CoClass("))

    def test_enumerations_have_their_values(self):
        for described in self.library.enumerations:
            for member in described.members:
                self.assertIn(f"    {member.name} = {member.value},\n", self.text)


if __name__ == "__main__":
    unittest.main()
