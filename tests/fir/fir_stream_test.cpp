// Filters without delay line.
#include "fir/fir_model.h"

namespace {

using namespace test;

// A stream reads its history from the array, and nothing more. make() sets the state up.
template <class F>
void expectStream(Random& random, Model<F>& model, const Rates& r, int n, int len, int scale,
                  auto make) {
  using D = typename F::Data;
  const int history = r.history(n) - (r.downPhase >= r.upPhase);
  const GuardedArray<D> src(len * r.down + history), dst(len * r.up);
  for (auto& x : src) x = random.value<D>();
  MoxsFIRState* s = nullptr;
  ASSERT_OK(make(&s));
  ASSERT_OK(F::run(src.data(), dst.data(), len, s, scale));
  const Signal<D> x = {
      {std::reverse_iterator(src.begin() + history), std::reverse_iterator(src.begin())},
      {src.begin() + history, src.end()}};
  model.expectOutputs(x, r, scale, {dst.begin(), dst.end()});
  EXPECT_EQ(F::run(dst.data(), dst.data(), 1, s, scale), moxErrContext);
  EXPECT_EQ(F::inPlace(dst.data(), 1, s, scale), moxErrContext);
  EXPECT_OK(F::free(s));
}

TEST(FirStream, OfFloats) {
  Random random(8);
  for (const Rates& r :
       {Rates{}, {1, 0, 4, 3}, {3, 0, 2, 0}, {3, 2, 2, 0}, {5, 4, 5, 0}, {40, 39, 3, 0}})
    for (const int n : {1, 3, 4, 7, 16, 64, 70, 1600})  // the last needs more room than a chunk
      for (const int len : {1, 4, 7, 100, 800}) {
        const auto taps = random.vector<Mox32f>(n);
        Model<Fir32f> model(taps, 0);
        expectStream(random, model, r, n, len, 0, [&](MoxsFIRState** s) {
          return r.areSingle() ? moxsFIRStreamInitAlloc_32f(s, taps.data(), n)
                               : moxsFIRMRStreamInitAlloc_32f(s, taps.data(), n, r.up, r.upPhase,
                                                              r.down, r.downPhase);
        });
      }
}

TEST(FirStream, OfWordsInAllRoundings) {
  Random random(12);
  for (const Rates& r : {Rates{}, {2, 0, 5, 0}, {3, 2, 2, 0}})
    for (const int n : {1, 2, 16, 33, 64})
      for (long shift = -33; shift <= 33; shift += 3)
        for (int mode = 0; mode < 3; ++mode) {
          const auto taps = random.vector<Mox16s>(n);
          Model<Fir16s> model(taps, 4);
          model.rule = Rule(mode);
          int size = 0;
          ASSERT_OK(r.areSingle() ? moxsFIRStreamGetStateSize_16s(n, &size)
                                  : moxsFIRMRStreamGetStateSize_16s(n, r.up, r.down, &size));
          const int slack = int(random.below(16));
          const GuardedArray<Mox8u> memory(size + slack);
          expectStream(random, model, r, n, 1 + int(random.below(600)), model.scaleFor(shift),
                       [&](MoxsFIRState** s) {
                         Mox8u* const buffer = memory.data() + slack;
                         return r.areSingle()
                                    ? moxsFIRStreamInit_16s(s, taps.data(), n, 4, mode, buffer)
                                    : moxsFIRMRStreamInit_16s(s, taps.data(), n, 4, r.up, r.upPhase,
                                                              r.down, r.downPhase, mode, buffer);
                       });
        }
}

}  // namespace
