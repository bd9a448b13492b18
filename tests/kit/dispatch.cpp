// Reading the stubs: the two forms that the library's generator writes.
#include "kit/dispatch.hpp"

#include <algorithm>
#include <cstring>
#include <stdexcept>
#include <vector>

#include "kit/declarations.hpp"

namespace kit {
namespace {

constexpr int kRowWords = kVariants + 1;

uint32_t word_at(const uint8_t* p) {
  uint32_t w;
  std::memcpy(&w, p, sizeof w);
  return w;
}

bool starts_with(const uint8_t* p, std::initializer_list<uint8_t> bytes) {
  return std::equal(bytes.begin(), bytes.end(), p);
}

struct Table {
  volatile int32_t* selector = nullptr;
  void** first = nullptr;  // initial entry of row 0
  int rows = 0;
  std::vector<void*> original;

  Table() {
    for (const Declaration& d : declarations()) {
      rows = std::max(rows, d.row + 1);
      if (d.row < 0 || !d.address) continue;
      const Stub stub = read_stub(d.address);
      void** const start = stub.row - 1 - d.row * kRowWords;
      if (first && (start != first || stub.selector != selector))
        throw std::logic_error(d.name + ": its row isn't where the order of the declarations puts it");
      first = start;
      selector = stub.selector;
    }
    original.assign(first, first + rows * kRowWords);
  }
};

Table& table() {
  static Table t;
  return t;
}

}  // namespace

Stub read_stub(const void* address) {
  const uint8_t* p = static_cast<const uint8_t*>(address);
  // movl selector, %eax; jmp *row(,%eax,4)
  if (starts_with(p, {0xA1}) && starts_with(p + 5, {0xFF, 0x24, 0x85}))
    return {reinterpret_cast<int32_t*>(word_at(p + 1)), reinterpret_cast<void**>(word_at(p + 8))};
  // call 1f; 1: popl %eax; addl $got, %eax; movl s(%eax), %ecx; leal r(%eax,%ecx,4), %ecx; jmp *(%ecx)
  if (starts_with(p, {0xE8, 0, 0, 0, 0, 0x58, 0x05}) && starts_with(p + 11, {0x8B, 0x88}) &&
      starts_with(p + 17, {0x8D, 0x8C, 0x88}) && starts_with(p + 24, {0xFF, 0x21})) {
    const uint32_t base = static_cast<uint32_t>(reinterpret_cast<uintptr_t>(p)) + 5 + word_at(p + 7);
    return {reinterpret_cast<int32_t*>(base + word_at(p + 13)), reinterpret_cast<void**>(base + word_at(p + 20))};
  }
  throw std::logic_error(name_of(address) + ": the code is not that of a stub");
}

volatile int32_t& selector() { return *table().selector; }
int row_count() { return table().rows; }
void*& row_entry(int row, int column) { return table().first[row * kRowWords + column + 1]; }

void* body_of(int row, int column) { return table().original.at(static_cast<size_t>(row * kRowWords + column + 1)); }
void* body_of(const std::string& name, int column) { return body_of(find_declaration(name)->row, column); }
void* initial_entry_of(const std::string& name) { return row_entry(find_declaration(name)->row, -1); }

int row_of(const void* address) {
  const Declaration* d = find_declaration(address);
  if (!d || d->row < 0) throw std::logic_error(name_of(address) + ": has no row in the dispatch table");
  return d->row;
}

}  // namespace kit
