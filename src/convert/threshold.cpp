// Thresholds on real elements.
#include "convert/threshold.h"

#include "convert/threshold_relations.h"
#include "frame/export.h"
#include "frame/in_place.h"
#include "frame/map.h"

namespace mox::convert {
namespace {

template <class E>
constexpr int registerBytes = std::is_integral_v<E> ? vectorBytes / 2 : vectorBytes;

template <class Relation, class E, class... Values>
MoxStatus threshold(const E* src, E* dst, int len, E level, Values... values) {
  if (MoxStatus s = checkArrays(len, src, dst)) return s;
  if (MoxStatus s = Relation::check(level, values...)) return s;
  mapElements<Stores::bypassing, registerBytes<E>>(Relation(), dst, len, src, Same<E>{level},
                                                   Same<E>{values}...);
  return moxOk;
}

template <class E>
MoxStatus thresholdBy(const E* src, E* dst, int len, E level, int relOp) {
  return byOperator<AnyLevel, threshold<LT, E>, threshold<GT, E>>(src, dst, len, level, relOp);
}

}  // namespace

MOX_EXPORT(moxsThreshold_16s, thresholdBy);
MOX_EXPORT(moxsThreshold_32f, thresholdBy);
MOX_EXPORT(moxsThreshold_64f, thresholdBy);
MOX_EXPORT(moxsThreshold_16s_I, inPlace<thresholdBy<Mox16s>>);
MOX_EXPORT(moxsThreshold_32f_I, inPlace<thresholdBy<Mox32f>>);
MOX_EXPORT(moxsThreshold_64f_I, inPlace<thresholdBy<Mox64f>>);

MOX_EXPORT(moxsThreshold_LT_16s, threshold<LT>);
MOX_EXPORT(moxsThreshold_LT_32s, threshold<LT>);
MOX_EXPORT(moxsThreshold_LT_32f, threshold<LT>);
MOX_EXPORT(moxsThreshold_LT_64f, threshold<LT>);
MOX_EXPORT(moxsThreshold_LT_16s_I, inPlace<threshold<LT, Mox16s>>);
MOX_EXPORT(moxsThreshold_LT_32s_I, inPlace<threshold<LT, Mox32s>>);
MOX_EXPORT(moxsThreshold_LT_32f_I, inPlace<threshold<LT, Mox32f>>);
MOX_EXPORT(moxsThreshold_LT_64f_I, inPlace<threshold<LT, Mox64f>>);

MOX_EXPORT(moxsThreshold_GT_16s, threshold<GT>);
MOX_EXPORT(moxsThreshold_GT_32s, threshold<GT>);
MOX_EXPORT(moxsThreshold_GT_32f, threshold<GT>);
MOX_EXPORT(moxsThreshold_GT_64f, threshold<GT>);
MOX_EXPORT(moxsThreshold_GT_16s_I, inPlace<threshold<GT, Mox16s>>);
MOX_EXPORT(moxsThreshold_GT_32s_I, inPlace<threshold<GT, Mox32s>>);
MOX_EXPORT(moxsThreshold_GT_32f_I, inPlace<threshold<GT, Mox32f>>);
MOX_EXPORT(moxsThreshold_GT_64f_I, inPlace<threshold<GT, Mox64f>>);

MOX_EXPORT(moxsThreshold_LTVal_16s, threshold<LTVal>);
MOX_EXPORT(moxsThreshold_LTVal_32f, threshold<LTVal>);
MOX_EXPORT(moxsThreshold_LTVal_64f, threshold<LTVal>);
MOX_EXPORT(moxsThreshold_LTVal_16s_I, inPlace<threshold<LTVal, Mox16s, Mox16s>>);
MOX_EXPORT(moxsThreshold_LTVal_32f_I, inPlace<threshold<LTVal, Mox32f, Mox32f>>);
MOX_EXPORT(moxsThreshold_LTVal_64f_I, inPlace<threshold<LTVal, Mox64f, Mox64f>>);

MOX_EXPORT(moxsThreshold_GTVal_16s, threshold<GTVal>);
MOX_EXPORT(moxsThreshold_GTVal_32f, threshold<GTVal>);
MOX_EXPORT(moxsThreshold_GTVal_64f, threshold<GTVal>);
MOX_EXPORT(moxsThreshold_GTVal_16s_I, inPlace<threshold<GTVal, Mox16s, Mox16s>>);
MOX_EXPORT(moxsThreshold_GTVal_32f_I, inPlace<threshold<GTVal, Mox32f, Mox32f>>);
MOX_EXPORT(moxsThreshold_GTVal_64f_I, inPlace<threshold<GTVal, Mox64f, Mox64f>>);

MOX_EXPORT(moxsThreshold_LTValGTVal_16s, threshold<LTValGTVal>);
MOX_EXPORT(moxsThreshold_LTValGTVal_32s, threshold<LTValGTVal>);
MOX_EXPORT(moxsThreshold_LTValGTVal_32f, threshold<LTValGTVal>);
MOX_EXPORT(moxsThreshold_LTValGTVal_64f, threshold<LTValGTVal>);
MOX_EXPORT(moxsThreshold_LTValGTVal_16s_I,
           inPlace<threshold<LTValGTVal, Mox16s, Mox16s, Mox16s, Mox16s>>);
MOX_EXPORT(moxsThreshold_LTValGTVal_32s_I,
           inPlace<threshold<LTValGTVal, Mox32s, Mox32s, Mox32s, Mox32s>>);
MOX_EXPORT(moxsThreshold_LTValGTVal_32f_I,
           inPlace<threshold<LTValGTVal, Mox32f, Mox32f, Mox32f, Mox32f>>);
MOX_EXPORT(moxsThreshold_LTValGTVal_64f_I,
           inPlace<threshold<LTValGTVal, Mox64f, Mox64f, Mox64f, Mox64f>>);

MOX_EXPORT(moxsThreshold_LTAbs_16s, threshold<LTAbs>);
MOX_EXPORT(moxsThreshold_LTAbs_32s, threshold<LTAbs>);
MOX_EXPORT(moxsThreshold_LTAbs_32f, threshold<LTAbs>);
MOX_EXPORT(moxsThreshold_LTAbs_64f, threshold<LTAbs>);
MOX_EXPORT(moxsThreshold_LTAbs_16s_I, inPlace<threshold<LTAbs, Mox16s>>);
MOX_EXPORT(moxsThreshold_LTAbs_32s_I, inPlace<threshold<LTAbs, Mox32s>>);
MOX_EXPORT(moxsThreshold_LTAbs_32f_I, inPlace<threshold<LTAbs, Mox32f>>);
MOX_EXPORT(moxsThreshold_LTAbs_64f_I, inPlace<threshold<LTAbs, Mox64f>>);

MOX_EXPORT(moxsThreshold_GTAbs_16s, threshold<GTAbs>);
MOX_EXPORT(moxsThreshold_GTAbs_32s, threshold<GTAbs>);
MOX_EXPORT(moxsThreshold_GTAbs_32f, threshold<GTAbs>);
MOX_EXPORT(moxsThreshold_GTAbs_64f, threshold<GTAbs>);
MOX_EXPORT(moxsThreshold_GTAbs_16s_I, inPlace<threshold<GTAbs, Mox16s>>);
MOX_EXPORT(moxsThreshold_GTAbs_32s_I, inPlace<threshold<GTAbs, Mox32s>>);
MOX_EXPORT(moxsThreshold_GTAbs_32f_I, inPlace<threshold<GTAbs, Mox32f>>);
MOX_EXPORT(moxsThreshold_GTAbs_64f_I, inPlace<threshold<GTAbs, Mox64f>>);

}  // namespace mox::convert
