// Each check can fail: here it meets functions that have the fault it looks for.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <immintrin.h>

#include <algorithm>
#include <climits>
#include <cstdint>

#include "frame/every/call.h"
#include "frame/every/checks.h"
#include "frame/every/tables.h"
#include "support/moxcore.h"

namespace {

using namespace every;
using CheckFunction = void(const Function&, Position&);

[[maybe_unused]] volatile char seen;
[[maybe_unused]] void* volatile kept;
char* byteOf(const Mox32f* p, long i) { return (char*)p + i; }
bool isOdd(const Mox32f* p) { return reinterpret_cast<std::uintptr_t>(p) % 4 == 3; }

MoxStatus checked(const Mox32f* src, Mox32f* dst, int len) {
  if (!src || !dst) return moxErrNullPtr;
  return len < 1 ? moxErrSize : moxOk;
}

// Copies, but for the fault that `spoil` adds to the good call.
template <auto spoil>
MoxStatus copy(const Mox32f* src, Mox32f* dst, int len) {
  if (const MoxStatus s = checked(src, dst, len)) return s;
  std::memmove(dst, src, std::size_t(len) * 4);
  spoil(src, dst, len);
  return moxOk;
}

MoxStatus refusesLate(const Mox32f* src, Mox32f* dst, int len) {
  if (dst && len > 0) *byteOf(dst, 0) ^= 1;
  return checked(src, dst, len);
}
MoxStatus acceptsNegativeLength(const Mox32f* src, Mox32f* dst, int len) {
  return checked(src, dst, len < 0 ? 1 : len);
}
MoxStatus checksLengthFirst(const Mox32f* src, Mox32f* dst, int len) {
  return len < 1 ? moxErrSize : checked(src, dst, len);
}

constexpr auto readsBehind = [](auto* src, auto*, int len) { seen = *byteOf(src, 4 * len); };
constexpr auto readsBefore = [](auto* src, auto*, int len) {
  if (len == 33) seen = *byteOf(src, -1);
};
constexpr auto writesBehind = [](auto*, auto* dst, int len) {
  if (isOdd(dst) && len == 70) *byteOf(dst, 4 * len) = 0;
};
constexpr auto dependsOnAlignment = [](auto*, auto* dst, int) { *byteOf(dst, 0) ^= isOdd(dst); };
constexpr auto dependsOnLength = [](auto*, auto* dst, int len) {
  if (len == 19) *byteOf(dst, 72) ^= 1;
};
constexpr auto keepsRounding = [](auto*, auto*, int) { _mm_setcsr(0x3F80); };
constexpr auto keepsMemory = [](auto*, auto*, int) { kept = moxMalloc(8); };
MoxStatus readsAfterWriting(const Mox32f* src, Mox32f* dst, int len) {
  if (const MoxStatus s = checked(src, dst, len)) return s;
  for (int i = 0; i < len; ++i) {
    Mox32f previous;
    std::memcpy(&previous, src + std::max(i - 1, 0), 4);
    std::memcpy(dst + i, &previous, 4);
  }
  return moxOk;
}

std::string verdict(CheckFunction* check, MoxStatus (*f)(const Mox32f*, Mox32f*, int)) {
  const Function faulty = {"moxsFaulty_32f",
                           {"src", "dst", "len"},
                           signatureOf<decltype(f)>,
                           reinterpret_cast<AnyFunction*>(f)};
  Position at;
  try {
    check(faulty, at);
  } catch (const Misbehaved& fault) {
    return fault.what() + (", " + at.detail);
  }
  return "fine";
}

TEST(Harness, FindsTheFaultOfABadFunction) {
  const auto expect = [](CheckFunction* check, auto* function, const char* words) {
    EXPECT_THAT(verdict(check, function), testing::HasSubstr(words));
  };
  expect(checkRefusals, refusesLate, "changes byte 0 of 'dst'");
  expect(checkRefusals, acceptsNegativeLength, "answers 0 instead of -6");
  expect(checkRefusals, checksLengthFirst,
         "answers -6 instead of -8, with a null 'src' and len = 0");
  expect(checkEveryLengthAndAlignment, copy<dependsOnAlignment>,
         "another result at element 0 of 'dst'");
  expect(checkShorterCalls, copy<dependsOnLength>, "another result at element 18 of 'dst'");
  expect(checkOntoSource, readsAfterWriting, "another result at element 2");
  expect(checkControlWords, copy<keepsRounding>, "vector control word");
  expect(checkAllocations, copy<keepsMemory>, "takes memory");
#if defined(MOXSP_SANITIZED)
  return;  // the sanitizer ends the program at the first stray byte
#endif
  expect(checkEveryLengthAndAlignment, copy<writesBehind>,
         "writes outside 'dst', at byte 280 of 280");
  expect(checkEveryLengthAndAlignment, copy<readsBehind>, "touches forbidden memory near 'src'");
  expect(checkEveryLengthAndAlignment, copy<readsBefore>, "near 'src': byte -1 of 132");
}

TEST(Harness, FindsIdleRowsAndDoubleClaims) {
  using testing::ElementsAre, testing::HasSubstr;
  EXPECT_THAT(faultsOf("t", {{"Add_32f", "len"}, {"Add_*", "src1"}, {"*", "len"}}), ElementsAre());
  EXPECT_THAT(faultsOf("t", {{"Add_32f", "len"}, {"Add_32f?(_I)", "len"}}),
              ElementsAre(HasSubstr("two rows claim 'len' of moxsAdd_32f")));
  EXPECT_THAT(faultsOf("t", {{"Add_32f Wave_*", "len mood"}}),
              ElementsAre(HasSubstr("'Wave_*' serves no"), HasSubstr("'mood' serves no")));
}

TEST(Harness, NamesWhatItDoesNotKnow) {
  auto* f = +[](const Mox32f*, int, Mox32f) { return MoxStatus(moxOk); };
  const Function strange = {"moxsStrange_32f",
                            {"wavelets", "len", "mood"},
                            signatureOf<decltype(f)>,
                            reinterpret_cast<AnyFunction*>(f)};
  Position at;
  EXPECT_THAT([&] { checkRefusals(strange, at); },
              testing::ThrowsMessage<Unknown>(testing::HasSubstr("'mood' of moxsStrange_32f")));
}

}  // namespace
