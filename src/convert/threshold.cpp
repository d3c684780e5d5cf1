// Thresholds on real elements.
#include "convert/threshold.h"

#include "frame/in_place.h"
#include "frame/map.h"

namespace mox::convert {
namespace {

template <class R, class E, class... Values>
requires Relation<R, E, E, Values...> MoxStatus threshold(const E* src, E* dst, int len, E level,
                                                          Values... values) {
  if (MoxStatus s = checkArrays(len, src, dst)) return s;
  if (MoxStatus s = R::check(level, values...)) return s;
  mapElements<Stores::bypassing, registerBytes<E>>(R(), dst, len, src, Same<E>{level},
                                                   Same<E>{values}...);
  return moxOk;
}

template <class E>
MoxStatus thresholdBy(const E* src, E* dst, int len, E level, int relOp) {
  return byOperator<AnyLevel, threshold<LT, E>, threshold<GT, E>>(src, dst, len, level, relOp);
}

}  // namespace

MOX_EXPORT_BOTH(moxsThreshold_16s, moxsThreshold_16s_I, thresholdBy);
MOX_EXPORT_BOTH(moxsThreshold_32f, moxsThreshold_32f_I, thresholdBy);
MOX_EXPORT_BOTH(moxsThreshold_64f, moxsThreshold_64f_I, thresholdBy);

MOX_EXPORT_BOTH(moxsThreshold_LT_16s, moxsThreshold_LT_16s_I, threshold<LT>);
MOX_EXPORT_BOTH(moxsThreshold_LT_32s, moxsThreshold_LT_32s_I, threshold<LT>);
MOX_EXPORT_BOTH(moxsThreshold_LT_32f, moxsThreshold_LT_32f_I, threshold<LT>);
MOX_EXPORT_BOTH(moxsThreshold_LT_64f, moxsThreshold_LT_64f_I, threshold<LT>);

MOX_EXPORT_BOTH(moxsThreshold_GT_16s, moxsThreshold_GT_16s_I, threshold<GT>);
MOX_EXPORT_BOTH(moxsThreshold_GT_32s, moxsThreshold_GT_32s_I, threshold<GT>);
MOX_EXPORT_BOTH(moxsThreshold_GT_32f, moxsThreshold_GT_32f_I, threshold<GT>);
MOX_EXPORT_BOTH(moxsThreshold_GT_64f, moxsThreshold_GT_64f_I, threshold<GT>);

MOX_EXPORT_BOTH(moxsThreshold_LTVal_16s, moxsThreshold_LTVal_16s_I, threshold<LTVal>);
MOX_EXPORT_BOTH(moxsThreshold_LTVal_32f, moxsThreshold_LTVal_32f_I, threshold<LTVal>);
MOX_EXPORT_BOTH(moxsThreshold_LTVal_64f, moxsThreshold_LTVal_64f_I, threshold<LTVal>);

MOX_EXPORT_BOTH(moxsThreshold_GTVal_16s, moxsThreshold_GTVal_16s_I, threshold<GTVal>);
MOX_EXPORT_BOTH(moxsThreshold_GTVal_32f, moxsThreshold_GTVal_32f_I, threshold<GTVal>);
MOX_EXPORT_BOTH(moxsThreshold_GTVal_64f, moxsThreshold_GTVal_64f_I, threshold<GTVal>);

MOX_EXPORT_BOTH(moxsThreshold_LTValGTVal_16s, moxsThreshold_LTValGTVal_16s_I,
                threshold<LTValGTVal>);
MOX_EXPORT_BOTH(moxsThreshold_LTValGTVal_32s, moxsThreshold_LTValGTVal_32s_I,
                threshold<LTValGTVal>);
MOX_EXPORT_BOTH(moxsThreshold_LTValGTVal_32f, moxsThreshold_LTValGTVal_32f_I,
                threshold<LTValGTVal>);
MOX_EXPORT_BOTH(moxsThreshold_LTValGTVal_64f, moxsThreshold_LTValGTVal_64f_I,
                threshold<LTValGTVal>);

MOX_EXPORT_BOTH(moxsThreshold_LTAbs_16s, moxsThreshold_LTAbs_16s_I, threshold<LTAbs>);
MOX_EXPORT_BOTH(moxsThreshold_LTAbs_32s, moxsThreshold_LTAbs_32s_I, threshold<LTAbs>);
MOX_EXPORT_BOTH(moxsThreshold_LTAbs_32f, moxsThreshold_LTAbs_32f_I, threshold<LTAbs>);
MOX_EXPORT_BOTH(moxsThreshold_LTAbs_64f, moxsThreshold_LTAbs_64f_I, threshold<LTAbs>);

MOX_EXPORT_BOTH(moxsThreshold_GTAbs_16s, moxsThreshold_GTAbs_16s_I, threshold<GTAbs>);
MOX_EXPORT_BOTH(moxsThreshold_GTAbs_32s, moxsThreshold_GTAbs_32s_I, threshold<GTAbs>);
MOX_EXPORT_BOTH(moxsThreshold_GTAbs_32f, moxsThreshold_GTAbs_32f_I, threshold<GTAbs>);
MOX_EXPORT_BOTH(moxsThreshold_GTAbs_64f, moxsThreshold_GTAbs_64f_I, threshold<GTAbs>);

}  // namespace mox::convert
