// What differs between the five builds, as data: one constexpr record each, `variant` naming the one being compiled.
//
// The build passes NOX_VARIANT (the tag) and NOX_LEVEL (its column, 0 to 4). Everything a build defines lives in
// namespace nox::<tag>, which is inline, or carries the tag in its name: a weak symbol shared by two builds would
// let the linker put the code of the higher one under the calls of the lower.
#pragma once
#include <stddef.h>
#include <stdint.h>

#define NOX_PASTE2(a, b) a##_##b
#define NOX_PASTE(a, b) NOX_PASTE2(a, b)
#define NOX_BODY(name) NOX_PASTE(NOX_VARIANT, name)
#define NOX_INLINE inline __attribute__((always_inline))
#define NOX_INLINED __attribute__((always_inline))  // of a lambda, behind its parameters

namespace nox {
inline namespace NOX_VARIANT {

struct Variant {
  const char* tag;
  const char* name;         // in the version record
  bool fuses;               // multiply and add in one rounding
  bool divides_long_copy;   // noxsCopy of wide elements divides counts whose bytes pass 31 bits
  size_t copy_large_from;   // bytes from which noxsCopy chooses its method by distance and cache
  size_t zero_bytes_large;  // bytes above which noxsZero_8u changes its method
  size_t fill_large;        // bytes above which noxsSet and the other noxsZero do
};

namespace variants {
constexpr size_t kNever = SIZE_MAX;
constexpr Variant w7{"w7", "noxSP SSE2 (w7)", false, false, kNever, kNever, kNever};
constexpr Variant s8{"s8", "noxSP Atom (s8)", false, false, kNever, kNever, kNever};
constexpr Variant p8{"p8", "noxSP SSE4.2 (p8)", false, false, kNever, kNever, kNever};
constexpr Variant g9{"g9", "noxSP AVX (g9)", false, true, 32768, 32768, 0x200000};
constexpr Variant h9{"h9", "noxSP AVX2 (h9)", true, true, 32768, 32768, 0x200000};
// The builds of the array layer.
constexpr Variant array{"array", "", false, false, kNever, kNever, kNever};
constexpr Variant arrayavx{"arrayavx", "", false, false, kNever, kNever, kNever};
constexpr Variant arrayavx2{"arrayavx2", "", false, false, kNever, kNever, kNever};
}  // namespace variants

constexpr Variant variant = variants::NOX_VARIANT;

}  // namespace NOX_VARIANT
}  // namespace nox
