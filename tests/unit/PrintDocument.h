// A print document with a value of its own in every member, and what its XML is made of.
#pragma once

#include "core/VqDocStampa.h"

namespace orvane::test {

/// The properties that clients set.
void fill(VqDocProprieta& proprieta);

/// Every member of the document, its components included; linked documents and pages apart.
void fill(VqDocStampa& stampa);

/// The twenty elements of a catalog of which `CompressoOn` has its first two bytes set.
Text catalogXml(TextView element, TextView compressoOn);

/// "<name><Codice>code</Codice><Descrizione>text</Descrizione></name>"
Text codeXml(TextView name, TextView code, TextView text);

/// The element of `fill(VqDocProprieta&)`, in a document of that header file, Id and kind.
Text filledPropertiesXml(TextView folder, TextView fileName, TextView id);

}  // namespace orvane::test
