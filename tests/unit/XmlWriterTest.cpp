#include "core/XmlWriter.h"

#include "tests/support/Rows.h"

namespace orvane::test {
namespace {

struct Escape : Row {
  Text value;
  Text written;
};

class XmlText : public testing::TestWithParam<Escape> {};

TEST_P(XmlText, IsWrittenWellFormed) {
  XmlWriter xml(u".");
  xml.element(u"Nome", GetParam().value);
  EXPECT_EQ(xml.result(), u"<Nome>" + GetParam().written + u"</Nome>");
}

INSTANTIATE_TEST_SUITE_P(
    Characters, XmlText,
    testing::Values(Escape{"Plain", u"Rossi & figli", u"Rossi &amp; figli"},
                    Escape{"Markup", u"<a href=\"x\">'&amp;'</a>",
                           u"&lt;a href=\"x\"&gt;'&amp;amp;'&lt;/a&gt;"},
                    Escape{"SectionEnd", u"]]>", u"]]&gt;"}, Escape{"LineEnd", u"a\r\nb", u"a&#13;\nb"},
                    Escape{"Blanks", u" \t\n ", u" \t\n "}, Escape{"Null", Text(1, u'\0'), u"\uFFFD"},
                    Escape{"Controls", Text{1, 8, 11, 12, 14, 31}, u"\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD"},
                    Escape{"Delete", u"\u007F", u"\u007F"}, Escape{"Latin", u"perché €", u"perché €"},
                    Escape{"BeforeSurrogates", u"\uD7FF", u"\uD7FF"},
                    Escape{"AfterSurrogates", u"\uE000", u"\uE000"}, Escape{"Pair", u"a😀b", u"a😀b"},
                    Escape{"LoneHigh", Text{0xD83D, u'a'}, u"\uFFFDa"},
                    Escape{"HighAtTheEnd", Text{u'a', 0xD83D}, u"a\uFFFD"},
                    Escape{"LoneLow", Text{u'a', 0xDE00, u'b'}, u"a\uFFFDb"},
                    Escape{"TwoHighs", Text{0xD83D, 0xD83D, 0xDE00}, u"\uFFFD😀"},
                    Escape{"LastAllowed", u"\uFFFD", u"\uFFFD"},
                    Escape{"NoCharacters", Text{0xFFFE, 0xFFFF}, u"\uFFFD\uFFFD"}),
    rowName);

TEST(XmlWriterElements, AreShortWhereTheTextIsEmpty) {
  XmlWriter xml(u".");
  xml.element(u"Utente", u"");
  EXPECT_EQ(xml.result(), u"<Utente/>");
}

TEST(XmlWriterElements, HoldNumbersInDecimal) {
  XmlWriter xml(u".");
  xml.element(u"A", 0);
  xml.element(u"B", -2147483647 - 1);
  EXPECT_EQ(xml.result(), u"<A>0</A><B>-2147483648</B>");
}

TEST(XmlWriterElements, HoldTruthAsItsNumber) {
  XmlWriter xml(u".");
  xml.element(u"A", true);
  xml.element(u"B", false);
  EXPECT_EQ(xml.result(), u"<A>-1</A><B>0</B>");
}

TEST(XmlWriterElements, HoldDatesAsSerialNumbersWithTheUsersSeparator) {
  XmlWriter xml(u",");
  xml.element(u"A", Date{});
  xml.element(u"B", Date{39814});
  xml.element(u"C", Date{1.5});
  EXPECT_EQ(xml.result(), u"<A>0</A><B>39814</B><C>1,5</C>");
}

TEST(XmlWriterElements, NestAroundTextWithoutWhiteSpace) {
  XmlWriter xml(u".");
  xml.begin(u"Stampa");
  xml.text(u"a<b");
  xml.element(u"Nome", u"x");
  xml.end(u"Stampa");
  EXPECT_EQ(xml.result(), u"<Stampa>a&lt;b<Nome>x</Nome></Stampa>");
}

}  // namespace
}  // namespace orvane::test
