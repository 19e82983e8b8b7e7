#include "cli/JobData.h"

#include "cli/DateText.h"
#include "cli/JobFilter.h"

namespace orvane::cli {

namespace {

const char* truth(bool value) { return value ? "true" : "false"; }

std::string dates(const JobRow& row) {
  JsonObject all;
  for (const Stamped& stamp : row.stamps) all.add(toUtf8(stamp.key).c_str(), jsonDate(stamp.date));
  return all.text();
}

std::string csvField(const std::string& text) {
  if (text.find_first_of(",\"\r\n") == std::string::npos) return text;
  std::string quoted = "\"";
  for (const char c : text) quoted.append(c == '"' ? 2 : 1, c);
  return quoted += '"';
}

std::string innerName(const JobRow& row) { return row.inner ? row.inner->name : std::string(); }

}  // namespace

JsonObject jobJson(const JobRow& row) {
  JsonObject json;
  json.addText("kind", row.kind->name);
  if (row.inner) json.addText("of", row.inner->name);
  json.add("linked", truth(row.linked)).addText("id", row.id).addText("file", row.file);
  json.addText("phase", phaseName(row.phase)).add("failed", truth(row.failed()));
  if (!row.failure.empty()) return json.addText("failure", row.failure);
  json.add("state", std::to_string(row.state));
  json.addText("stateName", stateName(row)).addText("stateText", row.stateText);
  json.add("created", jsonDate(row.created)).add("dates", dates(row));
  json.add("outcome", std::to_string(row.outcome)).addText("outcomeText", row.outcomeText);
  json.add("error", std::to_string(row.error)).addText("errorText", row.errorText);
  json.addText("to", row.destination).addText("user", row.user);
  return json.addText("description", row.description);
}

std::string csvHeader() {
  return "kind,of,linked,id,file,phase,failed,state,stateText,created,changed,outcome,outcomeText,error,"
         "errorText,"
         "to,user,description,failure";
}

std::string csvLine(const JobRow& row) {
  const Date changed = row.stamps.empty() ? Date{} : row.stamps.back().date;
  const std::string fields[] = {row.kind->name,
                                innerName(row),
                                truth(row.linked),
                                row.id,
                                row.file,
                                phaseName(row.phase),
                                truth(row.failed()),
                                std::to_string(row.state),
                                row.stateText,
                                dateText(row.created),
                                dateText(changed),
                                std::to_string(row.outcome),
                                row.outcomeText,
                                std::to_string(row.error),
                                row.errorText,
                                row.destination,
                                row.user,
                                row.description,
                                row.failure};
  std::string line;
  for (const std::string& field : fields) line += (&field == fields ? "" : ",") + csvField(field);
  return line;
}

}  // namespace orvane::cli
