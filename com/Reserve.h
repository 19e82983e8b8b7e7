// Memory kept back for the way out when there is no more.
#pragma once

namespace orvane::com {

/// The first throw of a process and of a thread asks for memory of its own, and the run time cannot bear to
/// be refused it. So whoever fails to get memory gives the reserve back first, and then throws
/// std::bad_alloc.
class Reserve {
 public:
  /// Takes it anew where it has been given back and there is memory again. Every new object does so; any
  /// thread may.
  static void refill() noexcept;
};

}  // namespace orvane::com
