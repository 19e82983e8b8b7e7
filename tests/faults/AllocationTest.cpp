// Every allocation of an operation fails in turn: memory is missed in an orderly way, the files are the old
// or the new ones, and the next attempt works. Leaks show in the build with sanitizers.
#include <algorithm>
#include <cstdlib>
#include <new>

#include "tests/faults/Jobs.h"
#include "tests/support/Rows.h"

namespace {

thread_local long allocationsLeft = -1;  // none is counted while negative
thread_local long allocations = 0;

void* allocate(std::size_t size) {
  ++allocations;
  if (allocationsLeft == 0) throw std::bad_alloc();
  if (allocationsLeft > 0) --allocationsLeft;
  if (void* const memory = std::malloc(size ? size : 1)) return memory;
  throw std::bad_alloc();
}

}  // namespace

void* operator new(std::size_t size) { return allocate(size); }
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }

namespace orvane::test {
namespace {

// It is made before the first write, and says nothing.
Content withoutLockFile(Content content) {
  content.erase(".orvane.lock");
  return content;
}

class FailingAllocations : public testing::TestWithParam<Operation> {
 protected:
  enum Result { Done, OutOfMemory, Other };

  // `at` allocations are granted, none after them.
  Result actWith(long at) {
    allocationsLeft = at;
    try {
      GetParam().act(jobs_);
      allocationsLeft = -1;
      return Done;
    } catch (const std::bad_alloc&) {
      allocationsLeft = -1;
      return OutOfMemory;
    } catch (const Error& error) {
      allocationsLeft = -1;
      return error.code() == ErrorNumber::OutOfMemory ? OutOfMemory : Other;
    }
  }

  void begin() {
    jobs_.reset();
    GetParam().prepare(jobs_);
  }

  // Of several keys of a member those land that were written before the failure, each whole.
  static bool isBeginning(const std::string& bytes, const std::string& whole) {
    constexpr std::string_view kLineEnd("\r\0\n\0", 4);
    return bytes.ends_with(kLineEnd) && whole.starts_with(bytes);
  }
  bool isOnTheWay(const Content& found) const {
    return std::ranges::all_of(found, [&](const auto& file) {
      const auto& [name, bytes] = file;
      const auto old = before_.find(name);
      return (old != before_.end() && old->second == bytes) || isBeginning(bytes, after_.at(name));
    });
  }

  void check(long at) {
    begin();
    const Result result = actWith(at);
    SCOPED_TRACE("allocation " + std::to_string(at));
    EXPECT_NE(result, Other);
    jobs_.release();
    const Content found = withoutLockFile(jobs_.content());
    if (GetParam().oneReplace) {
      EXPECT_TRUE(result == Done ? found == after_ : found == before_ || isOnTheWay(found)) << result;
    }
    for (const auto& [name, bytes] : found) {
      EXPECT_FALSE(name.ends_with(".tmp")) << name;
      if (name.find(".vq") == std::string::npos) continue;
      EXPECT_NO_THROW(readJobFile(jobs_.folder() + u'\\' + fromUtf8(name))) << name;
    }
    jobs_.reset();
    GetParam().prepare(jobs_);
    GetParam().act(jobs_);
    jobs_.release();
    EXPECT_TRUE(withoutLockFile(jobs_.content()) == after_);
  }

  Jobs jobs_;
  Content before_, after_;
};

TEST_P(FailingAllocations, LeaveTheOldTheNewOrTheFirstKeysOfTheNew) {
  begin();
  before_ = withoutLockFile(withoutTemporaries(jobs_.content()));
  const long first = allocations;
  GetParam().act(jobs_);
  const long needed = allocations - first;
  jobs_.release();
  after_ = withoutLockFile(jobs_.content());
  const long stride = soakFactor() > 1 ? 1 : std::max(1L, needed / 150);
  for (long at = 0; at < needed && !HasFailure(); at += stride) check(at);
  std::printf("%s: %ld allocations, every %ld.\n", GetParam().name, needed, stride);
}

INSTANTIATE_TEST_SUITE_P(Of, FailingAllocations, testing::ValuesIn(operations()), rowName);

}  // namespace
}  // namespace orvane::test
