// The library as one command uses it.
#pragma once

#include <string>
#include <vector>

#include "cli/JobKind.h"
#include "typelib/Members.h"

namespace orvane::cli {

/// A file as the user named it, in the parts that the library takes.
struct FileName {
  explicit FileName(const std::string& given);
  FileName(Text inFolder, Text fileName);

  std::string given;  ///< as it was typed
  Text typedFolder;   ///< the folder in it
  Text folder;        ///< the same, absolute
  Text name;

  Text full() const { return folder + u'\\' + name; }
};

/// A document that is bound to its job file.
struct Job {
  const JobKind* kind;
  FileName file;
  ObjectRef document;
};

/// What a command means to do with job files. One that looks leaves them as they are, whatever is loaded.
enum class Purpose { Look, Change };

/// Owns the factory, and with it the services that documents need: documents must not outlive it.
class Session {
 public:
  explicit Session(Purpose purpose);
  Session(const Session&) = delete;
  Session& operator=(const Session&) = delete;

  const ObjectRef& factory() const { return factory_; }

  /// A new document, not bound; a wrapping one has its inner document, if `inner` names one.
  ObjectRef newDocument(const JobKind& kind, const JobKind* inner = nullptr) const;

  /// Load a job, its kind known from its extension and otherwise from its section "Tipo". Failures 76, 53 and
  /// those of the job-file store name the file; 321 where nothing tells the kind.
  Job open(const std::string& file) const;

  /// The pages of that folder, appended to those of the document. Failure 76 where it is missing.
  void loadPages(const Job& job, const std::string& folder) const;

 private:
  const JobKind& kindOf(const FileName& file) const;
  ObjectRef factory_;
};

/// The kind of the document inside a publication or preview; null for other jobs.
const JobKind* innerKindOf(const Job& job);

bool fileExists(const FileName& file);
bool folderExists(TextView folder);

/// What a member without arguments holds; an object of it, a number, a text.
ObjectRef objectOf(const ObjectRef& document, TextView member);
std::int32_t numberOf(const ObjectRef& document, TextView member);
std::string textOf(const ObjectRef& document, TextView member);

}  // namespace orvane::cli
