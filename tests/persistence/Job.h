// Documents of every kind, late bound, in a folder of their own.
#pragma once

#include <ostream>

#include "tests/persistence/Paths.h"
#include "tests/persistence/Tables.h"
#include "tests/support/JobFileText.h"
#include "tests/support/TemporaryFolder.h"

namespace orvane::test {

/// A kind of document. A publication or preview is a kind for each kind of document in it.
struct Kind {
  std::string name;
  KindSet set;
  Text factoryMethod;
  Text fileName;
  std::int32_t inner = 0;  ///< the code of the document inside, 0 for none

  bool isIn(unsigned kinds) const { return (kinds & set) != 0; }
  friend std::ostream& operator<<(std::ostream& out, const Kind& kind) { return out << kind.name; }
};

/// The four that are composed, publications and previews of each, and the page.
const std::vector<Kind>& kinds();
inline constexpr std::size_t kComposedKinds = 4;

/// The kind of the document in a publication or preview.
const Kind& innerKind(const Kind& kind);

/// A value as it stands in a failure's message.
std::string shown(const Variant& value);

/// A document that is bound to its file, or a page that has a header file.
class Job {
 public:
  explicit Job(const Kind& kind);

  /// The document, or the page.
  const ObjectRef& root() const { return root_; }
  Text file() const;
  Text folder() const { return folder_.path(); }
  const TemporaryFolder& disk() const { return folder_; }

  /// What the file holds, by a reader of its own.
  JobContent content() const { return readJobFile(file()); }

  /// The stored form to the letter: what stands between the first "key=" and the end of the line.
  Text storedForm(TextView section, TextView key) const;

  /// Replaces or adds a value, as another program would.
  void edit(TextView section, TextView key, TextView value) const;

  /// Assigns, and calls Salva or reads where that is what writes.
  void assign(const std::string& path, const Variant& value, Written written) const;

  /// A new object that has loaded the file, its pages too.
  ObjectRef loaded() const;

 private:
  ObjectRef newDocument() const;
  void initialise(const ObjectRef& document) const;
  ObjectRef newPage(const ObjectRef& document) const;
  ObjectRef loadedPage() const;

  const Kind& kind_;
  TemporaryFolder folder_;
  ObjectRef factory_ = newVqDocumenti();
  ObjectRef document_;
  ObjectRef root_;
};

}  // namespace orvane::test
