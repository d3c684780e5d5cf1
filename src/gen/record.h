// The life of generators: records of a fixed size that hold no address, and may stand at any. Runs
// take a copy of the record and put it back.
#pragma once

#include "frame/checks.h"
#include "frame/object.h"
#include "frame/vec/vec.h"
#include "support/moxcore.h"

namespace mox::gen {

// What every record begins with.
struct RecordHead {
  Mox32s id;
  Mox32s owned = 0;  // 1 when InitAlloc took the memory
};

template <class R>
MoxStatus recordSize(int* size) {
  if (anyNull(size)) return moxErrNullPtr;
  store(size, int(sizeof(R)));
  return moxOk;
}

template <class R>
MoxStatus allocRecord(R** out, R contents) {
  void* const memory = moxMalloc(int(sizeof(R)));
  if (!memory) return moxErrMemAlloc;
  contents.owned = 1;
  store(memory, contents);
  *out = static_cast<R*>(memory);
  return moxOk;
}

template <class R>
MoxStatus freeRecord(R* record, Mox32s id) {
  if (anyNull(record)) return moxErrNullPtr;
  const auto head = load<RecordHead>(record);
  if (MoxStatus s = requireId(&head, id)) return s;
  if (head.owned) moxFree(record);
  return moxOk;
}

// run(record) on a record with the identifier; it may change it.
template <class D, class R, class Run>
MoxStatus runRecord(D* dst, int len, R* record, Mox32s id, Run run) {
  if (MoxStatus s = checkArrays(len, dst, record)) return s;
  const auto head = load<RecordHead>(record);
  if (MoxStatus s = requireId(&head, id)) return s;
  R contents = load<R>(record);
  run(contents);
  store(record, contents);
  return moxOk;
}

}  // namespace mox::gen
