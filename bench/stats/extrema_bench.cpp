// Extrema beside VOLK, Eigen, OpenBLAS and what a user would write, at -O3 for the same
// instruction set.
#include <cblas.h>
#include <moxsp.h>
#include <volk/volk.h>

#include <Eigen/Core>
#include <cstdint>
#include <memory>
#include <utility>
#include <vector>

#include "support/compare.h"

namespace {

// Positive elements, so that magnitudes are the elements themselves.
template <class T>
struct Data {
  explicit Data(long bytes) : len(int(bytes / long(sizeof(T)))), a(len), b(len), dst(len) {
    unsigned random = 1;
    for (int i = 0; i < len; ++i) {
      random = random * 1664525u + 1013904223u;
      a[i] = T(random >> 17), b[i] = T(random >> 3 & 0x7FFF);
    }
  }
  int len;
  std::vector<T> a, b, dst;
  T least, most;
  int first, last;
  auto eigen(const std::vector<T>& v) const {
    return Eigen::Map<const Eigen::Array<T, Eigen::Dynamic, 1>>(v.data(), len);
  }
};

template <class T>
using Run = void (*)(Data<T>&);

template <class T>
void addCase(const char* family, long bytes, bench::Work work, Run<T> ours,
             std::vector<std::pair<const char*, Run<T>>> peers) {
  auto data = std::make_shared<Data<T>>(bytes);
  bench::Case c{
      .family = family, .size = bytes, .work = work, .ours = [=] { ours(*data); }, .peers = {}};
  for (const auto& [name, run] : peers)
    c.peers.push_back({name, [data, run = run] {
                         run(*data);
                         bench::clobber(data.get());
                       }});
  bench::add(std::move(c));
}

template <class T>
[[gnu::noinline]] void maxLoop(Data<T>& d) {
  T most = d.a[0];
  for (int i = 1; i < d.len; ++i) most = d.a[i] > most ? d.a[i] : most;
  d.most = most;
}
template <class T>
[[gnu::noinline]] void argmaxLoop(Data<T>& d) {
  T most = d.a[0];
  int last = 0;
  for (int i = 1; i < d.len; ++i)
    if (d.a[i] > most) most = d.a[i], last = i;
  d.most = most, d.last = last;
}
template <class T>
[[gnu::noinline]] void minMaxLoop(Data<T>& d) {
  T least = d.a[0], most = d.a[0];
  for (int i = 1; i < d.len; ++i) {
    least = d.a[i] < least ? d.a[i] : least;
    most = d.a[i] > most ? d.a[i] : most;
  }
  d.least = least, d.most = most;
}
template <class T>
[[gnu::noinline]] void maxEveryLoop(Data<T>& d) {
  const T *a = d.a.data(), *b = d.b.data();
  T* dst = d.dst.data();
  for (int i = 0; i < d.len; ++i) dst[i] = a[i] > b[i] ? a[i] : b[i];
}

void addMaxima(long bytes) {
  const bench::Group group("reductions");
  using F = Data<float>&;
  using D = Data<double>&;
  using S = Data<std::int16_t>&;
  using I = Data<std::int32_t>&;
  const bench::Work read{.bytesRead = double(bytes)};
  addCase<float>("max_32f", bytes, read, [](F d) { moxsMax_32f(d.a.data(), d.len, &d.most); },
                 {{"eigen", [](F d) { d.most = d.eigen(d.a).maxCoeff(); }}, {"loop", maxLoop}});
  addCase<double>("max_64f", bytes, read, [](D d) { moxsMax_64f(d.a.data(), d.len, &d.most); },
                  {{"eigen", [](D d) { d.most = d.eigen(d.a).maxCoeff(); }}, {"loop", maxLoop}});
  addCase<std::int32_t>(
      "max_32s", bytes, read, [](I d) { moxsMax_32s(d.a.data(), d.len, &d.most); },
      {{"eigen", [](I d) { d.most = d.eigen(d.a).maxCoeff(); }}, {"loop", maxLoop}});
  addCase<std::int16_t>(
      "max_16s", bytes, read, [](S d) { moxsMax_16s(d.a.data(), d.len, &d.most); },
      {{"eigen", [](S d) { d.most = d.eigen(d.a).maxCoeff(); }}, {"loop", maxLoop}});
  addCase<float>("minmax_32f", bytes, read,
                 [](F d) { moxsMinMax_32f(d.a.data(), d.len, &d.least, &d.most); },
                 {{"eigen",
                   [](F d) {
                     d.least = d.eigen(d.a).minCoeff();
                     d.most = d.eigen(d.a).maxCoeff();
                   }},
                  {"loop", minMaxLoop}});
  addCase<std::int16_t>("minmax_16s", bytes, read,
                        [](S d) { moxsMinMax_16s(d.a.data(), d.len, &d.least, &d.most); },
                        {{"loop", minMaxLoop}});
}

void addIndices(long bytes) {
  const bench::Group group("reductions");
  using F = Data<float>&;
  using D = Data<double>&;
  using S = Data<std::int16_t>&;
  const bench::Work read{.bytesRead = double(bytes)};
  addCase<float>(
      "maxindx_32f", bytes, read, [](F d) { moxsMaxIndx_32f(d.a.data(), d.len, &d.most, &d.last); },
      {{"volk",
        [](F d) {
          std::uint32_t last;
          volk_32f_index_max_32u(&last, d.a.data(), std::uint32_t(d.len));
          d.last = int(last);
        }},
       {"openblas isamax", [](F d) { d.last = int(cblas_isamax(d.len, d.a.data(), 1)); }},
       {"openblas ismax", [](F d) { d.last = int(cblas_ismax(d.len, d.a.data(), 1)); }},
       {"eigen",
        [](F d) {
          Eigen::Index last;
          d.most = d.eigen(d.a).maxCoeff(&last);
          d.last = int(last);
        }},
       {"loop", argmaxLoop}});
  addCase<double>(
      "maxindx_64f", bytes, read, [](D d) { moxsMaxIndx_64f(d.a.data(), d.len, &d.most, &d.last); },
      {{"openblas idamax", [](D d) { d.last = int(cblas_idamax(d.len, d.a.data(), 1)); }},
       {"openblas idmax", [](D d) { d.last = int(cblas_idmax(d.len, d.a.data(), 1)); }},
       {"loop", argmaxLoop}});
  addCase<std::int16_t>("maxabsindx_16s", bytes, read,
                        [](S d) { moxsMaxAbsIndx_16s(d.a.data(), d.len, &d.most, &d.last); },
                        {{"loop without abs", argmaxLoop}});
  addCase<float>(
      "minmaxindx_32f", bytes, read,
      [](F d) { moxsMinMaxIndx_32f(d.a.data(), d.len, &d.least, &d.first, &d.most, &d.last); },
      {{"volk", [](F d) {
          std::uint32_t first, last;
          volk_32f_index_min_32u(&first, d.a.data(), std::uint32_t(d.len));
          volk_32f_index_max_32u(&last, d.a.data(), std::uint32_t(d.len));
          d.first = int(first), d.last = int(last);
        }}});
}

void addEvery(long bytes) {
  const bench::Group group("vectors");
  using F = Data<float>&;
  using B = Data<std::uint8_t>&;
  const bench::Work pass{.bytesRead = 2 * double(bytes), .bytesWritten = double(bytes)};
  addCase<float>(
      "maxevery_32f", bytes, pass,
      [](F d) { moxsMaxEvery_32f(d.a.data(), d.b.data(), d.dst.data(), d.len); },
      {{"volk",
        [](F d) { volk_32f_x2_max_32f(d.dst.data(), d.a.data(), d.b.data(), unsigned(d.len)); }},
       {"eigen",
        [](F d) {
          Eigen::Map<Eigen::ArrayXf>(d.dst.data(), d.len) = d.eigen(d.a).max(d.eigen(d.b));
        }},
       {"loop", maxEveryLoop}});
  addCase<std::uint8_t>("maxevery_8u", bytes, pass,
                        [](B d) { moxsMaxEvery_8u(d.a.data(), d.b.data(), d.dst.data(), d.len); },
                        {{"loop", maxEveryLoop}});
}

void addOrder(long bytes) {
  using F = Data<float>&;
  using D = Data<double>&;
  const bench::Work read{.bytesRead = double(bytes)};
  addCase<float>("maxorder_32f", bytes, read,
                 [](F d) { moxsMaxOrder_32f(d.a.data(), d.len, &d.last); },
                 {{"eigen max of abs", [](F d) { d.most = d.eigen(d.a).abs().maxCoeff(); }}});
  addCase<double>("maxorder_64f", bytes, read,
                  [](D d) { moxsMaxOrder_64f(d.a.data(), d.len, &d.last); },
                  {{"eigen max of abs", [](D d) { d.most = d.eigen(d.a).abs().maxCoeff(); }}});
}

const bool registered = [] {
  openblas_set_num_threads(1);
  for (const long bytes : {4L << 10, 256L << 10, 64L << 20}) {
    addMaxima(bytes);
    addIndices(bytes);
    addEvery(bytes);
    addOrder(bytes);
  }
  return true;
}();

}  // namespace
