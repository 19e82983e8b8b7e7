// The six kinds of jobs as the command line names them.
#pragma once

#include <span>
#include <string>
#include <vector>

#include "core/Text.h"
#include "typelib/enumerations.h"

namespace orvane::cli {

struct JobKind {
  const char* name;               ///< on the command line
  TextView className;             ///< of its document
  TextView factoryMethod;         ///< of VqDocumenti
  enmVqDocTipo type;              ///< `vdt_Sconosciuto` for a kind that wraps another
  TextView extension;             ///< of its job files
  TextView linkedExtension = {};  ///< of one that is linked to another; empty where there is none

  bool wraps() const { return type == vdt_Sconosciuto; }
};

std::span<const JobKind> allJobKinds();

/// UsageError, with near names, for any other name; whatever its case.
const JobKind& jobKindNamed(const std::string& name);

/// The same for the four kinds that others wrap.
const JobKind& innerKindNamed(const std::string& name);

/// The kind of the document class; it must be one.
const JobKind& jobKindOfClass(TextView className);

/// The kinds that the extension of a file name stands for: one, two for linked faxes, none for others.
std::vector<const JobKind*> jobKindsOfFile(TextView fileName);

/// Whether a job file of the kind has the extension of one that is linked.
bool isLinkedFile(const JobKind& kind, TextView fileName);

/// Null for a number that is no kind.
const JobKind* jobKindOfType(double type);

}  // namespace orvane::cli
