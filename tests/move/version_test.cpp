#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <moxsp.h>

#include <cstdio>
#include <cstring>
#include <string>

namespace {

TEST(Version, EveryCallReturnsTheSameRecord) {
  ASSERT_NE(moxsGetLibVersion(), nullptr);
  EXPECT_EQ(moxsGetLibVersion(), moxsGetLibVersion());
}

TEST(Version, TextsAgreeWithNumbersAndTarget) {
  const moxLibraryVersion& v = *moxsGetLibVersion();
  EXPECT_EQ(std::memcmp(v.targetCode, "v7\0\0", 4), 0);
  EXPECT_STREQ(v.name, "moxSP AVX (v7)");
  EXPECT_GE(v.build, 0);
  EXPECT_EQ(v.version, std::to_string(v.major) + '.' + std::to_string(v.minor) + '.' +
                           std::to_string(v.update) + " (r" + std::to_string(v.build) + ')');
}

TEST(Version, BuildDateIsMonthDayYear) {
  char month[4];
  int day = 0, year = 0, read = 0;
  const char* date = moxsGetLibVersion()->buildDate;
  ASSERT_EQ(std::sscanf(date, "%3s %d %d%n", month, &day, &year, &read), 3) << date;
  EXPECT_EQ(date[read], '\0');
  constexpr const char* months = "Jan Feb Mar Apr May Jun Jul Aug Sep Oct Nov Dec";
  EXPECT_THAT(months, testing::HasSubstr(month));
  EXPECT_TRUE(day >= 1 && day <= 31) << date;
  EXPECT_GE(year, 1970);
}

}  // namespace
