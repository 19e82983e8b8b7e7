#include "queues/QueueRecord.h"

#include <filesystem>

#include "tests/support/JobTest.h"
#include "tests/unit/Expected.h"
#include "tests/unit/Fill.h"

namespace orvane::test {
namespace {

// What a channel's queue does, written down again: for each code from 0 on the date that it stamps, "" for
// none.
struct Channel {
  const char* name;
  const char16_t* section;
  bool remembers;
  std::vector<const char16_t*> stamps;
  std::vector<const char16_t*> texts;
  const char* expected;
  std::unique_ptr<Component> (*make)();
  void (*enter)(Component&, std::int32_t);
  std::int32_t (*last)(const Component&);  // -1 for a channel that does not remember
};

template <class Queue>
std::unique_ptr<Component> make() {
  return std::make_unique<Queue>();
}
template <class Queue>
void enter(Component& queue, std::int32_t code) {
  static_cast<Queue&>(queue).Codice = code;
}
template <class Queue>
std::int32_t last(const Component& queue) {
  if constexpr (requires(Queue q) { q.UltimaCodaCodice; }) {
    return static_cast<const Queue&>(queue).UltimaCodaCodice.number();
  } else {
    return -1;
  }
}

template <class Queue>
Channel channel(const char* name, const char16_t* section, bool remembers,
                std::vector<const char16_t*> stamps, std::vector<const char16_t*> texts,
                const char* expected) {
  return {name,     section,     remembers,    std::move(stamps), std::move(texts),
          expected, make<Queue>, enter<Queue>, last<Queue>};
}

const std::vector<const char16_t*> kPrintTexts{
    u"In attesa di stampa", u"In stampa", u"Stampato", u"Respinto", u"Scartato", u"Eliminato"};
const std::vector<const char16_t*> kPrintStamps{
    u"DataDaStampare", u"DataInStampa", u"DataElaborazione", u"DataElaborazione", u"", u""};

const std::vector<Channel>& channels() {
  static const std::vector<Channel> all{
      channel<VqDocCodaStampa>("Stampa", u"CodaStampa", true, kPrintStamps, kPrintTexts, "CodaStampa"),
      channel<VqDocCodaPFax>("PFax", u"CodaPFax", true, kPrintStamps, kPrintTexts, "CodaStampa"),
      channel<VqDocCodaFax>(
          "Fax", u"CodaFax", true,
          {u"DataDaConvertire", u"DataInConversione", u"DataDaTrasmettere", u"DataInTrasmissione",
           u"DataDaStampare", u"DataInStampa", u"DataDaNotificare", u"DataInNotifica", u"DataElaborazione",
           u"DataElaborazione", u"", u"", u"DataDaConfermare"},
          {u"In attesa di conversione", u"In conversione", u"In attesa di trasmissione", u"In trasmissione",
           u"Da stampare", u"In stampa", u"Da notificare", u"In notifica", u"Trasmesso", u"Respinto",
           u"Scartato", u"Eliminato", u"Da confermare"},
          "CodaFax"),
      channel<VqDocCodaEmail>(
          "Email", u"CodaEmail", false,
          {u"DataDaConvertire", u"DataInConversione", u"DataDaTrasmettere", u"DataInTrasmissione",
           u"DataDaStampare", u"DataInStampa", u"DataElaborazione", u"DataElaborazione", u"", u""},
          {u"In attesa di conversione", u"In conversione", u"In attesa di trasmissione", u"In trasmissione",
           u"Da stampare", u"In stampa", u"Inviato", u"Respinto", u"Scartato", u"Eliminato"},
          "CodaEmail"),
      channel<VqDocCodaPbl>("Pbl", u"CodaPubblicazione", true,
                            {u"DataDaConvertire", u"DataInConversione", u"DataDaPubblicare",
                             u"DataInPubblicazione", u"DataElaborazione", u"DataElaborazione", u"", u""},
                            {u"In attesa di conversione", u"In conversione", u"In attesa di pubblicazione",
                             u"In pubblicazione", u"Pubblicato", u"Respinto", u"Scartato", u"Eliminato"},
                            "CodaPbl"),
      channel<VqDocCodaAnteprima>(
          "Anteprima", u"CodaAnteprima", false,
          {u"DataDaGenerare", u"DataInGenerazione", u"DataElaborazione", u"DataElaborazione", u"", u""},
          {u"In attesa di generazione", u"In generazione", u"Generato", u"Respinto", u"Scartato",
           u"Eliminato"},
          "CodaAnteprima")};
  return all;
}

// A channel and a code: the codes of its list and some that are no state.
struct Entry {
  const Channel* channel;
  std::int32_t code;

  Text number() const { return fromUtf8(std::to_string(code)); }
  bool isState() const { return code >= 0 && static_cast<std::size_t>(code) < channel->stamps.size(); }
  Text stamped() const { return isState() ? channel->stamps[static_cast<std::size_t>(code)] : u""; }
  Text text() const { return isState() ? channel->texts[static_cast<std::size_t>(code)] : u""; }
};

void PrintTo(const Entry& entry, std::ostream* out) { *out << entry.channel->name << ' ' << entry.code; }

std::vector<Entry> entries() {
  std::vector<Entry> all;
  for (const Channel& c : channels()) {
    for (std::int32_t code = -1; code <= static_cast<std::int32_t>(c.stamps.size()); ++code) {
      all.push_back({&c, code});
    }
    all.push_back({&c, 1000000});
  }
  return all;
}

class QueueEntryTest : public JobTest, public testing::WithParamInterface<Entry> {
 protected:
  QueueEntryTest() { bind(*queue); }
  const Entry& entry = GetParam();
  const Channel& channel = *entry.channel;
  std::unique_ptr<Component> queue = channel.make();
  FixedClock clock{{39814.5}};
};

TEST_P(QueueEntryTest, StampsTheDateOfTheStateAlone) {
  channel.enter(*queue, entry.code);
  const JobContent content = job();
  Text stamps;
  for (const JobKey& key : content.sections.at(0).keys) {
    if (key.name.starts_with(u"Data")) stamps += key.name + u'=' + key.value;
  }
  EXPECT_EQ(stamps, entry.stamped().empty() ? Text() : entry.stamped() + u"=39814.5");
}

TEST_P(QueueEntryTest, WritesCodeAndDescriptionToItsSection) {
  channel.enter(*queue, entry.code);
  EXPECT_EQ(job().value(channel.section, u"Codice"), entry.number());
  const Text text = job().value(channel.section, u"Descrizione");
  EXPECT_TRUE(entry.isState() ? text == entry.text() : !text.empty()) << toUtf8(text);
}

TEST_P(QueueEntryTest, BecomesTheLastQueueOnlyIfItStampsADate) {
  if (!channel.remembers) {
    channel.enter(*queue, entry.code);
    EXPECT_FALSE(job().hasSection(u"UltimaCoda"));
    return;
  }
  channel.enter(*queue, 1);
  channel.enter(*queue, entry.code);
  const std::int32_t expected = entry.stamped().empty() ? 1 : entry.code;
  EXPECT_EQ(channel.last(*queue), expected);
  EXPECT_EQ(job().value(u"UltimaCoda", u"Codice"), fromUtf8(std::to_string(expected)));
  EXPECT_EQ(job().value(u"UltimaCoda", u"Descrizione"), channel.texts[static_cast<std::size_t>(expected)]);
}

std::string entryName(const testing::TestParamInfo<Entry>& test) {
  const std::int32_t code = test.param.code;
  return std::string(test.param.channel->name) + (code < 0 ? "Minus" : "") + std::to_string(std::abs(code));
}
INSTANTIATE_TEST_SUITE_P(Queue, QueueEntryTest, testing::ValuesIn(entries()), entryName);

class QueueChannelTest : public JobTest, public testing::WithParamInterface<Channel> {
 protected:
  QueueChannelTest() { bind(*queue); }
  const Channel& channel = GetParam();
  std::unique_ptr<Component> queue = channel.make();
  FixedClock clock{{39814.0}};
};

TEST_P(QueueChannelTest, XmlOfANewRecordHasZerosForUnsetDates) {
  EXPECT_EQ(toUtf8(Components::xmlOf(*queue)), expectedXml(std::string(channel.expected) + ".new"));
}

TEST_P(QueueChannelTest, XmlAfterEveryStateHasTheLastStampOfEachDateAndNoLastQueue) {
  for (std::size_t code = 0; code < channel.stamps.size(); ++code) {
    clock.set({39814.0 + static_cast<double>(code)});
    channel.enter(*queue, static_cast<std::int32_t>(code));
  }
  std::string expected = expectedXml(std::string(channel.expected) + ".set");
  expected.replace(expected.find("39800"), 5, "0");  // nobody has set the date of insertion
  EXPECT_EQ(toUtf8(Components::xmlOf(*queue)), expected);
}

TEST_P(QueueChannelTest, EveryValueIsReadBack) {
  for (std::size_t code = 0; code < channel.stamps.size(); ++code) {
    clock.set({39814.25 + static_cast<double>(code)});
    channel.enter(*queue, static_cast<std::int32_t>(code));
  }
  const auto again = channel.make();
  bind(*again);
  Components::load(*again);
  EXPECT_EQ(Components::xmlOf(*again), Components::xmlOf(*queue));
  EXPECT_EQ(channel.last(*again), channel.last(*queue));
}

TEST_P(QueueChannelTest, JobFileWithoutItsSectionLoadsAsZeros) {
  channel.enter(*queue, 1);
  loadFrom(*queue, u"[Altro]\n");
  EXPECT_EQ(toUtf8(Components::xmlOf(*queue)), expectedXml(std::string(channel.expected) + ".new"));
  EXPECT_LE(channel.last(*queue), 0);
}

TEST_P(QueueChannelTest, StoredDescriptionIsNotRead) {
  loadFrom(*queue, u'[' + Text(channel.section) + u"]\nCodice=1\nDescrizione=altro\n");
  EXPECT_NE(Components::xmlOf(*queue).find(u"<Descrizione>" + Text(channel.texts[1]) + u"</Descrizione>"),
            Text::npos);
}

TEST_P(QueueChannelTest, StoredCodeIsRoundedHalvesToEven) {
  loadFrom(*queue, u'[' + Text(channel.section) + u"]\nCodice=2.5\n");
  EXPECT_TRUE(Components::xmlOf(*queue).starts_with(u"<Coda><Codice>2</Codice>"));
}

TEST_P(QueueChannelTest, StoredCodeThatDoesNotFitIsAnOverflow) {
  EXPECT_EQ(errorOf([&] { loadFrom(*queue, u'[' + Text(channel.section) + u"]\nCodice=3000000000\n"); }), 6);
}

TEST_P(QueueChannelTest, LoadingStampsAndWritesNothing) {
  const Text lines = u'[' + Text(channel.section) + u"]\nCodice=1\n";
  loadFrom(*queue, lines);
  EXPECT_EQ(job().lines(), lines);
}

TEST_P(QueueChannelTest, CodeWhoseTextHasNoNumberIsWrittenAndOverflows) {
  EXPECT_EQ(errorOf([&] { channel.enter(*queue, 2147483647); }), 6);
  EXPECT_EQ(job().lines(), u'[' + Text(channel.section) + u"]\nCodice=2147483647\n");
}

TEST_P(QueueChannelTest, FailedWriteKeepsTheNewCodeAndNoDate) {
  std::filesystem::create_directory(folder.native(u"job.ini"));
  EXPECT_EQ(errorOf([&] { channel.enter(*queue, 1); }), 75);
  std::string expected = expectedXml(std::string(channel.expected) + ".new");
  expected.replace(expected.find("<Codice>0"), 9, "<Codice>1");
  expected.replace(expected.find(toUtf8(channel.texts[0])), toUtf8(channel.texts[0]).size(),
                   toUtf8(channel.texts[1]));
  EXPECT_EQ(toUtf8(Components::xmlOf(*queue)), expected);
  EXPECT_LE(channel.last(*queue), 0);
}

INSTANTIATE_TEST_SUITE_P(Queue, QueueChannelTest, testing::ValuesIn(channels()),
                         [](const auto& test) { return test.param.name; });

class VqDocCodaFaxTest : public JobTest {
 protected:
  VqDocCodaFaxTest() { bind(queue); }
  VqDocCodaFax queue;
  FixedClock clock{{39814.0}};
};

TEST_F(VqDocCodaFaxTest, NewRecordWaitsForConversion) {
  EXPECT_EQ(queue.Codice.number(), 0);
  EXPECT_EQ(queue.UltimaCodaCodice.number(), 0);
  EXPECT_EQ(queue.Descrizione(), u"In attesa di conversione");
}

TEST_F(VqDocCodaFaxTest, DiscardedJobRemembersTheQueueItWasIn) {
  queue.Codice = vdcf_InTrasmissione;
  queue.Codice = vdcf_Scartato;
  EXPECT_EQ(queue.UltimaCodaCodice.get(), vdcf_InTrasmissione);
  EXPECT_EQ(queue.UltimaCodaDescrizione(), u"In trasmissione");
  EXPECT_EQ(job().lines(u"UltimaCoda"), u"[UltimaCoda]\nCodice=3\nDescrizione=In trasmissione\n");
}

TEST_F(VqDocCodaFaxTest, LastQueueIsWrittenEvenWhereItDidNotChange) {
  queue.Codice = vdcf_Scartato;
  EXPECT_EQ(job().lines(u"UltimaCoda"), u"[UltimaCoda]\nCodice=0\nDescrizione=In attesa di conversione\n");
}

TEST_F(VqDocCodaFaxTest, CodeThatIsNoStateHasTheMissingText) {
  queue.Codice = 99;
  EXPECT_EQ(queue.Codice.number(), 99);
  EXPECT_EQ(queue.Descrizione(), u"Manca la risora: 8599 OrvaneDocumenti");
}

TEST_F(VqDocCodaFaxTest, EnteringAStateAgainStampsItAgainAndKeepsTheOthers) {
  queue.Codice = vdcf_DaTrasmettere;
  clock.set({39815.0});
  queue.Codice = vdcf_InTrasmissione;
  clock.set({39816.0});
  queue.Codice = vdcf_DaTrasmettere;
  EXPECT_EQ(queue.DataDaTrasmettere.get().days, 39816);
  EXPECT_EQ(queue.DataInTrasmissione.get().days, 39815);
}

TEST_F(VqDocCodaFaxTest, StoredLastQueueIsRoundedHalvesToEven) {
  loadFrom(queue, u"[UltimaCoda]\nCodice=3.5\n");
  EXPECT_EQ(queue.UltimaCodaCodice.number(), 4);
}

TEST_F(VqDocCodaFaxTest, InsertionDateIsWrittenAndNothingElseChanges) {
  queue.DataInserimento = Date{39800.25};
  EXPECT_EQ(job().lines(), u"[CodaFax]\nDataInserimento=39800.25\n");
}

}  // namespace
}  // namespace orvane::test
