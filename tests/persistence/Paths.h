// Late binding along paths: "Proprieta.Lingua.Codice", "Messaggio.Nota(7)".
#pragma once

#include "typelib/Members.h"

namespace orvane::test {

/// What the path names. The path of an indexed member without its index reads all bytes of a control code.
Variant getAt(const ObjectRef& root, const std::string& path);
void letAt(const ObjectRef& root, const std::string& path, const Variant& value);
Variant callAt(const ObjectRef& root, const std::string& path, Arguments args = {});

/// The description of the code at the path, by the member beside it.
Variant descriptionAt(const ObjectRef& root, std::string path);

/// The path without dots and brackets, for names of tests.
std::string plainPath(const std::string& path);

}  // namespace orvane::test
