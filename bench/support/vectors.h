// What cases over arrays of several sizes share.
#pragma once

#include <moxsp.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "support/compare.h"

namespace bench {

// Bytes of an array within the first-level cache, within the second, and far beyond all.
constexpr long arraySizes[] = {4L << 10, 256L << 10, 64L << 20};

// Memory of the library, as its users have it; its alignment suits the peers' fastest paths. Each
// starts at another place of a page: a processor takes a load for one of what was just stored at
// the same place of another page, and waits.
template <class T>
class Vector {
 public:
  explicit Vector(long len)
      : memory_(moxsMalloc_8u(int(len * long(sizeof(T))) + page), moxsFree),
        start_(count_++ * 5 * 64 % page) {}
  T* data() const { return reinterpret_cast<T*>(memory_.get() + start_); }

 private:
  static constexpr int page = 4096;
  static inline int count_ = 0;

  std::unique_ptr<Mox8u, void (*)(void*)> memory_;
  int start_;
};

// Our call, then the peers'.
using Sides = std::vector<std::pair<std::string, Call>>;

// A case whose calls work on `data`, which lives as long as they do.
template <class Data>
void add(const std::string& family, long size, Work work, const std::shared_ptr<Data>& data,
         Sides sides) {
  for (auto& [name, call] : sides) call = [data, inner = call] { inner(); };
  const Call ours = sides.front().second;
  sides.erase(sides.begin());
  add({.family = family, .size = size, .work = work, .ours = ours, .peers = sides});
}

}  // namespace bench
