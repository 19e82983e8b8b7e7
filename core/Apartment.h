// The services that all documents of one thread share.
#pragma once

#include <memory>

#include "core/FileSystem.h"

namespace orvane {

class VqDocResDll;
class ProfileAccess;

/// One set per thread. The factory makes all three services when it is created and takes all three away when
/// it ends, whoever still uses documents of the thread; every accessor raises error 91 while there are none.
/// They serve a factory of any storage duration until it ends, static objects of the first thread included;
/// those of another thread end with that thread at the latest.
class Apartment {
 public:
  static FileSystem& fileSystem();
  static VqDocResDll& strings();
  static ProfileAccess& profileAccess();

  /// Present time by this thread's clock; there is always one.
  static Date now();

  /// Put new services in place of any that are there, in this order: file system, strings, profile access.
  static void create(std::shared_ptr<VqDocResDll> (*makeStrings)());

  /// Take them away: strings, profile access, file system.
  static void release();

  /// For tests: the clock or the file system that this thread's later factories use; null brings the system's
  /// back.
  static void useClock(std::shared_ptr<Clock> clock);
  static void useFileSystem(std::shared_ptr<FileSystem> fileSystem);
};

}  // namespace orvane
