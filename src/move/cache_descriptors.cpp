#include "move/cache_descriptors.h"

#include "support/moxcore.h"

namespace mox::move {
namespace {

constexpr long unitBytes = 512 << 10;

struct CacheDescriptor {
  unsigned char byte, units;
};

// The published descriptors of second- and third-level caches, the largest first.
constexpr CacheDescriptor descriptors[] = {
    {0xEC, 48},                                                           // 24 MiB
    {0xEB, 36},                                                           // 18 MiB
    {0x4D, 32},                                                           // 16 MiB
    {0xEA, 24}, {0x4C, 24},                                               // 12 MiB
    {0xE4, 16}, {0x4B, 16}, {0x47, 16},                                   // 8 MiB
    {0xDE, 12}, {0x4E, 12}, {0x4A, 12},                                   // 6 MiB
    {0xE3, 8},  {0xD8, 8},  {0x49, 8},  {0x46, 8}, {0x29, 8},             // 4 MiB
    {0xDD, 6},  {0x48, 6},                                                // 3 MiB
    {0xE2, 4},  {0xD7, 4},  {0xD2, 4},  {0x85, 4}, {0x7D, 4}, {0x45, 4},  // 2 MiB
    {0x25, 4},                                                            // 2 MiB
    {0xDC, 3},                                                            // 1.5 MiB
    {0xD6, 2},  {0xD1, 2},  {0x87, 2},  {0x84, 2}, {0x7C, 2}, {0x78, 2},  // 1 MiB
    {0x44, 2},  {0x24, 2},  {0x23, 2},                                    // 1 MiB
    {0xD0, 1},  {0x86, 1},  {0x83, 1},  {0x80, 1}, {0x7F, 1}, {0x7B, 1},  // 512 KiB
    {0x43, 1},  {0x22, 1},                                                // 512 KiB
};
static_assert(sizeof descriptors == 43 * sizeof(CacheDescriptor));
static_assert(descriptors[42].units * unitBytes == leastListedCache);

// The vendor who defines the descriptors, as leaf 0 spells it in b, d and c.
bool vendorUsesDescriptors() {
  unsigned leaf0[4];
  ownGetCpuid(0, &leaf0);
  return leaf0[1] == 0x756E6547 && leaf0[3] == 0x49656E69 && leaf0[2] == 0x6C65746E;
}

// The lowest byte of the first register counts the rounds; a register with its top bit set holds
// no descriptors.
bool names(const unsigned (&leaf2)[4], unsigned char byte) {
  for (int i = 0; i < 4; ++i)
    for (int shift = i == 0 ? 8 : 0; shift < 32; shift += 8)
      if (!(leaf2[i] >> 31) && (leaf2[i] >> shift & 255) == byte) return true;
  return false;
}

}  // namespace

long listedCacheBytes(const unsigned (&leaf2)[4]) {
  if ((leaf2[0] & 255) != 1) return 0;
  for (const CacheDescriptor& d : descriptors)
    if (names(leaf2, d.byte)) return d.units * unitBytes;
  return 0;
}

long listedCacheBytes() {
  if (!vendorUsesDescriptors()) return 0;
  unsigned leaf2[4];
  ownGetCpuid(2, &leaf2);
  return listedCacheBytes(leaf2);
}

}  // namespace mox::move
