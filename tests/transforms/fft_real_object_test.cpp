// Objects of the real FFT: sizes, set-up in the caller's memory, refusals, and failed allocations.
#include <gtest/gtest.h>

#include <cstring>

#include "support/core_probe.h"
#include "support/guarded_array.h"
#include "support/random.h"
#include "transforms/fft_real_api.h"

namespace {

using test::RealFft;
using test::RealSpec;

long up64(long x) { return x / 64 * 64; }
long even128(long x) { return x / 128 * 128; }

struct Sizes {
  long spec, init, work;
};

// Bytes of complex tables and of work area on the large path, of which `part` is the size of a
// real.
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

Sizes realSizes(long part, int order) {
  const bool single = part == 4;
  if (order <= 4) return {single ? 152 : 160, 0, 0};
  const long n = 1L << order, half = n / 2, pair = 2 * part;
  const int complexOrder = order - 1;
  Sizes sizes{0, 0, 0};
  if (complexOrder >= (single ? 19 : 18))
    sizes = largeSizes(part, complexOrder);
  else if (order >= 8)
    sizes = {up64(pair * half + 63 + pair) + up64(half + 67), 0, up64(pair * half + 63)};
  sizes.spec += even128(order >= 18 ? n / (single ? 256 : 64) + 16510 : part * n + 126) + 192;
  sizes.init = order < 11 ? 0 : (single ? up64(n + 67) : up64(2 * n + 71)) + 64;
  if (sizes.work > 0) sizes.work += 64;
  return sizes;
}

template <class F>
struct RealFftObject : testing::Test {};
using FloatTypes = testing::Types<Mox32f, Mox64f>;
TYPED_TEST_SUITE(RealFftObject, FloatTypes);

TYPED_TEST(RealFftObject, SizesAreTheDocumentedFigures) {
  using Fft = RealFft<TypeParam>;
  for (int order = 0; order <= Fft::maxOrder; ++order)
    for (const int flag : {1, 2, 4, 8}) {
      int spec = -1, init = -1, work = -1;
      ASSERT_EQ(Fft::getSize(order, flag, 0, &spec, &init, &work), moxOk);
      const Sizes expected = realSizes(sizeof(TypeParam), order);
      EXPECT_EQ(spec, expected.spec) << "order " << order;
      EXPECT_EQ(init, expected.init) << "order " << order;
      EXPECT_EQ(work, expected.work) << "order " << order;
    }
}

TYPED_TEST(RealFftObject, SizeQueriesRefuseInOrder) {
  using Fft = RealFft<TypeParam>;
  int spec = -1, init = -1, work = -1;
  const auto query = [&](int order, int flag) {
    return Fft::getSize(order, flag, 0, &spec, &init, &work);
  };
  for (const int order : {31, -1, std::numeric_limits<int>::min()}) {
    EXPECT_EQ(query(order, 8), moxErrFftOrder);
    EXPECT_EQ(Fft::getSize(order, 8, 0, nullptr, &init, &work), moxErrFftOrder);
  }
  EXPECT_EQ(Fft::getSize(30, 3, 0, nullptr, &init, &work), moxErrNullPtr);
  EXPECT_EQ(Fft::getSize(30, 3, 0, &spec, nullptr, &work), moxErrNullPtr);
  EXPECT_EQ(Fft::getSize(30, 3, 0, &spec, &init, nullptr), moxErrNullPtr);
  for (const int flag : {0, 3, 16, -8}) EXPECT_EQ(query(30, flag), moxErrFftFlag);
  EXPECT_EQ(query(Fft::maxOrder + 1, 8), moxErrFftOrder);
  EXPECT_EQ(spec & init & work, -1);
}

// At the end of accessible memory, and at the address that costs the most slack.
TYPED_TEST(RealFftObject, FitsItsSizeWhereverItLies) {
  using F = TypeParam;
  using Fft = RealFft<F>;
  test::Random random;
  for (const int order : {0, 4, 5, 7, 8, 9, 10, 11, 12, 13, 17, 18, 19, 20, 21})
    for (const bool atPageEnd : {true, false}) {
      SCOPED_TRACE(testing::Message() << "order " << order << " at the page end: " << atPageEnd);
      const long n = 1L << order;
      int specSize = 0, initSize = 0, workSize = 0;
      ASSERT_EQ(Fft::getSize(order, 8, 0, &specSize, &initSize, &workSize), moxOk);
      const auto place = [&](const test::GuardedBytes& room) {
        auto* p = reinterpret_cast<Mox8u*>(room.data());
        return atPageEnd ? p : p + (64 - reinterpret_cast<std::uintptr_t>(p) % 64) + 1;
      };
      const int slack = atPageEnd ? 0 : 128;
      test::GuardedBytes specRoom(specSize + slack, test::Guard::after);
      test::GuardedBytes initRoom(initSize + slack, test::Guard::after);
      test::GuardedBytes workRoom(workSize + slack, test::Guard::after);
      Mox8u *specMem = place(specRoom), *initBuf = place(initRoom), *buffer = place(workRoom);
      const Mox8u mark[2] = {0x5A, 0xA5};
      if (!atPageEnd) {
        std::memcpy(specMem + specSize, mark, 2);
        std::memcpy(initBuf + initSize, mark, 2);
        std::memcpy(buffer + workSize, mark, 2);
      }

      MoxsFFTSpec* spec = nullptr;
      ASSERT_EQ(Fft::init(&spec, order, 8, 0, specMem, initBuf), moxOk);
      EXPECT_EQ(reinterpret_cast<std::uintptr_t>(spec) % 64, 0u);
      int bufSize = -1;
      ASSERT_EQ(Fft::getBufSize(spec, &bufSize), moxOk);
      EXPECT_EQ(bufSize, workSize);
      const auto x = random.vector<F>(n);
      std::vector<F> in = x, viaAlloc = x;
      ASSERT_EQ(Fft::runs[0].forwardInPlace(in.data(), spec, buffer), moxOk);
      ASSERT_EQ(Fft::runs[0].forwardInPlace(viaAlloc.data(), RealSpec<F>(order), nullptr), moxOk);
      EXPECT_EQ(in, viaAlloc);
      if (!atPageEnd) {
        EXPECT_EQ(std::memcmp(specMem + specSize, mark, 2), 0);
        EXPECT_EQ(std::memcmp(initBuf + initSize, mark, 2), 0);
        EXPECT_EQ(std::memcmp(buffer + workSize, mark, 2), 0);
      }
    }
}

TYPED_TEST(RealFftObject, InitRefusesInOrderAndLeavesTheCallersPointer) {
  using Fft = RealFft<TypeParam>;
  alignas(64) static Mox8u memory[1 << 17], scratch[1 << 16];
  MoxsFFTSpec* const untouched = reinterpret_cast<MoxsFFTSpec*>(memory);
  MoxsFFTSpec* spec = untouched;
  EXPECT_EQ(Fft::init(nullptr, 99, 3, 0, nullptr, nullptr), moxErrNullPtr);
  EXPECT_EQ(Fft::init(&spec, -1, 3, 0, nullptr, nullptr), moxErrFftOrder);
  EXPECT_EQ(Fft::init(&spec, Fft::maxOrder + 1, 3, 0, nullptr, nullptr), moxErrFftOrder);
  EXPECT_EQ(Fft::init(&spec, 11, 3, 0, nullptr, nullptr), moxErrNullPtr);
  EXPECT_EQ(Fft::init(&spec, 11, 3, 0, memory, nullptr), moxErrFftFlag);
  EXPECT_EQ(*reinterpret_cast<Mox32s*>(memory), 0);
  EXPECT_EQ(Fft::init(&spec, 11, 8, 0, memory, nullptr), moxErrNullPtr);
  EXPECT_EQ(spec, untouched);
  EXPECT_EQ(Fft::init(&spec, 10, 8, 0, memory, nullptr), moxOk);
  EXPECT_EQ(Fft::init(&spec, 11, 8, 0, memory, scratch), moxOk);
  EXPECT_EQ(Fft::free(spec), moxOk);
  EXPECT_EQ(Fft::free(spec), moxErrContext);

  spec = nullptr;
  EXPECT_EQ(Fft::initAlloc(nullptr, 99, 3, 0), moxErrNullPtr);
  EXPECT_EQ(Fft::initAlloc(&spec, Fft::maxOrder + 1, 8, 0), moxErrFftOrder);
  EXPECT_EQ(Fft::initAlloc(&spec, 5, 3, 0), moxErrFftFlag);
  EXPECT_EQ(spec, nullptr);
}

TYPED_TEST(RealFftObject, RunsRefuseWrongObjectsBeforeTheyLookAtTheData) {
  using F = TypeParam;
  using Fft = RealFft<F>;
  F data[40] = {1};
  const RealSpec<F> good(4);
  const RealSpec<std::conditional_t<sizeof(F) == 4, Mox64f, Mox32f>> otherPrecision(4);
  alignas(64) Mox8u memory[256];
  MoxsFFTSpec* freed = nullptr;
  ASSERT_EQ(Fft::init(&freed, 4, 8, 0, memory, nullptr), moxOk);
  ASSERT_EQ(Fft::free(freed), moxOk);
  for (const auto& run : Fft::runs)
    for (const auto call : {run.forward, run.inverse}) {
      EXPECT_EQ(call(data, data, nullptr, nullptr), moxErrNullPtr);
      EXPECT_EQ(call(nullptr, nullptr, freed, nullptr), moxErrContext);
      EXPECT_EQ(call(nullptr, data, otherPrecision, nullptr), moxErrContext);
      EXPECT_EQ(call(nullptr, data, good, nullptr), moxErrNullPtr);
      EXPECT_EQ(call(data, nullptr, good, nullptr), moxErrNullPtr);
    }
  EXPECT_EQ(data[0], 1);
  int size = -1;
  EXPECT_EQ(Fft::getBufSize(freed, &size), moxErrContext);
  EXPECT_EQ(Fft::getBufSize(freed, nullptr), moxErrNullPtr);
  EXPECT_EQ(Fft::free(otherPrecision), moxErrContext);
  EXPECT_EQ(Fft::free(nullptr), moxErrNullPtr);
  EXPECT_EQ(size, -1);
}

TYPED_TEST(RealFftObject, FailedAllocationsLeaveNothingBehind) {
  using F = TypeParam;
  using Fft = RealFft<F>;
  CoreProbe probe;
  MoxsFFTSpec* spec = nullptr;
  for (const int nth : {1, 2}) {
    probe.failAllocation(nth);
    EXPECT_EQ(Fft::initAlloc(&spec, 12, 8, 0), moxErrMemAlloc);
    EXPECT_EQ(spec, nullptr);
    EXPECT_EQ(probe.live(), 0);
  }
  ASSERT_EQ(Fft::initAlloc(&spec, 8, 8, 0), moxOk);
  const std::vector<F> x(256, F(2));
  for (const auto& run : Fft::runs)
    for (const bool forward : {true, false}) {
      std::vector<F> src(258, F(2)), dst(258, F(7));
      probe.failAllocation(1);
      EXPECT_EQ((forward ? run.forward : run.inverse)(src.data(), dst.data(), spec, nullptr),
                moxErrMemAlloc);
      EXPECT_EQ(dst, std::vector<F>(258, F(7)));
      probe.failAllocation(1);
      EXPECT_EQ((forward ? run.forwardInPlace : run.inverseInPlace)(src.data(), spec, nullptr),
                moxErrMemAlloc);
      EXPECT_EQ(src, std::vector<F>(258, F(2)));
      EXPECT_EQ(probe.live(), 1);
      const int before = probe.allocations();
      alignas(64) Mox8u buffer[sizeof(F) * 256 + 192];
      EXPECT_EQ((forward ? run.forward : run.inverse)(src.data(), dst.data(), spec, buffer), moxOk);
      EXPECT_EQ(probe.allocations(), before);
    }
  ASSERT_EQ(Fft::free(spec), moxOk);
  EXPECT_EQ(probe.live(), 0);
}

}  // namespace
