// What clients were promised, as a file tells it: a line each, without comments.
#pragma once

#include <gtest/gtest.h>

#include <fstream>
#include <set>
#include <string>

namespace orvane {

/// Each line is to be met once, and none is to be left at the end.
class Promised {
 public:
  explicit Promised(const char* path) {
    std::ifstream file(path);
    for (std::string line; std::getline(file, line);) {
      if (!line.empty() && line[0] != '#') lines_.insert(line);
    }
    EXPECT_FALSE(lines_.empty()) << path;
  }
  ~Promised() {
    for (const auto& line : lines_) ADD_FAILURE() << "promised, but not there: " << line;
  }
  Promised(const Promised&) = delete;
  Promised& operator=(const Promised&) = delete;

  std::size_t size() const { return lines_.size(); }
  void meet(const std::string& line) { EXPECT_EQ(1u, lines_.erase(line)) << "not promised: " << line; }

 private:
  std::set<std::string> lines_;
};

}  // namespace orvane
