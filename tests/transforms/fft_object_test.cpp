// Objects of the six kinds of FFT: sizes, set-up in the caller's memory, refusals in their order.
#include <gtest/gtest.h>
#include <moxsp.h>

#include <algorithm>
#include <climits>
#include <cstring>
#include <ostream>
#include <vector>

#include "support/guarded_array.h"
#include "support/random.h"

namespace {

// A forward transform in place; the two halves of split data follow one another.
using Run = MoxStatus (*)(void*, long, const MoxsFFTSpec*, Mox8u*);

template <auto run, class E>
MoxStatus inPlace(void* data, long, const MoxsFFTSpec* spec, Mox8u* buffer) {
  return run(static_cast<E*>(data), spec, buffer);
}
template <auto run, class F>
MoxStatus inPlaceSplit(void* data, long n, const MoxsFFTSpec* spec, Mox8u* buffer) {
  return run(static_cast<F*>(data), static_cast<F*>(data) + n, spec, buffer);
}

struct Kind {
  const char* name;
  Mox32s id;
  long part;  // bytes of a real number
  bool real;
  int maxOrder;
  decltype(moxsFFTGetSize_C_32fc)* getSize;
  decltype(moxsFFTInit_C_32fc)* init;
  decltype(moxsFFTInitAlloc_C_32fc)* initAlloc;
  decltype(moxsFFTGetBufSize_C_32fc)* getBufSize;
  decltype(moxsFFTFree_C_32fc)* free;
  Run run;

  friend std::ostream& operator<<(std::ostream& out, const Kind& kind) { return out << kind.name; }
};

#define OBJECT_FUNCTIONS(kind)                                                                  \
  moxsFFTGetSize_##kind, moxsFFTInit_##kind, moxsFFTInitAlloc_##kind, moxsFFTGetBufSize_##kind, \
      moxsFFTFree_##kind

const Kind kinds[] = {
    {"C_32fc", 4, 4, false, 28, OBJECT_FUNCTIONS(C_32fc), inPlace<moxsFFTFwd_CToC_32fc_I, Mox32fc>},
    {"C_32f", 5, 4, false, 28, OBJECT_FUNCTIONS(C_32f),
     inPlaceSplit<moxsFFTFwd_CToC_32f_I, Mox32f>},
    {"R_32f", 6, 4, true, 29, OBJECT_FUNCTIONS(R_32f), inPlace<moxsFFTFwd_RToPerm_32f_I, Mox32f>},
    {"C_64fc", 7, 8, false, 27, OBJECT_FUNCTIONS(C_64fc), inPlace<moxsFFTFwd_CToC_64fc_I, Mox64fc>},
    {"C_64f", 8, 8, false, 27, OBJECT_FUNCTIONS(C_64f),
     inPlaceSplit<moxsFFTFwd_CToC_64f_I, Mox64f>},
    {"R_64f", 9, 8, true, 28, OBJECT_FUNCTIONS(R_64f), inPlace<moxsFFTFwd_RToPerm_64f_I, Mox64f>},
};

struct Sizes {
  long spec, init, work;
};

long up64(long x) { return x / 64 * 64; }
long even128(long x) { return x / 128 * 128; }

// Bytes of complex tables and of work area on the large path.
Sizes largeSizes(long part, int order, bool outermost = true) {
  const bool single = part == 4;
  const int limit = single ? 19 : 18, columns = order < limit + 4 ? 4 : 8;
  const int block = single ? (columns == 4 ? 10 : 14) : (columns == 4 ? 9 : 13);
  const int rows = order - columns;
  const long pair = 2 * part;
  Sizes sizes = rows < limit ? Sizes{up64((pair << rows) + 63 + pair), 0, up64((pair << rows) + 63)}
                             : largeSizes(part, rows, false);
  sizes.spec += part << order;
  sizes.work = std::max(sizes.work, pair << block);
  if (outermost) {
    sizes.spec += single ? (4L << (order - 12)) + 4160 : (4L << (order - 10)) + 1088;
    sizes.work = std::max(sizes.work, single ? 65536L : 32768L);
  }
  return sizes;
}

Sizes sizesOf(const Kind& kind, int order) {
  const bool single = kind.part == 4;
  if (order <= (kind.real ? 4 : 6)) return {single ? 152 : 160, 0, 0};
  const int complexOrder = kind.real ? order - 1 : order;
  const long n = 1L << order, complexLength = 1L << complexOrder, pair = 2 * kind.part;
  Sizes sizes{0, 0, 0};
  if (complexOrder >= (single ? 19 : 18))
    sizes = largeSizes(kind.part, complexOrder);
  else if (complexOrder >= 7)
    sizes = {up64(pair * complexLength + 63 + pair) + up64(complexLength + 67), 0,
             up64(pair * complexLength + 63)};
  if (kind.real)
    sizes.spec += even128(order >= 18 ? n / (single ? 256 : 64) + 16510 : kind.part * n + 126);
  sizes.spec += 192;
  sizes.init = order < 11 ? 0 : (single ? up64(n + 67) : up64(2 * n + 71)) + 64;
  if (sizes.work > 0) sizes.work += 64;
  return sizes;
}

class FftObject : public testing::TestWithParam<Kind> {};
INSTANTIATE_TEST_SUITE_P(, FftObject, testing::ValuesIn(kinds), testing::PrintToStringParamName());

TEST_P(FftObject, SizesAreTheDocumentedFigures) {
  const Kind& kind = GetParam();
  for (int order = 0; order <= kind.maxOrder; ++order)
    for (const int flag : {1, 2, 4, 8}) {
      const Sizes expected = sizesOf(kind, order);
      int spec = -1, init = -1, work = -1;
      const MoxStatus status = kind.getSize(order, flag, 0, &spec, &init, &work);
      ASSERT_EQ(status, moxOk) << "order " << order;
      EXPECT_EQ(spec, expected.spec) << "order " << order;
      EXPECT_EQ(init, expected.init) << "order " << order;
      EXPECT_EQ(work, expected.work) << "order " << order;
    }
}

// A block of the caller's memory: either ending at an inaccessible page, or at the address that
// costs the most slack, with a mark behind it.
class Block {
 public:
  Block(long bytes, bool atPageEnd)
      : room_(bytes + (atPageEnd ? 0 : 128), test::Guard::after), bytes_(bytes) {
    start_ = reinterpret_cast<Mox8u*>(room_.data());
    if (atPageEnd) return;
    start_ += 65 - reinterpret_cast<std::uintptr_t>(start_) % 64;
    marked_ = true;
    start_[bytes] = mark;
  }
  Mox8u* data() const { return start_; }
  bool intact() const { return !marked_ || start_[bytes_] == mark; }

 private:
  static constexpr Mox8u mark = 0x5A;
  test::GuardedBytes room_;
  long bytes_;
  Mox8u* start_;
  bool marked_ = false;
};

TEST_P(FftObject, FitsItsSizeWhereverItLies) {
  const Kind& kind = GetParam();
  test::Random random;
  for (const int order : {0, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 17, 18, 19, 20, 21})
    for (const bool atPageEnd : {true, false}) {
      SCOPED_TRACE(testing::Message() << "order " << order << " at the page end: " << atPageEnd);
      const long n = 1L << order, bytes = n * kind.part * (kind.real ? 1 : 2);
      const Sizes sizes = sizesOf(kind, order);
      const Block specMem(sizes.spec, atPageEnd), initBuf(sizes.init, atPageEnd),
          buffer(sizes.work, atPageEnd);

      MoxsFFTSpec* spec = nullptr;
      ASSERT_EQ(kind.init(&spec, order, 8, 0, specMem.data(), initBuf.data()), moxOk);
      EXPECT_EQ(reinterpret_cast<std::uintptr_t>(spec) % 64, 0u);
      EXPECT_EQ(*reinterpret_cast<Mox32s*>(spec), kind.id);
      int bufSize = -1;
      ASSERT_EQ(kind.getBufSize(spec, &bufSize), moxOk);
      EXPECT_EQ(bufSize, sizes.work);

      MoxsFFTSpec* own = nullptr;
      ASSERT_EQ(kind.initAlloc(&own, order, 8, 0), moxOk);
      const auto values = random.vector<Mox32f>(bytes / 4);
      std::vector<Mox64f> here(bytes / 8 + 1), there(bytes / 8 + 1);
      if (kind.part == 4)
        std::memcpy(here.data(), values.data(), bytes);
      else
        std::copy_n(values.begin(), bytes / 8, here.begin());
      there = here;
      EXPECT_EQ(kind.run(here.data(), n, spec, buffer.data()), moxOk);
      EXPECT_EQ(kind.run(there.data(), n, own, nullptr), moxOk);
      EXPECT_EQ(std::memcmp(here.data(), there.data(), bytes), 0);
      EXPECT_EQ(kind.free(own), moxOk);
      EXPECT_TRUE(specMem.intact() && initBuf.intact() && buffer.intact());
    }
}

TEST_P(FftObject, SizeQueriesRefuseInOrder) {
  const Kind& kind = GetParam();
  int spec = -1, init = -1, work = -1;
  const auto query = [&](int order, int flag) {
    return kind.getSize(order, flag, 0, &spec, &init, &work);
  };
  for (const int order : {31, -1, INT_MIN}) {
    EXPECT_EQ(query(order, 8), moxErrFftOrder);
    EXPECT_EQ(kind.getSize(order, 8, 0, nullptr, &init, &work), moxErrFftOrder);
  }
  EXPECT_EQ(kind.getSize(30, 3, 0, nullptr, &init, &work), moxErrNullPtr);
  EXPECT_EQ(kind.getSize(30, 3, 0, &spec, nullptr, &work), moxErrNullPtr);
  EXPECT_EQ(kind.getSize(30, 3, 0, &spec, &init, nullptr), moxErrNullPtr);
  for (const int flag : {0, 3, 16, -8}) EXPECT_EQ(query(30, flag), moxErrFftFlag);
  EXPECT_EQ(query(kind.maxOrder + 1, 8), moxErrFftOrder);
  EXPECT_EQ(spec & init & work, -1);
}

TEST_P(FftObject, InitRefusesInOrderAndLeavesTheCallersPointer) {
  const Kind& kind = GetParam();
  alignas(64) static Mox8u memory[1 << 18], scratch[1 << 16];
  MoxsFFTSpec* const untouched = reinterpret_cast<MoxsFFTSpec*>(memory);
  MoxsFFTSpec* spec = untouched;
  EXPECT_EQ(kind.init(nullptr, 99, 3, 0, nullptr, nullptr), moxErrNullPtr);
  EXPECT_EQ(kind.init(&spec, -1, 3, 0, nullptr, nullptr), moxErrFftOrder);
  EXPECT_EQ(kind.init(&spec, kind.maxOrder + 1, 3, 0, nullptr, nullptr), moxErrFftOrder);
  EXPECT_EQ(kind.init(&spec, 11, 3, 0, nullptr, nullptr), moxErrNullPtr);
  EXPECT_EQ(kind.init(&spec, 11, 3, 0, memory, nullptr), moxErrFftFlag);
  EXPECT_EQ(*reinterpret_cast<Mox32s*>(memory), 0);
  EXPECT_EQ(kind.init(&spec, 11, 8, 0, memory, nullptr), moxErrNullPtr);
  EXPECT_EQ(spec, untouched);
  EXPECT_EQ(kind.init(&spec, 10, 8, 0, memory, nullptr), moxOk);
  EXPECT_EQ(kind.init(&spec, 11, 8, 0, memory, scratch), moxOk);
  EXPECT_EQ(kind.free(spec), moxOk);
  EXPECT_EQ(kind.free(spec), moxErrContext);

  spec = nullptr;
  EXPECT_EQ(kind.initAlloc(nullptr, 99, 3, 0), moxErrNullPtr);
  EXPECT_EQ(kind.initAlloc(&spec, kind.maxOrder + 1, 8, 0), moxErrFftOrder);
  EXPECT_EQ(kind.initAlloc(&spec, 5, 3, 0), moxErrFftFlag);
  EXPECT_EQ(spec, nullptr);
}

// Every function refuses the objects of every other kind, the same layout or not.
TEST_P(FftObject, KindsAreToldApart) {
  const Kind& kind = GetParam();
  MoxsFFTSpec* spec = nullptr;
  ASSERT_EQ(kind.initAlloc(&spec, 3, 8, 0), moxOk);
  Mox64f data[16] = {1};
  for (const Kind& other : kinds) {
    if (other.id == kind.id) continue;
    int size = -1;
    EXPECT_EQ(other.getBufSize(spec, &size), moxErrContext);
    EXPECT_EQ(size, -1);
    EXPECT_EQ(other.run(data, 8, spec, nullptr), moxErrContext);
    EXPECT_EQ(other.free(spec), moxErrContext);
  }
  EXPECT_EQ(data[0], 1);
  EXPECT_EQ(kind.free(spec), moxOk);
}

}  // namespace
