// Members named by a path from a document, as in scripts: "Diretta.CatalogoDestinazione.CompressoOn(0)".
#pragma once

#include <string>
#include <vector>

#include "cli/ValueText.h"

namespace orvane::cli {

/// One name of a path, with the arguments in parentheses after it.
struct PathStep {
  std::string name;
  std::vector<Variant> arguments;
};

/// Names are separated by points; arguments by commas, one with a comma, a parenthesis or a quote between
/// double quotes (which stand twice inside). UsageError for a text that is no path.
std::vector<PathStep> parsePath(const std::string& path);

/// A value and the type that the member declares for it.
struct Reading {
  Variant value;
  TypeInfo type;
};

/// What the member holds, or what the method, called without changing the job, gives. Failures name the path:
/// 438 for an unknown name, with near ones, 91 on the way through no object, 424 through a value, 450 for a
/// method without a result or a wrong number of arguments, and whatever the member raises.
Reading readMember(const ObjectRef& document, const std::string& path);

/// "Path=value", resolved and converted before anything is changed, so that many are either all understood or
/// none is made.
class Assignment {
 public:
  /// UsageError for a text without "=", failures as for `readMember` and `parseValue`.
  Assignment(const ObjectRef& document, const std::string& text);

  /// Assign; what writes nothing by itself (a file reference, a page) is then saved by its owner. Failures of
  /// the member name the path.
  void perform() const;

  const std::string& path() const { return path_; }

 private:
  std::string path_;
  ObjectRef owner_;   // the object on the way before `object_`
  ObjectRef object_;  // the one whose member is assigned
  const MemberInfo* member_ = nullptr;
  std::vector<Variant> arguments_;
};

/// Resolve all, then make all.
std::vector<Assignment> resolve(const ObjectRef& document, const std::vector<std::string>& texts);
void perform(const std::vector<Assignment>& assignments);

}  // namespace orvane::cli
