// Module registration and failure hand-over, seen from the exports.
#include "support/interop_harness.h"

#include "interop/interop_runtime.h"

#include <string>
#include <utility>
#include <vector>

using namespace harness;

namespace {

using NullCheckedBinary = float(void*, void*);

struct Vec {
  float x, y, z;
};

}  // namespace

TEST_F(ExportTest, NullArgumentRaisesThroughTheExportsOwnModuleOnly) {
  Vec v{1, 2, 3};
  EXPECT_EQ(call<NullCheckedBinary>("CSharp_Velarion_NVector3_dot", &v, nullptr), 0.0f);
  PendingArgument pending = takePending();
  EXPECT_EQ(pending.module, velarion);
  EXPECT_EQ(pending.code, 1);
  EXPECT_EQ(pending.message, "Velarion::Vector3 const & type is null");
  EXPECT_EQ(pending.paramName, std::nullopt);
}

namespace {
// The selection logic is a header template: this program has its own instance
// of the tables, filled here directly rather than through the library.
std::vector<std::pair<int, std::string>> selected;
template <int Entry>
void select(const char* message, const char*) {
  selected.emplace_back(Entry, message);
}
}  // namespace

TEST(PendingArgumentException, CodesOfThreeOrMoreReachEntryZero) {
  vlcs::ArgumentExceptionEntry* table = vlcs::tables<vlcs::Module::timepointstreaming>().argumentExceptions;
  table[0].callback = &select<0>;
  table[1].callback = &select<1>;
  table[2].callback = &select<2>;
  for (int code : {0, 1, 2, 3, 7, -1}) {
    vlcs::setPendingArgumentException<vlcs::Module::timepointstreaming>(code, std::to_string(code).c_str(), "");
  }
  const std::vector<std::pair<int, std::string>> expected = {{0, "0"}, {1, "1"}, {2, "2"},
                                                             {0, "3"}, {0, "7"}, {0, "-1"}};
  EXPECT_EQ(selected, expected);
}

namespace {
int replacedCalls = 0;
void replacement(const char*, const char*) { ++replacedCalls; }
}  // namespace

TEST_F(ExportTest, ReRegistrationReplacesTheEarlierCallbacks) {
  using ArgumentCallback = void (*)(const char*, const char*);
  call<void(ArgumentCallback, ArgumentCallback, ArgumentCallback)>(
      "SWIGRegisterExceptionArgumentCallbacks_velarion", &replacement, &replacement, &replacement);
  Vec v{1, 2, 3};
  call<NullCheckedBinary>("CSharp_Velarion_NVector3_dot", &v, nullptr);
  EXPECT_EQ(replacedCalls, 1);
  EXPECT_TRUE(pendingArguments().empty());
}

TEST(ExceptionTable, StartsEmptyWithCodesInTableOrder) {
  const vlcs::ModuleTables& tables = vlcs::tables<vlcs::Module::amplitudemodulation>();
  for (int code = 0; code < vlcs::kExceptionCount; ++code) {
    EXPECT_EQ(tables.exceptions[code].code, code);
    EXPECT_EQ(tables.exceptions[code].callback, nullptr);
  }
  for (int code = 0; code < vlcs::kArgumentExceptionCount; ++code) {
    EXPECT_EQ(tables.argumentExceptions[code].code, code);
  }
  EXPECT_EQ(tables.makeString, nullptr);
}
