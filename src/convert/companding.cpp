// Companding, sixteen samples at a time, by arithmetic on segments and intervals.
#include <moxsp/companding.h>

#include "convert/companding_laws.h"
#include "frame/control_word.h"
#include "frame/export.h"
#include "frame/map.h"

namespace mox::convert {
namespace {

using Codes = V<Mox8u, 16>;
using Words = V<Mox16s, 8>;
using Floats = V<Mox32f, 8>;

constexpr long count = 16;
constexpr Mox8u signOfCode = 0x80;

struct WordPair {
  Words low, high;

  friend WordPair operator+(WordPair a, WordPair b) { return {a.low + b.low, a.high + b.high}; }
  friend WordPair operator-(WordPair a, WordPair b) { return {a.low - b.low, a.high - b.high}; }
  friend WordPair operator*(WordPair a, WordPair b) { return {a.low * b.low, a.high * b.high}; }
  friend WordPair operator^(WordPair a, WordPair b) { return {a.low ^ b.low, a.high ^ b.high}; }
};

// Bytes to the lower and the upper byte of words.
WordPair wordsOf(Codes lower, Codes upper) {
  return {Words(unpackLow<Mox8u>(lower, upper)), Words(unpackHigh<Mox8u>(lower, upper))};
}

Codes entries(const TableOf16& table, Codes index) { return lookUp(load<Codes>(&table), index); }

template <class Law>
WordPair expand(Codes codes) {
  static constexpr TableOf16 eighthOfStep = tableOfSegments([](int s) { return Law::step(s) / 8; }),
                             firstLower = tableOfSegments([](int s) { return Law::first(s); }),
                             firstUpper = tableOfSegments([](int s) { return Law::first(s) >> 8; });
  codes ^= Law::inversion;
  const Codes segment = Codes(V<Mox16u, 8>(codes) >> 4) & 7;
  const Codes eightSteps = Codes(V<Mox16u, 8>(codes & 15) << 3);
  const WordPair steps = wordsOf(eightSteps, Codes{});
  const WordPair step = wordsOf(entries(eighthOfStep, segment), Codes{});
  const WordPair first = wordsOf(entries(firstLower, segment), entries(firstUpper, segment));
  const Codes negative = Codes(codes < signOfCode);
  const WordPair flip = wordsOf(negative, negative);
  return ((first + steps * step) ^ flip) - flip;
}

// A number as a float has its leading bit in the exponent, and the four bits below that, its
// interval in a segment, at the top of the fraction: together they count intervals from 2^0 on.
Words intervalsFromOne(Words x) {
  const auto intervals = [](Words extended) {
    using Integers = V<Mox32s, 4>;
    return (Integers(floatsOf(Integers(extended))) >> 19) - (127 << 4);
  };
  return packInOrder<Mox16s>(intervals(unpackLow<Mox16s>(x, Words{})),
                             intervals(unpackHigh<Mox16s>(x, Words{})));
}

// Of 4096 units. Segment 0 has the steps of the next one: moved up there, it is 16 intervals off.
Words intervalOf(ALaw, Words magnitude) {
  const Words units = magnitude >> 3, inSegment0 = units < 32;
  return intervalsFromOne(units + (inSegment0 & 32)) - (4 << 4) - (inSegment0 & 16);
}

// Of 8159 units; 33 more make every segment begin at a power of two.
Words intervalOf(MuLaw, Words magnitude) {
  return intervalsFromOne(lesser((magnitude >> 2) + 33, broadcast<Words>(Mox16s(8191)))) - (5 << 4);
}

// A negative sample has the interval of -sample - 1.
template <class Law>
Codes compress(WordPair samples) {
  const auto intervals = [](Words s) { return intervalOf(Law(), s ^ s >> 15); };
  const Codes unsignedCodes = packInOrder<Mox8u>(intervals(samples.low), intervals(samples.high));
  const Codes signs = Codes(packInOrder<Mox8s>(samples.low, samples.high));
  return (unsignedCodes | (~signs & signOfCode)) ^ Law::inversion;
}

// Rounded half away from zero. In mu-law -1 stands for a negative sample that rounds to 0, for it
// has the same interval and the right sign.
template <class Law>
Words rounded(Floats x) {
  const auto ordered = Floats(Bits<Floats>(x) & Bits<Floats>(x == x));
  const auto limit = [](Mox32f bound) { return broadcast<Floats>(bound); };
  const Floats y = lesser(greater(ordered * 32768.0f, limit(-32768)), limit(32767));
  Words words = narrowed<Mox16s>(integersOf(y + withSignOf(y, limit(0.5f))));
  if constexpr (Law::signOfUnrounded)
    words += (words == 0) & narrowed<Mox16s>(Beside<Mox32s, Floats>(x < 0));
  return words;
}

Floats fullScaleOne(Words words) {
  using Integers = V<Mox32s, 4>;
  const auto low = Integers(unpackLow<Mox16s>(words, words)) >> 16;
  const auto high = Integers(unpackHigh<Mox16s>(words, words)) >> 16;
  return floatsOf(join<V<Mox32s, 8>>(low, high)) * 0x1p-15f;
}

template <class S, class D, class Block>
MoxStatus mapCodes(const S* src, D* dst, int len, Block eachBlock) {
  if (MoxStatus s = checkArrays(len, src, dst)) return s;
  forWholeBlocks<count>(false, src, dst, len, eachBlock);
  return moxOk;
}

template <class Law>
MoxStatus toIntegers(const Mox8u* src, Mox16s* dst, int len) {
  return mapCodes(src, dst, len, [](const Mox8u* from, Mox16s* to, auto put) {
    const WordPair words = expand<Law>(load<Codes>(from));
    put(to, words.low), put(to + 8, words.high);
  });
}

template <class Law>
MoxStatus toFloats(const Mox8u* src, Mox32f* dst, int len) {
  return mapCodes(src, dst, len, [](const Mox8u* from, Mox32f* to, auto put) {
    const WordPair words = expand<Law>(load<Codes>(from));
    put(to, fullScaleOne(words.low)), put(to + 8, fullScaleOne(words.high));
  });
}

template <class Law>
MoxStatus fromIntegers(const Mox16s* src, Mox8u* dst, int len) {
  return mapCodes(src, dst, len, [](const Mox16s* from, Mox8u* to, auto put) {
    put(to, compress<Law>({load<Words>(from), load<Words>(from + 8)}));
  });
}

template <class Law>
MoxStatus fromFloats(const Mox32f* src, Mox8u* dst, int len) {
  const HiddenExceptions scope;
  return mapCodes(src, dst, len, [](const Mox32f* from, Mox8u* to, auto put) {
    put(to,
        compress<Law>({rounded<Law>(load<Floats>(from)), rounded<Law>(load<Floats>(from + 8))}));
  });
}

// A table of 128 bytes as rows of 16, each to be added to those before it.
constexpr std::array<TableOf16, 8> rowsOfDifferences(const std::array<Mox8u, 128>& table) {
  std::array<TableOf16, 8> rows = {};
  for (int i = 0; i < 128; ++i) rows[i / 16][i % 16] = table[i] ^ (i < 16 ? 0 : table[i - 16]);
  return rows;
}

template <class From, class To>
constexpr auto rowsOfTranslation = rowsOfDifferences(translation<From, To>());

template <class From, class To>
MoxStatus translate(const Mox8u* src, Mox8u* dst, int len) {
  return mapCodes(src, dst, len, [](const Mox8u* from, Mox8u* to, auto put) {
    const Codes codes = load<Codes>(from);
    Codes result = codes & signOfCode, index = codes ^ result;
    for (const TableOf16& row : rowsOfTranslation<From, To>) {
      result ^= entries(row, index);  // nothing once the index is negative
      index -= 16;
    }
    put(to, result);
  });
}

}  // namespace

MOX_EXPORT(moxsALawToLin_8u16s, toIntegers<ALaw>);
MOX_EXPORT(moxsMuLawToLin_8u16s, toIntegers<MuLaw>);
MOX_EXPORT(moxsALawToLin_8u32f, toFloats<ALaw>);
MOX_EXPORT(moxsMuLawToLin_8u32f, toFloats<MuLaw>);
MOX_EXPORT(moxsLinToALaw_16s8u, fromIntegers<ALaw>);
MOX_EXPORT(moxsLinToMuLaw_16s8u, fromIntegers<MuLaw>);
MOX_EXPORT(moxsLinToALaw_32f8u, fromFloats<ALaw>);
MOX_EXPORT(moxsLinToMuLaw_32f8u, fromFloats<MuLaw>);
MOX_EXPORT(moxsALawToMuLaw_8u, translate<ALaw, MuLaw>);
MOX_EXPORT(moxsMuLawToALaw_8u, translate<MuLaw, ALaw>);

}  // namespace mox::convert
