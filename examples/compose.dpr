// A fax, an e-mail and a print job from Delphi: compose FOLDER ATTACHMENT
// FOLDER gets the jobs; ATTACHMENT is a file that goes with the fax and the e-mail.
// OrvaneDocumenti_TLB is the unit that Component, Import Component, Type Library makes.
program compose;

{$IFDEF FPC}{$MODE DELPHIUNICODE}{$ENDIF}
{$APPTYPE CONSOLE}

uses
  SysUtils, ActiveX, ComObj, OrvaneDocumenti_TLB;

var
  Factory: VqDocumenti;  // one, kept for as long as documents are used
  Folder, Attachment: string;

// Collections are written by Salva.
procedure Attach(const Attachments: VqDocAllegati);
var
  Name: WideString;
begin
  Name := ExtractFileName(Attachment);
  Attachments.Add(ExtractFileDir(Attachment), Name);
  Attachments.Salva;
end;

// Bound to its job file, a document writes every assignment at once.
procedure ComposeFax;
var
  Fax: VqDocFax;
begin
  Fax := Factory.NuovoDocumentoFax;
  Fax.Inizializza('fax', Folder, False);
  Fax.NumeroFax.PrefissoInternazionale := '39';
  Fax.NumeroFax.PrefissoLocale := '06';
  Fax.NumeroFax.Numero := '1234567';
  Fax.Oggetto := 'Offerta n. 12';
  Fax.Destinatario := 'Anna Verdi';
  Fax.Frontespizio.Inviare := True;
  Fax.Frontespizio.Nota[0] := 'Gentile cliente, ecco l''offerta.';
  Attach(Fax.Allegati);
  Fax.Coda.Codice := vdcf_DaConvertire;
end;

procedure ComposeEmail;
var
  Mail: VqDocEmail;
begin
  Mail := Factory.NuovoDocumentoEmail;
  Mail.Inizializza('email', Folder, False);
  Mail.Oggetto := 'Fattura n. 12';
  Mail.Account.IndirizzoEmail := 'amministrazione@example.com';
  Mail.A.NomiVisualizzati := 'Anna Verdi';
  Mail.A.IndirizziEmail := 'anna.verdi@example.com';
  Mail.Cc.IndirizziEmail := 'archivio@example.com';
  Mail.Messaggio.Nota[0] := 'Gentile cliente,';
  Mail.Messaggio.Nota[1] := 'in allegato la fattura.';
  Attach(Mail.Allegati);
  Mail.Coda.Codice := vdce_DaConvertire;
end;

procedure ComposePrint;
var
  Stampa, Linked: VqDocStampa;
begin
  Stampa := Factory.NuovoDocumentoStampa;
  Stampa.Inizializza('stampa', Folder, False);
  Stampa.Stampante := 'Laser';
  Stampa.Copie := 2;
  Stampa.Dimensione.Codice := vdd_A4;
  Stampa.FronteRetro.Codice := vdfr_Verticale;
  Stampa.Proprieta.Utente := 'mrossi';
  Stampa.Proprieta.Descrizione := 'Listino di marzo';
  Linked := Factory.NuovoDocumentoStampa;
  Linked.Inizializza('etichetta', Folder, True);
  Linked.Stampante := 'Etichette';
  Stampa.Collegati.Add(Linked);
  Stampa.Collegati.Salva;
  Stampa.Coda.Codice := vdcs_DaStampare;
end;

procedure Show(const Properties: VqDocProprieta; const Queue, Text: string);
begin
  WriteLn(Properties.FileIntestazione.Nome, ': ', Properties.Tipo.Descrizione, ', ', Queue, ', ',
    Properties.Esito.Descrizione, ', ', Text);
end;

// New objects, loaded from the files: what the server has written by then is in them.
procedure ReportTransmitted;
var
  Fax: VqDocFax;
  Mail: VqDocEmail;
begin
  Fax := Factory.NuovoDocumentoFax;
  Fax.Carica(Folder, 'fax.vqf');
  Show(Fax.Proprieta, Fax.Coda.Descrizione,
    Format('%s, allegati %d', [Fax.NumeroFax.NumeroEsteso, Fax.Allegati.Count]));
  Mail := Factory.NuovoDocumentoEmail;
  Mail.Carica(Folder, 'email.vqe');
  Show(Mail.Proprieta, Mail.Coda.Descrizione,
    Format('%s, allegati %d', [Mail.A.IndirizziEmail, Mail.Allegati.Count]));
end;

procedure ReportPrint;
var
  Stampa, Linked: VqDocStampa;
  I: Integer;
begin
  Stampa := Factory.NuovoDocumentoStampa;
  Stampa.Carica(Folder, 'stampa.vqs');
  Show(Stampa.Proprieta, Stampa.Coda.Descrizione,
    Format('%s, copie %d, %s', [Stampa.Stampante, Stampa.Copie, Stampa.Dimensione.Descrizione]));
  for I := 0 to Stampa.Collegati.Count - 1 do
  begin
    Linked := Stampa.Collegati.Item[I];
    WriteLn('  con ', Linked.Proprieta.Id, ' su ', Linked.Stampante);
  end;
end;

procedure TryToLoad(const FileName: string);
begin
  try
    Factory.NuovoDocumentoStampa.Carica(Folder, FileName);
  except
    on E: EOleException do
      WriteLn(FileName, ': errore ', E.ErrorCode and $FFFF, ', ', E.Message);
  end;
end;

procedure Run;
begin
  Factory := CoVqDocumenti.Create;
  ComposeFax;
  ComposeEmail;
  ComposePrint;
  ReportTransmitted;
  ReportPrint;
  TryToLoad('manca.vqs');
end;

begin
  CoInitialize(nil);
  try
    Folder := ParamStr(1);
    Attachment := ParamStr(2);
    Run;
  except
    on E: Exception do
    begin
      WriteLn(ErrOutput, E.ClassName, ': ', E.Message);
      ExitCode := 1;
    end;
  end;
  Factory := nil;  // before the apartment goes
  CoUninitialize;
end.
