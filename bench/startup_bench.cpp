// Start-up rows: what the jump through the dispatch table costs a call, and what loading the library costs.
//
// The body behind an export is read out of its stub, `mov eax, [selector]` and `jmp [row + 4 * eax]`, and called
// directly for comparison. For the loading time a copy of the library under another name is opened and closed, since
// the library itself is in the process already.
#include <dlfcn.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstring>
#include <string>

#include "bench/harness.hpp"

namespace {

using Add = NoxStatus (*)(const Nox64f*, const Nox64f*, Nox64f*, int);
using Version = const NoxLibraryVersion* (*)();

template <class T>
T read(const unsigned char* p) {
  T value;
  memcpy(&value, p, sizeof value);
  return value;
}

// The body the stub would jump to, null if the code isn't that of a stub with absolute addresses.
void* body_behind(void* stub) {
  const auto* code = static_cast<const unsigned char*>(stub);
  if (code[0] != 0xA1 || code[5] != 0xFF || code[6] != 0x24 || code[7] != 0x85) return nullptr;
  const int column = *read<const int*>(code + 1);
  return read<void* const*>(code + 8)[column];
}

template <class F>
NoxStatus call_through(const Operands* o) {
  const F f = reinterpret_cast<F>(const_cast<void*>(o->b));
  if constexpr (std::is_same_v<F, Add>) {
    auto* d = static_cast<Nox64f*>(o->d);
    return f(d + 1, d + 2, d, 1);
  } else {
    f();
    return noxStsNoErr;
  }
}

template <class F>
void compare(Harness& harness, const char* name) {
  if (!harness.wanted(name)) return;
  void* stub = dlsym(RTLD_DEFAULT, name);
  void* body = body_behind(stub);
  if (!body) {
    harness.note(std::string(name) + ": not a stub with absolute addresses, the direct call is not measured");
    return;
  }
  alignas(64) static double d[3] = {0, 1, 2};
  Operands through{}, direct{};
  through.d = direct.d = d;
  through.b = stub;
  direct.b = body;
  Group group{"startup", name, "aligned", "call", 1, 8, 0, {}};
  group.participants = {{"nox", nullptr, call_through<F>, through}, {"direct", nullptr, call_through<F>, direct}};
  harness.measure(group);
}

bool copy_file(const char* from, const char* to) {
  FILE* in = fopen(from, "rb");
  FILE* out = fopen(to, "wb");
  bool done = in && out;
  char block[65536];
  for (size_t n; done && (n = fread(block, 1, sizeof block, in)) > 0;) done = fwrite(block, 1, n, out) == n;
  if (in) fclose(in);
  if (out) done = fclose(out) == 0 && done;
  return done;
}

void measure_loading(Harness& harness) {
  if (!harness.wanted("dlopen")) return;
  Dl_info info;
  if (!dladdr(dlsym(RTLD_DEFAULT, "noxsGetLibVersion"), &info)) return;
  char path[] = "/tmp/libnox-copy-XXXXXX";
  const int fd = mkstemp(path);
  if (fd < 0) return;
  close(fd);
  if (copy_file(info.dli_fname, path)) {
    double best = 1e30, total = 0;
    const int rounds = 51;  // the first one also reads the file
    bool loaded = true;
    for (int i = 0; i < rounds && loaded; ++i) {
      const auto start = std::chrono::steady_clock::now();
      void* handle = dlopen(path, RTLD_NOW | RTLD_LOCAL);
      const void* copy = handle ? dlsym(handle, "noxsGetLibVersion") : nullptr;
      if (handle) dlclose(handle);
      const std::chrono::duration<double, std::micro> us = std::chrono::steady_clock::now() - start;
      loaded = copy && copy != dlsym(RTLD_DEFAULT, "noxsGetLibVersion");
      if (i > 0) best = std::min(best, us.count()), total += us.count();
    }
    if (loaded) {
      harness.fact("dlopen and dlclose, best, us", best);
      harness.fact("dlopen and dlclose, mean, us", total / (rounds - 1));
    } else {
      harness.note("the copy of the library was not loaded apart");
    }
  }
  unlink(path);
}

}  // namespace

void measure_startup(Harness& harness) {
  harness.title("startup", "Calls");
  compare<Add>(harness, "noxsAdd_64f");
  compare<Version>(harness, "noxsGetLibVersion");
  measure_loading(harness);
}
