// The natural logarithm of floats.
#include "arith/ln.h"

#include <moxsp/arith.h>

#include "arith/vector_function.h"
#include "frame/in_place.h"

namespace mox::arith {
namespace {

// In single precision: x = 2^e * m with m from 2/3 to 4/3, and a polynomial in m - 1.
struct Ln32f {
  using Lanes = Register<Mox32f>;

  static Lanes lanes(Lanes x) {
    constexpr Mox32u least = 0x3F2AAAAB;  // two thirds
    const auto above = Bits<Lanes>(x) - least;
    const Lanes e = floatsOf(Beside<Mox32s, Lanes>(above) >> 23);
    const Lanes m = Lanes((above & 0x7FFFFF) + least);
    const Lanes r = m - 1.0f;
    Lanes q = r * -0.15177205204963684f + 0.16964881122112274f;
    q = q * r - 0.16462457180023193f;
    q = q * r + 0.19822503626346588f;
    q = q * r - 0.25004664063453674f;
    q = q * r + 0.33336564898490906f;
    q = q * r - 0.5f;
    return e * 0.6931471824645996f + (r + r * r * q);
  }

  static Mask<Lanes> special(Lanes x) {
    using Range = std::numeric_limits<Mox32f>;
    return either(notAtLeast(x, Range::min()), notAtMost(x, Range::max()));
  }

  static Lanes rare(Lanes x, int& code) {
    return lnOutsideItsDomain(x, inDoubles(x, Ln64f::lanes), code);
  }
};

template <VectorFunction Function, class S, class D>
MoxStatus ln(const S* src, D* dst, int len) {
  if (MoxStatus s = checkArrays(len, src, dst)) return s;
  return lnStatus(runFunction<Function>(src, dst, len));
}

}  // namespace

void lnOfFloats(Mox32f* srcDst, long len) { runFunction<Ln32f>(srcDst, srcDst, int(len)); }

MOX_EXPORT_BOTH(moxsLn_32f, moxsLn_32f_I, ln<Ln32f>);
MOX_EXPORT_BOTH(moxsLn_64f, moxsLn_64f_I, ln<Ln64f>);
MOX_EXPORT(moxsLn_64f32f, ln<Ln64f>);

}  // namespace mox::arith
