// Whole files, and the folder of one test's jobs.
#pragma once

#include <map>
#include <string>

namespace client {

/// Names and bytes.
using Content = std::map<std::wstring, std::string>;

/// Empty for a file that is not there.
std::string bytesOf(const std::wstring& path);
void putBytes(const std::wstring& path, const std::string& bytes);

/// The files of a folder, folders and the lock file left out.
Content contentOf(const std::wstring& folder);

/// A folder of its own, deleted in the end; in memory where the machine has such a place, so that thousands
/// of flushes cost nothing.
class Folder {
 public:
  Folder();
  Folder(const Folder&) = delete;
  Folder& operator=(const Folder&) = delete;
  ~Folder();
  const std::wstring& path() const { return path_; }

 private:
  std::wstring path_;
};

/// Removes the folder's other files.
void restore(const std::wstring& folder, const Content& content);

/// ORVANE_SOAK_FACTOR, 1 where it is not set: by how much longer than in the everyday check to run.
int soakFactor();

}  // namespace client
