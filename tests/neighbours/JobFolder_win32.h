// A temporary folder of one test with a job file.
#pragma once

#include <gtest/gtest.h>

#include <set>

#include "core/Error.h"
#include "core/JobFile.h"
#include "tests/automation/Files.h"

namespace neighbours {

using orvane::Text;
using orvane::TextView;

inline Text number(int value) { return orvane::fromUtf8(std::to_string(value)); }

class JobFolder : public testing::Test {
 protected:
  std::wstring path(const std::wstring& name = L"job.vqs") const { return folder_.path() + L"\\" + name; }
  Text published(const std::wstring& name = L"job.vqs") const { return asText(path(name)); }
  static Text asText(const std::wstring& text) { return {text.begin(), text.end()}; }

  /// A reading of its own; "(missing)" where there is no such key.
  Text valueOf(TextView section, TextView key) const {
    orvane::JobFile file(published());
    return Text(file.read(section, key).value_or(u"(missing)"));
  }

  std::set<std::wstring> names() const {
    std::set<std::wstring> found;
    for (const auto& [name, bytes] : client::contentOf(folder_.path())) found.insert(name);
    return found;
  }

 private:
  client::Folder folder_;
};

/// The number of the error that `work` raises; 0 where it raises none.
template <class Work>
int errorOf(Work&& work) {
  try {
    work();
    return 0;
  } catch (const orvane::Error& error) {
    return error.number();
  }
}

}  // namespace neighbours
