#include "cli/Help.h"

namespace orvane::cli::help {

const char* const program = R"(Members are addressed by their published names, whatever their case:
  Copie   Proprieta.Utente   Dimensione.Codice   NumeroFax.NumeroEsteso
  Diretta.CatalogoDestinazione.CompressoOn(0)   Messaggio.Nota(3)
  Collegati.Item(0).Stampante   Documento.Oggetto (in a publication or preview)

Values: numbers, texts, true/false/si/no/1/0, dates (2026-11-21, "2026-11-21 14:30:00",
now, empty for "not set"), codes by name (vdd_A4) or number; see orvane codes.

Folders are separated by / or \. The kind of a job is known from its file's extension:
  stampa .vqs .lvq   fax .vqf .ldf   pfax .vqpf .ldf   email .vqe .lde   pbl .vqpb   anteprima .vqa

Exit codes:
  0  done
  1  a run-time error; its number stands in parentheses in the message
  2  the command line is wrong: unknown command, kind or option, missing argument
  3  the output could not be written
  4  a fault of the program
  5  diff: the jobs differ; check: something is wrong

Examples:
  orvane new stampa 123 jobs Stampante=Laser Copie=2 Dimensione.Codice=vdd_A4
  orvane show jobs/123.vqs
  orvane COMMAND --help)";

const char* const newJob =
    R"(KIND is stampa, fax, pfax, email, pbl or anteprima. The job file's name is printed.
No job is made where an assignment is not understood or the file exists already.

Examples:
  orvane new stampa 123 jobs Stampante=Laser Copie=2 FronteRetro.Codice=vdfr_Verticale
  orvane new stampa 7 jobs --linked Stampante=Laser
  orvane new fax 55 jobs NumeroFax.Numero=0612345 Oggetto="Offerta n. 12"
  orvane new anteprima 9 jobs --of email Documento.Oggetto=Saluti)";

const char* const set =
    R"(Either all assignments are understood, or nothing is changed. A value that a job file does not
keep is remarked on.

Examples:
  orvane set jobs/123.vqs Copie=3 Proprieta.Utente=rossi Proprieta.Data=now
  orvane set jobs/123.vqs Coda.Codice=vdcs_InStampa
  orvane set jobs/123.vqs "Diretta.CatalogoDestinazione.CompressoOn(0)=27"
  orvane set jobs/123.vqs --pages jobs/123 "Pagine.Item(1).NuovoFoglio=si")";

const char* const get =
    R"(One path prints its value, several print Path=value each; an object prints its members.
Methods without arguments can be read.

Examples:
  orvane get jobs/123.vqs Copie
  orvane get jobs/123.vqs Coda.Codice Coda.Descrizione Proprieta.Data
  orvane get jobs/55.vqf NumeroFax.NumeroEsteso
  orvane get jobs/123.vqs Coda --raw)";

const char* const show =
    R"(Codes are shown with name, number and text, dates as dates. Without --all only members that
are not as in a new document are shown.

Examples:
  orvane show jobs/123.vqs
  orvane show jobs/123.vqs --all
  orvane show jobs/123.vqs --json
  orvane show jobs/123.vqs --pages jobs/123)";

const char* const xml = R"(Examples:
  orvane xml jobs/123.vqs > 123.xml
  orvane xml jobs/123.vqs --pretty)";

const char* const codes = R"(Examples:
  orvane codes
  orvane codes Dimensione
  orvane codes enmVqDocCodaFax)";

const char* const duplicate =
    R"(Body and script files and linked jobs are copied too: a linked job 7 becomes NEWID_7.lvq. Pages,
stapling and what the server reported are not copied. The new job file's name is printed.

Examples:
  orvane duplicate jobs/123.vqs 200
  orvane duplicate jobs/123.vqs 200 archive)";

const char* const attach = R"(For jobs of kind fax, email and pbl. Either all files are attached or none.

Examples:
  orvane attach jobs/55.vqf offer.pdf terms.pdf
  orvane attach jobs/55.vqf --missing 'C:\Offers\offer.pdf')";

const char* const link =
    R"(Either all jobs are linked or none. Print jobs link print jobs, e-mails link e-mails, faxes and
printer-faxes link faxes.

Examples:
  orvane link jobs/123.vqs jobs/7.lvq jobs/8.lvq)";

const char* const list =
    R"(One line a job, those with errors first: kind (with + for a linked job, with the kind inside a pbl or
anteprima behind /), id, state, age since insertion, outcome, printer or number or recipients, error.
The line fits the terminal; elsewhere nothing is cut and nothing is coloured.

A state is named by its code (vdcf_Respinto), its text (Respinto), or, on every channel, as waiting,
working, done, rejected, withdrawn or unknown. Orders are kind, id, state, age and to.

Examples:
  orvane list jobs
  orvane list jobs --errors
  orvane list jobs --kind fax --kind pfax --state waiting --sort age
  orvane list jobs --state "In attesa di stampa" --json
  orvane list jobs --unsorted | head)";

const char* const watch =
    R"(First the jobs as orvane list shows them, then a line for each change: + a new job, * a changed one, - one
that is gone. Filters and colours are those of orvane list. Ctrl+C ends it.

Examples:
  orvane watch jobs
  orvane watch jobs --kind fax --errors
  orvane watch /mnt/share/jobs --poll
  orvane watch jobs --count 1 --seconds 60)";

const char* const exportJobs =
    R"(Jobs come in no order, each as it is read. JSON lines are the objects of orvane list --json, one a line.

Examples:
  orvane export jobs > jobs.csv
  orvane export jobs --format jsonl)";

const char* const report =
    R"(One page that needs nothing but a browser: jobs by channel and state, throughput, waiting times, errors,
and a table to search and sort, with timeline and XML of each job. Italian and English.

Examples:
  orvane report jobs -o jobs.html
  orvane report jobs -o - --details 0 > jobs.html)";

const char* const diff =
    R"(Prints -Path=value for the first job and +Path=value for the second, for each member in which they
differ. Identity and job file are not compared. The exit code is 0 where nothing differs, else 5.

Examples:
  orvane diff jobs/123.vqs jobs/200.vqs)";

const char* const check =
    R"(Prints a line for each finding:
  a job that cannot be loaded, or a code without a text
  a missing body file (Corpi\ID.bvq; not asked of linked jobs, publications and previews)
  pages (ID\*.dpg) without picture or text, or fewer than were composed
  attachments and linked jobs that are missing
  temporaries that a killed writer has left (.orvane-*.tmp)
The exit code is 0 where nothing is found, else 5.

Examples:
  orvane check jobs
  orvane check jobs/123.vqs jobs/55.vqf)";

}  // namespace orvane::cli::help
