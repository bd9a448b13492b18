// The dispatch table of the loaded library, found by reading the machine code of its stubs.
//
// A stub holds the address of the selector and of its row in plain sight. The rows are one array, six words each with
// the initial entry first, so one stub and the row numbers of the declarations give all of them. Bodies are
// remembered as they were at the start, since the table itself may be patched to count calls.
#pragma once
#include <cstdint>
#include <string>

namespace kit {

constexpr int kVariants = 5;

// The library's cpuSelector, writable.
volatile int32_t& selector();
int row_count();
// Entry of a row as it is now; column -1 is the initial entry.
void*& row_entry(int row, int column);

// The body a row had for the column when the tests began.
void* body_of(int row, int column);
void* body_of(const std::string& name, int column);
template <class R, class... P>
void* body_of(R (*fn)(P...), int column);
void* initial_entry_of(const std::string& name);
template <class R, class... P>
R (*initial_entry_of(R (*fn)(P...)))
(P...);

// What a stub's code says.
struct Stub {
  volatile int32_t* selector;
  void** row;  // the entry of column 0
};
Stub read_stub(const void* address);
// Row of an exported plain primitive, by its address.
int row_of(const void* address);

template <class R, class... P>
void* body_of(R (*fn)(P...), int column) {
  return body_of(row_of(reinterpret_cast<void*>(fn)), column);
}
template <class R, class... P>
R (*initial_entry_of(R (*fn)(P...)))
(P...) {
  return reinterpret_cast<R (*)(P...)>(row_entry(row_of(reinterpret_cast<void*>(fn)), -1));
}

}  // namespace kit
