// What the comparison sorts move about: keys alone, or keys and with each the place it came from.
#pragma once

#include <moxsp/types.h>

#include <utility>

#include "frame/vec/vec.h"

namespace mox::stats {

template <class T>
struct PlainKeys {
  using Key = T;
  struct Item {
    T key;
  };

  T key(long i) const { return load<T>(keys + i); }
  Item item(long i) const { return {key(i)}; }
  void put(long i, Item item) const { store(keys + i, item.key); }

  T* keys;
};

template <class T>
struct IndexedKeys {
  using Key = T;
  struct Item {
    T key;
    Mox32s index;
  };

  T key(long i) const { return load<T>(keys + i); }
  Item item(long i) const { return {key(i), load<Mox32s>(indices + i)}; }
  void put(long i, Item item) const {
    store(keys + i, item.key);
    store(indices + i, item.index);
  }

  T* keys;
  Mox32s* indices;
};

template <class Sequence>
[[gnu::always_inline]] inline void exchange(Sequence s, long i, long j) {
  const auto a = s.item(i), b = s.item(j);
  s.put(i, b);
  s.put(j, a);
}

// Puts two items in order, without a branch: it would be mispredicted half of the time. Equal keys
// stay.
template <class Order, class Item>
[[gnu::always_inline]] inline void arrange(Item& a, Item& b) {
  if constexpr (requires { a.index; }) {
    const Mox32s turned = (a.index ^ b.index) & -Mox32s(Order::before(b.key, a.key));
    a.index ^= turned;
    b.index ^= turned;
  }
  const auto first = Order::first(a.key, b.key), second = Order::second(a.key, b.key);
  a.key = first;
  b.key = second;
}

}  // namespace mox::stats
