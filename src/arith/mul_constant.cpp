#include "arith/mul_constant.h"

#include "frame/map.h"

namespace mox {

template <class F>
void ownsMulC_I(F factor, F* data, long count) {
  if (factor == 1) return;
  if (factor == 0) {
    std::memset(data, 0, std::size_t(count) * sizeof(F));
    return;
  }
  mapElements([factor](auto x) { return x * factor; }, data, count, data);
}

template void ownsMulC_I(Mox32f, Mox32f*, long);
template void ownsMulC_I(Mox64f, Mox64f*, long);

}  // namespace mox
