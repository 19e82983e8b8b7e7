// Everything that can be read from an object, as lines of path and text.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "cli/ValueText.h"

namespace orvane::cli {

struct MemberLine {
  std::string path;
  std::string value;
};

/// The object's properties and the results of its methods without arguments, in the order of the interface,
/// and those of the objects that it owns, each object once. A code is followed by its number and text, the
/// bytes of a control code stand together, a file reference is its full name, a linked document is a line. A
/// member that cannot be read shows its error. Nothing is written, not even where reading a member writes.
std::vector<MemberLine> listMembers(const ObjectRef& object, Form form = Form::Readable);

/// "vdd_A4 (9) A4 ...": a code that `member` (a property of an enumeration) of `object` holds, with the text
/// that its class gives for it; raw, the number alone.
std::string codeText(const ObjectRef& object, const MemberInfo& member, Form form = Form::Readable);

/// The member of the class that describes the code `member`; null where there is none.
const MemberInfo* descriptionOf(const ClassInfo& type, const MemberInfo& member);

/// Visits the object and all objects that it owns, once each; those of its collections are not its own.
void visitObjects(const ObjectRef& object, const std::function<void(const ObjectRef&)>& visit);

}  // namespace orvane::cli
