// Sparse FIR and IIR filters, which are defined to the bit.
#include "support/filters.h"

namespace {

using namespace test;

using Positions = std::vector<int>;
using Floats = std::vector<float>;

// A filter of b at p, and of a at q where it is recursive, in memory at an odd address.
struct Sparse {
  Floats taps;  // b, a
  Positions positions;
  int forward, back;

  MoxsFIRSparseState* fir = nullptr;
  MoxsIIRSparseState* iir = nullptr;
  std::vector<Mox8u> memory;

  Sparse(Floats b, Positions p, Floats a = {}, Positions q = {})
      : taps(b), positions(p), forward(int(b.size())), back(int(a.size())) {
    taps.insert(taps.end(), a.begin(), a.end());
    positions.insert(positions.end(), q.begin(), q.end());
  }
  int inputOrder() const { return positions[forward - 1]; }
  int outputOrder() const { return back ? positions.back() : 0; }

  void init(const float* line) {
    int bytes;
    ASSERT_OK(back ? moxsIIRSparseGetStateSize_32f(positions.data(), forward, back, &bytes)
                   : moxsFIRSparseGetStateSize_32f(forward, inputOrder(), &bytes));
    memory.assign(bytes + 1, 0x5A);
    Mox8u* const at = memory.data() + 1;
    ASSERT_OK(
        back ? moxsIIRSparseInit_32f(&iir, taps.data(), positions.data(), forward, back, line, at)
             : moxsFIRSparseInit_32f(&fir, taps.data(), positions.data(), forward, line, at));
  }
  MoxStatus run(const float* src, float* dst, int len) const {
    return back ? moxsIIRSparse_32f(src, dst, len, iir) : moxsFIRSparse_32f(src, dst, len, fir);
  }
  Floats line() const {
    Floats line(inputOrder() + outputOrder() + 1, 99);
    EXPECT_OK(back ? moxsIIRSparseGetDlyLine_32f(iir, line.data())
                   : moxsFIRSparseGetDlyLine_32f(fir, line.data()));
    EXPECT_EQ(line.back(), 99);
    line.pop_back();
    return line;
  }
  void setLine(const float* line) const {
    EXPECT_OK(back ? moxsIIRSparseSetDlyLine_32f(iir, line)
                   : moxsFIRSparseSetDlyLine_32f(fir, line));
  }

  // The definition, on from a delay line, which it moves on.
  Floats model(Floats& line, const Floats& src) const {
    const int in = inputOrder(), out = outputOrder(), len = int(src.size());
    Floats x(line.rend() - in, line.rend()), y(line.rbegin(), line.rbegin() + out);
    x.insert(x.end(), src.begin(), src.end());
    y.resize(out + len);
    for (int i = 0; i < len; ++i) {
      volatile float sum = taps[0] * x[in + i - positions[0]];
      for (int k = 1; k < forward + back; ++k)
        if (k < forward)
          sum = sum + taps[k] * x[in + i - positions[k]];
        else
          sum = sum - taps[k] * y[out + i - positions[k]];
      y[out + i] = sum;
    }
    line.assign(x.rbegin(), x.rbegin() + in);
    line.insert(line.end(), y.rbegin(), y.rbegin() + out);
    return {y.end() - len, y.end()};
  }
};

Positions rising(Random& random, long count, int first, long step) {
  Positions p(count);
  for (int& position : p) position = first, first += int(1 + random.below(step));
  return p;
}

TEST(Sparse, IsTheSumToTheBitHoweverAStreamIsCut) {
  Random random;
  for (int round = 0; round < 300; ++round) {
    SCOPED_TRACE(round);
    const int forward = int(1 + random.below(40)), back = round % 2 ? int(1 + random.below(12)) : 0;
    const long step = round % 5 ? 9 : 130;
    Floats a = random.vector<float>(back);
    for (float& tap : a) tap /= float(back);
    Sparse filter(random.vector<float>(forward),
                  rising(random, forward, int(random.below(3)), step), a,
                  rising(random, back, int(1 + random.below(40)), step));
    const int order = filter.inputOrder() + filter.outputOrder();
    Floats line = random.vector<float>(order);
    filter.init(line.data());
    EXPECT_TRUE(sameBits(filter.line(), line));
    if (round % 7 == 0) {
      line.assign(order, 0);
      filter.setLine(nullptr);
    } else if (round % 7 == 1) {
      line = random.vector<float>(order);
      filter.setLine(line.data());
    }
    Floats src = random.vector<float>(5000);
    src[0] = -0.f;
    const Floats expected = filter.model(line, src);
    const bool inPlace = round % 3 == 0;
    Floats dst = inPlace ? src : Floats(src.size());
    for (const Piece& p : cut(random, 5000, random.below(2) ? 30 : 3000))
      ASSERT_OK(filter.run(inPlace ? &dst[p.at] : &src[p.at], &dst[p.at], p.len));
    ASSERT_TRUE(sameBits(dst, expected));
    ASSERT_TRUE(sameBits(filter.line(), line));
  }
}

TEST(Sparse, RefusesPositionsThatDoNotRise) {
  int bytes;
  Mox8u memory[4096];
  const Floats taps(4, 1);
  MoxsFIRSparseState* fir = nullptr;
  MoxsIIRSparseState* iir = nullptr;
  for (const Positions& p : {Positions{-1, 0, 1, 2},
                             {0, 0, 1, 2},
                             {3, 2, 1, 2},
                             {0, 1, 1, 0},
                             {0, 1, 1, -5},
                             {0, 1, 7, 7}}) {
    if (p[1] != 1) {
      EXPECT_EQ(moxsFIRSparseInit_32f(&fir, &taps[0], &p[0], 2, nullptr, memory),
                moxErrSparseTapPos);
    }
    EXPECT_EQ(moxsIIRSparseGetStateSize_32f(&p[0], 2, 2, &bytes), moxErrSparseTapPos);
    EXPECT_EQ(moxsIIRSparseInit_32f(&iir, &taps[0], &p[0], 2, 2, nullptr, memory),
              moxErrSparseTapPos);
  }
  EXPECT_FALSE(fir || iir);
  EXPECT_EQ(moxsFIRSparseGetStateSize_32f(3, 1, &bytes), moxErrFirLen);
  EXPECT_EQ(moxsFIRSparseGetStateSize_32f(1, -1, &bytes), moxErrFirLen);
  EXPECT_EQ(moxsFIRSparseGetStateSize_32f(2, INT_MAX, &bytes), moxErrSize);
  const int far[] = {INT_MAX, 1};
  EXPECT_EQ(moxsIIRSparseGetStateSize_32f(far, 1, 1, &bytes), moxErrSize);
}

}  // namespace
