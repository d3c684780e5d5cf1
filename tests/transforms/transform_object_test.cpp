// Sizes of the objects of FFTs and DFTs, and what a failed set-up leaves.
#include "transforms/forms.h"

namespace {

using test::Sizes;

Sizes sizesOf(const auto& kind, int size) {
  Sizes sizes = {-1, -1, -1};
  EXPECT_OK(kind.getSize(size, 8, 0, &sizes.spec, &sizes.init, &sizes.work)) << kind.name;
  return sizes;
}

// What complex and real objects take by order, in single and in double precision.
const struct {
  int order;
  Sizes ofComplex, ofReal;
} figures[2][7] = {{{0, {152, 0, 0}, {152, 0, 0}},
                    {6, {152, 0, 0}, {448, 0, 0}},
                    {7, {1472, 0, 1088}, {704, 0, 0}},
                    {18, {2359616, 262272, 2097216}, {1197376, 262272, 1048640}},
                    {19, {2364224, 524416, 262208}, {2378048, 524416, 2097216}},
                    {28, {1078726976, 268435584, 524352}, {540430656, 268435584, 262208}},
                    {29, {}, {1080840512, 536871040, 524352}}},
                   {{0, {160, 0, 0}, {160, 0, 0}},
                    {6, {160, 0, 0}, {704, 0, 0}},
                    {7, {2496, 0, 2112}, {1216, 0, 0}},
                    {17, {2228544, 262272, 2097216}, {2163008, 262272, 1048640}},
                    {18, {2361664, 524416, 262208}, {2249024, 524416, 2097216}},
                    {27, {1078986048, 268435584, 524352}, {541607232, 268435584, 262208}},
                    {28, {}, {1083196736, 536871040, 524352}}}};

TEST(FftObject, SizesAreTheDocumentedFigures) {
  for (const auto& kind : test::fftKinds)
    for (const auto& [order, ofComplex, ofReal] : figures[kind.part == 8])
      if (order <= kind.maxOrder) {
        EXPECT_TRUE(sizesOf(kind, order) == (kind.real ? ofReal : ofComplex))
            << kind.name << " order " << order;
      }
}

// What is refused in the order of arguments is a matter for every function; this is the memory.
TEST(FftObject, AFailedRecordIsCleared) {
  alignas(64) static Mox8u memory[1 << 18], scratch[1 << 16];
  for (const auto& kind : test::fftKinds) {
    MoxsFFTSpec* spec = nullptr;
    for (const auto& [flag, initBuf, status] :
         {std::tuple(3, (Mox8u*)nullptr, moxErrFftFlag), {8, nullptr, moxErrNullPtr}}) {
      memory[0] = 99;
      EXPECT_EQ(kind.init(&spec, 11, flag, 0, memory, initBuf), status);
      EXPECT_TRUE(memory[0] == 0 && spec == nullptr);
    }
    EXPECT_OK(kind.init(&spec, 11, 8, 0, memory, scratch));
    EXPECT_OK(kind.life.free(spec));
    EXPECT_EQ(kind.life.free(spec), moxErrContext);
  }
}

// A small one, one that is an FFT inside, the direct method and in single precision that by chirps.
TEST(DftObject, SizesAreTheDocumentedOnes) {
  for (const auto& kind : test::dftKinds) {
    SCOPED_TRACE(kind.name);
    const int record = kind.part == 4 ? 576 : 584, direct = int(kind.part) * (kind.real ? 47 : 94);
    const Sizes fft = sizesOf(test::fftKinds[&kind - test::dftKinds], 11);
    const Sizes asFft = {record + (fft.spec + 63) / 64 * 64 + 64, fft.init, fft.work};
    EXPECT_TRUE(sizesOf(kind, 16) == (Sizes{record + 64, 0, 0}));
    EXPECT_TRUE(sizesOf(kind, 1 << 11) == asFft);
    EXPECT_EQ(sizesOf(kind, 47).work, (direct + 64 + 63) / 64 * 64 + 64);
    if (kind.part == 4) {
      EXPECT_EQ(sizesOf(kind, 53).work, 1024 + 8 * 128 + 64 + 64);
    }
  }
}

TEST(IntegerFftObject, HasTheSizesOfFloatsAndRoomForTheNumbers) {
  const struct {
    decltype(moxsFFTGetSize_C_16sc)* ours;
    int floats, perNumber, more;
    bool bare;
  } kinds[] = {{moxsFFTGetSize_C_16sc, 0, 8, 0, true},   {moxsFFTGetSize_C_16s, 1, 8, 0, true},
               {moxsFFTGetSize_R_16s, 2, 4, 8, true},    {moxsFFTGetSize_C_32sc, 3, 16, 0, false},
               {moxsFFTGetSize_C_32s, 4, 16, 0, false},  {moxsFFTGetSize_R_32s, 5, 8, 16, false},
               {moxsFFTGetSize_R_16s32s, 2, 4, 8, false}};
  for (const auto& kind : kinds)
    for (int order = 0, top = test::fftKinds[kind.floats].maxOrder; order <= top; ++order) {
      SCOPED_TRACE(testing::Message() << "order " << order);
      Sizes sizes, floats = sizesOf(test::fftKinds[kind.floats], order);
      ASSERT_OK(kind.ours(order, 8, 0, &sizes.spec, &sizes.init, &sizes.work));
      const bool bare = kind.bare && order == 0;
      EXPECT_EQ(sizes.spec, bare ? 116 : floats.spec + 128);
      EXPECT_EQ(sizes.init, floats.init);
      const long area = ((long(kind.perNumber) << order) + kind.more + 63) / 64 * 64;
      const long more = order == top ? 0 : area + (floats.work ? 0 : 64);
      EXPECT_EQ(sizes.work, bare ? 0 : floats.work + more);
    }
}

}  // namespace
