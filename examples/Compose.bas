Attribute VB_Name = "Compose"
' A fax, an e-mail and a print job from VB6 or VBA, with a reference to the type library (Tools, References).
' ComposeJobs is for a button or a menu: folder gets the jobs, attachment is a file that goes with fax and e-mail.
Option Explicit

' One factory, kept for as long as documents are used.
Private factory As VqDocumenti

Public Sub ComposeJobs(ByVal folder As String, ByVal attachment As String)
  Set factory = New VqDocumenti
  ComposeFax folder, attachment
  ComposeEmail folder, attachment
  ComposePrint folder
  Report folder
End Sub

' Bound to its job file, a document writes every assignment at once; collections are written by Salva.
Private Sub ComposeFax(ByVal folder As String, ByVal attachment As String)
  Dim fax As VqDocFax
  Set fax = factory.NuovoDocumentoFax
  fax.Inizializza "fax", folder
  With fax.NumeroFax
    .PrefissoInternazionale = "39"
    .PrefissoLocale = "06"
    .Numero = "1234567"
  End With
  fax.Oggetto = "Offerta n. 12"
  fax.Destinatario = "Anna Verdi"
  fax.Frontespizio.Inviare = True
  fax.Frontespizio.Nota(0) = "Gentile cliente, ecco l'offerta."
  Attach fax.Allegati, attachment
  fax.Coda.Codice = vdcf_DaConvertire
End Sub

Private Sub ComposeEmail(ByVal folder As String, ByVal attachment As String)
  Dim mail As VqDocEmail
  Set mail = factory.NuovoDocumentoEmail
  mail.Inizializza "email", folder
  mail.Oggetto = "Fattura n. 12"
  mail.Account.IndirizzoEmail = "amministrazione@example.com"
  mail.A.NomiVisualizzati = "Anna Verdi"
  mail.A.IndirizziEmail = "anna.verdi@example.com"
  mail.Cc.IndirizziEmail = "archivio@example.com"
  mail.Messaggio.Nota(0) = "Gentile cliente,"
  mail.Messaggio.Nota(1) = "in allegato la fattura."
  Attach mail.Allegati, attachment
  mail.Coda.Codice = vdce_DaConvertire
End Sub

Private Sub ComposePrint(ByVal folder As String)
  Dim stampa As VqDocStampa
  Dim label As VqDocStampa
  Set stampa = factory.NuovoDocumentoStampa
  stampa.Inizializza "stampa", folder
  stampa.Stampante = "Laser"
  stampa.Copie = 2
  stampa.Dimensione.Codice = vdd_A4
  stampa.FronteRetro.Codice = vdfr_Verticale
  stampa.Proprieta.Utente = "mrossi"
  stampa.Proprieta.Descrizione = "Listino di marzo"
  Set label = factory.NuovoDocumentoStampa
  label.Inizializza "etichetta", folder, True
  label.Stampante = "Etichette"
  stampa.Collegati.Add label
  stampa.Collegati.Salva
  stampa.Coda.Codice = vdcs_DaStampare
End Sub

Private Sub Attach(ByVal attachments As VqDocAllegati, ByVal attachment As String)
  Dim last As Long
  last = InStrRev(attachment, "\")
  attachments.Add Left(attachment, last - 1), Mid(attachment, last + 1)
  attachments.Salva
End Sub

' New objects, loaded from the files: what the server has written by then is in them.
Private Sub Report(ByVal folder As String)
  Dim fax As VqDocFax
  Dim mail As VqDocEmail
  Dim stampa As VqDocStampa
  Dim linked As VqDocStampa
  Set fax = factory.NuovoDocumentoFax
  fax.Carica folder, "fax.vqf"
  Show fax, fax.NumeroFax.NumeroEsteso & ", allegati " & fax.Allegati.Count
  Set mail = factory.NuovoDocumentoEmail
  mail.Carica folder, "email.vqe"
  Show mail, mail.A.IndirizziEmail & ", allegati " & mail.Allegati.Count
  Set stampa = factory.NuovoDocumentoStampa
  stampa.Carica folder, "stampa.vqs"
  Show stampa, stampa.Stampante & ", copie " & stampa.Copie & ", " & stampa.Dimensione.Descrizione
  For Each linked In stampa.Collegati
    Debug.Print "  con " & linked.Proprieta.Id & " su " & linked.Stampante
  Next
  TryToLoad folder, "manca.vqs"
End Sub

Private Sub TryToLoad(ByVal folder As String, ByVal file As String)
  Dim stampa As VqDocStampa
  Set stampa = factory.NuovoDocumentoStampa
  On Error Resume Next
  stampa.Carica folder, file
  If Err.Number <> 0 Then Debug.Print file & ": errore " & Err.Number & ", " & Err.Description
End Sub

' Any of the documents; all have Proprieta and Coda.
Private Sub Show(ByVal document As Object, ByVal text As String)
  Dim properties As VqDocProprieta
  Set properties = document.Proprieta
  Debug.Print properties.FileIntestazione.Nome & ": " & properties.Tipo.Descrizione & ", " & _
    document.Coda.Descrizione & ", " & properties.Esito.Descrizione & ", " & text
End Sub
