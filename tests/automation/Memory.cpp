#include "tests/automation/Memory.h"

#include <oaidl.h>
#include <oleauto.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <cstring>
#include <deque>
#include <mutex>
#include <unordered_map>

#include "tests/automation/Imports.h"

namespace client {

namespace {

constexpr std::size_t kGuard = 16;
constexpr unsigned char kGuardByte = 0xA5;
constexpr unsigned char kFreedByte = 0xDD;
constexpr std::size_t kMostFreed = 2000;

struct Block {
  unsigned char* at;
  std::size_t size;
};

struct State {
  std::mutex mutex;
  Refusal refusal;
  long requests = 0;
  std::size_t room = 0;  // given back since memory was full
  std::unordered_map<void*, std::size_t> held;
  std::deque<Block> freed;
  std::string damage;
};

// Never destroyed: the server may outlive everything else.
State& state() {
  static State& only = *new State;
  return only;
}

bool isAll(const unsigned char* bytes, std::size_t count, unsigned char value) {
  return std::all_of(bytes, bytes + count, [=](unsigned char byte) { return byte == value; });
}

bool isFull(const State& s) { return s.refusal.full && s.requests > s.refusal.at; }

// Counts a request; true where it is to be refused. Automation's memory is counted without its size.
bool refused(std::size_t size = SIZE_MAX) {
  State& s = state();
  const std::lock_guard lock(s.mutex);
  const long number = s.requests++;
  if (s.refusal.at < 0 || number < s.refusal.at) return false;
  if (number == s.refusal.at) return true;
  if (!s.refusal.full) return false;
  if (size > s.room) return true;
  s.room -= size;
  return false;
}

void note(const char* damage) { state().damage += std::string(state().damage.empty() ? "" : "; ") + damage; }

void* keep(std::size_t size) {
  auto* const block = static_cast<unsigned char*>(std::malloc(size + kGuard));
  if (!block) return nullptr;
  std::memset(block + size, kGuardByte, kGuard);
  const std::lock_guard lock(state().mutex);
  state().held[block] = size;
  return block;
}

void checkFreed(const Block& block) {
  if (!isAll(block.at, block.size, kFreedByte)) note("a block was written to after it had been given back");
}

// What was given back is kept for a while, so that a late hand on it shows.
void retire(const Block& block) {
  State& s = state();
  if (!isAll(block.at + block.size, kGuard, kGuardByte)) note("the end of a block was written over");
  std::memset(block.at, kFreedByte, block.size);
  if (isFull(s)) s.room += block.size;
  s.freed.push_back(block);
  if (s.freed.size() <= kMostFreed) return;
  checkFreed(s.freed.front());
  std::free(s.freed.front().at);
  s.freed.pop_front();
}

bool wasFreed(const void* block) {
  return std::any_of(state().freed.begin(), state().freed.end(),
                     [=](const Block& freed) { return freed.at == block; });
}

void* __cdecl allocate(std::size_t size) { return refused(size) ? nullptr : keep(size); }

void* __cdecl allocateCleared(std::size_t count, std::size_t size) {
  void* const block = allocate(count * size);
  if (block) std::memset(block, 0, count * size);
  return block;
}

// The C library gives blocks of its own making to the module too.
void __cdecl give(void* block) {
  if (!block) return;
  State& s = state();
  const std::lock_guard lock(s.mutex);
  if (const auto found = s.held.find(block); found != s.held.end()) {
    retire({static_cast<unsigned char*>(block), found->second});
    s.held.erase(found);
  } else if (wasFreed(block)) {
    note("a block was given back twice");
  } else {
    if (isFull(s)) s.room += _msize(block);
    std::free(block);
  }
}

std::size_t sizeOf(void* block) {
  const std::lock_guard lock(state().mutex);
  const auto found = state().held.find(block);
  return found == state().held.end() ? _msize(block) : found->second;
}

void* __cdecl reallocate(void* block, std::size_t size) {
  void* const moved = allocate(size);
  if (!moved || !block) return moved;
  std::memcpy(moved, block, std::min(size, sizeOf(block)));
  give(block);
  return moved;
}

BSTR STDAPICALLTYPE newText(const OLECHAR* text) { return refused() ? nullptr : SysAllocString(text); }

BSTR STDAPICALLTYPE newTextOf(const OLECHAR* text, UINT length) {
  return refused() ? nullptr : SysAllocStringLen(text, length);
}

SAFEARRAY* STDAPICALLTYPE newArray(VARTYPE type, UINT dimensions, SAFEARRAYBOUND* bounds) {
  return refused() ? nullptr : SafeArrayCreate(type, dimensions, bounds);
}

HRESULT STDAPICALLTYPE copyValue(VARIANTARG* to, const VARIANTARG* from) {
  return refused() ? E_OUTOFMEMORY : VariantCopy(to, const_cast<VARIANTARG*>(from));
}

HRESULT STDAPICALLTYPE convert(VARIANTARG* to, const VARIANTARG* from, LCID locale, USHORT flags,
                               VARTYPE type) {
  return refused() ? E_OUTOFMEMORY
                   : VariantChangeTypeEx(to, const_cast<VARIANTARG*>(from), locale, flags, type);
}

HRESULT STDAPICALLTYPE newErrorInfo(ICreateErrorInfo** out) {
  return refused() ? E_OUTOFMEMORY : CreateErrorInfo(out);
}

}  // namespace

void Memory::watch(HMODULE module) {
  const auto replace = [&](const char* name, auto* function) { new Import(module, name, function); };
  replace("malloc", allocate);
  replace("calloc", allocateCleared);
  replace("realloc", reallocate);
  replace("free", give);
  replace("SysAllocString", newText);
  replace("SysAllocStringLen", newTextOf);
  replace("SafeArrayCreate", newArray);
  replace("VariantCopy", copyValue);
  replace("VariantChangeTypeEx", convert);
  replace("CreateErrorInfo", newErrorInfo);
}

void Memory::refuse(Refusal refusal) {
  const std::lock_guard lock(state().mutex);
  state().refusal = refusal;
  state().requests = 0;
  state().room = 0;
}

long Memory::requests() { return state().requests; }

long Memory::blocks() { return static_cast<long>(state().held.size()); }

std::string Memory::damage() {
  State& s = state();
  const std::lock_guard lock(s.mutex);
  std::for_each(s.freed.begin(), s.freed.end(), checkFreed);
  return s.damage;
}

}  // namespace client
