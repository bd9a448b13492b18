// Arrays that stand against memory that isn't there, so that a touch beyond them faults or is found.
//
// The elements end directly before an unmapped page (Edge::End) or begin directly behind one (Edge::Start); what is
// left of the mapped pages holds canary bytes, which are compared at the end. Mappings are kept and used again.
#pragma once
#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <vector>

namespace kit {

enum class Edge { End, Start };

// Pages between two unmapped ones.
struct Mapping {
  uint8_t* base = nullptr;
  size_t bytes = 0;
};
Mapping take_mapping(size_t bytes);
void give_back(Mapping m);

constexpr uint8_t kCanary = 0xCA;
constexpr uint8_t kUnwritten = 0xC5;  // bytes of elements before they are given a value

template <class T>
class Guarded {
 public:
  // `misalign` moves the elements that many bytes away from their unmapped page.
  explicit Guarded(size_t n, Edge edge = Edge::End, size_t misalign = 0)
      : mapping_(take_mapping(n * sizeof(T) + misalign)), n_(n) {
    uint8_t* const first =
        edge == Edge::Start ? mapping_.base + misalign : mapping_.base + mapping_.bytes - misalign - n * sizeof(T);
    std::fill(mapping_.base, first, kCanary);
    std::fill(first, first + n * sizeof(T), kUnwritten);
    std::fill(first + n * sizeof(T), mapping_.base + mapping_.bytes, kCanary);
    data_ = reinterpret_cast<T*>(first);
  }
  explicit Guarded(const std::vector<T>& values, Edge edge = Edge::End, size_t misalign = 0)
      : Guarded(values.size(), edge, misalign) {
    fill(values);
  }
  Guarded(Guarded&& other) noexcept : mapping_(other.mapping_), data_(other.data_), n_(other.n_) {
    other.mapping_ = {};
    other.n_ = 0;
  }
  Guarded& operator=(Guarded&&) = delete;
  ~Guarded() {
    if (!mapping_.base) return;
    check();
    give_back(mapping_);
  }

  T* data() { return data_; }
  const T* data() const { return data_; }
  size_t size() const { return n_; }
  T& operator[](size_t i) { return data_[i]; }
  const T& operator[](size_t i) const { return data_[i]; }
  T* begin() { return data_; }
  T* end() { return data_ + n_; }
  const T* begin() const { return data_; }
  const T* end() const { return data_ + n_; }

  // Copies the values to the front; they may be fewer than the elements.
  void fill(const std::vector<T>& values) { std::copy(values.begin(), values.end(), data_); }
  void fill(std::initializer_list<T> values) { std::copy(values.begin(), values.end(), data_); }
  void fill_with(const T& value) { std::fill(begin(), end(), value); }
  std::vector<T> values() const { return {begin(), end()}; }

  bool canaries_intact() const {
    const auto changed = [](uint8_t b) { return b != kCanary; };
    const uint8_t* const first = reinterpret_cast<const uint8_t*>(data_);
    return std::none_of<const uint8_t*>(mapping_.base, first, changed) &&
           std::none_of<const uint8_t*>(first + n_ * sizeof(T), mapping_.base + mapping_.bytes, changed);
  }
  // Reports a changed canary, once: the canary is renewed.
  void check() {
    if (canaries_intact()) return;
    ADD_FAILURE() << "bytes beside an array of " << n_ << " elements of " << sizeof(T) << " bytes were written";
    uint8_t* const first = reinterpret_cast<uint8_t*>(data_);
    std::fill(mapping_.base, first, kCanary);
    std::fill(first + n_ * sizeof(T), mapping_.base + mapping_.bytes, kCanary);
  }

 private:
  Mapping mapping_;
  T* data_ = nullptr;
  size_t n_;
};

}  // namespace kit
