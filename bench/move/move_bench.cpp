#include <moxsp.h>

#include <algorithm>
#include <cstring>
#include <memory>
#include <vector>

#include "support/vectors.h"

namespace {

struct Data {
  explicit Data(long bytes) : src(bytes + 64, 1), dst(bytes + 64, 2) {}
  std::vector<Mox8u> src, dst;

  template <class E>
  const E* from() const {
    return reinterpret_cast<const E*>(src.data());
  }
  template <class E>
  E* to() {
    return reinterpret_cast<E*>(dst.data());
  }
};

using Shared = std::shared_ptr<Data>;

// Runs `call` with the data, and keeps what it writes from being dropped.
template <class Call>
bench::Call on(Shared data, Call call) {
  return [=] {
    call(*data);
    bench::clobber(data->dst.data());
  };
}

void addFill(Shared data, long bytes) {
  const bench::Work work = {.bytesWritten = 1.0 * bytes};
  const int len = int(bytes / 4), wide = int(bytes / 8);
  bench::add({"zero_32f",
              bytes,
              work,
              on(data, [=](Data& d) { moxsZero_32f(d.to<Mox32f>(), len); }),
              {{"memset", on(data, [=](Data& d) { std::memset(d.dst.data(), 0, bytes); })},
               {"loop", on(data, [=](Data& d) {
                  for (int i = 0; i < len; ++i) d.to<float>()[i] = 0;
                })}}});
  bench::add({"set_8u",
              bytes,
              work,
              on(data, [=](Data& d) { moxsSet_8u(7, d.to<Mox8u>(), int(bytes)); }),
              {{"memset", on(data, [=](Data& d) { std::memset(d.dst.data(), 7, bytes); })}}});
  bench::add({"set_32f",
              bytes,
              work,
              on(data, [=](Data& d) { moxsSet_32f(1.5f, d.to<Mox32f>(), len); }),
              {{"loop", on(data, [=](Data& d) {
                  for (int i = 0; i < len; ++i) d.to<float>()[i] = 1.5f;
                })}}});
  bench::add({"set_64f",
              bytes,
              work,
              on(data, [=](Data& d) { moxsSet_64f(1.5, d.to<Mox64f>(), wide); }),
              {{"loop", on(data, [=](Data& d) {
                  for (int i = 0; i < wide; ++i) d.to<double>()[i] = 1.5;
                })}}});
}

void addCopy(Shared data, long bytes) {
  const bench::Work work = {.bytesRead = 1.0 * bytes, .bytesWritten = 1.0 * bytes};
  const int len = int(bytes / 4);
  bench::add(
      {"copy_32f",
       bytes,
       work,
       on(data, [=](Data& d) { moxsCopy_32f(d.from<Mox32f>(), d.to<Mox32f>(), len); }),
       {{"memcpy", on(data, [=](Data& d) { std::memcpy(d.to<void*>(), d.src.data(), bytes); })},
        {"loop", on(data, [=](Data& d) {
           const float* from = d.from<float>();
           float* to = d.to<float>();
#pragma GCC ivdep
           for (int i = 0; i < len; ++i) to[i] = from[i];
         })}}});
  // Overlapping by all but 64 bytes, to either side.
  bench::add(
      {"move_8u up",
       bytes,
       work,
       on(data, [=](Data& d) { moxsMove_8u(d.to<Mox8u>(), d.to<Mox8u>() + 64, int(bytes)); }),
       {{"memmove",
         on(data, [=](Data& d) { std::memmove(d.to<Mox8u>() + 64, d.to<Mox8u>(), bytes); })}}});
  bench::add(
      {"move_8u down",
       bytes,
       work,
       on(data, [=](Data& d) { moxsMove_8u(d.to<Mox8u>() + 64, d.to<Mox8u>(), int(bytes)); }),
       {{"memmove",
         on(data, [=](Data& d) { std::memmove(d.to<Mox8u>(), d.to<Mox8u>() + 64, bytes); })}}});
}

template <class E>
void addFlip(Shared data, const char* name, long bytes, MoxStatus (*flip)(const E*, E*, int)) {
  const int len = int(bytes / long(sizeof(E)));
  bench::add({name,
              bytes,
              {.bytesRead = 1.0 * bytes, .bytesWritten = 1.0 * bytes},
              on(data, [=](Data& d) { flip(d.from<E>(), d.to<E>(), len); }),
              {{"reverse_copy", on(data, [=](Data& d) {
                  std::reverse_copy(d.from<E>(), d.from<E>() + len, d.to<E>());
                })}}});
}

template <class E, class Swap>
void addSwap(Shared data, const char* name, long bytes, MoxStatus (*swapBytes)(const E*, E*, int),
             Swap swap) {
  const int len = int(bytes / long(sizeof(E)));
  bench::add({name,
              bytes,
              {.bytesRead = 1.0 * bytes, .bytesWritten = 1.0 * bytes},
              on(data, [=](Data& d) { swapBytes(d.from<E>(), d.to<E>(), len); }),
              {{"loop", on(data, [=](Data& d) {
                  const E* from = d.from<E>();
                  E* to = d.to<E>();
#pragma GCC ivdep
                  for (int i = 0; i < len; ++i) to[i] = swap(from[i]);
                })}}});
}

void addSwap24(Shared data, long bytes) {
  const int len = int(bytes / 3);
  bench::add({"swapBytes_24u",
              bytes,
              {.bytesRead = 1.0 * bytes, .bytesWritten = 1.0 * bytes},
              on(data, [=](Data& d) { moxsSwapBytes_24u(d.from<Mox8u>(), d.to<Mox8u>(), len); }),
              {{"loop", on(data, [=](Data& d) {
                  for (int i = 0; i < len; ++i)
                    for (int k = 0; k < 3; ++k) d.dst[3 * i + k] = d.src[3 * i + 2 - k];
                })}}});
}

void addBits(Shared data, long bytes) {
  if (bytes >= 64 << 20) return;  // more bits than lengths are for
  bench::add(
      {"copy_1u",
       bytes,
       {.bytesRead = 1.0 * bytes, .bytesWritten = 1.0 * bytes},
       on(data,
          [=](Data& d) { moxsCopy_1u(d.from<Mox8u>(), 3, d.to<Mox8u>(), 0, int(8 * bytes)); }),
       {{"loop", on(data, [=](Data& d) {  // byte by byte
           for (long i = 0; i < bytes; ++i) d.dst[i] = Mox8u(d.src[i] << 3 | d.src[i + 1] >> 5);
         })}}});
}

const bool registered = [] {
  for (const long bytes : bench::arraySizes) {
    auto data = std::make_shared<Data>(bytes);
    addFill(data, bytes);
    addCopy(data, bytes);
    addFlip(data, "flip_8u", bytes, moxsFlip_8u);
    addFlip(data, "flip_32f", bytes, moxsFlip_32f);
    addFlip(data, "flip_64fc", bytes, moxsFlip_64fc);
    addSwap(data, "swapBytes_16u", bytes, moxsSwapBytes_16u,
            [](Mox16u e) { return __builtin_bswap16(e); });
    addSwap(data, "swapBytes_32u", bytes, moxsSwapBytes_32u,
            [](Mox32u e) { return __builtin_bswap32(e); });
    addSwap(data, "swapBytes_64u", bytes, moxsSwapBytes_64u,
            [](Mox64u e) { return __builtin_bswap64(e); });
    addSwap24(data, bytes);
    addBits(data, bytes);
  }
  return true;
}();

}  // namespace
