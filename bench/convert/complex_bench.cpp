// Complex vectors beside VOLK, Eigen, and what the compiler makes of a loop for the same
// instruction set.
#include <moxsp.h>
#include <volk/volk.h>

#include <Eigen/Core>
#include <cmath>
#include <complex>
#include <memory>
#include <string>

#include "support/compare.h"

namespace {

// The peer wants arrays on its own alignment for its fastest path.
struct VolkFree {
  void operator()(void* p) const { volk_free(p); }
};
using Floats = std::unique_ptr<float[], VolkFree>;
Floats makeFloats(long len) {
  Floats a(static_cast<float*>(volk_malloc(len * sizeof(float), volk_get_alignment())));
  for (long i = 0; i < len; ++i) a[i] = float(i * 7919 % 2001 - 1000) / 1001;
  return a;
}

// Complex and real arrays of one length, each used as a source or as a destination.
struct Data {
  explicit Data(long len)
      : z(makeFloats(2 * len)), w(makeFloats(2 * len)), re(makeFloats(len)), im(makeFloats(len)) {}
  Floats z, w, re, im;
};

using Complex = std::complex<float>;
using Volk = lv_32fc_t;
using Sides = std::vector<std::pair<std::string, bench::Call>>;

void addCase(const std::string& family, const std::shared_ptr<Data>& data, bench::Work work,
             long bytes, Sides sides) {
  for (auto& [name, call] : sides) call = [data, inner = call] { inner(); };
  const bench::Call ours = sides.front().second;
  sides.erase(sides.begin());
  bench::add({.family = family, .size = bytes, .work = work, .ours = ours, .peers = sides});
}

void loopMagnitude(const float* z, float* dst, int len) {
  for (int i = 0; i < len; ++i)
    dst[i] = std::sqrt(z[2 * i] * z[2 * i] + z[2 * i + 1] * z[2 * i + 1]);
}
void loopPower(const float* z, float* dst, int len) {
  for (int i = 0; i < len; ++i) dst[i] = z[2 * i] * z[2 * i] + z[2 * i + 1] * z[2 * i + 1];
}
void loopPhase(const float* z, float* dst, int len) {
  for (int i = 0; i < len; ++i) dst[i] = std::atan2(z[2 * i + 1], z[2 * i]);
}
void loopReal(const float* z, float* re, int len) {
  for (int i = 0; i < len; ++i) re[i] = z[2 * i];
}
void loopSplit(const float* z, float* re, float* im, int len) {
  for (int i = 0; i < len; ++i) re[i] = z[2 * i], im[i] = z[2 * i + 1];
}
void loopInterleave(const float* re, const float* im, float* z, int len) {
  for (int i = 0; i < len; ++i) z[2 * i] = re[i], z[2 * i + 1] = im[i];
}
void loopConj(const float* z, float* w, int len) {
  for (int i = 0; i < len; ++i) w[2 * i] = z[2 * i], w[2 * i + 1] = -z[2 * i + 1];
}
void loopMulConj(const float* z, float* w, int len) {
  for (int i = 0; i < len; ++i) {
    const float re = z[2 * i] * w[2 * i] + z[2 * i + 1] * w[2 * i + 1];
    const float im = z[2 * i + 1] * w[2 * i] - z[2 * i] * w[2 * i + 1];
    w[2 * i] = re, w[2 * i + 1] = im;
  }
}

// `bytes` is the size of the complex array.
void addSize(long bytes) {
  const int len = int(bytes / 8);
  const auto data = std::make_shared<Data>(len);
  float *z = data->z.get(), *w = data->w.get(), *re = data->re.get(), *im = data->im.get();
  const auto complex = [](float* p) { return reinterpret_cast<Mox32fc*>(p); };
  const auto volk = [](float* p) { return reinterpret_cast<Volk*>(p); };
  const auto real = [len](float* p) { return Eigen::Map<Eigen::ArrayXf>(p, len); };
  const auto eigen = [len](float* p) {
    return Eigen::Map<Eigen::ArrayXcf>(reinterpret_cast<Complex*>(p), len);
  };
  const double whole = double(bytes), half = whole / 2;

  addCase("magnitude_32fc", data, {.bytesRead = whole, .bytesWritten = half}, bytes,
          {{"moxsp", [=] { moxsMagnitude_32fc(complex(z), re, len); }},
           {"volk", [=] { volk_32fc_magnitude_32f(re, volk(z), len); }},
           {"eigen", [=] { real(re) = eigen(z).abs(), bench::clobber(re); }},
           {"loop", [=] { loopMagnitude(z, re, len), bench::clobber(re); }}});
  addCase("power_spectr_32fc", data, {.bytesRead = whole, .bytesWritten = half}, bytes,
          {{"moxsp", [=] { moxsPowerSpectr_32fc(complex(z), re, len); }},
           {"volk", [=] { volk_32fc_magnitude_squared_32f(re, volk(z), len); }},
           {"eigen", [=] { real(re) = eigen(z).abs2(), bench::clobber(re); }},
           {"loop", [=] { loopPower(z, re, len), bench::clobber(re); }}});
  addCase("phase_32fc", data, {.bytesRead = whole, .bytesWritten = half}, bytes,
          {{"moxsp", [=] { moxsPhase_32fc(complex(z), re, len); }},
           {"volk", [=] { volk_32fc_s32f_atan2_32f(re, volk(z), 1, len); }},
           {"eigen", [=] { real(re) = eigen(z).arg(), bench::clobber(re); }},
           {"loop", [=] { loopPhase(z, re, len), bench::clobber(re); }}});
  addCase("real_32fc", data, {.bytesRead = whole, .bytesWritten = half}, bytes,
          {{"moxsp", [=] { moxsReal_32fc(complex(z), re, len); }},
           {"volk", [=] { volk_32fc_deinterleave_real_32f(re, volk(z), len); }},
           {"eigen", [=] { real(re) = eigen(z).real(), bench::clobber(re); }},
           {"loop", [=] { loopReal(z, re, len), bench::clobber(re); }}});
  addCase("cplx_to_real_32fc", data, {.bytesRead = whole, .bytesWritten = whole}, bytes,
          {{"moxsp", [=] { moxsCplxToReal_32fc(complex(z), re, im, len); }},
           {"volk", [=] { volk_32fc_deinterleave_32f_x2(re, im, volk(z), len); }},
           {"loop", [=] { loopSplit(z, re, im, len), bench::clobber(re); }}});
  addCase("real_to_cplx_32f", data, {.bytesRead = whole, .bytesWritten = whole}, bytes,
          {{"moxsp", [=] { moxsRealToCplx_32f(re, im, complex(w), len); }},
           {"volk", [=] { volk_32f_x2_interleave_32fc(volk(w), re, im, len); }},
           {"loop", [=] { loopInterleave(re, im, w, len), bench::clobber(w); }}});
  addCase("conj_32fc", data, {.bytesRead = whole, .bytesWritten = whole}, bytes,
          {{"moxsp", [=] { moxsConj_32fc(complex(z), complex(w), len); }},
           {"volk", [=] { volk_32fc_conjugate_32fc(volk(w), volk(z), len); }},
           {"eigen", [=] { eigen(w) = eigen(z).conjugate(), bench::clobber(w); }},
           {"loop", [=] { loopConj(z, w, len), bench::clobber(w); }}});

  // In place, so that the first factor must not let the other fade. A packed spectrum has its
  // numbers after a first real value, for all sides.
  const auto units = std::make_shared<Data>(len);
  float *one = units->z.get(), *product = units->w.get();
  for (int i = 0; i < len; ++i) one[2 * i] = 0, one[2 * i + 1] = 1;
  const int pairs = len - 1;
  const auto inside = [=](float* p) {
    return Eigen::Map<Eigen::ArrayXcf>(reinterpret_cast<Complex*>(p + 1), pairs);
  };
  addCase("mul_pack_conj_32f_I", units, {.bytesRead = 2 * whole, .bytesWritten = whole}, bytes,
          {{"moxsp", [=] { moxsMulPackConj_32f_I(one, product, 2 * len); }},
           {"volk",
            [=] {
              volk_32fc_x2_multiply_conjugate_32fc(volk(product + 1), volk(one + 1),
                                                   volk(product + 1), pairs);
            }},
           {"eigen",
            [=] {
              inside(product) = inside(one) * inside(product).conjugate(), bench::clobber(product);
            }},
           {"loop", [=] { loopMulConj(one + 1, product + 1, pairs), bench::clobber(product); }}});
}

const bool registered = [] {
  for (const long bytes : {4L << 10, 256L << 10, 64L << 20}) addSize(bytes);
  return true;
}();

}  // namespace
