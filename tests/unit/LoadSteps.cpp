#include "tests/unit/LoadSteps.h"

namespace orvane::test {

namespace {

// Every good value is stored as "2". No new object holds what is made of 2, 3 or 4, truth apart.
template <class Value>
Value made(int number) {
  if constexpr (std::is_same_v<Value, Text>) {
    return Text(1, static_cast<char16_t>(u'0' + number));
  } else if constexpr (std::is_same_v<Value, bool>) {
    return number % 2 == 0;
  } else if constexpr (std::is_same_v<Value, Date>) {
    return Date{static_cast<double>(number)};
  } else {
    return static_cast<Value>(number);
  }
}

}  // namespace

template <class Property>
void LoadSteps::value(TextView section, Property& property) {
  using Value = typename Property::Value;
  constexpr bool fails = std::is_enum_v<Value> || std::is_same_v<Value, std::int32_t>;
  LoadStep step{Text(section), Text(property.name()), u"2", fails ? u"3000000000" : u"", 6, {}, {}, part_};
  step.holds = [&property](int number) { return property.get() == made<Value>(number); };
  if constexpr (std::is_assignable_v<Property&, Value>) {
    step.assign = [&property](int number) { property = made<Value>(number); };
  }
  steps_.push_back(std::move(step));
}

template <class Lines>
void LoadSteps::note(TextView section, Lines& lines, std::int32_t index) {
  const Text key = u"Nota_" + fromUtf8(std::to_string(index));
  stored(section, key, u"2", u"");
  steps_.back().holds = [&lines, index](int number) { return lines(index) == made<Text>(number); };
  steps_.back().assign = [&lines, index](int number) { lines(index) = made<Text>(number); };
}

void LoadSteps::code(TextView section, ControlCode& code) {
  stored(section, code.name(), u"2;", u"x;", 13);
  steps_.back().holds = [&code](int number) { return code.bytes()[0] == number; };
  steps_.back().assign = [&code](int number) { code(0) = made<std::uint8_t>(number); };
}

void LoadSteps::stored(TextView section, TextView key, TextView good, TextView bad, int error) {
  steps_.push_back({Text(section), Text(key), Text(good), Text(bad), error, {}, {}, part_});
}

void LoadSteps::reference(TextView section, TextView key, const Text& name) {
  stored(section, key, u"2", u"");
  steps_.back().holds = [&name](int number) { return name.starts_with(made<Text>(number)); };
}

Text LoadSteps::lines(const LoadStep& failing) const {
  std::vector<JobSection> sections;
  for (const LoadStep& step : steps_) {
    auto at = std::find_if(sections.begin(), sections.end(), [&](auto& s) { return s.name == step.section; });
    if (at == sections.end()) at = sections.insert(at, {step.section, {}});
    at->keys.push_back({step.key, &step == &failing ? step.bad : step.good});
  }
  return JobContent{std::move(sections)}.lines();
}

template <class Queue>
void LoadSteps::addQueue(Queue& queue) {
  value(queue.jobSection(), queue.Codice);
  if constexpr (requires { queue.UltimaCodaCodice; }) {
    const auto same = [](const LoadStep& step) { return step.section == u"UltimaCoda"; };
    // A publication shares the section with its inner document, which reads it first.
    const bool shared = std::any_of(steps_.begin(), steps_.end(), same);
    if (!shared) value(u"UltimaCoda", queue.UltimaCodaCodice);
  }
  values(queue.jobSection(), queue.DataInserimento, queue.DataElaborazione);
}

template <class Document, class Traits>
void LoadSteps::add(LinkedDocuments<Document, Traits>& links) {
  value(u"Collegati", links.Copie);
  stored(u"Collegati", u"NumeroCollegati", u"1", u"3000000000");
  stored(u"Collegati", u"Nome0", kGoodLink, kBadLink);
}

void LoadSteps::add(VqDocProprieta& p) {
  values(u"Proprieta", p.Versione, p.Id, p.Sigla, p.DittaOrigine, p.DittaDestinazione, p.Suddivisione, p.Data,
         p.DataOriginale, p.Descrizione, p.Funzione, p.Utente, p.UtenteDescrizione, p.Intestatario,
         p.IntestatarioDescrizione, p.Ip, p.MacAddress, p.FormatoPagina, p.Priorita, p.RighePagina,
         p.OttimizzaAreaPagina, p.LetturaFacilitata, p.Collegato);
  reference(u"Corpi", u".bvq", p.FileCorpo.Nome);
  reference(u"Corpi", u".svq", p.FileScript.Nome);
  add(p.Tipo), add(p.Esito), add(p.Lingua);
  value(u"Errore", p.Errore.Codice);
  add(p.Comando), add(p.Intestazione), add(p.CatalogoSorgente);
}

void LoadSteps::add(VqDocCatalogo& c) {
  using C = VqDocCatalogo;
  for (const auto function :
       {&C::GrassettoOn,     &C::GrassettoOff,     &C::CompressoOn,     &C::CompressoOff,
        &C::DoppiaAltezzaOn, &C::DoppiaAltezzaOff, &C::RipassaOn,       &C::RipassaOff,
        &C::DodicesimiOn,    &C::DodicesimiOff,    &C::LetterQualityOn, &C::LetterQualityOff,
        &C::SottolineatoOn,  &C::SottolineatoOff,  &C::CustomAOn,       &C::CustomAOff,
        &C::CustomBOn,       &C::CustomBOff,       &C::CustomCOn,       &C::CustomCOff}) {
    code(c.jobSection(), c.*function);
  }
}

void LoadSteps::add(VqDocLayoutPagina& layout) {
  value(u"LayoutPagina", layout.Ingrandibile);
  add(layout.PosizionePagina);
}

void LoadSteps::add(VqDocDiretta& direct) {
  values(u"Diretta", direct.FinePagina, direct.FoglioBianco, direct.RigheBianche, direct.NomeFileOutput);
  reference(u"Pronto", u".vqd", direct.FileDiretto.Nome);
  add(direct.CatalogoDestinazione);
}

void LoadSteps::add(VqDocPagine& pages) {
  values(u"Pagine", pages.MaxAltezzaPagina, pages.MaxLarghezzaPagina, pages.MaxAltezzaTeorica,
         pages.MaxAltezzaVirtuale, pages.CopieDelegabili);
  values(u"Stato", pages.Stato.Codice, pages.Stato.PagineScomposte);
}

void LoadSteps::add(VqDocNumeroFax& n) {
  values(u"NumeroFax", n.Numero, n.PrefissoLocale, n.PrefissoInternazionale);
}

void LoadSteps::add(VqDocTrasmissioneFax& t) {
  values(u"TrasmissioneFax", t.OraFine, t.OraInizio, t.OraRichiestaFine, t.OraRichiestaInizio,
         t.TrasmessoConECM, t.Tentativi);
  add(t.TipoFax), add(t.Dispositivo), add(t.Compressione), add(t.BaudSend);
  stored(u"FaxTrasmissione_Pagina", u"CodiceLarghezza", u"1",
         u"3000000000");  // reading it in the object writes it
  value(u"FaxTrasmissione_Pagina", t.Pagina.CodiceLength);
  add(t.Risoluzione);
  values(u"FaxTrasmissione_Colore", t.Colore.CodiceGestione, t.Colore.CodiceTipo);
  add(t.TRMStatus), add(t.Errore), add(t.ECM), add(t.BFT);
}

void LoadSteps::add(VqDocFrontespizio& cover) {
  value(u"Frontespizio", cover.Inviare);
  note(u"Frontespizio", cover.Nota, 9);
}

void LoadSteps::add(VqDocCedolino& slip) {
  values(u"Cedolino", slip.Stampare, slip.Stampante, slip.StampanteOrigine);
}

void LoadSteps::add(VqDocAccount& account) {
  values(u"Account", account.NomeVisualizzato, account.IndirizzoEmail, account.IndirizzoEmailDiRisposta,
         account.Notificare, account.ConfermaLetturaOutlookExpress);
  VqDocSmtp& smtp = account.Smtp;
  values(u"Smtp", smtp.MailServer, smtp.MailPort, smtp.MailDomain, smtp.NomeAccount, smtp.PasswordAccount);
  add(smtp.Autenticazione);
}

void LoadSteps::add(Recipients& recipients) {
  values(recipients.jobSection(), recipients.NomiVisualizzati, recipients.IndirizziEmail);
}

void LoadSteps::add(VqDocMessaggio& message) {
  note(u"Messaggio", message.Nota, 0);
  note(u"Messaggio", message.Nota, 29);
}

void LoadSteps::add(VqDocAllegati& attachments) {
  reference(u"Allegati", u"PdfPercorso", attachments.FilePdf.Percorso);
  reference(u"Allegati", u"PdfNome", attachments.FilePdf.Nome);
  stored(u"Allegati", u"NumeroAllegati", u"2", u"3000000000");
  stored(u"Allegati", u"Nome0", u"a", u"");
  stored(u"Allegati", u"Nome1", u"b", u"a", 457);
}

void LoadSteps::add(VqDocTrasmissioneEmail& record) { value(u"TrasmissioneEmail", record.Tentativi); }

void LoadSteps::add(VqDocPubblicazione& publication) {
  reference(u"Pubblicazione", u"PblPercorso", publication.FilePbl.Percorso);
  reference(u"Pubblicazione", u"PblNome", publication.FilePbl.Nome);
}

LoadSteps::LoadSteps(VqDocStampa& d) {
  add(d.Proprieta);
  values(u"Stampa", d.StampanteOrigine, d.StampanteAlternativa, d.Stampante, d.Numero, d.Copie);
  parts(d.Coda, d.Dimensione, d.Orientamento, d.Alimentazione, d.Pinzatura, d.FronteRetro, d.Fascicolazione,
        d.LayoutPagina, d.Diretta, d.Collegati, d.Pagine);
  for (LoadStep& step : steps_) {
    if (step.part == part_) step.bad.clear(), step.holds = nullptr;  // print jobs only bind their pages
  }
}

void LoadSteps::addFax(TransmittedFax& d) {
  add(d.Proprieta);
  values(u"Fax", d.Oggetto, d.Mittente, d.Destinatario, d.SocietaDestinataria, d.CodiceSocietaDestinataria);
}

void LoadSteps::alwaysA4(const TransmittedFax& d) {
  const auto isPaper = [](const LoadStep& step) { return step.section == u"Dimensione"; };
  std::find_if(steps_.begin(), steps_.end(), isPaper)->holds = [&d](int number) {
    return d.Dimensione.Codice.number() == (number == 2 ? 9 : number);
  };
}

LoadSteps::LoadSteps(VqDocFax& d) {
  addFax(d);
  parts(d.NumeroFax, d.Coda, d.Dimensione, d.Orientamento, d.LayoutPagina, d.Trasmissione, d.Frontespizio,
        d.Cedolino, d.Collegati, d.Account, d.Allegati, d.Pagine);
  alwaysA4(d);
}

LoadSteps::LoadSteps(VqDocPFax& d) {
  addFax(d);
  parts(d.NumeroFax, d.Coda, d.Dimensione, d.Orientamento, d.Trasmissione, d.Frontespizio, d.Cedolino,
        d.Collegati, d.Account, d.Pagine);
  alwaysA4(d);
}

LoadSteps::LoadSteps(VqDocEmail& d) {
  add(d.Proprieta);
  value(u"Email", d.Oggetto);
  parts(d.Account, d.A, d.Cc, d.Ccn, d.Messaggio, d.Coda, d.Dimensione, d.Orientamento, d.LayoutPagina,
        d.Cedolino, d.Allegati, d.Collegati, d.Trasmissione, d.Pagine);
}

LoadSteps::LoadSteps(VqDocPbl& d) : LoadSteps(*std::get<std::shared_ptr<VqDocStampa>>(d.Documento())) {
  parts(d.Coda, d.Allegati, d.Pubblicazione);
}

LoadSteps::LoadSteps(VqDocAnteprima& d) : LoadSteps(*std::get<std::shared_ptr<VqDocStampa>>(d.Documento())) {
  parts(d.Coda);
}

}  // namespace orvane::test
