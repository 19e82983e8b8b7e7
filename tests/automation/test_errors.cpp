// Errors on both call paths.
#include "tests/automation/Client.h"

namespace {

using namespace client;

using Errors = Automation;

TEST_F(Errors, ReachEarlyBoundClientsWithSourceAndText) {
  const auto stampa = newStampa();
  Ptr<ISupportErrorInfo> support;
  ASSERT_EQ(S_OK, stampa->QueryInterface(IID_ISupportErrorInfo, support.outVoid()));
  EXPECT_EQ(S_OK, support->InterfaceSupportsErrorInfo(__uuidof(_VqDocStampa)));
  EXPECT_EQ(S_FALSE, support->InterfaceSupportsErrorInfo(__uuidof(_VqDocFax)));

  EXPECT_EQ(runtimeError(76), stampa->Carica(Bstr(L""), Bstr(L"1.vqs")));
  Ptr<IErrorInfo> info;
  ASSERT_EQ(S_OK, GetErrorInfo(0, info.out()));
  Bstr source, text;
  GUID id{};
  info->GetSource(source.out());
  info->GetDescription(text.out());
  info->GetGUID(&id);
  EXPECT_EQ(L"OrvaneDocumenti", source.text());
  EXPECT_EQ(L"Path not found", text.text());
  EXPECT_EQ(__uuidof(_VqDocStampa), id);
}

TEST_F(Errors, ReachLateBoundClientsWithSourceAndText) {
  const auto stampa = newStampa();
  Outcome outcome;
  const Value folder(L""), name(L"1.vqs");
  invoke(outcome, stampa.get(), L"Carica", DISPATCH_METHOD, {&folder, &name});
  EXPECT_EQ(DISP_E_EXCEPTION, outcome.result);
  EXPECT_EQ(runtimeError(76), outcome.error.scode);
  EXPECT_STREQ(L"OrvaneDocumenti", outcome.error.bstrSource);
  EXPECT_STREQ(L"Path not found", outcome.error.bstrDescription);
}

TEST_F(Errors, NeedNoPlaceToGoTo) {
  const auto stampa = newStampa();
  Value arguments[] = {Value(L"1.vqs"), Value(L"")};
  DISPPARAMS given{arguments, nullptr, 2, 0};
  EXPECT_EQ(DISP_E_EXCEPTION, stampa->Invoke(idOf(stampa.get(), L"Carica"), IID_NULL, 0, DISPATCH_METHOD,
                                             &given, nullptr, nullptr, nullptr));
}

TEST_F(Errors, ADocumentBindsOnce) {
  const auto stampa = boundStampa();
  EXPECT_EQ(runtimeError(445), stampa->Inizializza(Bstr(L"1"), Bstr(newFolder()), VARIANT_FALSE));
  EXPECT_EQ(runtimeError(445), stampa->Carica(Bstr(newFolder()), Bstr(L"1.vqs")));
}

TEST_F(Errors, AFactoryThatEndsTakesItsServicesAlong) {
  const auto stampa = boundStampa();
  factory.reset();
  EXPECT_EQ(runtimeError(91), stampa->put_Stampante(Bstr(L"Laser")));
  Bstr printer;
  EXPECT_EQ(S_OK, stampa->get_Stampante(printer.out())) << "reading needs no service";
  Ptr<IClassFactory> classes;
  ASSERT_EQ(S_OK, Server::classObject(__uuidof(VqDocumenti), IID_IClassFactory, classes.outVoid()));
  ASSERT_EQ(S_OK, classes->CreateInstance(nullptr, __uuidof(_VqDocumenti), factory.outVoid()));
  EXPECT_EQ(S_OK, stampa->put_Stampante(Bstr(L"Laser")));
}

}  // namespace
