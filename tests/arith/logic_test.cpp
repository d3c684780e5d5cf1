#include <gtest/gtest.h>
#include <moxsp.h>

#include <climits>

#include "arith/members.h"

namespace {

using namespace test;

const auto anyBits = []<class E>(Random& random, E) { return random.value<E>(); };

template <class E, class Model>
void expectLogic(PairMember<E, E, E> pair, PairInPlaceMember<E, E> pairInPlace,
                 ConstantMember<E, E> constant, ConstantInPlaceMember<E, E> constantInPlace,
                 Model model) {
  const auto result = [=](E a, E b) { return E(model(a, b)); };
  expectPairs(pair, pairInPlace, result, anyBits);
  for (E val : {E(0), E(~0), E(0x5A3C69F1)})
    expectConstants(constant, constantInPlace, val, result, anyBits);
}

TEST(Logic, EveryMemberIsTheBitwiseOperation) {
#define MEMBERS(op, t) moxs##op##_##t, moxs##op##_##t##_I, moxs##op##C_##t, moxs##op##C_##t##_I
  expectLogic<Mox8u>(MEMBERS(And, 8u), std::bit_and<>());
  expectLogic<Mox16u>(MEMBERS(And, 16u), std::bit_and<>());
  expectLogic<Mox32u>(MEMBERS(And, 32u), std::bit_and<>());
  expectLogic<Mox8u>(MEMBERS(Or, 8u), std::bit_or<>());
  expectLogic<Mox16u>(MEMBERS(Or, 16u), std::bit_or<>());
  expectLogic<Mox32u>(MEMBERS(Or, 32u), std::bit_or<>());
  expectLogic<Mox8u>(MEMBERS(Xor, 8u), std::bit_xor<>());
  expectLogic<Mox16u>(MEMBERS(Xor, 16u), std::bit_xor<>());
  expectLogic<Mox32u>(MEMBERS(Xor, 32u), std::bit_xor<>());
#undef MEMBERS
}

template <class E>
void expectNot(PairInPlaceMember<E, E> plain, MoxStatus (*inPlace)(E*, int)) {
  Random random;
  atLengthsAndPlaces([&](long len, int slack) {
    const auto a = random.vector<E>(len);
    auto expected = a;
    for (E& e : expected) e = E(~e);
    const Place<E> src(len, 0), dst(len, slack);
    ASSERT_EQ(plain(src.filled(a), dst.data(), int(len)), moxOk);
    dst.expect(expected, "plain");
    ASSERT_EQ(inPlace(dst.filled(a), int(len)), moxOk);
    dst.expect(expected, "in place");
  });
}

TEST(Logic, NotTurnsEveryBit) {
  expectNot<Mox8u>(moxsNot_8u, moxsNot_8u_I);
  expectNot<Mox16u>(moxsNot_16u, moxsNot_16u_I);
  expectNot<Mox32u>(moxsNot_32u, moxsNot_32u_I);
}

// The model shifts in 64 bits, one place at a time.
template <class E>
E leftShifted(E a, int count) {
  Mox64u wide = Mox64u(a);
  for (int i = 0; i < std::min(count, 64); ++i) wide *= 2;
  return E(wide);
}
template <class E>
E rightShifted(E a, int count) {
  Mox64s wide = a;
  for (int i = 0; i < std::min(count, 64); ++i) wide = wide / 2 - (wide < 0 && wide % 2);
  return E(wide);
}

template <class E, class Model>
void expectShift(ConstantMember<E, int> plain, ConstantInPlaceMember<E, int> inPlace, Model model) {
  constexpr int width = 8 * sizeof(E);
  for (int count : {0, 1, 3, width / 2, width - 1, width, width + 1, 64, INT_MAX}) {
    SCOPED_TRACE(count);
    expectConstants(plain, inPlace, count, model, anyBits);
  }
  E untouched[2] = {1, 2};
  EXPECT_EQ(plain(untouched, -1, untouched, 2), moxErrShift);
  EXPECT_EQ(inPlace(INT_MIN, untouched, 2), moxErrShift);
  EXPECT_EQ(untouched[0], 1);
  EXPECT_EQ(untouched[1], 2);
  // A bad count is told only when all else is well.
  EXPECT_EQ(plain(untouched, -1, untouched, 0), moxErrSize);
  EXPECT_EQ(plain(nullptr, -1, untouched, 0), moxErrNullPtr);
  for (int count : {0, 3, 100}) {
    EXPECT_EQ(plain(nullptr, count, untouched, 2), moxErrNullPtr);
    EXPECT_EQ(plain(untouched, count, nullptr, 0), moxErrNullPtr);
    EXPECT_EQ(inPlace(count, untouched, 0), moxErrSize);
  }
}

TEST(Shift, LeftDropsTheHighBitsAndClearsFromTheWidthOn) {
  expectShift<Mox8u>(moxsLShiftC_8u, moxsLShiftC_8u_I, leftShifted<Mox8u>);
  expectShift<Mox16u>(moxsLShiftC_16u, moxsLShiftC_16u_I, leftShifted<Mox16u>);
  expectShift<Mox16s>(moxsLShiftC_16s, moxsLShiftC_16s_I, leftShifted<Mox16s>);
  expectShift<Mox32s>(moxsLShiftC_32s, moxsLShiftC_32s_I, leftShifted<Mox32s>);
}

TEST(Shift, RightKeepsTheSignOfSignedElements) {
  expectShift<Mox8u>(moxsRShiftC_8u, moxsRShiftC_8u_I, rightShifted<Mox8u>);
  expectShift<Mox16u>(moxsRShiftC_16u, moxsRShiftC_16u_I, rightShifted<Mox16u>);
  expectShift<Mox16s>(moxsRShiftC_16s, moxsRShiftC_16s_I, rightShifted<Mox16s>);
  expectShift<Mox32s>(moxsRShiftC_32s, moxsRShiftC_32s_I, rightShifted<Mox32s>);
}

}  // namespace
