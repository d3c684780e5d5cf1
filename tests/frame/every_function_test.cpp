// What holds for all exported functions is tested here on all of them, driven by the names and
// types in the public headers. A new function is found by itself; where its shape is new as well,
// the test fails and says which table wants a row: every/objects.cpp for a family of objects, and
// how it is registered, every/shapes.cpp for arrays and numbers, every/refusals.cpp for statuses,
// every/contract.cpp for deviations.
#include <gtest/gtest.h>

#include <cstdio>
#include <functional>

#include "frame/every/call.h"
#include "frame/every/checks.h"
#include "frame/every/contract.h"
#include "frame/every/digests.h"
#include "frame/every/tables.h"
#include "support/random.h"
#if defined(MOXSP_SANITIZED)
#include <sanitizer/common_interface_defs.h>
#endif

namespace {

using namespace every;

bool always(const Function& f) { return f.address && f.signature->returnsStatus; }

// A function without a status is named in the contract table, and no other is.
void checkDeclaration(const Function& f, Position&) {
  if (!f.address) throw Misbehaved("is declared and not built");
  if (f.signature->returnsStatus == deviation(f, Deviation::noStatus))
    throw Misbehaved("has a status, or has none, against the table of deviations");
}

const Check checks[] = {
    {"IsBuiltAndReturnsStatus", nullptr, checkDeclaration},
    {"BadArgumentsAreRefusedInOrder", canBeRefused, checkRefusals},
    {"ForeignObjectsAreRefused", takesObject, checkForeignObjects},
    {"EveryLengthAndAlignment", always, checkEveryLengthAndAlignment},
    {"OtherNumbersAtEveryAlignment", hasOtherNumbers, checkOtherNumbers},
    {"AgreesWithShorterCalls", isElementwise, checkShorterCalls},
    {"AgreesWithPlainForm", hasPlainForm, checkInPlaceForm},
    {"RunsOntoItsSource", mayRunOntoSource, checkOntoSource},
    {"ScaleFactorsOfAnySize", hasScaleFactor, checkScaleFactors},
    {"LeavesControlWords", always, checkControlWords},
    {"SurvivesFailedAllocations", always, checkAllocations},
};

// The line that runs this case again.
std::string rerunLine(const Function& function, const Check& check, const Position& at) {
  return test::seedNote() + " MOXSP_TEST_LEN=" + std::to_string(at.length) +
         " MOXSP_TEST_OFFSET=" + std::to_string(at.remainder) +
         " every_function_test --gtest_filter=EveryFunction/" + function.name + '.' + check.name;
}

// Says which case was running when a sanitizer ends the program.
std::function<std::string()> lastWords;
[[maybe_unused]] void sayLastWords() {
  if (lastWords) std::fprintf(stderr, "%s\n", lastWords().c_str());
}

class FunctionTest : public testing::Test {
 public:
  FunctionTest(const Function& function, const Check& check) : function_(function), check_(check) {}

  void TestBody() override {
    Position at;
    lastWords = [&] { return rerunLine(function_, check_, at); };
    try {
      check_.run(function_, at);
    } catch (const Unknown& missing) {
      ADD_FAILURE() << function_.name << ": " << missing.what();
    } catch (const Misbehaved& fault) {
      ADD_FAILURE() << function_.name << ' ' << fault.what() << ", " << at.detail << '\n'
                    << rerunLine(function_, check_, at);
    }
    lastWords = nullptr;
  }

 private:
  const Function& function_;
  const Check& check_;
};

TEST(Tables, EveryRowServesAndNoTwoClaimTheSame) {
  for (const std::string& fault : faultsOfAllTables()) ADD_FAILURE() << fault;
}

void registerTests() {
  for (const Function& f : allFunctions())
    for (const Check& check : checks)
      if (!check.applies || (always(f) && check.applies(f)))
        testing::RegisterTest(
            ("EveryFunction/" + f.name).c_str(), check.name, nullptr, nullptr, __FILE__, __LINE__,
            [&f, &check]() -> testing::Test* { return new FunctionTest(f, check); });
}

}  // namespace

int main(int argc, char** argv) {
  if (argc == 3 && std::string_view(argv[1]) == "--digests") {
    writeDigests(argv[2]);
    return 0;
  }
  testing::InitGoogleTest(&argc, argv);
  registerTests();
#if defined(MOXSP_SANITIZED)
  __sanitizer_set_death_callback(sayLastWords);
#endif
  return RUN_ALL_TESTS();
}
