const texts = {
  it: { title: "Documenti in coda", about: "{n} lavori di {folder}, {date}", channels: "Canali e stati",
    throughput: "Lavori terminati nel tempo", waiting: "Attese, dall'inserimento alla fine", errors: "Errori", jobs: "Lavori", search: "Cerca in tutte le colonne",
    found: "{n} di {all} lavori", more: "Mostra altri", close: "Chiudi", timeline: "Cronologia", none: "Nessuno",
    noxml: "L'XML di questo lavoro non è nella pagina (vedi --details).", kind: "Tipo", id: "Id", state: "Stato",
    created: "Inserito", outcome: "Esito", to: "Destinazione", user: "Utente", error: "Errore", count: "Lavori",
    peak: "Al massimo {n} in {span}", median: "Mediana", most: "Massima", description: "Descrizione", file: "File",
    total: "Totale", failed: "Con errori", unreadable: "Illeggibile", linked: "collegato",
    kinds: { stampa: "Stampa", fax: "Fax", pfax: "Fax da stampante", email: "E-mail", pbl: "Pubblicazione",
      anteprima: "Anteprima" },
    phases: { waiting: "in attesa", working: "in lavorazione", done: "terminati", rejected: "respinti",
      withdrawn: "ritirati", unknown: "sconosciuti" } },
  en: { title: "Jobs in the queue", about: "{n} jobs of {folder}, {date}", channels: "Channels and states",
    throughput: "Jobs ended over time", waiting: "Waiting times, from insertion to end", errors: "Errors", jobs: "Jobs", search: "Search all columns",
    found: "{n} of {all} jobs", more: "Show more", close: "Close", timeline: "Timeline", none: "None",
    noxml: "The XML of this job is not in the page (see --details).", kind: "Kind", id: "Id", state: "State",
    created: "Inserted", outcome: "Outcome", to: "Destination", user: "User", error: "Error", count: "Jobs",
    peak: "At most {n} in {span}", median: "Median", most: "Longest", description: "Description", file: "File",
    total: "Total", failed: "With errors", unreadable: "Unreadable", linked: "linked",
    kinds: { stampa: "Print", fax: "Fax", pfax: "Printer-fax", email: "E-mail", pbl: "Publication",
      anteprima: "Preview" },
    phases: { waiting: "waiting", working: "working", done: "done", rejected: "rejected", withdrawn: "withdrawn",
      unknown: "unknown" } },
};
const data = JSON.parse(document.getElementById("data").textContent);
const columns = ["kind", "id", "state", "created", "outcome", "to", "user", "error"];
const phases = Object.keys(texts.en.phases);
const step = 200;
const view = { language: (navigator.language || "").startsWith("it") ? "it" : "en", sort: "", down: false, shown: step,
  onPaper: false };

const say = (key, values = {}) =>
  texts[view.language][key].replace(/\{(\w+)\}/g, (_, name) => values[name]);
const locale = () => (view.language === "it" ? "it-IT" : "en-GB");
const dateLook = { dateStyle: "short", timeStyle: "medium" };
const dates = { it: new Intl.DateTimeFormat("it-IT", dateLook), en: new Intl.DateTimeFormat("en-GB", dateLook) };
const showDate = (date) => (date ? dates[view.language].format(new Date(date)) : "");
const kindName = (kind) => texts[view.language].kinds[kind];
const byId = (id) => document.getElementById(id);

// The texts of a job file are Italian. Those of codes are fixed and have their English in english.json.
const translated = (text) => (view.language === "en" && Object.hasOwn(english, text) ? english[text] : text);
const custom = -1;
const errorOf = (job) => (job.error === custom ? job.errorText : translated(job.errorText || ""));
const stateOf = (job) => (job.failure ? say("unreadable") : translated(job.stateText || ""));

// "DataInStampa" is "In stampa".
function stampName(key) {
  const words = key.replace(/^Data/, "").replace(/\B[A-Z]/g, (letter) => " " + letter.toLowerCase());
  return translated(words);
}

// The only way by which anything gets into the page: texts stay texts.
function make(tag, attributes = {}, ...children) {
  const element = document.createElement(tag);
  for (const [name, value] of Object.entries(attributes)) element.setAttribute(name, value);
  element.append(...children);
  return element;
}

const cells = {
  kind: (job) => kindName(job.kind) + (job.of ? ` (${kindName(job.of)})` : "") + (job.linked ? ", " + say("linked") : ""),
  id: (job) => job.id,
  state: stateOf,
  created: (job) => showDate(job.created),
  outcome: (job) => translated(job.outcomeText || ""),
  to: (job) => job.to || "",
  user: (job) => job.user || "",
  error: (job) => job.failure || errorOf(job),
};
const sortKeys = { ...cells, created: (job) => job.created || "" };
// What is shown, and what the file says where that is shown in other words.
const searchText = (job) => [...columns.map((name) => cells[name](job)), job.description, job.kind, job.stateText, job.outcomeText,
  job.errorText].join("\n").toLowerCase();

function countBy(jobs, key) {
  const counts = new Map();
  for (const job of jobs) counts.set(key(job), (counts.get(key(job)) || 0) + 1);
  return [...counts].sort((a, b) => b[1] - a[1]);
}

function table(titles, rows) {
  const numeric = (i) => (i > 0 && typeof titles[i] === "object" ? { class: "number" } : {});
  const head = make("tr", {}, ...titles.map((title, i) => make("th", numeric(i), String(title))));
  const body = rows.map((row) => make("tr", {}, ...row.map((cell, i) => make("td", numeric(i), cell))));
  return make("table", {}, make("thead", {}, head), make("tbody", {}, ...body));
}
const number = (title) => Object(title);

function showTotals() {
  const total = (label, count, name) => make("div", {}, make("b", {}, count.toLocaleString(locale())), make("span", name ? { class: "dot " + name } : {}, label));
  const failed = data.jobs.filter((job) => job.failed).length;
  const counts = new Map(countBy(data.jobs, (job) => job.phase));
  byId("totals").replaceChildren(total(say("total"), data.jobs.length), total(say("failed"), failed),
    ...phases.filter((name) => counts.has(name)).map((name) => total(texts[view.language].phases[name], counts.get(name), name)));
}

function showChannels() {
  const rows = countBy(data.jobs, (job) => job.kind).map(([kind, count]) => {
    const jobs = data.jobs.filter((job) => job.kind === kind);
    const bar = make("div", { class: "bar" });
    for (const name of phases) {
      const part = make("i", { class: name });
      part.style.flexGrow = jobs.filter((job) => job.phase === name).length;
      bar.append(part);
    }
    const states = countBy(jobs, (job) => stateOf(job) || texts[view.language].phases.unknown);
    const list = make("p", {}, states.map(([state, n]) => `${state} ${n}`).join(", "));
    return [kindName(kind), String(count), make("div", {}, bar, list)];
  });
  byId("channels").replaceChildren(table([say("kind"), number(say("count")), say("state")], rows));
}

const ends = (job) => (job.dates && job.dates.DataElaborazione ? new Date(job.dates.DataElaborazione).getTime() : 0);

function showThroughput() {
  const times = data.jobs.map(ends).filter((time) => time > 0);
  if (!times.length) return byId("throughput").replaceChildren(make("p", {}, say("none")));
  const last = times.reduce((a, b) => Math.max(a, b));
  const span = Math.max(last - times.reduce((a, b) => Math.min(a, b)), 48 * 60000), first = last - span;
  const counts = new Array(48).fill(0);
  for (const time of times) counts[Math.min(47, Math.floor(((time - first) / span) * 48))] += 1;
  const top = Math.max(...counts);
  const bars = counts.map((count) => {
    const bar = make("i", { title: String(count) });
    bar.style.height = (100 * count) / top + "%";
    return bar;
  });
  byId("throughput").replaceChildren(make("p", {}, say("peak", { n: top, span: duration(span / 48000) })), make("div", { class: "columns" }, ...bars),
    make("div", { class: "axis" }, make("span", {}, showDate(first)), make("span", {}, showDate(last))));
}

function duration(seconds) {
  for (const [length, unit] of [[86400, "d"], [3600, "h"], [60, "min"]]) {
    if (seconds >= length) return (seconds / length).toLocaleString(locale(), { maximumFractionDigits: 1 }) + " " + unit;
  }
  return Math.round(seconds) + " s";
}

function showWaiting() {
  const rows = countBy(data.jobs, (job) => job.kind).flatMap(([kind]) => {
    const waits = data.jobs.filter((job) => job.kind === kind && job.created && ends(job))
      .map((job) => (ends(job) - new Date(job.created)) / 1000).filter((wait) => wait >= 0).sort((a, b) => a - b);
    if (!waits.length) return [];
    const at = (part) => duration(waits[Math.floor((waits.length - 1) * part)]);
    return [[kindName(kind), String(waits.length), at(0.5), at(0.9), at(1)]];
  });
  byId("waiting").replaceChildren(rows.length
    ? table([say("kind"), number(say("count")), number(say("median")), number("90%"), number(say("most"))], rows)
    : make("p", {}, say("none")));
}

function showErrors() {
  const failed = data.jobs.filter((job) => job.failed);
  const rows = countBy(failed, (job) => cells.error(job) || cells.state(job)).map(([text, count]) => [text, String(count)]);
  byId("errors").replaceChildren(rows.length ? table([say("error"), number(say("count"))], rows) : make("p", {}, say("none")));
}

function chosenJobs() {
  const words = byId("search").value.toLowerCase().split(/\s+/).filter(Boolean);
  const jobs = data.jobs.filter((job) => words.every((word) => searchText(job).includes(word)));
  if (!view.sort) return jobs;
  const compare = new Intl.Collator(locale(), { numeric: true }).compare;
  const key = sortKeys[view.sort];
  jobs.sort((a, b) => compare(key(a), key(b)));
  return view.down ? jobs.reverse() : jobs;
}

function sortBy(name) {
  view.down = view.sort === name && !view.down;
  view.sort = name;
  showTable();
}

function titleCell(name) {
  const mark = view.sort === name ? (view.down ? " ▼" : " ▲") : "";
  if (view.onPaper) return make("th", {}, say(name) + mark);  // browsers do not repeat titles that are buttons
  const button = make("button", { type: "button", "data-sort": name }, say(name) + mark);
  button.addEventListener("click", () => sortBy(name));
  return make("th", { "aria-sort": mark ? (view.down ? "descending" : "ascending") : "none" }, button);
}

function jobRow(job) {
  const row = make("tr", { class: "job", tabindex: "0" });
  for (const name of columns) {
    const look = name === "state" ? { class: "dot " + job.phase } : name === "error" ? { class: "failed" } : {};
    const text = cells[name](job);
    row.append(make("td", { class: name, "data-title": say(name) }, ...(text ? [make("span", look, text)] : [])));
  }
  row.addEventListener("click", () => showDetail(job));
  row.addEventListener("keydown", (event) => event.key === "Enter" && showDetail(job));
  return row;
}

function showTable() {
  const jobs = chosenJobs();
  byId("found").textContent = say("found", { n: jobs.length, all: data.jobs.length });
  byId("table").tHead.replaceChildren(make("tr", {}, ...columns.map(titleCell)));
  const shown = view.onPaper ? jobs : jobs.slice(0, view.shown);
  byId("table").tBodies[0].replaceChildren(...shown.map(jobRow));
  byId("more").hidden = shown.length === jobs.length;
}

function showDetail(job) {
  const facts = make("dl");
  const fact = (title, text) => text && facts.append(make("dt", {}, title), make("dd", {}, text));
  for (const name of columns) fact(say(name), cells[name](job));
  fact(say("description"), job.description);
  fact(say("file"), job.file);
  const stamps = Object.entries(job.dates || {}).map(([name, date]) =>
    make("li", {}, make("time", { datetime: date }, showDate(date)), " ", stampName(name)));
  const close = make("button", { type: "button", class: "close" }, say("close"));
  close.addEventListener("click", () => byId("detail").close());
  byId("detail").replaceChildren(close, make("h2", {}, `${kindName(job.kind)} ${job.id}`), facts,
    make("h2", {}, say("timeline")), make("ol", {}, ...stamps), make("h2", {}, "XML"),
    job.xml ? make("pre", {}, job.xml) : make("p", {}, say("noxml")));
  byId("detail").showModal();
}

function showAll() {
  document.documentElement.lang = view.language;
  document.title = say("title");
  for (const element of document.querySelectorAll("[data-text]")) element.textContent = say(element.dataset.text);
  for (const button of document.querySelectorAll("[data-language]")) {
    button.setAttribute("aria-pressed", String(button.dataset.language === view.language));
  }
  byId("about").textContent = say("about", { n: data.jobs.length, folder: data.folder, date: showDate(data.made) });
  byId("search").placeholder = say("search");
  byId("search").setAttribute("aria-label", say("search"));
  showTotals(), showChannels(), showThroughput(), showWaiting(), showErrors(), showTable();
}

for (const button of document.querySelectorAll("[data-language]")) {
  button.addEventListener("click", () => { view.language = button.dataset.language; showAll(); });
}
byId("search").addEventListener("input", () => { view.shown = step; showTable(); });
byId("more").addEventListener("click", () => { view.shown += step; showTable(); });
for (const [event, onPaper] of [["beforeprint", true], ["afterprint", false]]) {
  window.addEventListener(event, () => { view.onPaper = onPaper; showTable(); });
}
showAll();
