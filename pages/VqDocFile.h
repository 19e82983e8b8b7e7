// A reference to one file: a folder and a name.
#pragma once

#include "core/Paths.h"
#include "core/XmlWriter.h"

namespace orvane {

/// Kept by whoever owns it: the reference itself writes nothing. Both parts start empty.
class VqDocFile {
 public:
  Text Percorso;  ///< the folder, without a backslash at its end
  Text Nome;      ///< the file name with its extension

  /// Folder, a backslash, name: the backslash stands even where a part is empty.
  Text File() const { return joinPath(Percorso, Nome); }

  /// The first `Bytes` bytes of the file, one character a byte (read as Windows-1252). Error 53 for a missing
  /// file, 5 for a negative count.
  Text ReadStream(std::int32_t Bytes = 1048576) const;

 private:
  friend class Owner;
  void NodoXml(XmlWriter& xml, TextView name) const;
};

}  // namespace orvane
