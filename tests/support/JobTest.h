// What tests of documents and components share.
#pragma once

#include <gtest/gtest.h>

#include "core/Error.h"
#include "core/VqDocumenti.h"
#include "tests/support/FixedClock.h"
#include "tests/support/JobFileText.h"
#include "tests/support/TemporaryFolder.h"

namespace orvane::test {

/// The operations that an owner has on its components.
class Components : public Owner {
 public:
  using Owner::bind;
  using Owner::load;

  static Text xmlOf(const Component& component) {
    XmlWriter xml(u".");
    render(xml, component);
    return std::move(xml).result();
  }
};

/// The number of the run-time error that `action` raises; 0 for none.
template <class Action>
int errorOf(Action&& action) {
  try {
    action();
  } catch (const Error& error) {
    return error.number();
  }
  return 0;
}

/// An apartment and a documents folder for each test.
class JobTest : public testing::Test {
 protected:
  TemporaryFolder folder;
  VqDocumenti factory;

  /// A component's job file, and what is in it.
  Text jobName() const { return folder.file(u"job.ini"); }
  JobContent job() const { return readJobFile(jobName()); }
  JobContent job(TextView name) const { return readJobFile(folder.file(name)); }
  void bind(Component& component) const {
    Components::bind(Apartment::profileAccess().open(jobName()), component);
  }

  /// Bind to a job file of these lines, and read it back.
  void loadFrom(Component& component, TextView lines) const {
    writeJobFile(jobName(), lines);
    bind(component);
    Components::load(component);
  }
};

}  // namespace orvane::test
