// The pool of mappings, kept by size.
#include "kit/guarded.hpp"

#include <sys/mman.h>
#include <unistd.h>

#include <map>
#include <mutex>
#include <new>

namespace kit {
namespace {

struct Pool {
  std::mutex lock;
  std::map<size_t, std::vector<uint8_t*>> free;
};
Pool& pool() {
  static Pool* const p = new Pool;  // outlives every static array
  return *p;
}
constexpr size_t kKeptBytes = 64 * 1024;  // larger mappings go back to the system

size_t page() {
  static const size_t bytes = static_cast<size_t>(sysconf(_SC_PAGESIZE));
  return bytes;
}

}  // namespace

Mapping take_mapping(size_t bytes) {
  const size_t whole = std::max(page(), (bytes + page() - 1) / page() * page());
  {
    const std::lock_guard<std::mutex> hold(pool().lock);
    std::vector<uint8_t*>& kept = pool().free[whole];
    if (!kept.empty()) {
      uint8_t* const base = kept.back();
      kept.pop_back();
      return {base, whole};
    }
  }
  void* const all = mmap(nullptr, whole + 2 * page(), PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
  if (all == MAP_FAILED) throw std::bad_alloc();
  uint8_t* const base = static_cast<uint8_t*>(all) + page();
  if (mprotect(base, whole, PROT_READ | PROT_WRITE) != 0) throw std::bad_alloc();
  return {base, whole};
}

void give_back(Mapping m) {
  if (m.bytes > kKeptBytes) {
    munmap(m.base - page(), m.bytes + 2 * page());
    return;
  }
  const std::lock_guard<std::mutex> hold(pool().lock);
  pool().free[m.bytes].push_back(m.base);
}

}  // namespace kit
