// Prints the table of docs/resampling.md: what resamplers do to sines, and how long they take.
#include <chrono>
#include <cstdio>
#include <functional>
#include <numbers>

#include "resample/resamplers.h"

namespace {

using Signal = std::vector<float>;
using Resample = std::function<void(const Signal&, Signal&)>;

constexpr int order = 14, points = 1 << order;

// Kaiser's window with side lobes below -200 dB, by the library: it takes the place of `x`.
void window(std::vector<double>& x) {
  constexpr double shape = 22;
  moxsWinKaiser_64f_I(x.data(), points, 2 * shape / (points - 1));
}

// The power in each bin of the middle of a signal.
std::vector<double> spectrumOf(const Signal& y) {
  std::vector<double> x(y.begin() + long(y.size() - points) / 2,
                        y.begin() + long(y.size() + points) / 2);
  window(x);
  std::vector<Mox64fc> bins(points / 2 + 1);
  std::vector<double> power(bins.size());
  MoxsFFTSpec* fft;
  moxsFFTInitAlloc_R_64f(&fft, order, moxNormNone, moxHintNone);
  moxsFFTFwd_RToCCS_64f(x.data(), reinterpret_cast<double*>(bins.data()), fft, nullptr);
  moxsFFTFree_R_64f(fft);
  moxsPowerSpectr_64fc(bins.data(), power.data(), int(bins.size()));
  return power;
}

double decibels(double ratio) { return 10 * std::log10(ratio + 1e-30); }

// The power of lines at some frequencies, relative to the rate, over that of all others or, with
// `strongest`, over the strongest other bin.
double overRest(const Signal& y, const std::vector<double>& lines, bool strongest) {
  double inLines = 0, rest = 0, peak = 0;
  const auto power = spectrumOf(y);
  for (int k = 0; k < int(power.size()); ++k) {
    const bool isLine =
        std::ranges::any_of(lines, [&](double f) { return std::abs(k - f * points) <= 16; });
    (isLine ? inLines : rest) += power[k];
    if (!isLine) peak = std::max(peak, power[k]);
  }
  return decibels(inLines / (strongest ? peak : rest));
}

struct Rates {
  int in, out;
  double lower() const { return std::min(in, out) / 2.0; }
};

Signal sines(const std::vector<double>& hz, Rates r) {
  Signal x(std::size_t(2.0 * points * r.in / r.out) + 40000);
  for (std::size_t i = 0; i < x.size(); ++i)
    for (const double f : hz)
      x[i] += float(0.9 / double(hz.size()) *
                    std::sin(2 * std::numbers::pi * f * double(i) / r.in + f));
  return x;
}

double worstNoise(Rates r, const Resample& resample) {
  double worst = 1e9;
  Signal y;
  for (int k = 1; k <= 18; ++k) {
    const double hz = 0.05 * k * r.lower();
    resample(sines({hz}, r), y);
    worst = std::min(worst, overRest(y, {hz / r.out}, false));
  }
  return worst;
}
double strongestImage(Rates r, const Resample& resample) {
  Signal y;
  const double a = 0.85 * r.lower(), b = 0.9 * r.lower();
  resample(sines({a, b}, r), y);
  return overRest(y, {a / r.out, b / r.out}, true);
}
// Of what no output can hold: a sine 5 % above half the lower rate, or its image.
double rejection(Rates r, const Resample& resample) {
  Signal y, inBand;
  const double edge = (r.out < r.in ? 1.05 : 0.95) * r.lower();
  resample(sines({edge}, r), y);
  if (r.out > r.in) return overRest(y, {edge / r.out}, false);
  resample(sines({0.3 * r.lower()}, r), inBand);
  const auto total = [](const Signal& s) {
    double sum = 0;
    for (const double p : spectrumOf(s)) sum += p;
    return sum;
  };
  return decibels(total(inBand) / total(y));
}

// The least of several runs over ten seconds, for an output.
double nanoseconds(Rates r, const Resample& resample) {
  Signal x(10 * r.in), y;
  for (std::size_t i = 0; i < x.size(); ++i) x[i] = float(std::sin(0.7 * double(i)));
  double best = 1e9;
  for (int k = 0; k < 15; ++k) {
    const auto start = std::chrono::steady_clock::now();
    resample(x, y);
    best = std::min(
        best, std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count());
  }
  return best * 1e9 / double(y.size());
}

void printRow(Rates r, const char* name, const char* setting, const Resample& resample) {
  std::printf("| %g to %g | %s | %s | %.0f | %.0f | %.0f | %.1f |\n", r.in / 1e3, r.out / 1e3, name,
              setting, worstNoise(r, resample), strongestImage(r, resample), rejection(r, resample),
              nanoseconds(r, resample));
  std::fflush(stdout);
}

template <class Resampler>
void printOurs(Rates r, const char* name, bench::Setting s) {
  Resampler resampler(r.in, r.out, s);
  char setting[64];
  std::snprintf(setting, sizeof setting, "%d, %g, %g", s.taps, s.rollf, s.alpha);
  printRow(r, name, setting, [&](const Signal& x, Signal& y) { resampler.run(x, y); });
}

}  // namespace

int main() {
  std::puts(
      "| kHz | resampler | taps, roll-off, alpha | noise dB | image dB | rejection dB | ns an "
      "output |");
  std::puts("|---|---|---|---|---|---|---|");
  for (const Rates r : {Rates{44100, 48000}, {48000, 44100}, {48000, 16000}, {8000, 48000}}) {
    for (const bench::Setting s : {bench::Setting{64, 1, 7}, {128, 0.96f, 12}, {192, 0.957f, 13}})
      printOurs<bench::FixedResampler>(r, "ResamplePolyphaseFixed", s);
    printOurs<bench::VariableResampler>(r, "ResamplePolyphase", {128, 0.96f, 12});
    for (const auto p : {bench::Peer::srcMedium, bench::Peer::srcBest, bench::Peer::soxrHigh,
                         bench::Peer::soxrVeryHigh})
      printRow(r, bench::nameOf(p), "",
               [&](const Signal& x, Signal& y) { bench::runPeer(p, x, r.in, r.out, y); });
  }
}
