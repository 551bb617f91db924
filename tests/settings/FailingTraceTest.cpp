#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <ostream>
#include <string>
#include <tuple>
#include <vector>

#include <gmock/gmock.h>

#include <analytics/Settings.h>

#include "tests/settings/LoadMessages.h"
#include "tests/settings/ServedFile.h"
#include "tests/support/Figures.h"
#include "tests/support/fakes/FreshFaults.h"

namespace analytics {
namespace {

using fakes::Fault;
using fakes::Thrown;
using tests::Calls;
using tests::FailedLoad;
using tests::GoodLoad;
using tests::Then;

constexpr char kFirstFile[] = "/first.ini";
constexpr char kSecondFile[] = "/second.ini";
constexpr char kMissingFile[] = "/nonexistent/third.ini";

/// What a process has of the settings.
enum class Left {
  kNothing,      // no object: the next use is the first
  kBuiltIn,      // the built-in values, and no document
  kFirst,        // all of the first file
  kFirstClosed,  // the values of the first file, and no document
  kSecond,       // all of the second file
};

/// One operation, during which a trace object or a message of it fails.
struct TraceRow {
  const char* name;
  const char* environment;  // the file of the first use
  bool isUsed;              // whether there has been a first use
  void (*operate)();
  Calls calls;             // where nothing fails
  std::vector<Left> left;  // by the call that failed; the last where none did
};

void PrintTo(const TraceRow& row, std::ostream* out) { *out << row.name; }

constexpr Left kNone = Left::kNothing;

const TraceRow kRows[] = {
    {"FirstUse",
     kFirstFile,
     false,
     [] { Settings::MaxResource(); },
     GoodLoad(kFirstFile),
     {kNone, kNone, Left::kFirst}},
    {"FirstUseOfAMissingFile",
     kMissingFile,
     false,
     [] { Settings::PluginRepository(); },
     FailedLoad(kMissingFile),
     {kNone, kNone, kNone, kNone, Left::kBuiltIn}},
    {"FirstQuery",
     kFirstFile,
     false,
     [] { Settings::GetValues("//maxResource"); },
     GoodLoad(kFirstFile),
     {kNone, kNone, Left::kFirst}},
    {"FirstSubstitution",
     kFirstFile,
     false,
     [] { Settings::SubstituteVariables("${a}"); },
     GoodLoad(kFirstFile),
     {kNone, kNone, Left::kFirst}},
    {"FirstLoad",
     kFirstFile,
     false,
     [] { Settings::LoadSettings(kSecondFile); },
     Then(GoodLoad(kFirstFile), GoodLoad(kSecondFile)),
     {kNone, kNone, Left::kFirst, Left::kFirst, Left::kSecond}},
    {"FirstLoadOfTheEnvironment",
     kFirstFile,
     false,
     [] { Settings::LoadSettings(""); },
     Then(GoodLoad(kFirstFile), GoodLoad(kFirstFile)),
     {kNone, kNone, Left::kFirst, Left::kFirst, Left::kFirst}},
    {"FirstLoadOfAMissingFile",
     kFirstFile,
     false,
     [] { Settings::LoadSettings(kMissingFile); },
     Then(GoodLoad(kFirstFile), FailedLoad(kMissingFile)),
     {kNone, kNone, Left::kFirst, Left::kFirst, Left::kFirstClosed, Left::kFirstClosed,
      Left::kFirstClosed}},
    {"FirstLoadWhereTheEnvironmentHasNoFile",
     kMissingFile,
     false,
     [] { Settings::LoadSettings(kSecondFile); },
     Then(FailedLoad(kMissingFile), GoodLoad(kSecondFile)),
     {kNone, kNone, kNone, kNone, Left::kBuiltIn, Left::kBuiltIn, Left::kSecond}},
    {"Load",
     kFirstFile,
     true,
     [] { Settings::LoadSettings(kSecondFile); },
     GoodLoad(kSecondFile),
     {Left::kFirst, Left::kFirst, Left::kSecond}},
    {"LoadOfTheEnvironment",
     kFirstFile,
     true,
     [] { Settings::LoadSettings(""); },
     GoodLoad(kFirstFile),
     {Left::kFirst, Left::kFirst, Left::kFirst}},
    {"LoadOfAMissingFile",
     kFirstFile,
     true,
     [] { Settings::LoadSettings(kMissingFile); },
     FailedLoad(kMissingFile),
     {Left::kFirst, Left::kFirst, Left::kFirstClosed, Left::kFirstClosed, Left::kFirstClosed}},
    {"LoadOverTheBuiltInValues",
     kMissingFile,
     true,
     [] { Settings::LoadSettings(kSecondFile); },
     GoodLoad(kSecondFile),
     {Left::kBuiltIn, Left::kBuiltIn, Left::kSecond}},
    {"LaterUse", kFirstFile, true, [] { Settings::MaxResource(); }, {}, {Left::kFirst}},
};

class AFailingTrace : public testing::TestWithParam<std::tuple<TraceRow, Thrown>> {
 protected:
  static const TraceRow& Row() { return std::get<0>(GetParam()); }
  static Thrown What() { return std::get<1>(GetParam()); }

  static void Prepare() {
    setenv("ANALYTICS_INI", Row().environment, 1);
    tests::ServeFile(kFirstFile, Content("1", "/first/"));
    tests::ServeFile(kSecondFile, Content("2", "/second/"));
    if (Row().isUsed) Settings::MaxResource();
  }

  static std::string Content(const std::string& resource, const std::string& repository) {
    return "<s><maxResource>" + resource + "</maxResource><pluginRepository>" + repository +
           "</pluginRepository></s>";
  }

  static bool MayFail(const std::string& call) { return call != "Trace::~Trace()"; }

  /// The undisturbed calls up to the nth that may fail; a message's object is destroyed still.
  static Calls CallsUntil(std::ptrdiff_t nth) {
    Calls calls;
    for (const std::string& call : Row().calls) {
      calls.push_back(call);
      if (MayFail(call) && --nth == 0) break;
    }
    if (calls.back() != "Trace::Trace()") calls.emplace_back("Trace::~Trace()");
    return calls;
  }

  static void ExpectValues(std::int64_t resource, int query, const std::string& repository) {
    EXPECT_EQ(resource, Settings::MaxResource());
    EXPECT_EQ(query, Settings::GetValue("//maxResource", -1));
    EXPECT_EQ(repository, Settings::PluginRepository());
  }

  static void ExpectValuesOf(Left left) {
    const bool hasDocument = left != Left::kFirstClosed;
    if (left == Left::kBuiltIn)
      ExpectValues(100000, -1, "/usr/local/kestal/analytics/plugins/");
    else if (left == Left::kSecond)
      ExpectValues(2, 2, "/second/");
    else
      ExpectValues(1, hasDocument ? 1 : -1, "/first/");
  }

  /// Expects of the next use that it loads only if it is the first, and all values as they are
  /// then.
  static void ExpectLeft(Left left) {
    const bool hasFile = Row().environment == kFirstFile;
    const Calls firstUse = hasFile ? GoodLoad(kFirstFile) : FailedLoad(kMissingFile);
    const bool isFirst = left == Left::kNothing;
    fakes::CallLog::Instance().Clear();
    Settings::MaxResource();
    EXPECT_EQ(isFirst ? firstUse : Calls(), tests::CallsSoFar());
    if (isFirst) left = hasFile ? Left::kFirst : Left::kBuiltIn;
    ExpectValuesOf(left);
  }

  static void Check(const Fault& fault) {
    SCOPED_TRACE("failing: " + (fault.call.empty() ? "nothing" : fault.call));
    const auto made = std::count_if(fault.calls.begin(), fault.calls.end(), MayFail);
    const bool isFailed = !fault.call.empty();
    EXPECT_EQ(isFailed, fault.gotOut);
    EXPECT_EQ(isFailed ? CallsUntil(made) : Row().calls, fault.calls);
    ExpectLeft(isFailed ? Row().left.at(static_cast<std::size_t>(made) - 1) : Row().left.back());
    EXPECT_TRUE(Settings::LoadSettings(kSecondFile));
    ExpectValuesOf(Left::kSecond);
  }
};

TEST_P(AFailingTrace, LetsItsFailureOutAndLeavesUsableSettings) {
  const int failed =
      tests::WithEachPlatformCallFailingAfresh(What(), Prepare, Row().operate, Check);
  EXPECT_EQ(static_cast<int>(Row().left.size()) - 1, failed);
  tests::Count("platform_calls_failed", failed);
  if (What() == Thrown::kFailure) tests::Count("operations");
}

std::string NameOf(const testing::TestParamInfo<AFailingTrace::ParamType>& info) {
  const auto& [row, thrown] = info.param;
  return row.name + fakes::NameOf(thrown);
}

INSTANTIATE_TEST_SUITE_P(During, AFailingTrace,
                         testing::Combine(testing::ValuesIn(kRows),
                                          testing::ValuesIn(fakes::kAllThrown)),
                         NameOf);

}  // namespace
}  // namespace analytics
