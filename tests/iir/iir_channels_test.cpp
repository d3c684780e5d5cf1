#include "iir/iir_api.h"

namespace {

using namespace test;

// Channels with states, samples and the pointers to them.
template <class F>
struct Channels {
  std::vector<IirHandle> owners;
  std::vector<MoxsIIRState*> states;
  std::vector<std::vector<typename F::Data>> x;
  std::vector<typename F::Data*> rows;

  Channels(int count, int len, int seed, auto makeState) : x(std::size_t(count)) {
    Random random(seed);
    for (int c = 0; c < count; ++c) {
      owners.push_back(makeState(random, c));
      states.push_back(owners.back().get());
      x[std::size_t(c)] = random.vector<typename F::Data>(len);
      rows.push_back(x[std::size_t(c)].data());
    }
  }
};

// Channels, also side by side, get what each gets on its own, but for rounding.
TEST(IirChannels, GetWhatEachGetsAlone) {
  using F = Iir32f;
  for (const Shape shape : {Shape::cascade, Shape::anyOrder})
    for (const int count : {1, 2, 5, 6, 7, 16, 17, 40})
      for (const int len : {1, 9, 10, 133, 300}) {
        const auto make = [=](Random& random, int c) {
          return makeIir<F>(shape, someTaps<F>(random, shape, c / 16 + 3), c / 16 + 3);
        };
        Channels<F> together(count, len, 1, make), alone(count, len, 1, make);
        for (int call = 0; call < 2; ++call) {
          ASSERT_OK(moxsIIR_32f_IP(together.rows.data(), len, count, together.states.data()));
          for (int c = 0; c < count; ++c) {
            ASSERT_OK(moxsIIR_32f_I(alone.rows[c], len, alone.states[c]));
            for (int i = 0; i < len; ++i) ASSERT_NEAR(together.x[c][i], alone.x[c][i], 1e-5) << c;
          }
        }
      }
}

TEST(IirChannels, ScaleIntegersEachByItsFactor) {
  using F = Iir64f32s;
  const auto make = [](Random& random, int) {
    return makeIir<F>(Shape::cascade, someTaps<F>(random, Shape::cascade, 2), 2);
  };
  Channels<F> together(3, 500, 2, make), alone(3, 500, 2, make);
  const int factors[] = {0, 3, 40};
  ASSERT_OK(moxsIIR64f_32s_IPSfs(together.rows.data(), 500, 3, together.states.data(), factors));
  for (int c = 0; c < 3; ++c)
    ASSERT_OK(moxsIIR64f_32s_ISfs(alone.rows[c], 500, alone.states[c], factors[c]));
  EXPECT_EQ(together.x, alone.x);
}

// Both of a pair must be good; the pairs before a bad one have been filtered.
TEST(IirChannels, StopAtABadState) {
  using F = Iir32f;
  const auto make = [](Random& random, Shape shape) {
    return makeIir<F>(shape, someTaps<F>(random, shape, 1), 1);
  };
  Random random(5);
  const auto other = make(random, Shape::anyOrder);
  for (int bad = 1; bad < 9; ++bad) {
    Channels<F> channels(9, 100, 3, [&](Random& r, int) { return make(r, Shape::cascade); });
    const auto before = channels.x;
    channels.states[bad] = other.get();
    EXPECT_EQ(moxsIIR_32f_IP(channels.rows.data(), 100, 9, channels.states.data()), moxErrContext);
    for (int c = 0; c < 9; ++c)
      EXPECT_EQ(channels.x[c] != before[c], c / 2 < bad / 2) << "channel " << c << ", bad " << bad;
  }
}

}  // namespace
