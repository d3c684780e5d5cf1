// The run of an out-of-order DFT, for the two files that compile it for a type each.
#pragma once

#include "frame/kernel_table.h"
#include "transforms/dft_mixed.h"
#include "transforms/dft_out_ord.h"
#include "transforms/dft_out_ord_stages.h"
#include "transforms/dft_run.h"

namespace mox::transforms {
namespace detail {

template <class F>
using StageKernel = void (*)(const F* src, F* dst, const OutOrdStage<F>& stage, long blocks);

// By radix less 2.
template <Direction d, class F>
constexpr auto interleavedStages = kernelTable<StageKernel<F>, mostButterfly - 1>([](auto i) {
  return stageKernel<d, i + 2, Interleaved<F>, Interleaved<F>>;
});
// By whether the stage is the outermost one, then whether it is the innermost one: these read or
// write numbers in the caller's order. The radix is 4 or 8.
template <Direction d, class F, int radix>
constexpr auto splitStages = kernelTable<StageKernel<F>, 4>([](auto i) {
  using Outer = std::conditional_t<i / 2 == 1, Crossed<F>, Apart<F>>;
  using Inner = std::conditional_t<i % 2 == 1, Crossed<F>, Apart<F>>;
  constexpr bool forward = d == Direction::forward;
  return stageKernel<d, radix, std::conditional_t<forward, Outer, Inner>,
                     std::conditional_t<forward, Inner, Outer>>;
});
// By radix less 2; the innermost stage turns nothing.
template <Direction d, class F, bool turns>
constexpr auto tileStages = kernelTable<StageKernel<F>, mostButterfly - 1>([](auto i) {
  return stageKernel<d, i + 2, Across<F>, Across<F>, turns>;
});
// By length less 1.
template <Direction d, class F>
constexpr auto smallKernels = kernelTable<void (*)(const F*, F*, F factor), mostButterfly>(
    [](auto i) { return smallKernel<d, i + 1, F>; });

template <Direction d, class F>
class OutOrdRun {
  using C = ComplexOf<F>;
  static constexpr bool forward = d == Direction::forward;

 public:
  OutOrdRun(const DftOutOrdSpec<F>& plan, F* work) : plan_(plan), work_(work) {}

  // Stages from the i-th on and leaves of `len` numbers: one block of that stage. A block that fits
  // the first-level cache is finished before the next one is touched.
  void run(int i, const F* src, F* dst, long len) const {
    const long columns = plan_.stage[i].columns, least = 8 * lanesOf<F> * plan_.radices.leaf;
    if (i == plan_.radices.stages || len <= FftLimits<F>::inCache || columns < least)
      return runInCache(i, src, dst, len);
    if (forward) runStage(i, src, dst, len);
    const F* const from = forward ? dst : src;
    for (long at = 0; at < 2 * len; at += 2 * columns) run(i + 1, from + at, dst + at, columns);
    if (!forward) runStage(i, dst, dst, len);
  }

 private:
  void runInCache(int first, const F* src, F* dst, long len) const {
    if (!forward) runLeaves(src, dst, len), src = dst;
    eachStage(first, plan_.radices.stages, [&](int i) {
      runStage(i, src, dst, len);
      src = dst;
    });
    if (forward) runLeaves(src, dst, len);
  }

  template <class Visit>
  static void eachStage(int first, int last, Visit visit) {
    for (int k = first; k < last; ++k) visit(forward ? k : last - 1 - (k - first));
  }

  void runStage(int i, const F* src, F* dst, long len) const {
    const OutOrdStage<F>& stage = plan_.stage[i];
    const long blocks = len / (long(stage.radix) * stage.columns);
    if (plan_.radices.kind != OutOrdLeaf::radix)
      return interleavedStages<d, F>[stage.radix - 2](src, dst, stage, blocks);
    const int at = 2 * (i == 0) + (i == plan_.radices.stages - 1);
    (stage.radix == 4 ? splitStages<d, F, 4> : splitStages<d, F, 8>)[at](src, dst, stage, blocks);
  }

  void runLeaves(const F* src, F* dst, long len) const {
    const F factor = forward ? plan_.fwdFactor : plan_.invFactor;
    const long leaf = plan_.radices.leaf;
    if (plan_.radices.kind == OutOrdLeaf::tile) return runTiles(src, dst, len / leaf, factor);
    if (plan_.radices.kind == OutOrdLeaf::whole) return runWhole(src, dst, factor);
    if (plan_.radices.kind == OutOrdLeaf::plan) {
      for (long at = 0; at < 2 * len; at += 2 * leaf)
        ownDftRun<d, Array<C>>(*plan_.leafPlan, {reinterpret_cast<const C*>(src + at)},
                               {reinterpret_cast<C*>(dst + at)}, work_);
    } else if (plan_.radices.stages == 0) {
      smallKernels<d, F>[leaf - 1](src, dst, factor);
    } else {
      (leaf == 8 ? leafKernel<d, 8, F> : leafKernel<d, 16, F>)(src, dst, len / leaf, factor);
    }
  }

  // The last pass puts bins into their places, and the first pass of the way back finds them there.
  void runWhole(const F* src, F* dst, F factor) const {
    alignas(fftAlignment) F work[outOrdWholeBytes / sizeof(F)];
    const Array<const C> from = {reinterpret_cast<const C*>(src)};
    const Array<C> to = {reinterpret_cast<C*>(dst)};
    if constexpr (forward)
      ownDftMixed(*plan_.leafPlan, from, directed(Placed<C>{to.p, plan_.place}, d, factor), work);
    else
      ownDftMixed(*plan_.leafPlan, directed(Placed<const C>{from.p, plan_.place}, d, F(1)),
                  directed(to, d, factor), work);
  }

  // Lanes that have no leaf of their own repeat the last one.
  void runTiles(const F* src, F* dst, long leaves, F factor) const {
    const OutOrdRadices& radices = plan_.radices;
    const long leaf = radices.leaf;
    const int *from = plan_.natural, *to = plan_.placed;
    if (!forward) std::swap(from, to);
    alignas(fftAlignment) F tile[Apart<F>::parts * outOrdMostTile];
    for (long first = 0; first < leaves; first += lanesOf<F>) {
      const auto start = [=](int i) { return 2 * leaf * std::min(first + i, leaves - 1); };
      takeAcross([=](int i) { return src + start(i); }, leaf, factor, tile, from);
      eachStage(radices.stages, radices.stages + radices.tileStages, [&](int i) {
        const OutOrdStage<F>& stage = plan_.stage[i];
        const auto& kernels = stage.twiddle ? tileStages<d, F, true> : tileStages<d, F, false>;
        kernels[stage.radix - 2](tile, tile, stage, leaf / (long(stage.radix) * stage.columns));
      });
      giveAcross(static_cast<const F*>(tile), to, leaf, [=](int i) { return dst + start(i); });
    }
  }

  const DftOutOrdSpec<F>& plan_;
  F* work_;
};

}  // namespace detail

template <Direction d, class F>
void ownDftOutOrd(const DftOutOrdSpec<F>& plan, const ComplexOf<F>* src, ComplexOf<F>* dst,
                  F* work) {
  detail::OutOrdRun<d, F>(plan, work).run(0, parts(src), parts(dst), plan.len);
}

}  // namespace mox::transforms
