#include "cli/JobRow.h"

#include <algorithm>
#include <filesystem>

#include "cli/AbsoluteFolder.h"
#include "cli/Failure.h"
#include "codes/CodeValues.h"
#include "codes/VqDocErrore.h"
#include "core/Disk.h"
#include "core/Numbers.h"
#include "core/Paths.h"
#include "core/ProfileAccess.h"
#include "core/ProfileValue.h"

namespace orvane::cli {

namespace {

Text stemOf(const Text& fileName) { return fileName.substr(0, fileName.find_last_of(u'.')); }

// Parts that are not empty, with `between` between them.
std::string join(std::initializer_list<std::string> parts, const char* between) {
  std::string joined;
  for (const std::string& part : parts) {
    if (!part.empty()) joined += (joined.empty() ? "" : between) + part;
  }
  return joined;
}

Date earliest(const std::vector<Stamped>& stamps) { return stamps.empty() ? Date{} : stamps.front().date; }

bool isNewKey(const std::vector<Stamped>& stamps, TextView key) {
  return !key.empty() &&
         std::none_of(stamps.begin(), stamps.end(), [&](const Stamped& stamp) { return stamp.key == key; });
}

}  // namespace

bool JobRow::failed() const {
  return !failure.empty() || error != 0 || phase == Phase::Rejected || outcome == vde_Fallito;
}

std::optional<JobRow> JobReader::read(const Text& fileName) {
  const std::vector<const JobKind*> kinds = jobKindsOfFile(fileName);
  if (kinds.empty()) return {};
  JobRow row;
  row.kind = kinds.front();
  row.linked = isLinkedFile(*row.kind, fileName);
  row.file = toUtf8(fileName);
  row.id = toUtf8(stemOf(fileName));
  try {
    if (!fill(row, fileName)) return {};
  } catch (const Error& error) {
    row.phase = Phase::Unknown;
    row.failure = std::string(error.what()) + " (" + std::to_string(error.number()) + ')';
  }
  return row;
}

bool JobReader::fill(JobRow& row, const Text& fileName) {
  if (!DiskFile(joinPath(folder_, fileName)).read(bytes_).exists) return false;
  text_.parse(bytes_);
  const JobKind* type = jobKindOfType(numberAt(u"Tipo", u"Codice").value_or(-1));
  if (row.kind->wraps()) row.inner = type;
  if (row.linked && type && type->linkedExtension == row.kind->linkedExtension) row.kind = type;
  if (const std::string id = textAt(u"Proprieta", u"Id"); !id.empty()) row.id = id;
  row.user = textAt(u"Proprieta", u"Utente");
  row.description = textAt(u"Proprieta", u"Descrizione");
  const JobKind* channel = row.kind->wraps() ? row.inner : row.kind;
  if (channel) row.destination = destinationOf(*channel);
  fillQueue(row);
  fillResult(row);
  return true;
}

void JobReader::fillQueue(JobRow& row) {
  const QueueInfo& queue = queueOf(*row.kind);
  row.state = codeAt(queue.section, queue.names->key);
  row.phase = queue.phase(row.state);
  row.stateText = describeCode(*queue.names, row.state);
  const auto note = [&](Name key) {
    const double days = isNewKey(row.stamps, key) ? numberAt(queue.section, key).value_or(0) : 0;
    if (days != 0) row.stamps.push_back({key, {days}});
  };
  note(u"DataInserimento");
  if (!row.stamps.empty()) row.created = row.stamps.front().date;
  for (const Name key : queue.dateKeys) note(key);
  std::stable_sort(row.stamps.begin(), row.stamps.end(),
                   [](const Stamped& a, const Stamped& b) { return a.date < b.date; });
  if (row.created.days == 0) row.created = earliest(row.stamps);
  if (row.created.days == 0) row.created.days = numberAt(u"Proprieta", u"Data").value_or(0);
}

void JobReader::fillResult(JobRow& row) {
  row.outcome = codeAt(rows::Esito.section, rows::Esito.names.key);
  row.outcomeText = describeCode(rows::Esito.names, row.outcome);
  row.error = codeAt(u"Errore", VqDocErrore::kNames.key);
  if (row.error == vdec_Personalizzato) {
    row.errorText = textAt(u"Errore", VqDocErrore::kNames.descriptionKey);
  } else if (row.error != 0) {
    row.errorText = describeCode(VqDocErrore::kNames, row.error);
  }
}

std::string JobReader::destinationOf(const JobKind& kind) {
  if (kind.type == vdt_Stampa) {
    const std::string printer = textAt(u"Stampa", u"Stampante");
    return printer.empty() ? textAt(u"Stampa", u"StampanteOrigine") : printer;
  }
  if (kind.type == vdt_Email) {
    return join({textAt(u"DestinatariA", u"IndirizziEmail"), textAt(u"DestinatariCc", u"IndirizziEmail"),
                 textAt(u"DestinatariCcn", u"IndirizziEmail")},
                "; ");
  }
  return join({textAt(u"NumeroFax", u"PrefissoInternazionale"), textAt(u"NumeroFax", u"PrefissoLocale"),
               textAt(u"NumeroFax", u"Numero")},
              "-");
}

std::optional<TextView> JobReader::plainAt(Name section, Name key) {
  const auto stored = text_.find(section, key);
  if (!stored) return std::nullopt;
  return plainValue(*stored, room_);
}

std::string JobReader::textAt(Name section, Name key) {
  const auto plain = plainAt(section, key);
  return plain ? toUtf8(plain->substr(0, ProfileAccess::kLongestText)) : std::string();
}

std::optional<double> JobReader::numberAt(Name section, Name key) {
  const auto plain = plainAt(section, key);
  return plain ? parseNumber(*plain) : std::nullopt;
}

std::int32_t JobReader::codeAt(Name section, Name key) {
  const auto plain = plainAt(section, key);
  return plain ? parseLong(*plain).value_or(0) : 0;
}

const std::string& JobReader::describeCode(const CodeNames& names, std::int32_t code) {
  const auto [found, added] = texts_.try_emplace({names.base, code});
  if (added) found->second = toUtf8(describe(names, code));
  return found->second;
}

void visitFiles(const std::string& folder, const std::function<void(const Text&)>& visit) {
  const std::string native = nativePath(absoluteFolder(fromUtf8(folder)));
  const std::filesystem::path path(std::u8string(native.begin(), native.end()));
  std::error_code failed;
  if (!std::filesystem::is_directory(path, failed)) throw Failure(ErrorNumber::PathNotFound, folder);
  std::filesystem::directory_iterator files(path, failed);
  if (failed) throw Failure(ErrorNumber::PermissionDenied, folder);
  for (; files != std::filesystem::directory_iterator(); files.increment(failed)) {
    if (failed) throw Failure(ErrorNumber::DeviceIo, folder);
    const std::u8string name = files->path().filename().u8string();
    if (!files->is_directory(failed)) visit(fromUtf8(std::string(name.begin(), name.end())));
  }
}

std::size_t countFiles(const std::string& folder) {
  std::size_t count = 0;
  visitFiles(folder, [&](const Text&) { ++count; });
  return count;
}

void visitJobs(const std::string& folder, const std::function<void(JobRow)>& visit) {
  JobReader reader(absoluteFolder(fromUtf8(folder)));
  visitFiles(folder, [&](const Text& name) {
    if (auto row = reader.read(name)) visit(std::move(*row));
  });
}

}  // namespace orvane::cli
