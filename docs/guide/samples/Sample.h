// What the samples share: a folder of their own for jobs, and a check that ends the program where it fails.
#pragma once

#include <orvane.h>

#include <cstdlib>
#include <filesystem>
#include <iostream>

namespace sample {

/// An empty folder below the system's temporary one.
inline orvane::Text emptyFolder(const char* name) {
  const auto folder = std::filesystem::temp_directory_path() / "orvane-samples" / name;
  std::filesystem::remove_all(folder);
  std::filesystem::create_directories(folder);
  return folder.u16string();
}

inline void expect(bool holds, const char* what) {
  if (holds) return;
  std::cerr << "not so: " << what << '\n';
  std::exit(1);
}

}  // namespace sample
