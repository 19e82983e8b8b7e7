// A user whom permissions bind, where the tests run as root.
#pragma once

#include <unistd.h>

#include <cstdlib>

namespace orvane::test {

/// Works as such a user while it lives; where the tests run as one, as that.
class PlainUser {
 public:
  PlainUser() : was_(::geteuid()) {
    if (was_ == 0 && ::seteuid(kNobody) != 0) std::abort();
  }
  PlainUser(const PlainUser&) = delete;
  PlainUser& operator=(const PlainUser&) = delete;
  ~PlainUser() {
    if (was_ == 0 && ::seteuid(was_) != 0) std::abort();
  }

 private:
  static constexpr uid_t kNobody = 65534;
  uid_t was_;
};

}  // namespace orvane::test
