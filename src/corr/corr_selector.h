// The algorithm selector of correlations: the method in the low byte, the normalisation in the
// second one; and their size queries.
#pragma once

#include "corr/fft_sum.h"
#include "corr/normalize.h"

namespace mox::corr {

class Selector {
 public:
  explicit Selector(int algType) : method_(algType & 0xFF), normalization_(algType & 0xFF00) {}

  bool hasMethod() const { return isMethod(method_); }
  bool hasNormalization() const {
    return normalization_ == 0 || normalization_ == moxAlgNormA || normalization_ == moxAlgNormB;
  }
  Method method() const { return Method(method_); }
  Normalization normalization() const { return Normalization(normalization_); }

 private:
  int method_, normalization_;
};

// Checks the selectors and reports figure(method, E()).
template <class Figure>
MoxStatus reportSizeBy(int algType, int dataType, int* bufferSize, Figure figure) {
  const Selector selector(algType);
  if (!selector.hasMethod() || !selector.hasNormalization()) return moxErrAlgType;
  return reportSize<Mox32f, Mox32fc, Mox64f, Mox64fc>(
      dataType, bufferSize, [&](auto e) { return figure(selector.method(), e); });
}

}  // namespace mox::corr
