// What loading a job reads, value by value, in the order of reading.
#pragma once

#include <functional>

#include "core/VqDocumenti.h"
#include "tests/support/JobFileText.h"

namespace orvane::test {

/// One value of a job file, for the object that it is read into.
struct LoadStep {
  Text section, key;
  Text good, bad;  ///< as stored; `bad` is empty for what no stored text can make fail
  int error;       ///< that reading `bad` raises
  /// Whether the object has the value made of `number`, 2 for the good one; null where a failed load hides
  /// it.
  std::function<bool(int number)> holds;
  std::function<void(int number)> assign;  ///< gives the object such a value; null where clients cannot
  int part;  ///< of the document: 0 for properties and own values, then each component

  Text name() const { return section + u'/' + key; }
};

/// The values of a document, which must outlive the list and have none of the good values yet.
class LoadSteps {
 public:
  explicit LoadSteps(VqDocStampa& document);
  explicit LoadSteps(VqDocFax& document);
  explicit LoadSteps(VqDocPFax& document);
  explicit LoadSteps(VqDocEmail& document);
  /// After those of the inner print document, which must be there.
  explicit LoadSteps(VqDocPbl& document);
  explicit LoadSteps(VqDocAnteprima& document);

  const std::vector<LoadStep>& all() const { return steps_; }

  /// A job file of the good values but for the bad one of `failing`.
  Text lines(const LoadStep& failing) const;

  /// The names of those steps that satisfy `condition`, a line each.
  template <class Condition>
  Text names(Condition condition) const {
    Text out;
    for (const LoadStep& step : steps_) {
      if (condition(step)) out += step.name() + u'\n';
    }
    return out;
  }

 private:
  template <class Property>
  void value(TextView section, Property& property);
  template <class... Properties>
  void values(TextView section, Properties&... properties) {
    (value(section, properties), ...);
  }
  template <class... Components>
  void parts(Components&... components) {
    ((++part_, add(components)), ...);
  }
  template <class Lines>
  void note(TextView section, Lines& lines, std::int32_t index);
  void code(TextView section, ControlCode& code);
  void stored(TextView section, TextView key, TextView good, TextView bad, int error = 6);
  void reference(TextView section, TextView key, const Text& name);

  template <class Enum, const CodeRow& row>
  void add(CodeValue<Enum, row>& component) {
    value(component.jobSection(), component.Codice);
  }
  template <class Queue>
  void addQueue(Queue& queue);
  template <class Document, class Traits>
  void add(LinkedDocuments<Document, Traits>& links);
  void add(VqDocProprieta& component);
  void add(VqDocCatalogo& component);
  void add(VqDocCodaStampa& component) { addQueue(component); }
  void add(VqDocCodaFax& component) { addQueue(component); }
  void add(VqDocCodaPFax& component) { addQueue(component); }
  void add(VqDocCodaEmail& component) { addQueue(component); }
  void add(VqDocCodaPbl& component) { addQueue(component); }
  void add(VqDocCodaAnteprima& component) { addQueue(component); }
  void add(VqDocLayoutPagina& component);
  void add(VqDocDiretta& component);
  void add(VqDocPagine& component);
  void add(VqDocNumeroFax& component);
  void add(VqDocTrasmissioneFax& component);
  void add(VqDocFrontespizio& component);
  void add(VqDocCedolino& component);
  void add(VqDocAccount& component);
  void add(Recipients& component);
  void add(VqDocMessaggio& component);
  void add(VqDocAllegati& component);
  void add(VqDocTrasmissioneEmail& component);
  void add(VqDocPubblicazione& component);
  void addFax(TransmittedFax& document);
  void alwaysA4(const TransmittedFax& document);

  std::vector<LoadStep> steps_;
  int part_ = 0;
};

/// Two linked job files that the list of `LoadSteps` names: one that can be loaded and one that cannot.
inline constexpr char16_t kGoodLink[] = u"buono", kBadLink[] = u"guasto";

}  // namespace orvane::test
