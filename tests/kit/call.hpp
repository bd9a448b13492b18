// Calls through a probe of the calling convention: kit::call(noxsAdd_64f, a, b, d, n).
//
// The arguments are laid out as the words of a C call, at stack offsets 0, 4, 8, 12 modulo 16 in turn. After the call
// the probe reports a failure unless the callee-saved registers, the stack pointer, the rounding modes and exception
// masks are as before, the x87 stack is empty, the direction is forward and the upper vector halves are zero.
#pragma once
#include <cstdint>
#include <cstring>
#include <type_traits>

namespace kit {

enum class Returns { Nothing, Integer, Real };

struct ProbeResult {
  uint64_t integer;  // edx:eax
  double real;
};
ProbeResult probe(const void* fn, const uint32_t* words, size_t count, Returns returns);

// Words that an argument takes on the stack.
template <class P>
constexpr size_t words_of = (sizeof(P) + 3) / 4;

template <class P>
void lay(uint32_t*& at, const P& argument) {
  if constexpr (std::is_integral_v<P> && sizeof(P) < 4) {
    *at = static_cast<uint32_t>(static_cast<int32_t>(argument));  // small integers come extended
  } else {
    std::memcpy(at, &argument, sizeof(P));
  }
  at += words_of<P>;
}

template <class R, class... P, class... A>
R call(R (*fn)(P...), A... arguments) {
  static_assert(sizeof...(P) == sizeof...(A), "as many arguments as parameters");
  static_assert(std::is_void_v<R> || std::is_scalar_v<R>, "records are returned by no function of the library");
  uint32_t words[(1 + ... + words_of<P>)] = {};
  uint32_t* at = words;
  (lay<P>(at, static_cast<P>(arguments)), ...);
  constexpr Returns returns = std::is_void_v<R>             ? Returns::Nothing
                              : std::is_floating_point_v<R> ? Returns::Real
                                                            : Returns::Integer;
  const ProbeResult result = probe(reinterpret_cast<const void*>(fn), words, static_cast<size_t>(at - words), returns);
  if constexpr (std::is_void_v<R>)
    return;
  else if constexpr (std::is_floating_point_v<R>)
    return static_cast<R>(result.real);
  else {
    R value;
    std::memcpy(&value, &result.integer, sizeof value);
    return value;
  }
}

}  // namespace kit
