// More than one apartment in a process.
#include <thread>

#include "tests/automation/Client.h"

namespace {

using namespace client;

using Apartments = Automation;

// Runs `body` in a single-threaded apartment of its own and goes on handling messages here, where calls
// arrive.
template <class Body>
void inAnotherApartment(Body body) {
  HANDLE done = CreateEventW(nullptr, TRUE, FALSE, nullptr);
  std::thread other([&] {
    CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    body();
    CoUninitialize();
    SetEvent(done);
  });
  DWORD index = 0;
  EXPECT_EQ(S_OK, CoWaitForMultipleHandles(0, 600'000, 1, &done, &index));
  other.join();
  CloseHandle(done);
}

TEST_F(Apartments, DoNotShareTheirServices) {
  const auto stampa = boundStampa();
  inAnotherApartment([] {
    auto own = newFactory();
    own.reset();  // takes away the services of that apartment
    auto next = newFactory();
    Ptr<_VqDocStampa> document;
    EXPECT_EQ(S_OK, next->NuovoDocumentoStampa(document.out()));
    EXPECT_EQ(S_OK, document->Inizializza(Bstr(L"2"), Bstr(newFolder()), VARIANT_FALSE));
    next.reset();
    EXPECT_EQ(runtimeError(91), document->put_Stampante(Bstr(L"Laser")));
  });
  EXPECT_EQ(S_OK, stampa->put_Stampante(Bstr(L"Laser")));
}

TEST_F(Apartments, AThreadMayEndWhileItsFactoryIsAlive) {
  Ptr<_VqDocumenti> abandoned;
  std::thread([&] { abandoned = newFactory(); }).join();
  EXPECT_EQ(S_OK, boundStampa()->put_Stampante(Bstr(L"Laser")));
  std::thread([&] { abandoned.reset(); }).join();  // takes away nothing of this apartment
  EXPECT_EQ(S_OK, boundStampa()->put_Stampante(Bstr(L"Laser")));
}

TEST_F(Apartments, CallEachOtherThroughTheTypeLibrary) {
  const auto stampa = boundStampa();
  ASSERT_EQ(S_OK, stampa->put_Copie(3));
  IStream* stream = nullptr;
  ASSERT_EQ(S_OK, CoMarshalInterThreadInterfaceInStream(__uuidof(_VqDocStampa), stampa.get(), &stream));
  const DWORD home = GetCurrentThreadId();
  inAnotherApartment([&] {
    EXPECT_NE(home, GetCurrentThreadId());
    Ptr<_VqDocStampa> proxy;
    ASSERT_EQ(S_OK, CoGetInterfaceAndReleaseStream(stream, __uuidof(_VqDocStampa), proxy.outVoid()));
    EXPECT_NE(stampa.get(), proxy.get());
    LONG copies = 0;
    EXPECT_EQ(S_OK, proxy->get_Copie(&copies));
    EXPECT_EQ(3, copies);
    EXPECT_EQ(S_OK, proxy->put_Stampante(Bstr(L"Laser")));
    Ptr<_VqDocDimensione> dimensione;
    EXPECT_EQ(S_OK, proxy->get_Dimensione(dimensione.out()));
    EXPECT_EQ(S_OK, dimensione->put_Codice(vdd_A3));
    EXPECT_EQ(runtimeError(445), proxy->Carica(Bstr(L"x"), Bstr(L"y")));
  });
  Bstr printer;
  EXPECT_EQ(S_OK, stampa->get_Stampante(printer.out()));
  EXPECT_EQ(L"Laser", printer.text());
}

}  // namespace
