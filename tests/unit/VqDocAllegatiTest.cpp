#include "email/VqDocAllegati.h"

#include "tests/support/JobTest.h"
#include "tests/unit/Expected.h"

namespace orvane::test {
namespace {

class VqDocAllegatiTest : public JobTest {
 protected:
  VqDocAllegatiTest() { bind(list); }
  void addTwo() {
    list.Add(u"C:\\A", u"uno.txt");
    list.Add(u"C:\\B", u"due.txt");
  }
  Text nameAt(const Variant& key) const { return list.Item(key) ? list.Item(key)->Nome : u"(none)"; }
  VqDocAllegati list;
};

TEST_F(VqDocAllegatiTest, StartsEmptyWithoutAPdf) {
  EXPECT_EQ(list.Count(), 0);
  EXPECT_EQ(list.FilePdf.File(), u"\\");
}

TEST_F(VqDocAllegatiTest, AddKeepsFolderAndNameAndWritesNothing) {
  EXPECT_TRUE(list.Add(u"C:\\A", u"uno.txt"));
  EXPECT_EQ(list.Item(0)->File(), u"C:\\A\\uno.txt");
  EXPECT_TRUE(folder.files().empty());
}

TEST_F(VqDocAllegatiTest, AddOfAnEmptyNameIsFalseAndAddsNothing) {
  EXPECT_FALSE(list.Add(u"C:\\A", u""));
  EXPECT_EQ(list.Count(), 0);
}

TEST_F(VqDocAllegatiTest, AddTakesAnEmptyFolder) {
  EXPECT_TRUE(list.Add(u"", u"uno.txt"));
  EXPECT_EQ(nameAt(u"\\uno.txt"), u"uno.txt");
}

TEST_F(VqDocAllegatiTest, SameFileTwiceRaisesDuplicateKey) {
  addTwo();
  EXPECT_EQ(errorOf([&] { list.Add(u"C:\\A", u"uno.txt"); }), 457);
  EXPECT_EQ(list.Count(), 2);
}

TEST_F(VqDocAllegatiTest, SameFullNameByAnotherFolderOrCaseRaisesDuplicateKey) {
  list.Add(u"C:\\A", u"B\\uno.txt");
  EXPECT_EQ(errorOf([&] { list.Add(u"C:\\A\\B", u"uno.txt"); }), 457);
  EXPECT_EQ(errorOf([&] { list.Add(u"c:\\a", u"b\\UNO.TXT"); }), 457);
}

TEST_F(VqDocAllegatiTest, KeyStaysTheFullNameOfTheTimeOfAdding) {
  addTwo();
  list.Item(0)->Nome = u"nuovo.txt";
  EXPECT_EQ(nameAt(u"C:\\A\\uno.txt"), u"nuovo.txt");
  EXPECT_FALSE(list.Exists(u"C:\\A\\nuovo.txt"));
  list.Salva();
  EXPECT_EQ(job().value(u"Allegati", u"Nome0"), u"nuovo.txt");
}

TEST_F(VqDocAllegatiTest, SameNameFromAnotherFolderIsAdded) {
  addTwo();
  EXPECT_TRUE(list.Add(u"C:\\C", u"uno.txt"));
  EXPECT_EQ(list.Count(), 3);
}

TEST_F(VqDocAllegatiTest, PlainNumbersArePositionsFromZero) {
  addTwo();
  EXPECT_EQ(nameAt(0), u"uno.txt");
  EXPECT_EQ(nameAt(u"0"), u"uno.txt");
  EXPECT_EQ(nameAt(u"1"), u"due.txt");
}

TEST_F(VqDocAllegatiTest, OtherTextsAreFullNames) {
  addTwo();
  EXPECT_EQ(nameAt(u"C:\\B\\due.txt"), u"due.txt");
  EXPECT_EQ(nameAt(u"00"), u"(none)");
  EXPECT_EQ(nameAt(u" 1"), u"(none)");
  EXPECT_EQ(nameAt(u"due.txt"), u"(none)");
}

TEST_F(VqDocAllegatiTest, ExistsSaysWhetherItemFinds) {
  addTwo();
  EXPECT_TRUE(list.Exists(1));
  EXPECT_FALSE(list.Exists(2));
  EXPECT_TRUE(list.Exists(u"C:\\A\\uno.txt"));
  EXPECT_FALSE(list.Exists(u"00"));
}

TEST_F(VqDocAllegatiTest, RemoveTakesPositionOrFullName) {
  addTwo();
  list.Remove(0);
  EXPECT_EQ(nameAt(0), u"due.txt");
  list.Remove(u"C:\\B\\due.txt");
  EXPECT_EQ(list.Count(), 0);
}

TEST_F(VqDocAllegatiTest, RemoveOfWhatIsNotThereRaises) {
  addTwo();
  EXPECT_EQ(errorOf([&] { list.Remove(2); }), 9);
  EXPECT_EQ(errorOf([&] { list.Remove(u"00"); }), 5);
  EXPECT_EQ(list.Count(), 2);
}

TEST_F(VqDocAllegatiTest, RemovedFileCanBeAddedAgain) {
  addTwo();
  list.Remove(0);
  EXPECT_TRUE(list.Add(u"C:\\A", u"uno.txt"));
  EXPECT_EQ(nameAt(1), u"uno.txt");
}

TEST_F(VqDocAllegatiTest, RemoveAllKeepsThePdf) {
  addTwo();
  list.FilePdf.Nome = u"d.pdf";
  list.RemoveAll();
  EXPECT_EQ(list.Count(), 0);
  EXPECT_EQ(list.FilePdf.Nome, u"d.pdf");
}

TEST_F(VqDocAllegatiTest, SalvaWritesPdfNumberAndEachFile) {
  addTwo();
  list.FilePdf = {u"C:\\P", u"d.pdf"};
  list.Salva();
  EXPECT_EQ(job().lines(),
            u"[Allegati]\nPdfPercorso=C:\\P\nPdfNome=d.pdf\nNumeroAllegati=2\n"
            u"Percorso0=C:\\A\nNome0=uno.txt\nPercorso1=C:\\B\nNome1=due.txt\n");
}

TEST_F(VqDocAllegatiTest, KeysOfRemovedFilesStayPastTheNumber) {
  addTwo();
  list.Salva();
  list.Remove(0);
  list.Salva();
  EXPECT_EQ(job().lines(),
            u"[Allegati]\nPdfPercorso=\nPdfNome=\nNumeroAllegati=1\n"
            u"Percorso0=C:\\B\nNome0=due.txt\nPercorso1=C:\\B\nNome1=due.txt\n");
}

TEST_F(VqDocAllegatiTest, SalvaBeforeBindingWritesNowhere) {
  VqDocAllegati unbound;
  unbound.Add(u"C:\\A", u"uno.txt");
  unbound.Salva();
  bind(unbound);
  EXPECT_EQ(job().lines(), u"");
}

TEST_F(VqDocAllegatiTest, StoredListIsReadUpToItsNumber) {
  loadFrom(list,
           u"[Allegati]\nPdfPercorso=C:\\P\nPdfNome=d.pdf\nNumeroAllegati=1\nPercorso0=C:\\A\nNome0=uno\n"
           u"Percorso1=C:\\A\nNome1=due\n");
  EXPECT_EQ(list.FilePdf.File(), u"C:\\P\\d.pdf");
  ASSERT_EQ(list.Count(), 1);
  EXPECT_EQ(list.Item(0)->File(), u"C:\\A\\uno");
}

TEST_F(VqDocAllegatiTest, StoredNumberIsRoundedHalvesToEvenAndNoneBelowOne) {
  const Text files = u"\nNome0=a\nNome1=b\nNome2=c\n";
  for (const auto& [stored, count] : {std::pair(u"1.5", 2), {u"2.5", 2}, {u"0", 0}, {u"-1", 0}, {u"x", 0}}) {
    loadFrom(list, u"[Allegati]\nNumeroAllegati=" + Text(stored) + files);
    EXPECT_EQ(list.Count(), count) << toUtf8(stored);
  }
}

TEST_F(VqDocAllegatiTest, StoredTextsAreReadUpTo255Characters) {
  const Text name(300, u'n');
  loadFrom(list,
           u"[Allegati]\nPdfNome=" + name + u"\nNumeroAllegati=1\nPercorso0=" + name + u"\nNome0=" + name);
  EXPECT_EQ(list.FilePdf.Nome, name.substr(0, 255));
  EXPECT_EQ(list.Item(0)->File(), name.substr(0, 255) + u'\\' + name.substr(0, 255));
}

TEST_F(VqDocAllegatiTest, StoredEntryWithoutANameIsSkipped) {
  loadFrom(list, u"[Allegati]\nNumeroAllegati=3\nPercorso0=C:\\A\nNome1=uno\nNome2=due\n");
  EXPECT_EQ(list.Count(), 2);
  EXPECT_EQ(nameAt(0), u"uno");
}

TEST_F(VqDocAllegatiTest, StoredFileListedTwiceFailsTheLoad) {
  EXPECT_EQ(errorOf([&] { loadFrom(list, u"[Allegati]\nNumeroAllegati=2\nNome0=uno\nNome1=uno\n"); }), 457);
}

TEST_F(VqDocAllegatiTest, ListThatFailedToLoadCanBeLoadedAgain) {
  errorOf([&] { loadFrom(list, u"[Allegati]\nNumeroAllegati=2\nNome0=uno\nNome1=uno\n"); });
  loadFrom(list, u"[Allegati]\nNumeroAllegati=2\nNome0=uno\nNome1=due\n");
  EXPECT_EQ(list.Count(), 2);
  EXPECT_EQ(nameAt(1), u"due");
}

TEST_F(VqDocAllegatiTest, LoadedListTakesThePlaceOfWhatWasAttachedBefore) {
  addTwo();
  loadFrom(list, u"[Allegati]\nNumeroAllegati=1\nPercorso0=C:\\A\nNome0=uno.txt\n");
  EXPECT_EQ(list.Count(), 1);
}

TEST_F(VqDocAllegatiTest, JobFileWithoutTheSectionLoadsEmpty) {
  loadFrom(list, u"[Altro]\n");
  EXPECT_EQ(list.Count(), 0);
}

TEST_F(VqDocAllegatiTest, EmptyListHasAllItsFiles) { EXPECT_TRUE(list.VerificaEsistenzaFile()); }

TEST_F(VqDocAllegatiTest, OnlyAttachedFilesAreLookedForInTheFileSystem) {
  Apartment::release();
  EXPECT_TRUE(list.VerificaEsistenzaFile());
  list.Add(folder.path(), u"uno.txt");
  EXPECT_EQ(errorOf([&] { list.VerificaEsistenzaFile(); }), 91);
}

TEST_F(VqDocAllegatiTest, OneMissingFileIsFoundOut) {
  folder.write(u"uno.txt", "");
  list.Add(folder.path(), u"uno.txt");
  EXPECT_TRUE(list.VerificaEsistenzaFile());
  list.Add(folder.path(), u"due.txt");
  EXPECT_FALSE(list.VerificaEsistenzaFile());
}

TEST_F(VqDocAllegatiTest, FolderIsNoAttachedFile) {
  list.Add(folder.path(), u".");
  EXPECT_FALSE(list.VerificaEsistenzaFile());
}

TEST_F(VqDocAllegatiTest, PdfIsNotLookedFor) {
  list.FilePdf = {folder.path(), u"manca.pdf"};
  EXPECT_TRUE(list.VerificaEsistenzaFile());
}

TEST_F(VqDocAllegatiTest, XmlOfAnEmptyList) {
  EXPECT_EQ(toUtf8(Components::xmlOf(list)), expectedXml("Allegati.new"));
}

TEST_F(VqDocAllegatiTest, XmlOfTwoFiles) {
  list.FilePdf = {u"C:\\Pdf", u"d.pdf"};
  list.Add(u"C:\\Allegati", u"a.txt");
  list.Add(u"C:\\Allegati", u"b & c.txt");
  EXPECT_EQ(toUtf8(Components::xmlOf(list)), expectedXml("Allegati.set"));
}

TEST_F(VqDocAllegatiTest, IterationGivesTheFilesInOrder) {
  addTwo();
  Text names;
  for (const auto& file : list) names += file->Nome;
  EXPECT_EQ(names, u"uno.txtdue.txt");
}

}  // namespace
}  // namespace orvane::test
