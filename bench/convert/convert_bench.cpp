#include <moxsp.h>
#include <volk/volk.h>

#include <algorithm>
#include <cmath>
#include <string>

#include "support/vectors.h"

namespace {

template <class E>
bench::Vector<E> ramp(long len) {
  bench::Vector<E> v(len);
  for (long i = 0; i < len; ++i)
    v.data()[i] = E((i * 7919 % 2001 - 1000) / (sizeof(E) == 4 ? 1001.0 : 1.0));
  return v;
}

template <class S, class D>
struct Data {
  explicit Data(long len) : src(ramp<S>(len)), dst(ramp<D>(len)) {}
  bench::Vector<S> src;
  bench::Vector<D> dst;
};

using bench::Sides;

// `sides` makes the calls for the arrays of one size.
template <class S, class D, class MakeSides>
void addSizes(const std::string& family, MakeSides sides) {
  for (const long bytes : bench::arraySizes) {
    const long len = bytes / long(sizeof(S));
    const auto data = std::make_shared<Data<S, D>>(len);
    bench::add(family, bytes,
               {.bytesRead = double(bytes), .bytesWritten = double(len * long(sizeof(D)))}, data,
               sides(data->src.data(), data->dst.data(), int(len)));
  }
}

void plainToFloat(const Mox16s* src, float* dst, int len, float scale) {
  for (int i = 0; i < len; ++i) dst[i] = float(src[i]) * scale;
}
void plainToInteger(const float* src, Mox16s* dst, int len, float scale) {
  for (int i = 0; i < len; ++i)
    dst[i] = Mox16s(std::lrint(std::min(std::max(src[i] * scale, -32768.0f), 32767.0f)));
}
void plainWiden(const float* src, double* dst, int len) {
  for (int i = 0; i < len; ++i) dst[i] = src[i];
}
// Divided by 16, halves to even.
void plainNarrow(const Mox32s* src, Mox16s* dst, int len) {
  for (int i = 0; i < len; ++i) {
    const int fraction = src[i] & 15, whole = src[i] >> 4;
    const int rounded = whole + (fraction + (whole & 1) > 8);
    dst[i] = Mox16s(std::min(std::max(rounded, -32768), 32767));
  }
}

const bool registered = [] {
  const bench::Group group("conversions");
  addSizes<Mox16s, float>("convert_16s32f_Sfs", [](auto* src, auto* dst, int len) -> Sides {
    return {{"moxsp", [=] { moxsConvert_16s32f_Sfs(src, dst, len, 15); }},
            {"volk", [=] { volk_16i_s32f_convert_32f(dst, src, 32768, len); }},
            {"loop", [=] { plainToFloat(src, dst, len, 0x1p-15f), bench::clobber(dst); }}};
  });
  addSizes<Mox16s, float>("convert_16s32f", [](auto* src, auto* dst, int len) -> Sides {
    return {{"moxsp", [=] { moxsConvert_16s32f(src, dst, len); }},
            {"volk", [=] { volk_16i_s32f_convert_32f(dst, src, 1, len); }},
            {"loop", [=] { plainToFloat(src, dst, len, 1), bench::clobber(dst); }}};
  });
  addSizes<float, Mox16s>("convert_32f16s_Sfs", [](auto* src, auto* dst, int len) -> Sides {
    return {{"moxsp", [=] { moxsConvert_32f16s_Sfs(src, dst, len, moxRoundNearEven, -15); }},
            {"volk", [=] { volk_32f_s32f_convert_16i(dst, src, 32768, len); }},
            {"loop", [=] { plainToInteger(src, dst, len, 32768), bench::clobber(dst); }}};
  });
  addSizes<float, double>("convert_32f64f", [](auto* src, auto* dst, int len) -> Sides {
    return {{"moxsp", [=] { moxsConvert_32f64f(src, dst, len); }},
            {"volk", [=] { volk_32f_convert_64f(dst, src, len); }},
            {"loop", [=] { plainWiden(src, dst, len), bench::clobber(dst); }}};
  });
  addSizes<Mox32s, Mox16s>("convert_32s16s_Sfs", [](auto* src, auto* dst, int len) -> Sides {
    return {{"moxsp", [=] { moxsConvert_32s16s_Sfs(src, dst, len, 4); }},
            {"loop", [=] { plainNarrow(src, dst, len), bench::clobber(dst); }}};
  });
  addSizes<float, Mox16u>("convert_32f16f", [](auto* src, auto* dst, int len) -> Sides {
    return {{"moxsp", [=] { moxsConvert_32f16f(src, dst, len, moxRoundNearEven); }}};
  });
  return true;
}();

}  // namespace
