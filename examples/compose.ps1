# A fax, an e-mail and a print job from PowerShell: compose.ps1 -Folder FOLDER -Attachment FILE
# Folder gets the jobs; Attachment is a file that goes with the fax and the e-mail.
param(
  [Parameter(Mandatory)] [string] $Folder,
  [Parameter(Mandatory)] [string] $Attachment
)
Set-StrictMode -Version Latest
$ErrorActionPreference = 'Stop'

# Collections are written by Salva.
function Add-Attachment($Document) {
  $name = Split-Path $Attachment -Leaf
  [void] $Document.Allegati.Add((Split-Path $Attachment), [ref] $name)
  $Document.Allegati.Salva()
}

# Bound to its job file, a document writes every assignment at once.
function New-Fax {
  $fax = $factory.NuovoDocumentoFax()
  $fax.Inizializza('fax', $Folder)
  $fax.NumeroFax.PrefissoInternazionale = '39'
  $fax.NumeroFax.PrefissoLocale = '06'
  $fax.NumeroFax.Numero = '1234567'
  $fax.Oggetto = 'Offerta n. 12'
  $fax.Destinatario = 'Anna Verdi'
  $fax.Frontespizio.Inviare = $true
  $fax.Frontespizio.Nota(0) = "Gentile cliente, ecco l'offerta."
  Add-Attachment $fax
  $fax.Coda.Codice = 0    # vdcf_DaConvertire
}

function New-Email {
  $mail = $factory.NuovoDocumentoEmail()
  $mail.Inizializza('email', $Folder)
  $mail.Oggetto = 'Fattura n. 12'
  $mail.Account.IndirizzoEmail = 'amministrazione@example.com'
  $mail.A.NomiVisualizzati = 'Anna Verdi'
  $mail.A.IndirizziEmail = 'anna.verdi@example.com'
  $mail.Cc.IndirizziEmail = 'archivio@example.com'
  $mail.Messaggio.Nota(0) = 'Gentile cliente,'
  $mail.Messaggio.Nota(1) = 'in allegato la fattura.'
  Add-Attachment $mail
  $mail.Coda.Codice = 0    # vdce_DaConvertire
}

function New-Print {
  $stampa = $factory.NuovoDocumentoStampa()
  $stampa.Inizializza('stampa', $Folder)
  $stampa.Stampante = 'Laser'
  $stampa.Copie = 2
  $stampa.Dimensione.Codice = 9     # vdd_A4
  $stampa.FronteRetro.Codice = 2    # vdfr_Verticale
  $stampa.Proprieta.Utente = 'mrossi'
  $stampa.Proprieta.Descrizione = 'Listino di marzo'
  $label = $factory.NuovoDocumentoStampa()
  $label.Inizializza('etichetta', $Folder, $true)
  $label.Stampante = 'Etichette'
  $stampa.Collegati.Add([ref] $label)
  $stampa.Collegati.Salva()
  $stampa.Coda.Codice = 0    # vdcs_DaStampare
}

function Show-Document($Document, $Text) {
  $properties = $Document.Proprieta
  '{0}: {1}, {2}, {3}, {4}' -f $properties.FileIntestazione.Nome, $properties.Tipo.Descrizione(),
    $Document.Coda.Descrizione(), $properties.Esito.Descrizione(), $Text
}

# New objects, loaded from the files: what the server has written by then is in them.
function Show-Report {
  $fax = $factory.NuovoDocumentoFax()
  $fax.Carica($Folder, 'fax.vqf')
  Show-Document $fax "$($fax.NumeroFax.NumeroEsteso()), allegati $($fax.Allegati.Count)"
  $mail = $factory.NuovoDocumentoEmail()
  $mail.Carica($Folder, 'email.vqe')
  Show-Document $mail "$($mail.A.IndirizziEmail), allegati $($mail.Allegati.Count)"
  $stampa = $factory.NuovoDocumentoStampa()
  $stampa.Carica($Folder, 'stampa.vqs')
  Show-Document $stampa "$($stampa.Stampante), copie $($stampa.Copie), $($stampa.Dimensione.Descrizione())"
  foreach ($linked in $stampa.Collegati) {
    "  con $($linked.Proprieta.Id) su $($linked.Stampante)"
  }
}

# One factory, kept for as long as documents are used.
$factory = New-Object -ComObject 'OrvaneDocumenti.VqDocumenti'
New-Fax
New-Email
New-Print
Show-Report
try {
  $factory.NuovoDocumentoStampa().Carica($Folder, 'manca.vqs')
} catch [System.Runtime.InteropServices.COMException] {
  $failure = $_.Exception.GetBaseException()
  'manca.vqs: errore {0}, {1}' -f ($failure.ErrorCode -band 0xFFFF), $failure.Message
}
