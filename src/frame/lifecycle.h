// The life of an object: how much memory it takes, how it is set up in the caller's memory or in
// the library's, how large a work buffer its runs need, and how it ends. A kind of object tells
// what differs.
#pragma once

#include <algorithm>
#include <climits>
#include <concepts>

#include "frame/arena.h"
#include "frame/checks.h"
#include "frame/object.h"

namespace mox {

// A record and its parts in one block of memory.
template <class K>
concept BlockKind = requires(const typename K::Shape& shape, Arena& arena,
                             typename K::Record& record) {
  // Places the parts behind the record, and writes what follows from the shape alone.
  shape.layout(arena, record);
  // Of the record. No part has a larger one than moxMalloc's.
  { K::alignment } -> std::convertible_to<int>;
};

template <class K>
concept ObjectKind = BlockKind<K> && requires(typename K::Record& record) {
  // What public prototypes call the object, and the whole of it. Both begin with `id`.
  requires std::derived_from<typename K::Record, typename K::Head>;
  record.id;
  record.owned;  // whether moxMalloc gave the block, which then begins with the record
};

// Parts start on a multiple of this behind the record, wherever that is, unless their kind names
// its own multiple.
constexpr int partAlignment = 64;

namespace detail {
template <class K>
constexpr int partAlignmentOf = partAlignment;
template <class K>
requires requires { K::partAlignment; }
inline constexpr int partAlignmentOf<K> = K::partAlignment;
}  // namespace detail

// Bytes of an object that suffice at any address.
template <BlockKind K>
constexpr std::size_t objectBytes(const typename K::Shape& shape) {
  using Record = typename K::Record;
  Arena parts;
  Record record{};
  shape.layout(parts, record);
  if (parts.used() == 0) return K::alignment - 1 + sizeof(Record);
  const int slack = std::max<int>(K::alignment, detail::partAlignmentOf<K>) - 1;
  return roundUp(sizeof(Record), K::alignment) + std::size_t(slack) + parts.used();
}
template <BlockKind K>
constexpr bool fitsInInt(const typename K::Shape& shape) {
  return objectBytes<K>(shape) <= INT_MAX;
}

// The record in `memory`, without identifier, and its parts without contents.
template <BlockKind K>
typename K::Record& placeObject(void* memory, const typename K::Shape& shape) {
  auto* record = static_cast<typename K::Record*>(alignUp(memory, K::alignment));
  *record = {};
  Arena parts(alignUp(static_cast<void*>(record + 1), detail::partAlignmentOf<K>));
  shape.layout(parts, *record);
  return *record;
}

// The record of an object of which callers keep the address of the memory, not of the record.
template <BlockKind K>
const typename K::Record& recordIn(const void* memory) {
  return *static_cast<const typename K::Record*>(alignUp(memory, K::alignment));
}

// Sets an object up in memory that suffices. `fill` writes the contents; where it fails, the record
// stays without identifier and `object` as it was.
template <ObjectKind K, class Fill>
MoxStatus init(typename K::Head** object, Mox32s id, const typename K::Shape& shape, void* memory,
               Fill fill) {
  typename K::Record& record = placeObject<K>(memory, shape);
  if (MoxStatus s = fill(record)) return s;
  record.id = id;
  *object = &record;
  return moxOk;
}

// The same in memory of the library's.
template <ObjectKind K, class Fill>
MoxStatus initAlloc(typename K::Head** object, Mox32s id, const typename K::Shape& shape,
                    Fill fill) {
  const std::size_t bytes = objectBytes<K>(shape);
  void* const memory = bytes <= INT_MAX ? moxMalloc(int(bytes)) : nullptr;
  if (!memory) return moxErrMemAlloc;
  if (MoxStatus s = init<K>(object, id, shape, memory, fill)) {
    moxFree(memory);
    return s;
  }
  static_cast<typename K::Record*>(*object)->owned = 1;
  return moxOk;
}

// Ends an object with one of the identifiers.
template <ObjectKind K, class... Id>
MoxStatus release(typename K::Head* object, Id... ids) {
  if (anyNull(object)) return moxErrNullPtr;
  if (MoxStatus s = requireId(object, ids...)) return s;
  auto* record = static_cast<typename K::Record*>(object);
  if constexpr (K::releaseClearsId) record->id = 0;
  if (record->owned) moxFree(record);
  return moxOk;
}

}  // namespace mox
