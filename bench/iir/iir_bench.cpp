#include <liquid/liquid.h>
#include <moxsp.h>

#include <cmath>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "support/compare.h"

namespace {

constexpr int len = 1 << 16;

// What a user would write: the transposed direct form II, sample by sample through all sections.
// Taps are b[0], b[1], b[2], a[1], a[2].
template <class F>
void plainCascade(const F* __restrict x, F* __restrict y, int count, const F* __restrict taps,
                  F* __restrict d, int sections) {
  for (int i = 0; i < count; ++i) {
    F v = x[i];
    for (int k = 0; k < sections; ++k) {
      const F *t = taps + 5 * k, in = v;
      F* s = d + 2 * k;
      v = t[0] * in + s[0];
      s[0] = t[1] * in - t[3] * v + s[1];
      s[1] = t[2] * in - t[4] * v;
    }
    y[i] = v;
  }
}

// The same with as many sections as the compiler knows of, so that all may stay in registers.
template <int sections, class F>
void unrolledCascade(const F* __restrict x, F* __restrict y, int count, const F* __restrict taps,
                     F* __restrict d) {
  F t[5 * sections], s[2 * sections];
  for (int k = 0; k < 5 * sections; ++k) t[k] = taps[k];
  for (int k = 0; k < 2 * sections; ++k) s[k] = d[k];
  for (int i = 0; i < count; ++i) {
    F v = x[i];
    for (int k = 0; k < sections; ++k) {
      const F in = v;
      v = t[5 * k] * in + s[2 * k];
      s[2 * k] = (t[5 * k + 1] * in + s[2 * k + 1]) - t[5 * k + 3] * v;
      s[2 * k + 1] = t[5 * k + 2] * in - t[5 * k + 4] * v;
    }
    y[i] = v;
  }
  for (int k = 0; k < 2 * sections; ++k) d[k] = s[k];
}

// One pass over the block for each section.
template <class F>
void cascadeInPasses(const F* x, F* y, int count, const F* taps, F* d, int sections) {
  for (int k = 0; k < sections; ++k)
    unrolledCascade<1, F>(k ? y : x, y, count, taps + 5 * k, d + 2 * k);
}

template <class F>
void plainFilter(const F* __restrict x, F* __restrict y, int count, const F* __restrict b,
                 const F* __restrict a, F* __restrict d, int order) {
  for (int i = 0; i < count; ++i) {
    const F in = x[i], out = b[0] * in + d[0];
    for (int k = 0; k < order; ++k) d[k] = b[k + 1] * in - a[k + 1] * out + d[k + 1];
    y[i] = out;
  }
}

template <class E>
std::vector<E> noise(int count, float size) {
  std::mt19937 engine(1);
  std::uniform_real_distribution<float> uniform(-size, size);
  std::vector<E> v(count);
  for (auto& e : v) e = E(uniform(engine));
  return v;
}

// Sections with poles at 0.9 and above, at different angles: b[0] .. b[2], a[0] .. a[2] of each.
template <class F>
std::vector<F> cascade(int sections) {
  std::vector<F> taps;
  for (int k = 0; k < sections; ++k) {
    const double radius = 0.9 + 0.005 * k, angle = 0.3 + 0.15 * k;
    for (const double t : {0.2, 0.1, 0.15, 1.0, -2 * radius * std::cos(angle), radius * radius})
      taps.push_back(F(t));
  }
  return taps;
}

template <class F>
struct Data {
  Data(std::vector<F> given, int order)
      : x(noise<F>(len, 1)), y(len), taps(std::move(given)), d(taps.size() + 1) {
    for (std::size_t i = 0; i < taps.size(); ++i)
      if (i % (2 * order + 2) != std::size_t(order) + 1) packed.push_back(taps[i]);
  }
  std::vector<F> x, y, taps, packed, d;
};

struct Free {
  MoxStatus (*free)(MoxsIIRState*);
  void operator()(MoxsIIRState* s) const { free(s); }
};
using Handle = std::shared_ptr<MoxsIIRState>;
Handle owned(MoxsIIRState* s, MoxStatus (*free)(MoxsIIRState*)) { return Handle(s, Free{free}); }

// Functions by type.
Handle make(const std::vector<float>& taps, int sections) {
  MoxsIIRState* s;
  moxsIIRInitAlloc_BiQuad_32f(&s, taps.data(), sections, nullptr);
  return owned(s, moxsIIRFree_32f);
}
Handle make(const std::vector<double>& taps, int sections) {
  MoxsIIRState* s;
  moxsIIRInitAlloc_BiQuad_64f(&s, taps.data(), sections, nullptr);
  return owned(s, moxsIIRFree_64f);
}
Handle makeFilter(const std::vector<float>& taps, int order) {
  MoxsIIRState* s;
  moxsIIRInitAlloc_32f(&s, taps.data(), order, nullptr);
  return owned(s, moxsIIRFree_32f);
}
Handle makeFilter(const std::vector<double>& taps, int order) {
  MoxsIIRState* s;
  moxsIIRInitAlloc_64f(&s, taps.data(), order, nullptr);
  return owned(s, moxsIIRFree_64f);
}
void run(const std::vector<float>& x, std::vector<float>& y, MoxsIIRState* s) {
  moxsIIR_32f(x.data(), y.data(), len, s);
}
void run(const std::vector<double>& x, std::vector<double>& y, MoxsIIRState* s) {
  moxsIIR_64f(x.data(), y.data(), len, s);
}

template <class F>
bench::Work operations(double count) {
  return sizeof(F) == 4 ? bench::Work{.floatOps = count} : bench::Work{.doubleOps = count};
}

using Peers = std::vector<std::pair<std::string, bench::Call>>;

void addLiquid(Peers& peers, const std::shared_ptr<Data<float>>& d, int order, int sections) {
  std::vector<float> b, a;
  for (int k = 0; k < sections; ++k) {
    const float* t = d->taps.data() + 2 * (order + 1) * k;
    b.insert(b.end(), t, t + order + 1);
    a.insert(a.end(), t + order + 1, t + 2 * order + 2);
  }
  iirfilt_rrrf made = order == 2 ? iirfilt_rrrf_create_sos(b.data(), a.data(), sections)
                                 : iirfilt_rrrf_create(b.data(), order + 1, a.data(), order + 1);
  const std::shared_ptr<iirfilt_rrrf_s> filter(made, iirfilt_rrrf_destroy);
  peers.emplace_back(
      "liquid", [=] { iirfilt_rrrf_execute_block(filter.get(), d->x.data(), len, d->y.data()); });
}
void addLiquid(Peers&, const std::shared_ptr<Data<double>>&, int, int) {}  // has floats only

template <int sections, class F>
void addCascade(const std::string& type) {
  const auto d = std::make_shared<Data<F>>(cascade<F>(sections), 2);
  const Handle state = make(d->taps, sections);
  Peers peers = {
      {"loop",
       [=] {
         plainCascade(d->x.data(), d->y.data(), len, d->packed.data(), d->d.data(), sections);
         bench::clobber(d->y.data());
       }},
      {"unrolled",
       [=] {
         unrolledCascade<sections>(d->x.data(), d->y.data(), len, d->packed.data(), d->d.data());
         bench::clobber(d->y.data());
       }},
      {"passes", [=] {
         cascadeInPasses(d->x.data(), d->y.data(), len, d->packed.data(), d->d.data(), sections);
         bench::clobber(d->y.data());
       }}};
  addLiquid(peers, d, 2, sections);
  bench::add({.family = "iir_cascade_" + type,
              .size = sections,
              .work = operations<F>(13.0 * sections * len),
              .ours = [=] { run(d->x, d->y, state.get()); },
              .peers = peers});
}

template <class F>
void addOrder(const std::string& type, int order) {
  auto taps = noise<F>(2 * order + 2, 0.8f / float(order));
  taps[std::size_t(order) + 1] = 1;
  const auto d = std::make_shared<Data<F>>(taps, order);
  const Handle state = makeFilter(d->taps, order);
  Peers peers = {{"loop", [=] {
                    plainFilter(d->x.data(), d->y.data(), len, d->taps.data(),
                                d->taps.data() + order + 1, d->d.data(), order);
                    bench::clobber(d->y.data());
                  }}};
  addLiquid(peers, d, order, 1);
  bench::add({.family = "iir_order_" + type,
              .size = order,
              .work = operations<F>((6.0 * order + 1) * len),
              .ours = [=] { run(d->x, d->y, state.get()); },
              .peers = peers});
}

// Channels together, beside one call for each.
void addChannels(int count, int samples) {
  struct Channels {
    std::vector<std::vector<float>> x, y;
    std::vector<const float*> src;
    std::vector<float*> dst;
    std::vector<Handle> owners;
    std::vector<MoxsIIRState*> states;
  };
  const auto c = std::make_shared<Channels>();
  for (int i = 0; i < count; ++i) {
    c->x.push_back(noise<float>(samples, 1));
    c->y.emplace_back(samples);
    c->owners.push_back(make(cascade<float>(4), 4));
    c->states.push_back(c->owners.back().get());
  }
  for (int i = 0; i < count; ++i)
    c->src.push_back(c->x[i].data()), c->dst.push_back(c->y[i].data());
  bench::add(
      {.family = "iir_channels_" + std::to_string(samples),
       .size = count,
       .work = {.floatOps = 9.0 * 4 * count * samples},
       .ours =
           [=] { moxsIIR_32f_P(c->src.data(), c->dst.data(), samples, count, c->states.data()); },
       .peers = {{"single calls", [=] {
                    for (int i = 0; i < count; ++i)
                      moxsIIR_32f(c->src[i], c->dst[i], samples, c->states[i]);
                  }}}});
}

// 16-bit samples, beside the float filter on as many floats.
void addIntegers(int sections) {
  const auto d = std::make_shared<Data<float>>(cascade<float>(sections), 2);
  const auto x = std::make_shared<std::vector<Mox16s>>(noise<Mox16s>(len, 20000));
  const auto y = std::make_shared<std::vector<Mox16s>>(len);
  const Handle floats = make(d->taps, sections);
  MoxsIIRState* s;
  moxsIIRInitAlloc32f_BiQuad_16s(&s, d->taps.data(), sections, nullptr);
  const Handle integers = owned(s, moxsIIRFree32f_16s);
  bench::add({.family = "iir_32f_16s",
              .size = sections,
              .work = {.floatOps = 13.0 * sections * len},
              .ours = [=] { moxsIIR32f_16s_Sfs(x->data(), y->data(), len, integers.get(), 0); },
              .peers = {{"iir_32f", [=] { run(d->x, d->y, floats.get()); }}}});
}

const bool registered = [] {
  addCascade<1, float>("32f");
  addCascade<4, float>("32f");
  addCascade<16, float>("32f");
  addCascade<1, double>("64f");
  addCascade<4, double>("64f");
  addCascade<16, double>("64f");
  for (const int order : {1, 2, 3, 5, 8, 20, 64}) addOrder<float>("32f", order);
  for (const int order : {1, 2, 3, 5, 8, 20, 64}) addOrder<double>("64f", order);
  for (const int samples : {64, 1024, 4096, len}) addChannels(16, samples);
  for (const int sections : {1, 4}) addIntegers(sections);
  return true;
}();

}  // namespace
