#include <moxsp.h>

#include <memory>
#include <vector>

#include "support/compare.h"

namespace {

// What a user would write instead, at -O3 for the same instruction set.
void plainAdd(const float* a, const float* b, float* dst, int len) {
  for (int i = 0; i < len; ++i) dst[i] = a[i] + b[i];
}

const bool registered = [] {
  for (const long bytes : {4L << 10, 256L << 10, 64L << 20}) {
    const int len = int(bytes / long(sizeof(float)));
    struct Data {
      std::vector<float> a, b, dst;
    };
    auto data = std::make_shared<Data>(Data{
        std::vector<float>(len, 1.5f), std::vector<float>(len, 2.5f), std::vector<float>(len)});
    bench::add({.family = "add_32f",
                .size = bytes,
                .work = {.bytesRead = 2.0 * bytes, .bytesWritten = 1.0 * bytes},
                .ours = [=] { moxsAdd_32f(data->a.data(), data->b.data(), data->dst.data(), len); },
                .peers = {{"loop", [=] {
                             plainAdd(data->a.data(), data->b.data(), data->dst.data(), len);
                             bench::clobber(data->dst.data());
                           }}}});
  }
  return true;
}();

}  // namespace
