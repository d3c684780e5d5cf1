#include <gmock/gmock.h>

#include "support/test.h"

namespace {

using testing::AnyOf, testing::MatchesRegex;

TEST(Version, IsOneRecordWhoseTextsAgreeWithItsNumbers) {
  const moxLibraryVersion& v = *moxsGetLibVersion();
  EXPECT_EQ(&v, moxsGetLibVersion());
  const std::string code(v.targetCode, sizeof v.targetCode);
  EXPECT_THAT(
      v.name + std::string(" ") + code,
      AnyOf(std::string("moxSP AVX (v7) v7\0\0", 19), std::string("moxSP AVX2 (v8) v8\0\0", 20),
            std::string("moxSP AVX-512 (v9) v9\0\0", 23)));
  EXPECT_GE(v.build, 0);
  EXPECT_EQ(v.version, std::to_string(v.major) + '.' + std::to_string(v.minor) + '.' +
                           std::to_string(v.update) + " (r" + std::to_string(v.build) + ')');
  EXPECT_THAT(v.buildDate, MatchesRegex("(Jan|Feb|Mar|Apr|May|Jun|Jul|Aug|Sep|Oct|Nov|Dec) "
                                        "([1-9]|[12][0-9]|3[01]) (19[7-9]|20[0-9])[0-9]"));
}

}  // namespace
