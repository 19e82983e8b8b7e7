#include "core/Apartment.h"

#include "core/Error.h"
#include "core/ProfileAccess.h"

namespace orvane {

namespace {

struct Services {
  std::shared_ptr<FileSystem> fileSystem;
  std::shared_ptr<VqDocResDll> strings;
  std::unique_ptr<ProfileAccess> profileAccess;
  std::shared_ptr<Clock> clock;
  std::shared_ptr<FileSystem> replacement;
};

thread_local Services services;

template <class Pointer>
auto& present(Pointer& service) {
  if (!service) throw Error(ErrorNumber::ObjectNotSet);
  return *service;
}

}  // namespace

FileSystem& Apartment::fileSystem() { return present(services.fileSystem); }
VqDocResDll& Apartment::strings() { return present(services.strings); }
ProfileAccess& Apartment::profileAccess() { return present(services.profileAccess); }

Date Apartment::now() { return services.clock ? services.clock->now() : systemClock()->now(); }

void Apartment::create(std::shared_ptr<VqDocResDll> (*makeStrings)()) {
  services.fileSystem = services.replacement ? services.replacement : systemFileSystem();
  services.strings = makeStrings();
  services.profileAccess = std::make_unique<ProfileAccess>();
}

void Apartment::release() {
  services.strings.reset();
  services.profileAccess.reset();
  services.fileSystem.reset();
}

void Apartment::useClock(std::shared_ptr<Clock> clock) { services.clock = std::move(clock); }
void Apartment::useFileSystem(std::shared_ptr<FileSystem> fileSystem) {
  services.replacement = std::move(fileSystem);
}

}  // namespace orvane
