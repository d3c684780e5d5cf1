#include <moxsp/arith.h>

#include <limits>

#include "arith/arctan.h"
#include "arith/vector_function.h"
#include "frame/in_place.h"

namespace mox::arith {
namespace {

// A rational function of |x| up to 1, and of 1 / |x| above.
struct Arctan32f {
  using Lanes = Register<Mox32f>;

  static Lanes lanes(Lanes x) {
    // The reciprocal of the largest float is 0, which is the right one for infinity.
    const auto largest = broadcast<Lanes>(std::numeric_limits<Mox32f>::max());
    const Lanes a = lesser(largest, absolute(x));
    const auto inverted = notAtMost(a, 1.0f);
    const Lanes atan = arctanOfFraction(select(inverted, refinedReciprocal(a), a));
    return withSignOf(x, select(inverted, 1.5707963705062866f - atan, atan));
  }
};

// With t = a, (a - 1) / (a + 1) or -1 / a, whichever lies within tan(pi / 8) of 0, the angle of a
// is that of t and 0, pi / 4 or pi / 2.
struct Arctan64f {
  using Lanes = Register<Mox64f>;

  static Lanes lanes(Lanes x) {
    const Lanes a = absolute(x), zero = broadcast<Lanes>(0.0);
    const auto middle = notAtMost(a, tangentOfEighthPi), far = notAtMost(a, 0x1.3504f333f9de6p+1);
    const Lanes numerator = select(far, zero - 1.0, select(middle, a - 1.0, a));
    const Lanes denominator = select(far, a, select(middle, a + 1.0, zero + 1.0));
    const Lanes angle =
        select(far, zero + 0x1.921fb54442d18p+0, select(middle, zero + 0x1.921fb54442d18p-1, zero));
    const Lanes below = select(far, zero + 0x1.1a62633145c07p-54,
                               select(middle, zero + 0x1.1a62633145c07p-55, zero));
    const Lanes t = numerator / denominator;
    return withSignOf(x, angle + (t + (arctanExcess(t) + below)));
  }
};

}  // namespace

MOX_EXPORT_BOTH(moxsArctan_32f, moxsArctan_32f_I, elementary<Arctan32f>);
MOX_EXPORT_BOTH(moxsArctan_64f, moxsArctan_64f_I, elementary<Arctan64f>);

}  // namespace mox::arith
