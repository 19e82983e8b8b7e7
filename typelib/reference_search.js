// Finds names, meanings, keys and numbers among `entries` while one types. All words must be there; entries whose
// name begins with what was typed come first.
"use strict";

const field = document.getElementById("search");
const list = document.getElementById("found");
const most = 40;

function rank(entry, typed) {
  const name = entry[0].toLowerCase();
  const last = name.slice(name.indexOf(".") + 1);
  if (name === typed || last === typed) return 0;
  if (name.startsWith(typed) || last.startsWith(typed)) return 1;
  return name.includes(typed) || name.includes(typed.replace(/\s+/g, "")) ? 2 : 3;
}

function matches(entry, words) {
  const text = entry.join(" ").toLowerCase();
  return words.every((word) => text.includes(word));
}

function find(typed) {
  const wanted = typed.trim().toLowerCase();
  if (!wanted) return [];
  const words = wanted.split(/\s+/);
  const ranked = entries.filter((entry) => matches(entry, words)).map((entry) => [rank(entry, wanted), entry]);
  return ranked.sort((a, b) => a[0] - b[0]).slice(0, most).map((pair) => pair[1]);
}

function item(entry) {
  const link = document.createElement("a");
  link.href = entry[1];
  link.textContent = entry[0];
  const meaning = document.createElement("span");
  meaning.textContent = entry[2];
  link.append(meaning);
  link.addEventListener("click", () => { field.value = ""; list.replaceChildren(); });
  const line = document.createElement("li");
  line.append(link);
  return line;
}

function show() {
  list.replaceChildren(...find(field.value).map(item));
}

field.addEventListener("input", show);
field.addEventListener("keydown", (event) => {
  const first = list.querySelector("a");
  if (event.key === "Enter" && first) first.click();
  if (event.key === "Escape") { field.value = ""; show(); }
});
show();
