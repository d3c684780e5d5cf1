// Sizes of the objects of FFTs and DFTs, and what a failed set-up leaves.
#include "transforms/forms.h"

namespace {

using test::Sizes;

template <class Kind>
MoxStatus status(const Kind& kind, int size, Sizes& sizes) {
  return kind.getSize(size, 8, 0, &sizes.spec, &sizes.init, &sizes.work);
}
template <class Kind>
Sizes sizesOf(const Kind& kind, int size) {
  Sizes sizes = {-1, -1, -1};
  EXPECT_EQ(status(kind, size, sizes), moxOk) << kind.name << ' ' << size;
  return sizes;
}

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

TEST(FftObject, SizesAreTheDocumentedFigures) {
  for (const test::FftKind& kind : test::fftKinds)
    for (const auto& row : figures) {
      SCOPED_TRACE(testing::Message() << kind.name << " order " << row.order);
      if (row.order > kind.maxOrder) continue;
      const Sizes& expected = kind.part == 4 ? kind.real ? row.realFloat : row.complexFloat
                              : kind.real    ? row.realDouble
                                             : row.complexDouble;
      EXPECT_TRUE(sizesOf(kind, row.order) == expected);
    }
}

// What is refused in the order of arguments is a matter for every function; this is the memory.
TEST(FftObject, AFailedRecordIsCleared) {
  alignas(64) static Mox8u memory[1 << 18], scratch[1 << 16];
  for (const test::FftKind& kind : test::fftKinds) {
    MoxsFFTSpec* spec = nullptr;
    const auto headAfter = [&](int flag, Mox8u* initBuf, MoxStatus expected) {
      memory[0] = 99;
      EXPECT_EQ(kind.init(&spec, 11, flag, 0, memory, initBuf), expected);
      return *reinterpret_cast<Mox32s*>(memory);
    };
    EXPECT_EQ(headAfter(3, nullptr, moxErrFftFlag), 0);
    EXPECT_EQ(headAfter(8, nullptr, moxErrNullPtr), 0);
    EXPECT_EQ(spec, nullptr);
    EXPECT_EQ(headAfter(8, scratch, moxOk), kind.id);
    EXPECT_EQ(kind.life.free(spec), moxOk);
    EXPECT_EQ(kind.life.free(spec), moxErrContext);
  }
}

TEST(DftObject, SizesAreTheDocumentedOnes) {
  for (const test::DftKind& kind : test::dftKinds) {
    SCOPED_TRACE(kind.name);
    const int record = kind.part == 4 ? 576 : 584;
    for (int n = 1; n <= 16; ++n) EXPECT_TRUE(sizesOf(kind, n) == (Sizes{record + 64, 0, 0}));
    for (int order = 5; order <= kind.maxOrder; order += 3) {
      const Sizes fft = sizesOf(test::fftKinds[&kind - test::dftKinds], order);
      const int spec = record + (fft.spec + 63) / 64 * 64 + 64;
      EXPECT_TRUE(sizesOf(kind, 1 << order) == (Sizes{spec, fft.init, fft.work}));
    }
    Sizes sizes;
    EXPECT_EQ(status(kind, 1 << kind.maxOrder, sizes), moxOk);
    EXPECT_EQ(status(kind, 1 << 30, sizes), moxErrFftOrder);
    EXPECT_EQ(status(kind, (kind.part == 4 ? 0x7FFFFFF : 0x3FFFFFF) + 2, sizes), moxErrSize);
    EXPECT_EQ(status(kind, INT_MAX, sizes), moxErrSize);
    // The direct method, and in single precision the chirp method of 53.
    const int parts = kind.real ? 1 : 2, direct = int(kind.part) * parts * 47;
    EXPECT_EQ(sizesOf(kind, 47).work, (direct + 64 + 63) / 64 * 64 + 64);
    const int chirp = sizesOf(kind, 53).work;
    EXPECT_TRUE(kind.part == 8 || chirp == 1024 + 8 * 128 + 64 + 64) << chirp;
  }
}

TEST(IntegerDftObject, HasRoomForTheNumbersAsFloats) {
  const test::Life<MoxsDFTSpec> ours[] = {TRANSFORM_LIFE(DFT, C_16sc), TRANSFORM_LIFE(DFT, C_16s),
                                          TRANSFORM_LIFE(DFT, R_16s)};
  for (int i = 0; i < 3; ++i)
    for (const int n : {1, 16, 17, 47, 53, 64, 81, 360, 1009}) {
      const test::Object integers(ours[i], n, 8), floats(test::dftKinds[i].life, n, 8);
      EXPECT_EQ(integers.bytes(), floats.bytes() + (i < 2 ? 8 : 4) * n + 64) << i << ' ' << n;
    }
}

TEST(IntegerFftObject, HasTheSizesOfFloatsAndRoomForTheNumbers) {
  const struct {
    decltype(moxsFFTGetSize_C_16sc)*ours, *ofFloats;
    int top, perNumber, more;
    bool bare;
  } kinds[] = {{moxsFFTGetSize_C_16sc, moxsFFTGetSize_C_32fc, 28, 8, 0, true},
               {moxsFFTGetSize_C_16s, moxsFFTGetSize_C_32f, 28, 8, 0, true},
               {moxsFFTGetSize_R_16s, moxsFFTGetSize_R_32f, 29, 4, 8, true},
               {moxsFFTGetSize_C_32sc, moxsFFTGetSize_C_64fc, 27, 16, 0, false},
               {moxsFFTGetSize_C_32s, moxsFFTGetSize_C_64f, 27, 16, 0, false},
               {moxsFFTGetSize_R_32s, moxsFFTGetSize_R_64f, 28, 8, 16, false},
               {moxsFFTGetSize_R_16s32s, moxsFFTGetSize_R_32f, 29, 4, 8, false}};
  for (const auto& kind : kinds)
    for (int order = 0; order <= kind.top; ++order) {
      SCOPED_TRACE(testing::Message() << "order " << order);
      int spec, init, work, floatSpec, floatInit, floatWork;
      ASSERT_EQ(kind.ours(order, 8, 0, &spec, &init, &work), moxOk);
      ASSERT_EQ(kind.ofFloats(order, 8, 0, &floatSpec, &floatInit, &floatWork), moxOk);
      const bool bare = kind.bare && order == 0;
      EXPECT_EQ(spec, bare ? 116 : floatSpec + 128);
      EXPECT_EQ(init, floatInit);
      const long area = ((long(kind.perNumber) << order) + kind.more + 63) / 64 * 64;
      EXPECT_EQ(work, bare                ? 0
                      : order == kind.top ? floatWork
                                          : floatWork + area + (floatWork ? 0 : 64));
    }
}

}  // namespace
