// Runs of element-wise functions on whole vectors, and their results against a model of one
// element. One good length is enough for a test of values: that they don't depend on lengths, on
// alignments or on the in-place form is tested for all functions elsewhere.
#pragma once

#include <iomanip>
#include <optional>
#include <sstream>
#include <tuple>

#include "frame/elements.h"
#include "support/float_environment.h"
#include "support/test.h"

namespace test {

// A function and its name for messages.
template <class... A>
struct Member {
  const char* name;
  MoxStatus (*function)(A...);
};
template <class... A>
Member(const char*, MoxStatus (*)(A...)) -> Member<A...>;
#define MEMBER(name) (test::Member{#name, moxs##name})

// What a call gave, and the sources that it had.
template <class D, class... S>
struct Results {
  const char* name;
  MoxStatus status;
  std::vector<D> values;
  std::tuple<const std::vector<S>&...> sources;
  MoxStatus expected = moxOk;

  Results warning(MoxStatus warning) const { return {name, status, values, sources, warning}; }
};

// The rounding mode that calls are made in; by default that in force.
inline std::optional<int> roundingOfCalls;
class CallsUnderRounding {
 public:
  explicit CallsUnderRounding(int mode) { roundingOfCalls = mode; }
  ~CallsUnderRounding() { roundingOfCalls.reset(); }
};

// The check's calls under every mode, and its models in the one in force.
void withCallsInAllRoundings(auto check) {
  for (const int mode : allRoundings) {
    SCOPED_TRACE("rounding mode " + std::to_string(mode));
    const CallsUnderRounding scope(mode);
    check();
  }
}

// Calls `call` on a destination that is off every vector boundary: some results come from the peel,
// some from the body and some from the tail.
template <class D, class Call, class... S>
Results<D, S...> resultsOf(const char* name, std::vector<D> values, Call call,
                           const std::vector<S>&... sources) {
  values.insert(values.begin(), D());
  MoxStatus status;
  {
    const UnderRounding mode(roundingOfCalls.value_or(std::fegetround()));
    status = call(values.data() + 1, int(values.size()) - 1);
  }
  values.erase(values.begin());
  return {name, status, std::move(values), {sources...}};
}

template <class P>
using Given = std::type_identity_t<P>;

// In place: with a constant, with one source and with two.
template <class C, class D, class... P>
auto run(Member<C, D*, int, P...> m, const std::vector<D>& data, Given<C> val, Given<P>... p) {
  return resultsOf(
      m.name, data, [&](D* dst, int len) { return m.function(val, dst, len, p...); }, data);
}
template <class S, class D, class... P>
auto runOnto(Member<const S*, D*, int, P...> m, const std::vector<S>& src,
             const std::vector<D>& data, Given<P>... p) {
  const auto call = [&](D* dst, int len) { return m.function(src.data(), dst, len, p...); };
  return resultsOf(m.name, data, call, src, data);
}
template <class A, class B, class D, class... P>
auto runOnto(Member<const A*, const B*, D*, int, P...> m, const std::vector<A>& a,
             const std::vector<B>& b, const std::vector<D>& data, Given<P>... p) {
  const auto call = [&](D* dst, int len) { return m.function(a.data(), b.data(), dst, len, p...); };
  return resultsOf(m.name, data, call, a, b, data);
}

// Of one source, of two, and of one with a constant.
template <class S, class D, class... P>
auto run(Member<const S*, D*, int, P...> m, const std::vector<S>& src, Given<P>... p) {
  const auto call = [&](D* dst, int len) { return m.function(src.data(), dst, len, p...); };
  return resultsOf(m.name, std::vector<D>(src.size()), call, src);
}
template <class A, class B, class D, class... P>
auto run(Member<const A*, const B*, D*, int, P...> m, const std::vector<A>& a,
         const std::vector<B>& b, Given<P>... p) {
  const auto call = [&](D* dst, int len) { return m.function(a.data(), b.data(), dst, len, p...); };
  return resultsOf(m.name, std::vector<D>(a.size()), call, a, b);
}
template <class S, class C, class D, class... P>
auto run(Member<const S*, C, D*, int, P...> m, const std::vector<S>& src, Given<C> val,
         Given<P>... p) {
  const auto call = [&](D* dst, int len) { return m.function(src.data(), val, dst, len, p...); };
  return resultsOf(m.name, std::vector<D>(src.size()), call, src);
}

// To the bit, but for NaN, which is as good as any other.
template <class E>
bool same(const E& a, const E& b) {
  if constexpr (mox::Complex<E>)
    return same(a.re, b.re) && same(a.im, b.im);
  else
    return sameBits(a, b) || (a != a && b != b);
}

template <class E>
std::string text(const E& e) {
  std::ostringstream out;
  out << std::setprecision(17);
  if constexpr (mox::Complex<E>)
    out << '(' << +e.re << ", " << +e.im << ')';
  else
    out << +e;
  return out.str();
}

// What the sources of result i hold.
template <class D, class... S>
std::string sourcesAt(const Results<D, S...>& got, std::size_t i) {
  return std::apply([i](auto&... src) { return ((text(src[i]) + ' ') + ...); }, got.sources);
}

// Result i is want(i) for all i.
template <class D, class... S>
void expectAt(const Results<D, S...>& got, auto want) {
  ASSERT_EQ(got.status, got.expected) << got.name;
  for (std::size_t i = 0; i < got.values.size(); ++i) {
    const D wanted = D(want(i));
    ASSERT_TRUE(same(got.values[i], wanted))
        << got.name << " of " << sourcesAt(got, i) << "gives " << text(got.values[i]) << " and not "
        << text(wanted) << ", element " << i;
  }
}

// Each result is model() of its sources.
template <class D, class... S>
void expectEach(const Results<D, S...>& got, auto model) {
  expectAt(got, [&](std::size_t i) {
    return std::apply([&](auto&... src) { return model(src[i]...); }, got.sources);
  });
}

struct Special {
  Mox32f x, result;
};

// Each special value at every position of an array that takes head, blocks and tail; the other
// elements keep the results that they have without it. Doubles are rounded to float.
template <class F, class... P>
void expectEverywhere(Member<const F*, F*, int, P...> member, MoxStatus status,
                      const std::vector<Special>& specials, Given<P>... p) {
  std::vector<F> plain(45);
  for (std::size_t i = 0; i < plain.size(); ++i) plain[i] = 0.3f + 0.4f * Mox32f(i);
  const auto expected = run(member, plain, p...);
  EXPECT_OK(expected.status) << member.name;
  for (const auto& [x, result] : specials)
    for (std::size_t at = 0; at < plain.size(); ++at) {
      auto src = plain;
      src[at] = x;
      auto got = run(member, src, p...);
      EXPECT_TRUE(got.status == status && same(Mox32f(got.values[at]), result))
          << member.name << " of " << x << " at " << at << " gives " << got.values[at];
      got.values[at] = expected.values[at];
      EXPECT_TRUE(sameBits(got.values, expected.values))
          << member.name << " of " << x << " at " << at;
    }
}

}  // namespace test
