// Complex vectors beside VOLK, Eigen, SLEEF, and what the compiler makes of a loop.
#include <moxsp.h>
#include <volk/volk.h>

#include <Eigen/Core>
#include <cmath>
#include <complex>
#include <cstring>

#include "support/sleef.h"
#include "support/vectors.h"

namespace {

bench::Vector<float> ramp(long len) {
  bench::Vector<float> v(len);
  for (long i = 0; i < len; ++i) v.data()[i] = float(i * 7919 % 2001 - 1000) / 1001;
  return v;
}

// Complex and real arrays of one length, each used as a source or as a destination.
struct Data {
  explicit Data(long len) : z(ramp(2 * len)), w(ramp(2 * len)), re(ramp(len)), im(ramp(len)) {}
  bench::Vector<float> z, w, re, im;
};

using Complex = std::complex<float>;
using Volk = lv_32fc_t;

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
void sleefPhase(const float* z, float* dst, int len) {
  constexpr auto function = SLEEF_32F(atan2, u35);
  const auto run = [=]<class Result, class Lanes>(Result (*)(Lanes, Lanes)) {
    const auto angles = []<int... i>(Lanes low, Lanes high, std::integer_sequence<int, i...>) {
      return function(__builtin_shufflevector(low, high, 2 * i + 1 ...),
                      __builtin_shufflevector(low, high, 2 * i...));
    };
    constexpr int lanes = sizeof(Lanes) / sizeof(float);
    for (int i = 0; i < len; i += lanes) {
      Lanes in[2];
      std::memcpy(in, z + 2 * i, sizeof in);
      const Lanes out = angles(in[0], in[1], std::make_integer_sequence<int, lanes>());
      std::memcpy(dst + i, &out, sizeof out);
    }
  };
  run(function);
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
  float *z = data->z.data(), *w = data->w.data(), *re = data->re.data(), *im = data->im.data();
  const auto complex = [](float* p) { return reinterpret_cast<Mox32fc*>(p); };
  const auto volk = [](float* p) { return reinterpret_cast<Volk*>(p); };
  const auto real = [len](float* p) { return Eigen::Map<Eigen::ArrayXf>(p, len); };
  const auto eigen = [len](float* p) {
    return Eigen::Map<Eigen::ArrayXcf>(reinterpret_cast<Complex*>(p), len);
  };
  const double whole = double(bytes), half = whole / 2;

  {
    const bench::Group group("elementary");
    bench::add("magnitude_32fc", bytes, {.bytesRead = whole, .bytesWritten = half}, data,
               {{"moxsp", [=] { moxsMagnitude_32fc(complex(z), re, len); }},
                {"volk", [=] { volk_32fc_magnitude_32f(re, volk(z), len); }},
                {"eigen", [=] { real(re) = eigen(z).abs(), bench::clobber(re); }},
                {"loop", [=] { loopMagnitude(z, re, len), bench::clobber(re); }}});
    bench::add("phase_32fc", bytes, {.bytesRead = whole, .bytesWritten = half}, data,
               {{"moxsp", [=] { moxsPhase_32fc(complex(z), re, len); }},
                {"volk", [=] { volk_32fc_s32f_atan2_32f(re, volk(z), 1, len); }},
                {"sleef", [=] { sleefPhase(z, re, len), bench::clobber(re); }},
                {"eigen", [=] { real(re) = eigen(z).arg(), bench::clobber(re); }},
                {"loop", [=] { loopPhase(z, re, len), bench::clobber(re); }}});
  }
  bench::add("power_spectr_32fc", bytes, {.bytesRead = whole, .bytesWritten = half}, data,
             {{"moxsp", [=] { moxsPowerSpectr_32fc(complex(z), re, len); }},
              {"volk", [=] { volk_32fc_magnitude_squared_32f(re, volk(z), len); }},
              {"eigen", [=] { real(re) = eigen(z).abs2(), bench::clobber(re); }},
              {"loop", [=] { loopPower(z, re, len), bench::clobber(re); }}});
  bench::add("real_32fc", bytes, {.bytesRead = whole, .bytesWritten = half}, data,
             {{"moxsp", [=] { moxsReal_32fc(complex(z), re, len); }},
              {"volk", [=] { volk_32fc_deinterleave_real_32f(re, volk(z), len); }},
              {"eigen", [=] { real(re) = eigen(z).real(), bench::clobber(re); }},
              {"loop", [=] { loopReal(z, re, len), bench::clobber(re); }}});
  bench::add("cplx_to_real_32fc", bytes, {.bytesRead = whole, .bytesWritten = whole}, data,
             {{"moxsp", [=] { moxsCplxToReal_32fc(complex(z), re, im, len); }},
              {"volk", [=] { volk_32fc_deinterleave_32f_x2(re, im, volk(z), len); }},
              {"loop", [=] { loopSplit(z, re, im, len), bench::clobber(re); }}});
  bench::add("real_to_cplx_32f", bytes, {.bytesRead = whole, .bytesWritten = whole}, data,
             {{"moxsp", [=] { moxsRealToCplx_32f(re, im, complex(w), len); }},
              {"volk", [=] { volk_32f_x2_interleave_32fc(volk(w), re, im, len); }},
              {"loop", [=] { loopInterleave(re, im, w, len), bench::clobber(w); }}});
  bench::add("conj_32fc", bytes, {.bytesRead = whole, .bytesWritten = whole}, data,
             {{"moxsp", [=] { moxsConj_32fc(complex(z), complex(w), len); }},
              {"volk", [=] { volk_32fc_conjugate_32fc(volk(w), volk(z), len); }},
              {"eigen", [=] { eigen(w) = eigen(z).conjugate(), bench::clobber(w); }},
              {"loop", [=] { loopConj(z, w, len), bench::clobber(w); }}});

  // In place, so that the first factor must not let the other fade. A packed spectrum has its
  // numbers after a first real value, for all sides.
  const auto units = std::make_shared<Data>(len);
  float *one = units->z.data(), *product = units->w.data();
  for (int i = 0; i < len; ++i) one[2 * i] = 0, one[2 * i + 1] = 1;
  const int pairs = len - 1;
  const auto inside = [=](float* p) {
    return Eigen::Map<Eigen::ArrayXcf>(reinterpret_cast<Complex*>(p + 1), pairs);
  };
  bench::add(
      "mul_pack_conj_32f_I", bytes, {.bytesRead = 2 * whole, .bytesWritten = whole}, units,
      {{"moxsp", [=] { moxsMulPackConj_32f_I(one, product, 2 * len); }},
       {"volk",
        [=] {
          volk_32fc_x2_multiply_conjugate_32fc(volk(product + 1), volk(one + 1), volk(product + 1),
                                               pairs);
        }},
       {"eigen",
        [=] {
          inside(product) = inside(one) * inside(product).conjugate(), bench::clobber(product);
        }},
       {"loop", [=] { loopMulConj(one + 1, product + 1, pairs), bench::clobber(product); }}});
}

const bool registered = [] {
  for (const long bytes : bench::arraySizes) addSize(bytes);
  return true;
}();

}  // namespace
