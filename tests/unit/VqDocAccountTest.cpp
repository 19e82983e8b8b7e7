#include "email/VqDocAccount.h"

#include "tests/support/JobTest.h"
#include "tests/unit/Expected.h"
#include "tests/unit/Fill.h"

namespace orvane::test {
namespace {

class VqDocAccountTest : public JobTest {
 protected:
  VqDocAccountTest() { bind(account); }
  VqDocAccount account;
};

TEST_F(VqDocAccountTest, MailPortStartsAtZero) {
  EXPECT_EQ(account.Smtp.MailPort.get(), 0);
  EXPECT_EQ(account.Smtp.Autenticazione.Codice.number(), 0);
}

TEST_F(VqDocAccountTest, TextsAndFlagsStartEmpty) {
  EXPECT_EQ(account.NomeVisualizzato.get() + account.Smtp.MailServer.get(), u"");
  EXPECT_FALSE(account.Notificare.get() || account.ConfermaLetturaOutlookExpress.get());
}

TEST_F(VqDocAccountTest, EveryAssignmentIsWrittenToItsSection) {
  fill(account);
  EXPECT_EQ(job().lines(),
            u"[Account]\nNomeVisualizzato=Mario Rossi\nIndirizzoEmail=mario@esempio.it\n"
            u"IndirizzoEmailDiRisposta=risposte@esempio.it\nNotificare=-1\nConfermaLetturaOutlookExpress=-1\n"
            u"[Smtp]\nMailServer=smtp.esempio.it\nMailPort=25\nMailDomain=esempio.it\nNomeAccount=mario\n"
            u"PasswordAccount=segreta\n[Autenticazione]\nCodice=2\nDescrizione=CRAM-MD5\n");
}

TEST_F(VqDocAccountTest, EveryValueIsReadBack) {
  fill(account);
  VqDocAccount again;
  bind(again);
  Components::load(again);
  EXPECT_EQ(Components::xmlOf(again), Components::xmlOf(account));
}

TEST_F(VqDocAccountTest, MissingSectionsReadAsNothing) {
  fill(account);
  loadFrom(account, u"[Altro]\n");
  EXPECT_EQ(toUtf8(Components::xmlOf(account)), expectedXml("Account.new"));
}

TEST_F(VqDocAccountTest, StoredPortIsRoundedHalvesToEven) {
  loadFrom(account, u"[Smtp]\nMailPort=24.5\n");
  EXPECT_EQ(account.Smtp.MailPort.get(), 24);
}

TEST_F(VqDocAccountTest, XmlOfANewAccount) {
  EXPECT_EQ(toUtf8(Components::xmlOf(account)), expectedXml("Account.new"));
}

TEST_F(VqDocAccountTest, XmlOfAFilledAccountShowsThePasswordAsItIs) {
  fill(account);
  EXPECT_EQ(toUtf8(Components::xmlOf(account)), expectedXml("Account.set"));
}

}  // namespace
}  // namespace orvane::test
