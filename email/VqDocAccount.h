// The sender of an e-mail or fax, and the mail server that carries it.
#pragma once

#include "codes/CodeValues.h"

namespace orvane {

/// Section "Smtp". `MailPort` starts at 0, not at a standard port; the password is plain text in the job file
/// and in the XML.
class VqDocSmtp : public Component, private Owner {
 public:
  VqDocSmtp() : Component(u"Smtp", u"Smtp") {}

  Stored<Text> MailServer{*this, u"MailServer"};
  Stored<std::int32_t> MailPort{*this, u"MailPort"};
  Stored<Text> MailDomain{*this, u"MailDomain"};
  Stored<Text> NomeAccount{*this, u"NomeAccount"};
  Stored<Text> PasswordAccount{*this, u"PasswordAccount"};
  VqDocSmtpAutentica Autenticazione;

 protected:
  void ImpostaFile(const std::shared_ptr<JobFile>& file) override {
    Component::ImpostaFile(file);
    bind(file, Autenticazione);
  }
  void LeggiFile() override {
    Component::LeggiFile();
    load(Autenticazione);
  }
  void renderParts(XmlWriter& xml) const override { render(xml, Autenticazione); }
};

/// Section "Account". Names and addresses are free text that the server interprets.
class VqDocAccount : public Component, private Owner {
 public:
  VqDocAccount() : Component(u"Account", u"Account") {}

  VqDocSmtp Smtp;
  Stored<Text> NomeVisualizzato{*this, u"NomeVisualizzato"};
  Stored<Text> IndirizzoEmail{*this, u"IndirizzoEmail"};
  Stored<Text> IndirizzoEmailDiRisposta{*this, u"IndirizzoEmailDiRisposta"};
  Stored<bool> Notificare{*this, u"Notificare"};
  Stored<bool> ConfermaLetturaOutlookExpress{*this, u"ConfermaLetturaOutlookExpress"};

 protected:
  void ImpostaFile(const std::shared_ptr<JobFile>& file) override {
    Component::ImpostaFile(file);
    bind(file, Smtp);
  }
  void LeggiFile() override {
    Component::LeggiFile();
    load(Smtp);
  }
  void renderParts(XmlWriter& xml) const override { render(xml, Smtp); }
};

}  // namespace orvane
