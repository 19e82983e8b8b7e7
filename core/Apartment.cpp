#include "core/Apartment.h"

#include "core/Error.h"
#include "core/OfThread.h"
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

template <class Pointer>
auto& present(Pointer Services::*service) {
  const Services* const services = OfThread<Services>::find();
  if (!services || !(services->*service)) throw Error(ErrorNumber::ObjectNotSet);
  return *(services->*service);
}

}  // namespace

FileSystem& Apartment::fileSystem() { return present(&Services::fileSystem); }
VqDocResDll& Apartment::strings() { return present(&Services::strings); }
ProfileAccess& Apartment::profileAccess() { return present(&Services::profileAccess); }

Date Apartment::now() {
  const Services* const services = OfThread<Services>::find();
  return services && services->clock ? services->clock->now() : systemClock()->now();
}

void Apartment::create(std::shared_ptr<VqDocResDll> (*makeStrings)()) {
  Services& services = OfThread<Services>::get();
  services.fileSystem = services.replacement ? services.replacement : systemFileSystem();
  services.strings = makeStrings();
  services.profileAccess = std::make_unique<ProfileAccess>();
  ThreadPart::served(true);
}

void Apartment::release() {
  if (Services* const services = OfThread<Services>::find()) {
    services->strings.reset();
    services->profileAccess.reset();
    services->fileSystem.reset();
  }
  ThreadPart::served(false);
}

void Apartment::useClock(std::shared_ptr<Clock> clock) { OfThread<Services>::get().clock = std::move(clock); }
void Apartment::useFileSystem(std::shared_ptr<FileSystem> fileSystem) {
  OfThread<Services>::get().replacement = std::move(fileSystem);
}

}  // namespace orvane
