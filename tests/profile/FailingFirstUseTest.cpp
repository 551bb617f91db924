#include <optional>
#include <ostream>
#include <string>
#include <tuple>

#include <gmock/gmock.h>

#include <analytics/Calibration.h>
#include <analytics/DocumentNode.h>
#include <analytics/ProfileDoc.h>
#include <analytics/Settings.h>

#include "document/DocumentImpl.h"
#include "tests/profile/ProfileTest.h"
#include "tests/settings/LoadMessages.h"
#include "tests/support/Figures.h"
#include "tests/support/TemporaryDirectory.h"
#include "tests/support/fakes/FreshFaults.h"

namespace analytics {
namespace {

using fakes::Fault;
using fakes::Thrown;
using tests::NodePtr;

const std::string kText = tests::ProfileText("<tt:rule Type='A'/>");

/// A profile that binds its prefixes once it is told to: one can be open before the settings are
/// used.
class BindingProfile : public ProfileDoc {
 public:
  bool CreateSearchContext() override {
    return binds ? ProfileDoc::CreateSearchContext() : m_impl->CreateXPathContext(false);
  }

  bool binds = true;
};

/// What an operation that is the first to use the settings is called on.
struct FirstUser {
  const tests::TemporaryDirectory directory;
  const std::string path = directory.Write("profile.xml", kText);
  BindingProfile profile;
  Calibration calibration;
};

/// An operation that is the first to use the settings.
struct FirstUseRow {
  const char* name;
  bool (*operate)(FirstUser& user);  // gives whether it has done what it should
  int calls;                         // that may fail
  bool isOpen;                       // whether the profile is open where the settings are used
};

void PrintTo(const FirstUseRow& row, std::ostream* out) { *out << row.name; }

// The settings have no file here: two messages, each with an object of its own.
constexpr int kTraceCalls = 4;

const FirstUseRow kFirstUses[] = {
    {"ParseText", [](FirstUser& user) { return user.profile.ParseString(kText); }, kTraceCalls,
     true},
    {"ParseBuffer",
     [](FirstUser& user) { return user.profile.ParseString(kText.data(), kText.size()); },
     kTraceCalls, true},
    {"ParseFile", [](FirstUser& user) { return user.profile.ParseFile(user.path); }, kTraceCalls,
     true},
    {"CreateSearchContext", [](FirstUser& user) { return user.profile.CreateSearchContext(); },
     kTraceCalls, true},
    {"SelectRule", [](FirstUser& user) { return !user.profile.SelectRule(""); }, kTraceCalls,
     false},
    {"DeleteRules", [](FirstUser& user) { return user.profile.DeleteRules("A") == 0; }, kTraceCalls,
     false},
    {"ActiveRules", [](FirstUser& user) { return user.profile.ActiveRules().empty(); }, kTraceCalls,
     false},
    {"SimpleItemQry",
     [](FirstUser&) { return ProfileDoc::SimpleItemQry(true) == "tt:Parameters/tt:SimpleItem"; },
     kTraceCalls, false},
    {"GetCalibration",
     [](FirstUser& user) { return user.profile.GetCalibration(user.calibration); }, kTraceCalls + 8,
     false},
};

class AFirstUseThatFails : public testing::TestWithParam<std::tuple<FirstUseRow, Thrown>> {
 protected:
  static const FirstUseRow& Row() { return std::get<0>(GetParam()); }
  static Thrown What() { return std::get<1>(GetParam()); }

  void Prepare() {
    m_user.emplace();
    m_user->profile.binds = false;
    EXPECT_EQ(Row().isOpen, m_user->profile.ParseString(Row().isOpen ? "<other/>" : ""));
    m_user->profile.binds = true;
  }

  void Operate() { EXPECT_TRUE(Row().operate(*m_user)); }

  /// Expects that the next use of the settings loads them only where they could not be made.
  static void ExpectSettings(const Fault& fault) {
    const bool isMade = fault.call.rfind("Trace", 0) != 0;
    fakes::CallLog::Instance().Clear();
    EXPECT_EQ("tt", Settings::OnvifPrefix());
    EXPECT_EQ(isMade ? tests::Calls() : tests::FailedLoad("/nonexistent/analytics.ini"),
              tests::CallsSoFar());
  }

  /// Expects an opened profile without a search context, which can be made up for, or a closed one.
  void ExpectProfile() {
    ProfileDoc& profile = m_user->profile;
    EXPECT_EQ(Row().isOpen, NodePtr(profile.SelectRootNode()) != nullptr);
    EXPECT_FALSE(NodePtr(profile.SelectNode("/*")));
    EXPECT_EQ(Row().isOpen, profile.CreateSearchContext());
    EXPECT_EQ(Row().isOpen, NodePtr(profile.SelectNode("/*")) != nullptr);
  }

  void Check(const Fault& fault) {
    SCOPED_TRACE("failing: " + (fault.call.empty() ? "nothing" : fault.call));
    EXPECT_EQ(!fault.call.empty(), fault.gotOut);
    ExpectSettings(fault);
    if (fault.gotOut) ExpectProfile();
    Operate();
    EXPECT_TRUE(m_user->profile.ParseString(kText));
    EXPECT_TRUE(NodePtr(m_user->profile.SelectRule("A")));
  }

 private:
  std::optional<FirstUser> m_user;
};

TEST_P(AFirstUseThatFails, LetsItsFailureOutAndCanBeRepeated) {
  const int failed = tests::WithEachPlatformCallFailingAfresh(
      What(), [this] { Prepare(); }, [this] { Operate(); },
      [this](const Fault& fault) { Check(fault); });
  EXPECT_EQ(Row().calls, failed);
  tests::Count("platform_calls_failed", failed);
  if (What() == Thrown::kFailure) tests::Count("operations");
}

std::string NameOf(const testing::TestParamInfo<AFirstUseThatFails::ParamType>& info) {
  const auto& [row, thrown] = info.param;
  return row.name + fakes::NameOf(thrown);
}

INSTANTIATE_TEST_SUITE_P(By, AFirstUseThatFails,
                         testing::Combine(testing::ValuesIn(kFirstUses),
                                          testing::ValuesIn(fakes::kAllThrown)),
                         NameOf);

}  // namespace
}  // namespace analytics
