#include <string>
#include <vector>

#include <gmock/gmock.h>

#include <analytics/ProfileDoc.h>

#include "tests/profile/ProfileSubject.h"
#include "tests/support/MemoryTable.h"

namespace analytics {
namespace {

using tests::Answer;
using tests::NodeList;
using S = ProfileSubject;

/// The profile with one element more behind the items of its first rule.
std::string WithAdded(const std::string& element) {
  std::string content = Profile(kItems);
  return Holds(content.insert(content.find(kCalibration) + kCalibration.size(), element));
}

/// The new item without one attribute or both: each is set for itself, and may find no memory.
std::vector<std::string> WithoutAttributes(const std::string& value) {
  return {WithAdded("<tt:SimpleItem/>"), WithAdded("<tt:SimpleItem Name=\"" + kNewItem + "\"/>"),
          WithAdded("<tt:SimpleItem Value=\"" + value + "\"/>")};
}

const tests::MemoryRow<ProfileSubject> kRows[] = {
    {"Construct", [](S&) -> Answer { return ProfileDoc().Close(), true; }, "true"},
    {"ParseText",
     [](S& s) -> Answer { return s.profile.ParseString(S::Shared().text); },
     "true",
     {"false"},
     {},
     {kClosed, kWithoutContext}},
    {"ParseBuffer",
     [](S& s) -> Answer {
       return s.profile.ParseString(S::Shared().text.data(), S::Shared().text.size());
     },
     "true",
     {"false"},
     {},
     {kClosed, kWithoutContext}},
    {"ParseFile",
     [](S& s) -> Answer { return s.profile.ParseFile(S::Shared().whole); },
     "true",
     {"false"},
     {},
     {kClosed, kWithoutContext}},
    {"CreateSearchContext",
     [](S& s) -> Answer { return s.profile.CreateSearchContext(); },
     "true",
     {"false"},
     {},
     {kWithoutContext}},
    {"SelectRule",
     [](S& s) -> Answer { return NodePtr(s.profile.SelectRule(kOtherType)); },
     kOther,
     {"null"}},
    {"SelectRules",
     [](S& s) -> Answer { return NodeList(s.profile.SelectRules(kOtherType)); },
     "[" + kOther + "]",
     {"[]"}},
    {"SelectEngine",
     [](S& s) -> Answer { return NodePtr(s.profile.SelectEngine(kType)); },
     kEngine,
     {"null"}},
    {"SelectEngines",
     [](S& s) -> Answer { return NodeList(s.profile.SelectEngines(kType)); },
     "[" + kEngine + "]",
     {"[]"}},
    {"SelectEventSinks",
     [](S& s) -> Answer { return NodeList(s.profile.SelectEventSinks(kType)); },
     "[" + kSink + "]",
     {"[]"}},
    {"DeleteRules",
     [](S& s) -> Answer { return s.profile.DeleteRules(kType); },
     "2",
     {"0"},
     Holds(kOther + kTail)},
    {"SimpleItemQry", [](S&) -> Answer { return ProfileDoc::SimpleItemQry(true); },
     "'tt:Parameters/tt:SimpleItem'"},
    {"ElementItemQry", [](S&) -> Answer { return ProfileDoc::ElementItemQry(true); },
     "'tt:Parameters/tt:ElementItem'"},
    {"GetItem",
     [](S& s) -> Answer { return s.profile.GetSimpleItemValue(kItem, &s.rule, true); },
     "'" + kValue + "'",
     {"''"}},
    {"GetItemOfParameters",
     [](S& s) -> Answer { return s.profile.GetSimpleItemValue(kItem, &s.parameters, false); },
     "'" + kValue + "'",
     {"''"}},
    {"GetIntegerItem",
     [](S& s) -> Answer { return s.profile.GetSimpleItemValue(kItem, 5, &s.rule, true); },
     "80",
     {"5"}},
    {"SetItem",
     [](S& s) -> Answer { return s.profile.SetSimpleItemValue(kItem, kNewItem, &s.rule); },
     "true",
     {"false"},
     Holds(Profile(Item(kItem, kNewItem) + kActive))},
    {"SetIntegerItem",
     [](S& s) -> Answer { return s.profile.SetSimpleItemValue(kItem, 7, &s.rule); },
     "true",
     {"false"},
     Holds(Profile(Item(kItem, "7") + kActive))},
    {"SetOrAddPresentItem",
     [](S& s) -> Answer {
       return s.profile.SetOrAddSimpleItemValue(kItem, kNewItem, &s.parameters);
     },
     "true",
     {},
     Holds(Profile(Item(kItem, kNewItem) + kActive)),
     // An item that cannot be found is added, as one that is not there.
     {WithAdded(Item(kItem, kNewItem))}},
    {"SetOrAddNewItem",
     [](S& s) -> Answer {
       return s.profile.SetOrAddSimpleItemValue(kNewItem, kValue, &s.parameters);
     },
     "true",
     {},
     WithAdded(Item(kNewItem, kValue)),
     WithoutAttributes(kValue)},
    {"SetOrAddNewIntegerItem",
     [](S& s) -> Answer { return s.profile.SetOrAddSimpleItemValue(kNewItem, 7, &s.parameters); },
     "true",
     {},
     WithAdded(Item(kNewItem, "7")),
     WithoutAttributes("7")},
    {"RuleIsActive",
     [](S& s) -> Answer { return s.profile.RuleIsActive(kOtherType); },
     "true",
     {"false"}},
    {"ActiveRules",
     [](S& s) -> Answer { return s.profile.ActiveRules(); },
     "['" + kType + "''" + kOtherType + "']",
     // A rule whose activity or type cannot be read is passed over, as one without either is.
     {"[]", "['" + kOtherType + "']", "['" + kType + "']",
      "['" + kOtherType + "''" + kType + "']"}},
};

using ProfileMemoryTest = tests::MemoryTableTest<ProfileSubject>;

TEST_P(ProfileMemoryTest, GivesBadAllocAndLosesNothing) { RunOutOfCppMemory(); }

TEST_P(ProfileMemoryTest, GivesWhatItHasOrNothing) { RunOutOfXmlMemory(); }

INSTANTIATE_TEST_SUITE_P(Rows, ProfileMemoryTest, testing::ValuesIn(kRows),
                         tests::MemoryRowName<ProfileSubject>);

}  // namespace
}  // namespace analytics
