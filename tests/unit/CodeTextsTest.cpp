// Every member of every enumeration that a code-value class describes: its number and its text.
#include "codes/CodeValues.h"
#include "codes/OwnTexts.h"
#include "codes/VqDocResDll.h"
#include "core/Numbers.h"
#include "tests/support/JobTest.h"
#include "tests/support/Rows.h"

namespace orvane::test {
namespace {

template <class Class>
Text describedBy(std::int32_t code) {
  Class value;
  value.Codice = code;
  return value.Descrizione();
}

struct CatalogKind : VqDocTipoCatalogo {
  CatalogKind() : VqDocTipoCatalogo(u"Catalogo") {}
};

struct ColourHandling : VqDocFaxColore {
  decltype(CodiceGestione)& Codice = CodiceGestione;
  Text Descrizione() const { return DescrizioneGestione(); }
};

struct ColourKind : VqDocFaxColore {
  decltype(CodiceTipo)& Codice = CodiceTipo;
  Text Descrizione() const { return DescrizioneTipo(); }
};

struct Width : VqDocFaxPagina {
  PageWidth& Codice = CodiceWidth;
  Text Descrizione() const { return DescrizioneWidth(); }
};

struct Length : VqDocFaxPagina {
  decltype(CodiceLength)& Codice = CodiceLength;
  Text Descrizione() const { return DescrizioneLength(); }
};

struct Member : Row {
  Text (*describe)(std::int32_t code);
  std::int32_t member;
  std::int32_t number;
  Text text;
};

class CodeTexts : public JobTest, public testing::WithParamInterface<Member> {};

TEST_P(CodeTexts, DescribeTheirMember) {
  EXPECT_EQ(GetParam().member, GetParam().number);
  EXPECT_EQ(GetParam().describe(GetParam().number), GetParam().text);
}

#define ORVANE_MEMBER(Class, member, number, text) \
  { {#member}, describedBy<Class>, member, number, text }

const Member kMembers[] = {
    ORVANE_MEMBER(VqDocLingua, vdl_Italiano, 0, u"Italiano"),
    ORVANE_MEMBER(VqDocLingua, vdl_Inglese, 1, u"Inglese"),
    ORVANE_MEMBER(VqDocLingua, vdl_Francese, 2, u"Francese"),
    ORVANE_MEMBER(VqDocLingua, vdl_Tedesco, 3, u"Tedesco"),
    ORVANE_MEMBER(VqDocLingua, vdl_Rumeno, 4, u"Rumeno"),
    ORVANE_MEMBER(VqDocOrientamento, vdo_Automatico, 0, u"Automatico"),
    ORVANE_MEMBER(VqDocOrientamento, vdo_Verticale, 1, u"Verticale"),
    ORVANE_MEMBER(VqDocOrientamento, vdo_Orizzontale, 2, u"Orizzontale"),
    ORVANE_MEMBER(VqDocPinzatura, vdpnz_Nessuna, 0, u"Nessuna"),
    ORVANE_MEMBER(VqDocPinzatura, vdpnz_Singola, 1, u"Singola"),
    ORVANE_MEMBER(VqDocPinzatura, vdpnz_Doppia, 2, u"Doppia"),
    ORVANE_MEMBER(VqDocAlimentazione, vda_CassettoSuperiore, 1,
                  u"Alimentazione della carta dal cassetto superiore"),
    ORVANE_MEMBER(VqDocAlimentazione, vda_CassettoInferiore, 2,
                  u"Alimentazione della carta dal cassetto inferiore"),
    ORVANE_MEMBER(VqDocAlimentazione, vda_CassettoCentrale, 3,
                  u"Alimentazione della carta dal cassetto centrale"),
    ORVANE_MEMBER(VqDocAlimentazione, vda_AlimentazioneManuale, 4, u"Inseritore manuale dei fogli singoli"),
    ORVANE_MEMBER(VqDocAlimentazione, vda_CassettoBustePredefinito, 5,
                  u"Alimentazione delle buste dal relativo alimentatore"),
    ORVANE_MEMBER(VqDocAlimentazione, vda_CassettoBusteManuale, 6,
                  u"Inseritore manuale delle singole buste nel relativo alimentatore"),
    ORVANE_MEMBER(VqDocAlimentazione, vda_SelezioneAutomatica, 7,
                  u"Alimentazione della carta dal cassetto predefinito corrente"),
    ORVANE_MEMBER(VqDocAlimentazione, vda_AlimentazioneContinua, 8, u"Alimentazione continua"),
    ORVANE_MEMBER(VqDocAlimentazione, vda_CassettoPiuPiccolo, 9,
                  u"Alimentazione della carta dal cassetto più piccolo"),
    ORVANE_MEMBER(VqDocAlimentazione, vda_CassettoPiuGrande, 10,
                  u"Alimentazione della carta dal cassetto più grande"),
    ORVANE_MEMBER(VqDocAlimentazione, vda_CassettoPiuCapace, 11,
                  u"Alimentazione della carta dal cassetto più capace"),
    ORVANE_MEMBER(VqDocAlimentazione, vda_CassettoCollegato, 14,
                  u"Alimentazione della carta dal cassetto collegato"),
    ORVANE_MEMBER(VqDocFronteRetro, vdfr_Singolo, 1, u"Un foglio per pagina"),
    ORVANE_MEMBER(VqDocFronteRetro, vdfr_Verticale, 2, u"Fronteretro a calendario"),
    ORVANE_MEMBER(VqDocFronteRetro, vdfr_Orizzontale, 3, u"Fronteretro a libro"),
    ORVANE_MEMBER(VqDocFascicolazione, vdf_Automatico, 0, u"Fascicolazione automatica"),
    ORVANE_MEMBER(VqDocFascicolazione, vdf_Fascicolato, 1, u"Fascicolata"),
    ORVANE_MEMBER(VqDocFascicolazione, vdf_NonFascicolato, 2, u"Non fascicolata"),
    ORVANE_MEMBER(VqDocSmtpAutentica, vdsmtpa_Nessuna, 0, u"Nessuna"),
    ORVANE_MEMBER(VqDocSmtpAutentica, vdsmtpa_AutoLogin, 1, u"Auto-Login"),
    ORVANE_MEMBER(VqDocSmtpAutentica, vdsmtpa_CramMd5, 2, u"CRAM-MD5"),
    ORVANE_MEMBER(VqDocIntestazione, vdi_Nessuna, 0, u"Nessuna"),
    ORVANE_MEMBER(VqDocIntestazione, vdi_DaIntestare, 1, u"Da intestare"),
    ORVANE_MEMBER(VqDocIntestazione, vdi_Prestampata, 2, u"Prestampata"),
    ORVANE_MEMBER(VqDocPagineStato, vdps_DaScomporre, 0, u"Da scomporre"),
    ORVANE_MEMBER(VqDocPagineStato, vdps_Scomposte, 1, u"Scomposte"),
    ORVANE_MEMBER(VqDocTipo, vdt_Sconosciuto, 0, u"Sconosciuto"),
    ORVANE_MEMBER(VqDocTipo, vdt_Fax, 1, u"Fax"),
    ORVANE_MEMBER(VqDocTipo, vdt_Stampa, 2, u"Stampa"),
    ORVANE_MEMBER(VqDocTipo, vdt_Email, 3, u"Email"),
    ORVANE_MEMBER(VqDocTipo, vdt_PFax, 4, u"Fax"),
    ORVANE_MEMBER(VqDocComando, vdc_Nessuno, 0, u"Nessuno"),
    ORVANE_MEMBER(VqDocComando, vdc_Fax_Annulla, 1, u"Annulla fax"),
    ORVANE_MEMBER(VqDocComando, vdc_Fax_Reinvia, 2, u"Reinvia fax"),
    ORVANE_MEMBER(VqDocComando, vdc_Pbl_PubblicaAllegati, 3, u"Pubblica allegato"),
    ORVANE_MEMBER(VqDocPosizionePagina, vdpp_AngoloSuperioreSinitro, 0, u"Angolo superiore sinistro"),
    ORVANE_MEMBER(VqDocPosizionePagina, vdpp_AngoloSuperioreDestro, 1, u"Angolo superiore destro"),
    ORVANE_MEMBER(VqDocPosizionePagina, vdpp_AngoloInferioreSinitro, 2, u"Angolo inferiore sinistro"),
    ORVANE_MEMBER(VqDocPosizionePagina, vdpp_AngoloInferioreDestro, 3, u"Angolo inferiore destro"),
    ORVANE_MEMBER(VqDocPosizionePagina, vdpp_CentroSinistra, 4, u"Centro sinistra"),
    ORVANE_MEMBER(VqDocPosizionePagina, vdpp_CentroSuperiore, 5, u"Centro superiore"),
    ORVANE_MEMBER(VqDocPosizionePagina, vdpp_CentroDestra, 6, u"Centro destra"),
    ORVANE_MEMBER(VqDocPosizionePagina, vdpp_CentroInferiore, 7, u"Centro inferiore"),
    ORVANE_MEMBER(VqDocPosizionePagina, vdpp_CentroPagina, 8, u"Centro pagina"),
    ORVANE_MEMBER(CatalogKind, vdtc_Ascii, 0, u"ASCII"),
    ORVANE_MEMBER(CatalogKind, vdtc_Ebcdic, 1, u"EBCDIC"),
    ORVANE_MEMBER(VqDocBloccato, vdb_Nessuno, 0, u"No"),
    ORVANE_MEMBER(VqDocBloccato, vdb_Server, 1, u"Si, dal server"),
    ORVANE_MEMBER(VqDocBloccato, vdb_Utente, 2, u"Si, dall'utente"),
    ORVANE_MEMBER(VqDocEsito, vde_DaElaborare, 0, u"Da elaborare"),
    ORVANE_MEMBER(VqDocEsito, vde_Ok, 1, u"Ok"),
    ORVANE_MEMBER(VqDocEsito, vde_Fallito, 2, u"Fallito"),
    ORVANE_MEMBER(VqDocFaxBFT, vdftbft_NoChange, 1, u"NOCHANGE"),
    ORVANE_MEMBER(VqDocFaxBFT, vdftbft_Disable, 2, u"DISABLED"),
    ORVANE_MEMBER(VqDocFaxBFT, vdftbft_Enable, 3, u"ENABLE"),
    ORVANE_MEMBER(ColourHandling, vdftgc_NoChange, 1, u"NOCHANGE"),
    ORVANE_MEMBER(ColourHandling, vdftgc_Disable, 2, u"DISABLED"),
    ORVANE_MEMBER(ColourHandling, vdftgc_Enable, 3, u"ENABLE"),
    ORVANE_MEMBER(ColourKind, vdfttc_TrueColor, 1, u"TRUECOLOR"),
    ORVANE_MEMBER(ColourKind, vdfttc_GrayScale, 2, u"GRAYSCALE"),
    ORVANE_MEMBER(VqDocFaxCompressione, vdftc_NoChange, 1, u"NOCHANGE"),
    ORVANE_MEMBER(VqDocFaxCompressione, vdftc_1DMH, 2, u"1DMH"),
    ORVANE_MEMBER(VqDocFaxCompressione, vdftc_2DMR, 3, u"2DMR"),
    ORVANE_MEMBER(VqDocFaxCompressione, vdftc_UnCompressed, 4, u"UNCOMPRESSED"),
    ORVANE_MEMBER(VqDocFaxCompressione, vdftc_2DMMR, 5, u"2DMMR"),
    ORVANE_MEMBER(VqDocFaxECM, vdftbecm_NoChange, 1, u"NOCHANGE"),
    ORVANE_MEMBER(VqDocFaxECM, vdftbecm_Disable, 2, u"DISABLED"),
    ORVANE_MEMBER(VqDocFaxECM, vdftbecm_Enable, 3, u"ENABLED"),
    ORVANE_MEMBER(Width, vdftpw_NoChange, 1, u"NOCHANGE"),
    ORVANE_MEMBER(Width, vdftpw_1728, 2, u"1728"),
    ORVANE_MEMBER(Width, vdftpw_2048, 3, u"2048"),
    ORVANE_MEMBER(Width, vdftpw_2432, 4, u"2432"),
    ORVANE_MEMBER(Width, vdftpw_1216, 5, u"1216"),
    ORVANE_MEMBER(Width, vdftpw_864, 6, u"864"),
    ORVANE_MEMBER(Length, vdftpl_NoChange, 1, u"NOCHANGE"),
    ORVANE_MEMBER(Length, vdftpl_A4, 2, u"A4"),
    ORVANE_MEMBER(Length, vdftpl_B4, 3, u"B4"),
    ORVANE_MEMBER(Length, vdftpl_Unlimited, 4, u"UNLIMITED"),
    ORVANE_MEMBER(VqDocFaxRisoluzione, vdftr_NoChange, 1, u"NoChange"),
    ORVANE_MEMBER(VqDocFaxRisoluzione, vdftr_98, 2, u"Bassa  (204 x 98 dpi)"),
    ORVANE_MEMBER(VqDocFaxRisoluzione, vdftr_196, 3, u"Alta (204 x 196 dpi)"),
    ORVANE_MEMBER(VqDocFaxTipoFax, vdfttf_NORMAL, 1, u"NORMAL"),
    ORVANE_MEMBER(VqDocFaxTipoFax, vdfttf_COLOR, 2, u"COLOR"),
    ORVANE_MEMBER(VqDocFaxTipoFax, vdfttf_BFT, 3, u"BFT"),
    ORVANE_MEMBER(VqDocFaxDispositivo, vdftd_CLASS1_SFC, 1, u"GCLASS1(SFC)"),
    ORVANE_MEMBER(VqDocFaxDispositivo, vdftd_CLASS1_HFC, 2, u"GCLASS1(HFC)"),
    ORVANE_MEMBER(VqDocFaxDispositivo, vdftd_CLASS1_0_SFC, 3, u"GCLASS1.0(SFC)"),
    ORVANE_MEMBER(VqDocFaxDispositivo, vdftd_CLASS1_0_HFC, 4, u"GCLASS1.0(HFC)"),
    ORVANE_MEMBER(VqDocFaxDispositivo, vdftd_CLASS2S_RF, 5, u"GCLASS2S/RF/"),
    ORVANE_MEMBER(VqDocFaxDispositivo, vdftd_CLASS2_0, 6, u"GCLASS2.0"),
    ORVANE_MEMBER(VqDocFaxDispositivo, vdftd_CLASS2_0_MULTITECH, 7, u"GCLASS2.0 MULTITECH"),
    ORVANE_MEMBER(VqDocFaxDispositivo, vdftd_H14_4F_HFC, 8, u"GH14.4F(HFC)"),
    ORVANE_MEMBER(VqDocFaxDispositivo, vdftd_CLASS2R, 9, u"GCLASS2R"),
    ORVANE_MEMBER(VqDocFaxDispositivo, vdftd_USR14_4F_HFC, 10, u"GU.S.R14.4F(HFC)"),
    ORVANE_MEMBER(VqDocFaxTRMStatus, vdftstrms_NORMAL, 0, u"Normal termination"),
    ORVANE_MEMBER(VqDocFaxTRMStatus, vdftstrms_NONE, 1, u"The session has not terminated (running)"),
    ORVANE_MEMBER(VqDocFaxTRMStatus, vdftstrms_UNSPECIFIED, 2, u"Unspecified error"),
    ORVANE_MEMBER(VqDocFaxTRMStatus, vdftstrms_RINGBACK, 3, u"Ringback detect without connection"),
    ORVANE_MEMBER(VqDocFaxTRMStatus, vdftstrms_ABORT, 4, u"The user aborts the connection"),
    ORVANE_MEMBER(VqDocFaxTRMStatus, vdftstrms_BUSY, 6, u"The remote station is busy"),
    ORVANE_MEMBER(VqDocFaxErrore, vdftec_NoErrors, 0, u"No errors."),
    ORVANE_MEMBER(VqDocFaxErrore, vdftec_FER_NO_DIALTONE, -1, u"No dial tone detected."),
    ORVANE_MEMBER(VqDocFaxErrore, vdftec_FER_MEMORIA, -20, u"Not enough memory to allocate a memory block."),
    ORVANE_MEMBER(VqDocFaxErrore, vdftec_FAX_ERR_ITEM_NOT_IN_QUEUE, -176,
                  u"The specified queue item is not in the queue."),
    ORVANE_MEMBER(VqDocFaxBaudRate, vdftbr_2400, 2, u"2400"),
    ORVANE_MEMBER(VqDocFaxBaudRate, vdftbr_4800, 3, u"4800"),
    ORVANE_MEMBER(VqDocFaxBaudRate, vdftbr_7200, 4, u"7200"),
    ORVANE_MEMBER(VqDocFaxBaudRate, vdftbr_9600, 5, u"9600"),
    ORVANE_MEMBER(VqDocFaxBaudRate, vdftbr_12000, 6, u"12000"),
    ORVANE_MEMBER(VqDocFaxBaudRate, vdftbr_14400, 7, u"14400"),
    ORVANE_MEMBER(VqDocFaxBaudRate, vdftbr_16800, 8, u"16800"),
    ORVANE_MEMBER(VqDocFaxBaudRate, vdftbr_19200, 9, u"19200"),
    ORVANE_MEMBER(VqDocFaxBaudRate, vdftbr_21600, 10, u"21600"),
    ORVANE_MEMBER(VqDocFaxBaudRate, vdftbr_24000, 11, u"24000"),
    ORVANE_MEMBER(VqDocFaxBaudRate, vdftbr_26400, 12, u"26400"),
    ORVANE_MEMBER(VqDocFaxBaudRate, vdftbr_28800, 13, u"28800"),
    ORVANE_MEMBER(VqDocFaxBaudRate, vdftbr_31200, 14, u"31200"),
    ORVANE_MEMBER(VqDocFaxBaudRate, vdftbr_33600, 15, u"33600"),
    ORVANE_MEMBER(VqDocFaxBaudRate, vdftbr_NoChange, 1, u"NOCHANGE"),
    ORVANE_MEMBER(VqDocDimensione, vdd_Automatico, 0, u"Automatico"),
    ORVANE_MEMBER(VqDocDimensione, vdd_Letter, 1, u"Lettera USA (21,6 x 27,9 cm)"),
    ORVANE_MEMBER(VqDocDimensione, vdd_A3, 8, u"A3 (29,7 x 42 cm)"),
    ORVANE_MEMBER(VqDocDimensione, vdd_A4, 9, u"A4 (21 x 29,7 cm)"),
    ORVANE_MEMBER(VqDocDimensione, vdd_A5, 11, u"A5 (14,8 x 21 cm)"),
    ORVANE_MEMBER(VqDocDimensione, vdd_Envelope11, 21, u"Busta n. 11 (11,4x 26,3 cm)"),
};

#undef ORVANE_MEMBER

INSTANTIATE_TEST_SUITE_P(Members, CodeTexts, testing::ValuesIn(kMembers), rowName);

class TextTable : public JobTest {
 protected:
  // Numbers from `first` to `last` that have no text.
  std::vector<std::int32_t> missing(std::int32_t first, std::int32_t last) const {
    std::vector<std::int32_t> out;
    for (std::int32_t id = first; id <= last; ++id) {
      if (Apartment::strings().LoadDllString(id).starts_with(u"Manca la risora: ")) out.push_back(id);
    }
    return out;
  }
};

TEST_F(TextTable, HasEveryPaperSize) {
  EXPECT_EQ(missing(7500, 7541), std::vector<std::int32_t>());
  EXPECT_EQ(vdd_FanFoldLegalGerman, 41);
}

TEST_F(TextTable, HasNoTextForUnassignedPaperSources) {
  EXPECT_EQ(missing(7400, 7415), (std::vector{7400, 7412, 7413, 7415}));
}

TEST_F(TextTable, HasNoTextForFiveTerminationStatuses) {
  for (const std::int32_t status : {240, 242, 243, 244, std::int32_t{vdftstrms_NMS_REMOTE_DCN}}) {
    EXPECT_EQ(describedBy<VqDocFaxTRMStatus>(status),
              u"Manca la risora: " + decimalText(1600 + status) + u" OrvaneDocumenti");
  }
}

TEST_F(TextTable, DescribesTheOtherTerminationStatuses) {
  EXPECT_EQ(250 - missing(1600, 1849).size(), 213u);
  EXPECT_EQ(describedBy<VqDocFaxTRMStatus>(vdftstrms_RESENDPAGE), u"The page has to be sent again");
}

TEST_F(TextTable, DescribesEveryFaxBoardError) { EXPECT_EQ(177 - missing(10000, 10176).size(), 93u); }

TEST_F(TextTable, DescribesEveryJobErrorButTheFourth) {
  EXPECT_EQ(missing(11000, 11011), (std::vector{11004}));
}

TEST_F(TextTable, IsReadAsItWasCompiled) {
  for (const NumberedText& row : numberedTexts()) {
    EXPECT_EQ(Apartment::strings().LoadDllString(row.id), row.text) << row.id;
  }
}

}  // namespace
}  // namespace orvane::test
