#include "iir/iir_api.h"

namespace {

using namespace test;

constexpr std::pair<Shape, int> shapes[] = {
    {Shape::anyOrder, 1},  {Shape::anyOrder, 2},  {Shape::anyOrder, 3},   {Shape::anyOrder, 5},
    {Shape::anyOrder, 20}, {Shape::anyOrder, 64}, {Shape::anyOrder, 128}, {Shape::anyOrder, 129},
    {Shape::cascade, 1},   {Shape::cascade, 2},   {Shape::cascade, 5},    {Shape::cascade, 16}};

template <class F>
class IirRun : public testing::Test {
 protected:
  using D = typename F::Data;
  using Held = typename F::Held;

  // One signal in pieces against the recurrence. Outputs of a stable filter are off by some
  // roundings of the largest number that enters or leaves it; integers by half a unit more.
  void expectSignal(Shape shape, int count, const std::vector<Piece>& pieces) {
    int len = 0;
    for (const auto& p : pieces) len += p.len;
    SCOPED_TRACE(testing::Message()
                 << "count " << count << (shape == Shape::cascade ? " sections" : "") << ", len "
                 << len);
    const auto taps = someTaps<F>(random, shape, count);
    Recurrence exact(shape, taps, count);
    const auto d = random.vector<Held>(long(exact.d.size()));
    std::transform(d.begin(), d.end(), exact.d.begin(), [](auto e) { return exactly(e); });
    const auto state = makeIir<F>(shape, taps, count, d.data());
    const auto src = random.vector<D>(len);
    const auto expected = exact.outputsFor(src);
    std::vector<D> y;
    for (const auto& p : pieces) {
      std::vector<D> got(p.len);
      run<F>(state.get(), p, &src[p.at], p.len, got, 0);
      y.insert(y.end(), got.begin(), got.end());
    }
    long double largest = 1;
    for (const D& x : src) largest = std::max(largest, std::abs(exactly(x)));
    for (const auto& e : expected) largest = std::max(largest, std::abs(e));
    using L = std::numeric_limits<mox::Part<D>>;
    const long double ofHeld =
        (16 + exact.order) * std::numeric_limits<mox::Part<Held>>::epsilon() * largest;
    const long double bound = ofHeld + (L::is_integer ? 0.5L : largest * L::epsilon());
    for (int i = 0; i < len; ++i) {
      const auto off = exactly(y[i]) - inRange<D>(expected[i]);
      ASSERT_LE(std::max(std::abs(off.real()), std::abs(off.imag())), bound) << "output " << i;
    }
    std::vector<Held> kept(d.size());
    ASSERT_OK(F::getDlyLine(state.get(), kept.data()));
    for (std::size_t i = 0; i < kept.size(); ++i)
      ASSERT_LE(std::abs(exactly(kept[i]) - exact.d[i]), ofHeld);
    // A second call in place has the same bits.
    if (pieces.size() > 1) return;
    ASSERT_OK(F::setDlyLine(state.get(), d.data()));
    std::vector<D> again = src;
    ASSERT_OK(F::inPlace(again.data(), len, state.get(), 0));
    ASSERT_TRUE(sameBits(again, y));
  }

  Random random;
};
TYPED_TEST_SUITE(IirRun, AllIirs);

// Lengths about those at which blocks are filtered by stretches: 4, 8 or 16 of them, of at least 8
// samples and at least the order; and about those of 128 samples, at which blocks and pieces end.
TYPED_TEST(IirRun, AboutEveryThreshold) {
  for (const auto& [shape, count] : shapes) {
    const int order = shape == Shape::cascade ? 2 : count;
    std::vector<int> lengths = {1, 2, 3, 4 * order, 4 * order + 1};
    for (const int stretches : {4, 8, 16})
      for (const int block : {std::max(8, order), 128})
        for (const int more : {-1, 0, 1, stretches + 3})
          lengths.push_back(order + stretches * block + more);
    for (const int len : lengths) this->expectSignal(shape, count, {{Way::block, len}});
  }
}

TYPED_TEST(IirRun, InAnyPieces) {
  for (const auto& [shape, count] :
       {std::pair{Shape::anyOrder, 2}, {Shape::anyOrder, 7}, {Shape::cascade, 3}})
    for (const int longest : {150, 3000})
      this->expectSignal(shape, count, cut(this->random, 6000, longest));
}

// The error of blocks beside that of single steps, for pairs of poles close to the unit circle: one
// pair in a section, two in a filter of order 4.
template <class F>
void expectSmallErrorGrowth(Shape shape, double radius, double angle) {
  const int pairs = shape == Shape::cascade ? 1 : 2, order = 2 * pairs;
  const int count = shape == Shape::cascade ? 1 : order;
  std::vector<typename F::Tap> taps(2 * order + 2, 0.5);
  taps[order + 1] = 1;
  std::fill(taps.begin() + order + 2, taps.end(), 0);
  for (int pair = 0; pair < pairs; ++pair)
    for (int k = order; k >= 1; --k) {
      auto* a = &taps[order + 1];
      a[k] -= 2 * radius * std::cos(angle + 0.4 * pair) * a[k - 1];
      if (k >= 2) a[k] += radius * radius * a[k - 2];
    }
  Random random(2);
  const auto src = random.vector<typename F::Data>(20000);
  Recurrence exact(shape, taps, count);
  const auto blocks = makeIir<F>(shape, taps, count), steps = makeIir<F>(shape, taps, count);
  auto y = src;
  ASSERT_OK(F::inPlace(y.data(), int(y.size()), blocks.get(), 0));
  long double ofBlocks = 0, ofSteps = 0;
  for (std::size_t i = 0; i < src.size(); ++i) {
    typename F::Data one;
    ASSERT_OK(F::one(src[i], &one, steps.get(), 0));
    const long double expected = exact(src[i]).real();
    ofBlocks = std::max(ofBlocks, std::abs(y[i] - expected));
    ofSteps = std::max(ofSteps, std::abs(one - expected));
  }
  EXPECT_LE(ofBlocks, 3 * ofSteps) << "radius " << radius << ", angle " << angle;
}

TEST(IirRun, ErrorsOfBlocksStayNearThoseOfSingleSteps) {
  for (const double radius : {0.9, 0.99, 0.999, 0.9999})
    for (const double angle : {0.01, 0.1, 1.0, 2.0, 3.0}) {
      expectSmallErrorGrowth<Iir32f>(Shape::cascade, radius, angle);
      expectSmallErrorGrowth<Iir64f>(Shape::cascade, radius, angle);
      expectSmallErrorGrowth<Iir32f>(Shape::anyOrder, radius, angle);
      expectSmallErrorGrowth<Iir64f>(Shape::anyOrder, radius, angle);
    }
}

// Filters that grow: no infinity may meet a zero of a silent input.
TEST(IirRun, UnstableFiltersAreSilentOnSilence) {
  for (const Mox32f a : {-1.05f, -2.0f, 1e6f, -1e30f}) {
    const auto state = makeIir<Iir32f>(Shape::anyOrder, {1, 0, 0, 1, a, 0}, 2);
    std::vector<Mox32f> x(3000);
    ASSERT_OK(moxsIIR_32f_I(x.data(), 3000, state.get()));
    EXPECT_TRUE(std::ranges::all_of(x, [](Mox32f v) { return v == 0; })) << a;
  }
}

TYPED_SUITE(IirInteger, Iir32f16s, Iir32fc16sc, Iir64f16s, Iir64fc16sc, Iir64f32s, Iir64fc32sc);
TYPED_TEST(IirInteger, ScalesRoundsToEvenAndSaturates) {
  using Tap = typename TypeParam::Tap;
  const Tap unit = one<Tap>();
  const std::vector<Tap> taps = {unit, {}, {}, unit, {}, {}};
  expectScaledOutputs<TypeParam>(makeIir<TypeParam>(Shape::cascade, taps, 1).get());
}

}  // namespace
