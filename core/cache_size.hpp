// The size of the largest cache, out of the words in which a processor describes its caches.
//
// Newer processors list each cache with its geometry; older ones give bytes that a table turns into sizes. Both
// decoders take the words as they come from the processor and touch nothing else.
#pragma once
#include "core/cpuid.hpp"

namespace nox {

// Geometry list, one cache per subleaf: data and unified caches count, those of instructions don't.
template <class Query>
bool largest_cache(Query&& leaf4, int32_t& size) {
  int32_t largest = 0;
  for (Nox32u subleaf = 0; subleaf < 32; ++subleaf) {
    const CpuidWords w = leaf4(subleaf);
    const Nox32u type = w.a & 31;
    if (type == 0) break;
    if (type == 2) continue;  // instructions
    const Nox32u ways = (w.b >> 22) + 1, partitions = (w.b >> 12 & 1023) + 1, line = (w.b & 4095) + 1;
    const int32_t bytes = static_cast<int32_t>(ways * partitions * line * (w.c + 1));
    if (bytes > largest) largest = bytes;
  }
  size = largest;
  return largest != 0;
}

// Descriptors of the old cache query with their sizes in bytes, largest first.
struct CacheDescriptor {
  Nox8u code;
  int32_t size;
};
constexpr CacheDescriptor kCacheDescriptors[] = {
    {0xEC, 25165824}, {0xEB, 18874368}, {0x4D, 16777216}, {0xEA, 12582912}, {0x4C, 12582912}, {0xE4, 8388608},
    {0xDE, 8388608},  {0x4B, 8388608},  {0x47, 8388608},  {0x4E, 6291456},  {0x4A, 6291456},  {0xE3, 4194304},
    {0xDD, 4194304},  {0xD8, 4194304},  {0x49, 4194304},  {0x29, 4194304},  {0x46, 4194304},  {0x48, 3145728},
    {0xE2, 2097152},  {0xDC, 2097152},  {0xD7, 2097152},  {0xD2, 2097152},  {0x25, 2097152},  {0x7D, 2097152},
    {0x85, 2097152},  {0x45, 2097152},  {0xD6, 1048576},  {0xD1, 1048576},  {0x23, 1048576},  {0x87, 1048576},
    {0x7C, 1048576},  {0x78, 1048576},  {0x84, 1048576},  {0x44, 1048576},  {0xD0, 524288},   {0x22, 524288},
    {0x7B, 524288},   {0x80, 524288},   {0x86, 524288},   {0x3E, 524288},   {0x7F, 524288},   {0x83, 524288},
    {0x43, 524288},   {0x3D, 393216},   {0x21, 262144},   {0x7A, 262144},   {0x82, 262144},   {0x3C, 262144},
    {0x3F, 262144},   {0x42, 262144},   {0x3A, 196608},   {0x79, 131072},   {0x39, 131072},   {0x3B, 131072},
    {0x41, 131072},
};

// Descriptor bytes. A first byte other than 1 marks words that aren't descriptors: the first word is then handed out
// as the size, whatever it holds.
inline bool largest_cache_of_descriptors(const CpuidWords& w, int32_t& size) {
  if ((w.a & 255) != 1) {
    size = static_cast<int32_t>(w.a);
    return true;
  }
  const Nox32u words[4] = {w.a & ~255u, w.b, w.c, w.d};  // the low byte of the first is a count
  for (const CacheDescriptor& row : kCacheDescriptors)
    for (Nox32u word : words)
      if (!(word >> 31))  // the top bit marks an empty register
        for (int shift = 0; shift < 32; shift += 8)
          if ((word >> shift & 255) == row.code) {
            size = row.size;
            return true;
          }
  return false;
}

}  // namespace nox
