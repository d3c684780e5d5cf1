// The cache sizes that processors of one vendor state as descriptor bytes in CPUID leaf 2.
#pragma once

namespace mox::move {

// The least cache that the descriptors are searched for.
constexpr long leastListedCache = 512 << 10;

// The largest second- or third-level cache among the descriptors in the registers a, b, c, d of
// leaf 2, in bytes; 0 where none is named.
long listedCacheBytes(const unsigned (&leaf2)[4]);

// The same for the processor at hand; 0 as well on one of another vendor.
long listedCacheBytes();

}  // namespace mox::move
