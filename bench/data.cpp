// Fills arrays from a pattern of each kind and type, made when first asked for; patterns repeat after 8192 values.
#include "bench/data.hpp"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>
#include <map>

namespace {

constexpr size_t kPattern = 8192;

// Uniform in [0, 1), the same series in every run.
class Series {
 public:
  uint32_t bits() {
    return static_cast<uint32_t>((state_ = state_ * 6364136223846793005u + 1442695040888963407u) >> 32);
  }
  double next() { return bits() / 4294967296.0; }

 private:
  uint64_t state_ = 12345;
};

template <class T>
T whole(Series& series) {
  if constexpr (std::is_integral_v<T>)
    return static_cast<T>(series.bits() | static_cast<uint64_t>(series.bits()) << 32);
  else
    return static_cast<T>(std::ldexp(series.bits() % 2 ? 1 + series.next() : -1 - series.next(),
                                     static_cast<int>(series.bits() % 41) - 20));
}

template <class T>
T integer_or(double floating, double integer) {
  return static_cast<T>(std::is_integral_v<T> ? integer : floating);
}

// Value i of a pattern; `odd` are the imaginary parts of complex elements.
template <class T>
T value(Data data, Series& series, bool odd, double& angle) {
  const double u = series.next();
  switch (data) {
    case kNearOne:
      return static_cast<T>(integer_or<double>(1 + 1e-9 * (u - 0.5), 1));
    case kUnitCircle:
      if (!odd) angle = 0.5 + 1.5 * u;
      return static_cast<T>(odd ? std::sin(angle) : std::cos(angle));
    case kOnes:
      return static_cast<T>(odd ? 0 : 1);
    case kZeros:
      return 0;
    case kSigned: {
      const double s = 2 * u - 1;
      return integer_or<T>(s, std::floor(std::is_signed_v<T> ? 100.99 * s : 100.99 * u));
    }
    case kWhole:
      return whole<T>(series);
    case kSmall:
      return static_cast<T>(std::floor(16 * u));
    case kAngles:
      return integer_or<T>(20 * u - 10, std::floor(std::is_signed_v<T> ? 20 * u - 10 : 20 * u));
    default:
      return integer_or<T>(0.5 + 1.5 * u, 1 + std::floor(100 * u));
  }
}

template <class T>
std::vector<char> pattern(Data data, bool complex) {
  Series series;
  double angle = 0;
  std::vector<char> bytes(kPattern * sizeof(T));
  for (size_t i = 0; i < kPattern; ++i) {
    const T v = value<T>(data, series, complex && i % 2, angle);
    memcpy(&bytes[i * sizeof(T)], &v, sizeof v);
  }
  return bytes;
}

// Ascending over all n values, by steps that fit the type.
template <class T>
void ascending(T* to, size_t n, bool shuffled) {
  const double low = std::is_integral_v<T> ? static_cast<double>(std::numeric_limits<T>::min()) : -1e6;
  const double span = std::is_integral_v<T> ? 0.999 * (static_cast<double>(std::numeric_limits<T>::max()) - low) : 2e6;
  for (size_t i = 0; i < n; ++i) to[i] = static_cast<T>(low + span * static_cast<double>(i) / static_cast<double>(n));
  Series series;
  for (size_t i = n; shuffled && i > 1; --i)
    std::swap(to[i - 1], to[static_cast<size_t>(series.next() * static_cast<double>(i))]);
}

template <class T>
void fill_as(char* to, size_t bytes, Data data, bool complex) {
  if (data == kSorted || data == kShuffled)
    return ascending(reinterpret_cast<T*>(to), bytes / sizeof(T), data == kShuffled);
  static std::map<std::pair<Data, bool>, std::vector<char>> patterns;
  std::vector<char>& from = patterns[{data, complex}];
  if (from.empty()) from = pattern<T>(data, complex);
  for (size_t i = 0; i < bytes; i += from.size()) memcpy(to + i, from.data(), std::min(bytes - i, from.size()));
}

}  // namespace

void fill(void* to, size_t bytes, Element element, Data data) {
  char* p = static_cast<char*>(to);
  switch (element.type) {
    case Type::kBytes:
    case Type::kU8:
      return fill_as<uint8_t>(p, bytes, data, element.complex);
    case Type::kS8:
      return fill_as<int8_t>(p, bytes, data, element.complex);
    case Type::kU16:
      return fill_as<uint16_t>(p, bytes, data, element.complex);
    case Type::kS16:
      return fill_as<int16_t>(p, bytes, data, element.complex);
    case Type::kU32:
      return fill_as<uint32_t>(p, bytes, data, element.complex);
    case Type::kS32:
      return fill_as<int32_t>(p, bytes, data, element.complex);
    case Type::kU64:
      return fill_as<uint64_t>(p, bytes, data, element.complex);
    case Type::kS64:
      return fill_as<int64_t>(p, bytes, data, element.complex);
    case Type::kF32:
      return fill_as<float>(p, bytes, data, element.complex);
    case Type::kF64:
      return fill_as<double>(p, bytes, data, element.complex);
  }
}
