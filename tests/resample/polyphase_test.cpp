// Resampling against the sums that define it, in long double.
#include <numeric>

#include "support/test.h"
#include "support/windows.h"

namespace {

using test::pi;
using Real = long double;

constexpr int margin = 400, len = 700;
constexpr float rollf = 0.9f, norm = 0.8f;

// A wing of the response, its last point repeated, which is interpolated for each sample. Positions
// of a fixed ratio meet points.
class Model {
 public:
  Model(long points, long step, Real alpha, double factor)
      : step_(step), factor_(factor), h_(points + 1) {
    h_[0] = rollf;
    Real sum = rollf;
    for (long i = 1; i < points; ++i) {
      const Real x = pi * i / step, u = Real(i) / (points - 1);
      h_[i] = std::sin(rollf * x) / x / std::cyl_bessel_i(0.0L, alpha) *
              std::cyl_bessel_i(0.0L, alpha * std::sqrt(std::max(1 - u * u, Real(0))));
      if (i % step == 0) sum += 2 * h_[i];
    }
    for (Real& e : h_) e /= sum;
    h_[points] = h_[points - 1];
  }

  double factor() const { return factor_; }

  // The output at position t of x.
  template <class Data>
  Real output(const Data* x, double t) const {
    const double whole = std::floor(t), f = t - whole, points = std::min(factor_, 1.0) * step_;
    const long last = long(h_.size()) - 1;
    Real sum = 0;
    for (const bool future : {false, true})
      for (long j = 0;; ++j) {
        const double start = (future ? 1 - f : f) * points;
        const double base = factor_ < 1 ? start + double(j) * points : start;
        long p = long(base + (factor_ < 1 ? 1e-9 : 1e-5));
        const Real d = base - double(p);
        if (factor_ >= 1) p += j * step_;
        if (p >= last) break;
        sum += (h_[p] * (1 - d) + h_[p + 1] * d) * x[long(whole) + (future ? 1 + j : -j)];
      }
    return sum * std::min(factor_, 1.0) * norm;
  }

 private:
  long step_;
  double factor_;
  std::vector<Real> h_;
};

// An object that init(state) makes.
template <class State>
class Object {
 public:
  Object(int size, auto init) : bytes_(size) { EXPECT_OK(init(state())); }
  State* state() { return reinterpret_cast<State*>(bytes_.data()); }

 private:
  std::vector<Mox8u> bytes_;
};

template <class Data>
struct Api;
#define RESAMPLE_API(type)                                                   \
  template <>                                                                \
  struct Api<Mox##type> {                                                    \
    static constexpr auto resample = moxsResamplePolyphase_##type;           \
    static constexpr auto fixedInit = moxsResamplePolyphaseFixedInit_##type; \
    static constexpr auto fixed = moxsResamplePolyphaseFixed_##type;         \
    static constexpr auto get = moxsResamplePolyphaseGetFixedFilter_##type;  \
    static constexpr auto set = moxsResamplePolyphaseSetFixedFilter_##type;  \
  }
RESAMPLE_API(32f);
RESAMPLE_API(16s);

auto variable(float window, int step, float alpha) {
  int size = 0;
  EXPECT_OK(moxsResamplePolyphaseGetSize_32f(window, step, &size, 0));
  return Object<MoxsResamplePolyphaseState>(size, [=](auto* state) {
    return moxsResamplePolyphaseInit_32f(window, step, rollf, alpha, state, 0);
  });
}

template <class Data>
auto fixed(int in, int out, int taps, float alpha, int hint) {
  int size = 0, filterLen = 0, filters = 0;
  EXPECT_OK(
      moxsResamplePolyphaseFixedGetSize_32f(in, out, taps, &size, &filterLen, &filters, hint));
  EXPECT_EQ(filterLen, (taps + 3) / 4 * 4);
  EXPECT_EQ(filters, out / std::gcd(in, out));
  return Object<MoxsResamplePolyphaseFixedState>(size, [=](auto* state) {
    return Api<Data>::fixedInit(in, out, taps, rollf, alpha, state, hint);
  });
}

// The outputs of a signal in one block, or in random ones: `src` moves on by whole samples.
template <class Data, class Resample>
std::vector<Data> outputs(const std::vector<Data>& x, double time, test::Random* cuts,
                          Resample resample) {
  std::vector<Data> y(8 * len);
  long from = 0, made = 0;
  while (from < len) {
    const long block = cuts ? std::min(1 + cuts->below(90), len - from) : len;
    int count = 0;
    EXPECT_OK(resample(&x[margin + from], int(block), &y[made], &time, &count));
    const long whole = long(time + 1e-9);
    made += count, from += whole, time -= double(whole);
  }
  y.resize(made);
  return y;
}

// Each output is within the tolerance of the model, and that of blocks within another of it.
template <class Data, class Resample>
void expectModel(const Model& model, double start, double tolerance, double ofBlocks,
                 Resample resample) {
  test::Random random;
  const auto x = random.vector<Data>(len + 2 * margin);
  const auto whole = outputs(x, start, nullptr, resample),
             cut = outputs(x, start, &random, resample);
  using Limits = std::numeric_limits<Data>;
  ASSERT_EQ(whole.size(), std::size_t(std::ceil((len - start) * model.factor() - 1e-9)));
  for (std::size_t k = 0; k < std::min(whole.size(), cut.size()); ++k) {
    const Real exact = model.output(&x[margin], start + double(k) / model.factor());
    ASSERT_NEAR(whole[k], std::clamp<Real>(exact, Limits::lowest(), Limits::max()), tolerance) << k;
    ASSERT_NEAR(cut[k], whole[k], ofBlocks) << k;
  }
}

TEST(ResamplePolyphase, IsTheSumOfItsInterpolatedTable) {
  for (const double factor : {1.0, 160.0 / 147, 2.5, 7.0, 0.5, 147.0 / 160, 0.083})
    for (const auto& [window, step, alpha] :
         {std::tuple(24.0f, 32, 6.0f), {7.3f, 5, 1.0f}, {0.4f, 5, 2.0f}, {40.0f, 100, 30.0f}}) {
      SCOPED_TRACE(testing::Message() << "by " << factor << ", step " << step);
      auto filter = variable(window, step, alpha);
      const Model model(long(window * 0.5f * float(step)) + 1, step, alpha, factor);
      const auto resample = [&](auto* src, int n, auto* dst, auto* time, int* count) {
        using Data = std::remove_pointer_t<decltype(dst)>;
        return Api<Data>::resample(src, n, dst, factor, norm, time, count, filter.state());
      };
      expectModel<Mox32f>(model, 0.3, 2e-6, 1e-6, resample);
      expectModel<Mox16s>(model, 0.3, 0.51 + 0.05 * step / 100, 1, resample);
    }
}

// Blocks give the same bits. The taps of 16-bit filters are rounded.
TEST(ResamplePolyphaseFixed, IsADotProductWithTheFilterOfThePhase) {
  constexpr float alpha = 7;
  for (const int hint : {moxHintFast, moxHintAccurate})
    for (const auto& [in, out] : {std::pair(44100, 48000), {48000, 44100}, {3, 1}, {1, 6}, {5, 5}})
      for (const int taps : {3, 40, 64}) {
        SCOPED_TRACE(testing::Message() << in << " to " << out << ", " << taps << " taps");
        const int common = std::gcd(in, out), a = in / common, b = out / common;
        const Model model((taps + 3) / 4 * 2 * b + 1, std::max(a, b), alpha, double(b) / a);
        const auto expect = [&, in = in, out = out]<class Data>(Data, double tolerance) {
          auto filter = fixed<Data>(in, out, taps, alpha, hint);
          expectModel<Data>(model, double(std::min(1, b - 1)) / b, tolerance, 0,
                            [&](auto* src, int n, auto* dst, auto* time, int* count) {
                              return Api<Data>::fixed(src, n, dst, norm, time, count,
                                                      filter.state());
                            });
        };
        expect(Mox32f(), 3e-6);
        expect(Mox16s(), 8);
      }
}

// Whole numbers whose products are floats, and whose sums are not. Time goes on from the sample
// where it was.
template <class Data>
void expectFilters() {
  constexpr bool isInteger = std::is_integral_v<Data>;
  constexpr int half = 32, row = 2 * half + 4, first = 2;
  auto filter = fixed<Data>(2, 3, 2 * half, 5, moxHintAccurate);
  test::Random random;
  std::vector<Data> rows(3 * row), again(rows), x(2 * margin), y(100);
  for (Data& e : rows) e = Data(random.below(128) - 64);
  for (Data& e : x) e = Data(random.below(1 << 18) - (1 << 17));
  ASSERT_OK(Api<Data>::set(rows.data(), row, 3, filter.state()));
  ASSERT_OK(Api<Data>::get(again.data(), row, 3, filter.state()));
  EXPECT_EQ(again, rows);
  double time = first;
  int count;
  ASSERT_OK(Api<Data>::fixed(&x[margin - first], 40, y.data(), 1, &time, &count, filter.state()));
  EXPECT_NEAR(time, count * 2 / 3.0, 1e-9);
  for (int k = 0; k < count; ++k) {
    const int sample = 2 * k / 3, phase = 2 * k % 3, isWhole = phase == 0;
    double sum = 0;
    for (int j = 0; j < 2 * half + isWhole; ++j)
      sum += double(rows[phase * row + j]) * x[margin + sample - half + 1 - isWhole + j];
    EXPECT_EQ(y[k], Data(isInteger ? std::nearbyint(sum * 0x1p-15) : sum)) << k;
  }
}

TEST(ResamplePolyphaseFixed, SumsInDoubleOverTheFiltersItIsGiven) {
  expectFilters<Mox32f>();
  expectFilters<Mox16s>();
}

}  // namespace
