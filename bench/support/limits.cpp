#include "support/limits.h"

#include <immintrin.h>

#include <algorithm>
#include <chrono>
#include <map>
#include <memory>
#include <utility>

namespace bench {
namespace {

double secondsOf(const std::function<void()>& f) {
  using clock = std::chrono::steady_clock;
  double best = 1e9;
  for (int round = 0; round < 7; ++round) {
    const auto start = clock::now();
    f();
    best = std::min(best, std::chrono::duration<double>(clock::now() - start).count());
  }
  return best;
}

struct FreeDeleter {
  void operator()(void* p) const { std::free(p); }
};

constexpr long chunk = 256;  // bytes

// What may make memory faster: asking for a page before its turn, and stores that bypass the cache.
struct Traffic {
  bool asksAhead, bypasses;
};

template <Traffic kind>
[[gnu::always_inline]] inline void loadChunk(const char* p) {
  constexpr long ahead = 8192;
  for (long at = 0; at < chunk; at += 32) {
    if (kind.asksAhead && at % 64 == 0) __builtin_prefetch(p + at + ahead);
    asm volatile("vmovdqu %0, %%ymm0" : : "m"(*reinterpret_cast<const __m256i*>(p + at)) : "ymm0");
  }
}
template <Traffic kind>
[[gnu::always_inline]] inline void storeChunk(char* p) {
  for (long at = 0; at < chunk; at += 32) {
    __m256i& place = *reinterpret_cast<__m256i*>(p + at);
    if (kind.bypasses)
      asm volatile("vmovntdq %%ymm0, %0" : "=m"(place));
    else
      asm volatile("vmovdqa %%ymm0, %0" : "=m"(place));
  }
}

// A walk of 32-byte loads from `source` beside stores to `destination`, in chunks a step.
struct Walk {
  const char* source;
  char* destination;
  long steps, loads, stores;

  template <Traffic kind>
  void run() const {
    const char* r = source;
    char* w = destination;
    for (long step = 0; step < steps; ++step) {
      for (long l = 0; l < loads; ++l, r += chunk) loadChunk<kind>(r);
      for (long l = 0; l < stores; ++l, w += chunk) storeChunk<kind>(w);
    }
    if (kind.bypasses) _mm_sfence();
  }
};

// Seconds for one walk over `read` bytes beside `written` bytes, in the way that is the fastest.
double trafficSeconds(long read, long written) {
  const long steps =
      std::max(1L, std::min(read ? read : written, written ? written : read) / chunk);
  const long loads = read / chunk / steps, stores = written / chunk / steps;
  std::unique_ptr<char, FreeDeleter> memory(static_cast<char*>(
      std::aligned_alloc(64, std::size_t((loads + stores) * steps * chunk + 64) & -64L)));
  std::fill_n(memory.get(), (loads + stores) * steps * chunk, 1);
  const Walk walk = {memory.get(), memory.get() + loads * steps * chunk, steps, loads, stores};
  const long passes = std::max(1L, (64L << 20) / (read + written));
  const auto seconds = [&]<Traffic kind> {
    return secondsOf([&] {
             for (long i = 0; i < passes; ++i) walk.run<kind>();
           }) /
           double(passes);
  };
  return std::min(
      {seconds.operator()<Traffic{false, false}>(), seconds.operator()<Traffic{true, false}>(),
       seconds.operator()<Traffic{false, true}>(), seconds.operator()<Traffic{true, true}>()});
}

// Floating-point operations a second: as many chains of multiplications and of additions as hide
// the latency of either, each in a register of its own.
template <class Vector, class Multiply, class Add, int... chain>
double arithmeticRate(Vector one, Multiply multiply, Add add,
                      std::integer_sequence<int, chain...>) {
  constexpr long rounds = 1'000'000;
  const double seconds = secondsOf([&] {
    Vector m[] = {(void(chain), one)...}, a[] = {(void(chain), one)...};
    const auto step = [&](Vector& product, Vector& sum) {
      product = multiply(product, one);
      sum = add(sum, one);
      asm volatile("" : "+x"(product), "+x"(sum));
    };
    for (long i = 0; i < rounds; ++i) (step(m[chain], a[chain]), ...);
  });
  return 2.0 * sizeof...(chain) * rounds * sizeof(Vector) / sizeof(one[0]) / seconds;
}
constexpr std::make_integer_sequence<int, 6> chains;

double floatRate() {
  static const double rate = arithmeticRate(
      _mm256_set1_ps(1), [](__m256 a, __m256 b) { return _mm256_mul_ps(a, b); },
      [](__m256 a, __m256 b) { return _mm256_add_ps(a, b); }, chains);
  return rate;
}
double doubleRate() {
  static const double rate = arithmeticRate(
      _mm256_set1_pd(1), [](__m256d a, __m256d b) { return _mm256_mul_pd(a, b); },
      [](__m256d a, __m256d b) { return _mm256_add_pd(a, b); }, chains);
  return rate;
}

}  // namespace

double limitSeconds(const Work& work) {
  static std::map<std::pair<long, long>, double> traffic;
  const auto key = std::pair(long(work.bytesRead), long(work.bytesWritten));
  double seconds = 0;
  if (key.first + key.second > 0) {
    auto [place, isNew] = traffic.try_emplace(key);
    if (isNew) place->second = trafficSeconds(key.first, key.second);
    seconds = place->second;
  }
  if (work.floatOps > 0) seconds = std::max(seconds, work.floatOps / floatRate());
  if (work.doubleOps > 0) seconds = std::max(seconds, work.doubleOps / doubleRate());
  return seconds;
}

}  // namespace bench
