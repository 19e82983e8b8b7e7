#include "cli/MemberPath.h"

#include <algorithm>
#include <utility>

#include "cli/Failure.h"
#include "cli/Suggest.h"

namespace orvane::cli {

namespace {

// Reads a path from its first character to its last.
class PathReader {
 public:
  explicit PathReader(const std::string& path) : path_(path) {}

  std::vector<PathStep> read() {
    std::vector<PathStep> steps{readStep()};
    while (take('.')) steps.push_back(readStep());
    if (at_ != path_.size()) fail();
    return steps;
  }

 private:
  PathStep readStep() {
    PathStep step{until(".()"), {}};
    if (step.name.empty()) fail();
    if (take('(')) readArguments(step.arguments);
    return step;
  }

  void readArguments(std::vector<Variant>& arguments) {
    do {
      arguments.emplace_back(fromUtf8(take('"') ? readQuoted() : until(",)")));
    } while (take(','));
    if (!take(')')) fail();
  }

  std::string readQuoted() {
    std::string text = until("\"");
    while (take('"')) {
      if (!take('"')) return text;
      text += '"' + until("\"");
    }
    fail();
  }

  std::string until(const char* ends) {
    const std::size_t end = std::min(path_.find_first_of(ends, at_), path_.size());
    const std::size_t begin = std::exchange(at_, end);
    return path_.substr(begin, end - begin);
  }

  bool take(char c) {
    const bool there = at_ < path_.size() && path_[at_] == c;
    if (there) ++at_;
    return there;
  }

  [[noreturn]] void fail() const {
    throw UsageError('"' + path_ + "\" is no path of members, such as Proprieta.Utente or Messaggio.Nota(3)");
  }

  const std::string& path_;
  std::size_t at_ = 0;
};

std::vector<std::string> memberNames(const ClassInfo& type) {
  std::vector<std::string> names;
  for (const MemberInfo& member : type.members) names.push_back(toUtf8(member.name));
  return names;
}

[[noreturn]] void unknownMember(const ClassInfo& type, const std::string& name) {
  throw Failure(ErrorNumber::NoSuchMember,
                toUtf8(type.name) + " has no " + name + suggestion(name, memberNames(type)));
}

const MemberInfo& readableMember(const ClassInfo& type, const std::string& name) {
  const Text member = fromUtf8(name);
  if (const MemberInfo* getter = findMember(type, member, MemberKind::Get)) return *getter;
  const MemberInfo* method = findMember(type, member, MemberKind::Method);
  if (!method && !findMember(type, member)) unknownMember(type, name);
  if (!method || method->result.kind == TypeKind::None) {
    throw Failure(ErrorNumber::WrongArguments, toUtf8(type.name) + '.' + name + " gives no value");
  }
  return *method;
}

const MemberInfo& assignableMember(const ClassInfo& type, const std::string& name) {
  const Text member = fromUtf8(name);
  if (const MemberInfo* setter = findMember(type, member, MemberKind::Let)) return *setter;
  if (!findMember(type, member)) unknownMember(type, name);
  throw Failure(ErrorNumber::WrongArguments, toUtf8(type.name) + '.' + name + " cannot be assigned");
}

// A Let takes the new value after the arguments in parentheses.
void checkArgumentCount(const MemberInfo& member, std::size_t given, const std::string& path) {
  const std::size_t expected = member.parameters.size() - 1;
  if (given == expected) return;
  const std::string number = expected == 0 ? "no argument" : std::to_string(expected) + " argument";
  throw Failure(ErrorNumber::WrongArguments, path + " takes " + number);
}

Reading readStep(const ObjectRef& object, const PathStep& step) {
  const MemberInfo& member = readableMember(*object.type, step.name);
  return {invoke(object, member, step.arguments), member.result};
}

ObjectRef objectIn(const Reading& reading) {
  const auto* object = std::get_if<ObjectRef>(&reading.value);
  if (!object) throw Error(ErrorNumber::ObjectRequired);
  if (!*object) throw Error(ErrorNumber::ObjectNotSet);
  return *object;
}

// What is assigned there reaches no file before the owner is saved.
bool isSavedByOwner(const ObjectRef& object) { return object.type->name == u"VqDocFile"; }

bool isPage(const ObjectRef& object) { return object && object.type->name == u"VqDocPagina"; }

}  // namespace

std::vector<PathStep> parsePath(const std::string& path) { return PathReader(path).read(); }

Reading readMember(const ObjectRef& document, const std::string& path) {
  const std::vector<PathStep> steps = parsePath(path);
  return about(path, [&] {
    Reading reading{document, {}};
    for (const PathStep& step : steps) reading = readStep(objectIn(reading), step);
    return reading;
  });
}

Assignment::Assignment(const ObjectRef& document, const std::string& text) {
  const std::size_t equals = text.find('=');
  if (equals == std::string::npos) throw UsageError('"' + text + "\" is no assignment; write Path=value");
  path_ = text.substr(0, equals);
  std::vector<PathStep> steps = parsePath(path_);
  const PathStep last = steps.back();
  steps.pop_back();
  about(path_, [&] {
    object_ = document;
    for (const PathStep& step : steps) {
      owner_ = object_;
      object_ = objectIn(readStep(object_, step));
    }
  });
  member_ = &assignableMember(*object_.type, last.name);
  checkArgumentCount(*member_, last.arguments.size(), path_);
  arguments_ = last.arguments;
  try {
    arguments_.push_back(parseValue(text.substr(equals + 1), member_->parameters.back().type));
  } catch (const Failure& failure) {
    throw failure.within(path_);
  }
}

void Assignment::perform() const {
  about(path_, [&] {
    invoke(object_, *member_, arguments_);
    const ObjectRef& keeper = isSavedByOwner(object_) || isPage(owner_) ? owner_ : object_;
    const bool saves = isSavedByOwner(object_) || isPage(keeper);
    if (saves && keeper && findMember(*keeper.type, u"Salva")) call(keeper, u"Salva");
  });
}

std::vector<Assignment> resolve(const ObjectRef& document, const std::vector<std::string>& texts) {
  std::vector<Assignment> assignments;
  for (const std::string& text : texts) assignments.emplace_back(document, text);
  return assignments;
}

void perform(const std::vector<Assignment>& assignments) {
  for (const Assignment& assignment : assignments) assignment.perform();
}

}  // namespace orvane::cli
