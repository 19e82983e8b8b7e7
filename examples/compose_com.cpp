// A fax, an e-mail and a print job from C++ through the automation server: compose_com FOLDER ATTACHMENT
//
// FOLDER gets the jobs; ATTACHMENT is a file that goes with the fax and the e-mail. The interfaces are those
// of the generated header OrvaneDocumenti_i.h, for any compiler; pointers and texts are those of comdef.h.
#include <comdef.h>

#include <iostream>
#include <string>

#include "OrvaneDocumenti_i.h"

namespace {

template <class Interface>
using Ptr = _com_ptr_t<_com_IIID<Interface, &__uuidof(Interface)>>;

struct Failure {
  HRESULT result;
  std::wstring text;
};

// Throws what the server told about a call that failed.
void check(HRESULT result) {
  if (SUCCEEDED(result)) return;
  Ptr<IErrorInfo> error;
  _bstr_t text;
  if (GetErrorInfo(0, &error) == S_OK) error->GetDescription(text.GetAddress());
  throw Failure{result, text.length() > 0 ? static_cast<const wchar_t*>(text) : L"no description"};
}

// What a member without arguments gives: an object, a text, a number.
template <class Owner, class Interface, class Object>
Ptr<Object> object(const Ptr<Owner>& owner, HRESULT (STDMETHODCALLTYPE Interface::*member)(Object**)) {
  Ptr<Object> result;
  check((owner.GetInterfacePtr()->*member)(&result));
  return result;
}

template <class Owner, class Interface>
std::wstring text(const Ptr<Owner>& owner, HRESULT (STDMETHODCALLTYPE Interface::*member)(BSTR*)) {
  _bstr_t result;
  check((owner.GetInterfacePtr()->*member)(result.GetAddress()));
  return {static_cast<const wchar_t*>(result), result.length()};
}

template <class Owner, class Interface>
LONG number(const Ptr<Owner>& owner, HRESULT (STDMETHODCALLTYPE Interface::*member)(LONG*)) {
  LONG result = 0;
  check((owner.GetInterfacePtr()->*member)(&result));
  return result;
}

class Composer {
 public:
  Composer(const wchar_t* folder, const std::wstring& attachment) : folder_(folder) {
    check(factory_.CreateInstance(__uuidof(VqDocumenti)));
    const auto end = attachment.find_last_of(L'\\');
    attachmentFolder_ = attachment.substr(0, end).c_str();
    attachmentName_ = attachment.substr(end + 1).c_str();
  }
  // Bound to its job file, a document writes every assignment at once; collections are written by Salva.
  void composeFax();
  void composeEmail();
  void composePrint();
  // New objects, loaded from the files: what the server has written by then is in them.
  void report();
  void tryToLoad(const wchar_t* file);

 private:
  void attach(const Ptr<_VqDocAllegati>& attachments);
  void showLinked(const Ptr<_VqDocStampa>& stampa);

  Ptr<_VqDocumenti> factory_;  // one, kept for as long as documents are used
  _bstr_t folder_;
  _bstr_t attachmentFolder_;
  _bstr_t attachmentName_;
};

void Composer::attach(const Ptr<_VqDocAllegati>& attachments) {
  VARIANT_BOOL added = VARIANT_FALSE;
  BSTR name = attachmentName_.copy();
  const HRESULT result = attachments->Add(attachmentFolder_, &name, &added);
  SysFreeString(name);
  check(result);
  check(attachments->Salva());
}

void Composer::composeFax() {
  const auto fax = object(factory_, &_VqDocumenti::NuovoDocumentoFax);
  check(fax->Inizializza(_bstr_t(L"fax"), folder_, VARIANT_FALSE));
  const auto line = object(fax, &_VqDocFax::get_NumeroFax);
  check(line->put_PrefissoInternazionale(_bstr_t(L"39")));
  check(line->put_PrefissoLocale(_bstr_t(L"06")));
  check(line->put_Numero(_bstr_t(L"1234567")));
  check(fax->put_Oggetto(_bstr_t(L"Offerta n. 12")));
  check(fax->put_Destinatario(_bstr_t(L"Anna Verdi")));
  const auto cover = object(fax, &_VqDocFax::get_Frontespizio);
  check(cover->put_Inviare(VARIANT_TRUE));
  check(cover->put_Nota(0, _bstr_t(L"Gentile cliente, ecco l'offerta.")));
  attach(object(fax, &_VqDocFax::get_Allegati));
  check(object(fax, &_VqDocFax::get_Coda)->put_Codice(vdcf_DaConvertire));
}

void Composer::composeEmail() {
  const auto mail = object(factory_, &_VqDocumenti::NuovoDocumentoEmail);
  check(mail->Inizializza(_bstr_t(L"email"), folder_, VARIANT_FALSE));
  check(mail->put_Oggetto(_bstr_t(L"Fattura n. 12")));
  check(object(mail, &_VqDocEmail::get_Account)->put_IndirizzoEmail(_bstr_t(L"amministrazione@example.com")));
  const auto to = object(mail, &_VqDocEmail::get_A);
  check(to->put_NomiVisualizzati(_bstr_t(L"Anna Verdi")));
  check(to->put_IndirizziEmail(_bstr_t(L"anna.verdi@example.com")));
  check(object(mail, &_VqDocEmail::get_Cc)->put_IndirizziEmail(_bstr_t(L"archivio@example.com")));
  const auto message = object(mail, &_VqDocEmail::get_Messaggio);
  check(message->put_Nota(0, _bstr_t(L"Gentile cliente,")));
  check(message->put_Nota(1, _bstr_t(L"in allegato la fattura.")));
  attach(object(mail, &_VqDocEmail::get_Allegati));
  check(object(mail, &_VqDocEmail::get_Coda)->put_Codice(vdce_DaConvertire));
}

void Composer::composePrint() {
  const auto stampa = object(factory_, &_VqDocumenti::NuovoDocumentoStampa);
  check(stampa->Inizializza(_bstr_t(L"stampa"), folder_, VARIANT_FALSE));
  check(stampa->put_Stampante(_bstr_t(L"Laser")));
  check(stampa->put_Copie(2));
  check(object(stampa, &_VqDocStampa::get_Dimensione)->put_Codice(vdd_A4));
  check(object(stampa, &_VqDocStampa::get_FronteRetro)->put_Codice(vdfr_Verticale));
  const auto properties = object(stampa, &_VqDocStampa::get_Proprieta);
  check(properties->put_Utente(_bstr_t(L"mrossi")));
  check(properties->put_Descrizione(_bstr_t(L"Listino di marzo")));
  const auto label = object(factory_, &_VqDocumenti::NuovoDocumentoStampa);
  check(label->Inizializza(_bstr_t(L"etichetta"), folder_, VARIANT_TRUE));
  check(label->put_Stampante(_bstr_t(L"Etichette")));
  const auto linked = object(stampa, &_VqDocStampa::get_Collegati);
  _VqDocStampa* added = label.GetInterfacePtr();
  check(linked->Add(&added));
  check(linked->Salva());
  check(object(stampa, &_VqDocStampa::get_Coda)->put_Codice(vdcs_DaStampare));
}

void show(const Ptr<_VqDocProprieta>& properties, const std::wstring& queue, const std::wstring& details) {
  std::wcout << text(object(properties, &_VqDocProprieta::get_FileIntestazione), &_VqDocFile::get_Nome)
             << L": " << text(object(properties, &_VqDocProprieta::get_Tipo), &_VqDocTipo::Descrizione)
             << L", " << queue << L", "
             << text(object(properties, &_VqDocProprieta::get_Esito), &_VqDocEsito::Descrizione) << L", "
             << details << L'\n';
}

void Composer::showLinked(const Ptr<_VqDocStampa>& stampa) {
  const auto linked = object(stampa, &_VqDocStampa::get_Collegati);
  const LONG count = number(linked, &_VqDocCollegatiStampa::get_Count);
  for (LONG i = 0; i < count; ++i) {
    Ptr<_VqDocStampa> one;
    check(linked->get_Item(_variant_t(i), &one));
    std::wcout << L"  con " << text(object(one, &_VqDocStampa::get_Proprieta), &_VqDocProprieta::get_Id)
               << L" su " << text(one, &_VqDocStampa::get_Stampante) << L'\n';
  }
}

void Composer::report() {
  const auto fax = object(factory_, &_VqDocumenti::NuovoDocumentoFax);
  check(fax->Carica(folder_, _bstr_t(L"fax.vqf")));
  show(object(fax, &_VqDocFax::get_Proprieta),
       text(object(fax, &_VqDocFax::get_Coda), &_VqDocCodaFax::Descrizione),
       text(object(fax, &_VqDocFax::get_NumeroFax), &_VqDocNumeroFax::NumeroEsteso) + L", allegati " +
           std::to_wstring(number(object(fax, &_VqDocFax::get_Allegati), &_VqDocAllegati::get_Count)));
  const auto mail = object(factory_, &_VqDocumenti::NuovoDocumentoEmail);
  check(mail->Carica(folder_, _bstr_t(L"email.vqe")));
  show(object(mail, &_VqDocEmail::get_Proprieta),
       text(object(mail, &_VqDocEmail::get_Coda), &_VqDocCodaEmail::Descrizione),
       text(object(mail, &_VqDocEmail::get_A), &_VqDocDestinatariA::get_IndirizziEmail) + L", allegati " +
           std::to_wstring(number(object(mail, &_VqDocEmail::get_Allegati), &_VqDocAllegati::get_Count)));
  const auto stampa = object(factory_, &_VqDocumenti::NuovoDocumentoStampa);
  check(stampa->Carica(folder_, _bstr_t(L"stampa.vqs")));
  show(object(stampa, &_VqDocStampa::get_Proprieta),
       text(object(stampa, &_VqDocStampa::get_Coda), &_VqDocCodaStampa::Descrizione),
       text(stampa, &_VqDocStampa::get_Stampante) + L", copie " +
           std::to_wstring(number(stampa, &_VqDocStampa::get_Copie)) + L", " +
           text(object(stampa, &_VqDocStampa::get_Dimensione), &_VqDocDimensione::Descrizione));
  showLinked(stampa);
}

void Composer::tryToLoad(const wchar_t* file) {
  try {
    check(object(factory_, &_VqDocumenti::NuovoDocumentoStampa)->Carica(folder_, _bstr_t(file)));
  } catch (const Failure& failure) {
    std::wcout << file << L": errore " << (failure.result & 0xFFFF) << L", " << failure.text << L'\n';
  }
}

void run(const wchar_t* folder, const wchar_t* attachment) {
  Composer composer(folder, attachment);
  composer.composeFax();
  composer.composeEmail();
  composer.composePrint();
  composer.report();
  composer.tryToLoad(L"manca.vqs");
}

}  // namespace

int wmain(int count, wchar_t** arguments) {
  if (count != 3 || FAILED(CoInitialize(nullptr))) return 2;
  int status = 0;
  try {
    run(arguments[1], arguments[2]);
  } catch (const Failure& failure) {
    std::wcerr << L"compose_com: " << failure.text << L'\n';
    status = 1;
  }
  CoUninitialize();
  return status;
}
