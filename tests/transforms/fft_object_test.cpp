// Objects of the six kinds of FFT: sizes, set-up in the caller's memory and in the library's.
#include <gtest/gtest.h>

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
  int spec, init, work;
};

// What objects take by order: complex and real ones, in single and in double precision.
const struct {
  int order;
  Sizes complexFloat, realFloat, complexDouble, realDouble;
} figures[] = {
    {0, {152, 0, 0}, {152, 0, 0}, {160, 0, 0}, {160, 0, 0}},
    {4, {152, 0, 0}, {152, 0, 0}, {160, 0, 0}, {160, 0, 0}},
    {5, {152, 0, 0}, {320, 0, 0}, {160, 0, 0}, {448, 0, 0}},
    {6, {152, 0, 0}, {448, 0, 0}, {160, 0, 0}, {704, 0, 0}},
    {7, {1472, 0, 1088}, {704, 0, 0}, {2496, 0, 2112}, {1216, 0, 0}},
    {11, {18752, 2176, 16448}, {17728, 2176, 8256}, {35136, 4224, 32832}, {34112, 4224, 16448}},
    {12, {37184, 4224, 32832}, {35136, 4224, 16448}, {69952, 8320, 65600}, {67904, 8320, 32832}},
    {17,
     {1179968, 131200, 1048640},
     {1114432, 131200, 524352},
     {2228544, 262272, 2097216},
     {2163008, 262272, 1048640}},
    {18,
     {2359616, 262272, 2097216},
     {1197376, 262272, 1048640},
     {2361664, 524416, 262208},
     {2249024, 524416, 2097216}},
    {19,
     {2364224, 524416, 262208},
     {2378048, 524416, 2097216},
     {4721984, 1048704, 524352},
     {2386240, 1048704, 262208}},
    {20,
     {4724032, 1048704, 524352},
     {2384704, 1048704, 262208},
     {9442624, 2097280, 1048640},
     {4754752, 2097280, 524352}},
    {23,
     {33829184, 8388736, 262208},
     {18932032, 8388736, 2097216},
     {67667264, 16777344, 524352},
     {33981760, 16777344, 262208}},
    {27,
     {539365696, 134217856, 262208},
     {271143232, 134217856, 2097216},
     {1078986048, 268435584, 524352},
     {541607232, 268435584, 262208}},
    {28,
     {1078726976, 268435584, 524352},
     {540430656, 268435584, 262208},
     {0, 0, 0},
     {1083196736, 536871040, 524352}},
    {29, {0, 0, 0}, {1080840512, 536871040, 524352}, {0, 0, 0}, {0, 0, 0}},
};

const Sizes& sizesOf(const Kind& kind, const auto& row) {
  if (kind.part == 4) return kind.real ? row.realFloat : row.complexFloat;
  return kind.real ? row.realDouble : row.complexDouble;
}

class FftObject : public testing::TestWithParam<Kind> {};
INSTANTIATE_TEST_SUITE_P(, FftObject, testing::ValuesIn(kinds), testing::PrintToStringParamName());

TEST_P(FftObject, SizesAreTheDocumentedFigures) {
  const Kind& kind = GetParam();
  for (const auto& row : figures)
    for (const int flag : {1, 2, 4, 8}) {
      const Sizes& expected = sizesOf(kind, row);
      Sizes got = {-1, -1, -1};
      const MoxStatus status = kind.getSize(row.order, flag, 0, &got.spec, &got.init, &got.work);
      if (row.order > kind.maxOrder) {
        EXPECT_EQ(status, moxErrFftOrder);
        continue;
      }
      ASSERT_EQ(status, moxOk) << "order " << row.order;
      EXPECT_EQ(got.spec, expected.spec) << "order " << row.order;
      EXPECT_EQ(got.init, expected.init) << "order " << row.order;
      EXPECT_EQ(got.work, expected.work) << "order " << row.order;
    }
}

// What is refused in the order of arguments is a matter for every function; this is the memory.
TEST_P(FftObject, AFailedRecordIsCleared) {
  const Kind& kind = GetParam();
  alignas(64) static Mox8u memory[1 << 18], scratch[1 << 16];
  MoxsFFTSpec* spec = nullptr;
  const auto headAfter = [&](int flag, Mox8u* initBuf, MoxStatus status) {
    memory[0] = 99;
    EXPECT_EQ(kind.init(&spec, 11, flag, 0, memory, initBuf), status);
    return *reinterpret_cast<Mox32s*>(memory);
  };
  EXPECT_EQ(headAfter(3, nullptr, moxErrFftFlag), 0);
  EXPECT_EQ(headAfter(8, nullptr, moxErrNullPtr), 0);
  EXPECT_EQ(spec, nullptr);
  EXPECT_EQ(headAfter(8, scratch, moxOk), kind.id);
  EXPECT_EQ(kind.free(spec), moxOk);
  EXPECT_EQ(kind.free(spec), moxErrContext);
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
      Sizes sizes;
      ASSERT_EQ(kind.getSize(order, 8, 0, &sizes.spec, &sizes.init, &sizes.work), moxOk);
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

}  // namespace
