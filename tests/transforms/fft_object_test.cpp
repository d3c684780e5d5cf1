// Objects of the six kinds of FFT: sizes, set-up in the caller's memory, refusals in their order.
#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <ostream>

#include "support/guarded_array.h"
#include "transforms/fft_api.h"

namespace test {
std::ostream& operator<<(std::ostream& out, const Kind& kind) { return out << kind.name; }
}  // namespace test

namespace {

using test::Kind;
using test::kinds;

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
  EXPECT_EQ(*reinterpret_cast<Mox32s*>(memory), 0) << "a failed record passes for one";
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

template <class T>
class FftObjectOf : public testing::Test {};
TYPED_TEST_SUITE(FftObjectOf, test::Forms);

// In memory that ends at an inaccessible page, at the least and at the most slack of alignment, an
// object gives the same bits as one in library memory.
TYPED_TEST(FftObjectOf, FitsItsSizeWhereverItLies) {
  using T = TypeParam;
  const Kind& kind = T::kind;
  for (const int order : {0, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 17, 18, 19, 20, 21})
    for (const int slack : {0, 63}) {
      SCOPED_TRACE(testing::Message() << "order " << order << " slack " << slack);
      const long n = 1L << order;
      const Sizes sizes = sizesOf(kind, order);
      const test::GuardedArray<Mox8u> memory(sizes.spec + slack), scratch(sizes.init + slack),
          work(sizes.work + slack);
      MoxsFFTSpec* spec = nullptr;
      ASSERT_EQ(kind.init(&spec, order, 8, 0, memory.data(), scratch.data()), moxOk);
      EXPECT_EQ(reinterpret_cast<std::uintptr_t>(spec) % 64, 0u);
      EXPECT_EQ(*reinterpret_cast<Mox32s*>(spec), kind.id);
      int bufSize = -1;
      ASSERT_EQ(kind.getBufSize(spec, &bufSize), moxOk);
      EXPECT_EQ(bufSize, sizes.work);

      auto here = test::Random().vector<typename T::F>(T::numbers(n)), there = here;
      EXPECT_EQ(T::runInPlace(true, here.data(), n, spec, work.data()), moxOk);
      EXPECT_EQ(T::runInPlace(true, there.data(), n, test::Fft(kind, order, 8), nullptr), moxOk);
      EXPECT_EQ(here, there);
    }
}

// Every function refuses the objects of every other kind, the same layout or not, before it looks
// at the data.
TYPED_TEST(FftObjectOf, KindsAreToldApart) {
  using T = TypeParam;
  for (const Kind& other : kinds) {
    if (other.id == T::kind.id) continue;
    MoxsFFTSpec* spec = nullptr;
    ASSERT_EQ(other.initAlloc(&spec, 3, 8, 0), moxOk);
    int size = -1;
    EXPECT_EQ(T::kind.getBufSize(spec, &size), moxErrContext);
    EXPECT_EQ(size, -1);
    for (const bool forward : {true, false}) {
      EXPECT_EQ(T::run(forward, nullptr, nullptr, 0, spec, nullptr), moxErrContext);
      EXPECT_EQ(T::runInPlace(forward, nullptr, 0, spec, nullptr), moxErrContext);
    }
    EXPECT_EQ(T::kind.free(spec), moxErrContext);
    EXPECT_EQ(other.free(spec), moxOk);
  }
}

}  // namespace
