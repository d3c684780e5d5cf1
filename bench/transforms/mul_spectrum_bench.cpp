#include <moxsp.h>

#include <memory>
#include <vector>

#include "support/compare.h"

namespace {

// What a user would write instead, at -O3 for the same instruction set.
void plainMulPerm(const float* a, const float* b, float* dst, int len) {
  dst[0] = a[0] * b[0];
  dst[1] = a[1] * b[1];
  for (int i = 2; i < len; i += 2) {
    const float re = a[i] * b[i] - a[i + 1] * b[i + 1];
    const float im = a[i] * b[i + 1] + a[i + 1] * b[i];
    dst[i] = re;
    dst[i + 1] = im;
  }
}

const bool registered = [] {
  for (const long bytes : {1L << 10, 4L << 10, 256L << 10, 64L << 20}) {
    const int len = int(bytes / long(sizeof(float)));
    struct Data {
      std::vector<float> a, b, dst;
    };
    auto data = std::make_shared<Data>(Data{
        std::vector<float>(len, 1.5f), std::vector<float>(len, 2.5f), std::vector<float>(len)});
    bench::add(
        {.family = "mul_perm_32f",
         .size = bytes,
         .work = {.bytesRead = 2.0 * bytes, .bytesWritten = 1.0 * bytes, .floatOps = 3.0 * len},
         .ours = [=] { moxsMulPerm_32f(data->a.data(), data->b.data(), data->dst.data(), len); },
         .peers = {{"loop", [=] {
                      plainMulPerm(data->a.data(), data->b.data(), data->dst.data(), len);
                      bench::clobber(data->dst.data());
                    }}}});
  }
  return true;
}();

}  // namespace
