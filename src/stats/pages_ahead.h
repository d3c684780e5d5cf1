// Long vectors come from memory faster when they are asked for ahead: a processor's own look ahead
// ends with the page at hand.
#pragma once

namespace mox::stats {

// What one pass through a vector asks for. Short vectors are in a cache, where asking is a waste.
template <class E>
class PagesAhead {
  static constexpr long lineBytes = 64, pageBytes = 4096, longBytes = 1 << 20;
  static constexpr long size = sizeof(E), distance = 2 * pageBytes / size;

 public:
  PagesAhead(const E* src, long len)
      : src_(src), end_(len < longBytes / size ? 0 : len - distance) {}

  // Asks for what lies two pages behind the `count` elements from i on.
  template <long count>
  [[gnu::always_inline]] void ask(long i) const {
    if (i > end_ - count) return;
    for (long j = 0; j < count; j += lineBytes / size) __builtin_prefetch(src_ + distance + i + j);
  }

 private:
  const E* src_;
  long end_;
};

}  // namespace mox::stats
