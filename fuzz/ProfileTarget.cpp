// Makes an analytics profile from the input and compares what the library selects, reads and writes
// with a walk over the tree.

#include <cstdlib>
#include <string>
#include <vector>

#include <analytics/ProfileDoc.h>
#include <analytics/Settings.h>

#include "fuzz/Call.h"
#include "fuzz/Check.h"
#include "fuzz/MadeProfile.h"
#include "fuzz/MemoryFile.h"
#include "fuzz/ProfileReading.h"
#include "fuzz/Target.h"
#include "fuzz/Tree.h"
#include "tests/support/Nodes.h"

namespace fuzz {
namespace {

using analytics::DocumentNode;
using analytics::ProfileDoc;
using analytics::Settings;
using tests::NodePtr;

const char* const kValues[] = {"", "0", "1", " 7", "true", "<&\">", "99999999999"};

xmlDoc* TreeOf(ProfileDoc& profile) {
  const NodePtr root(profile.SelectRootNode());
  return static_cast<xmlNode*>(root->Handle())->doc;
}

/// The library's answers about a profile beside those of the walk over its tree.
class Comparison {
 public:
  Comparison(ProfileDoc& profile, Input& input, const Vocabulary& names)
      : m_profile(profile), m_input(input), m_reading(TreeOf(profile), names) {}

  void Step() {
    switch (m_input.Below(8)) {
      case 0:
        return CompareSelections();
      case 1:
        return CompareActivity();
      case 2:
      case 3:
        return CompareItem();
      case 4:
        return WriteItem();
      case 5:
        return AddItem();
      case 6:
        return CompareGeometry(m_profile, m_reading, AnyRule(), m_input.Byte());
      default:
        return Delete();
    }
  }

 private:
  void CompareSelections() {
    const std::string type = m_input.Of(kTypes);
    CompareSelection(Call([&] { return m_profile.SelectRules(type); }), m_reading.Rules(type),
                     "rules");
    CompareSelection(Call([&] { return m_profile.SelectEngines(type); }), m_reading.Engines(type),
                     "engines");
    CompareSelection(Call([&] { return m_profile.SelectEventSinks(type); }),
                     m_reading.EventSinks(type), "sinks");
    CompareFirst(NodePtr(Call([&] { return m_profile.SelectRule(type); })), m_reading.Rules(type),
                 "a rule");
    CompareFirst(NodePtr(Call([&] { return m_profile.SelectEngine(type); })),
                 m_reading.Engines(type), "an engine");
  }

  static void CompareSelection(const std::vector<DocumentNode*>& selected,
                               const std::vector<xmlNode*>& expected, const char* what) {
    const std::vector<NodePtr> nodes = tests::Owned(selected);
    RequireSame(static_cast<int>(nodes.size()), static_cast<int>(expected.size()), what);
    for (std::size_t index = 0; index < nodes.size(); ++index)
      Require(nodes[index]->Handle() == expected[index], what);
  }

  static void CompareFirst(const NodePtr& node, const std::vector<xmlNode*>& expected,
                           const char* what) {
    const xmlNode* const first = expected.empty() ? nullptr : expected[0];
    Require((node ? node->Handle() : nullptr) == first, what);
  }

  void CompareActivity() {
    const std::string type = m_input.Of(kTypes);
    Require(Call([&] { return m_profile.RuleIsActive(type); }) == m_reading.IsActive(type),
            "whether a rule is active");
    Require(Call([&] { return m_profile.ActiveRules(); }) == m_reading.ActiveTypes(),
            "the active rules");
  }

  /// Some element of the profile, preferably a rule; null for the root.
  xmlNode* AnyRule() {
    const std::vector<xmlNode*> rules = m_reading.Rules("");
    const std::size_t choice = m_input.Below(rules.size() + 1);
    return choice == rules.size() ? nullptr : rules[choice];
  }

  /// Some element that holds items, or null.
  xmlNode* AnyParameters() {
    const std::vector<xmlNode*> all = m_reading.AllParameters();
    const std::size_t choice = m_input.Below(all.size() + 1);
    return choice == all.size() ? nullptr : all[choice];
  }

  static NodePtr NodeOf(xmlNode* node) { return NodePtr(node ? new DocumentNode(node) : nullptr); }

  void CompareItem() {
    const std::string name = m_input.Of(kItems);
    const bool throughParameters = m_input.Flag();
    xmlNode* const node = throughParameters ? AnyRule() : AnyParameters();
    const int fallback = m_input.Byte();
    const NodePtr context = NodeOf(node);
    const std::string expected = m_reading.ItemText(node, name, throughParameters);
    RequireSame(
        Call([&] { return m_profile.GetSimpleItemValue(name, context.get(), throughParameters); }),
        expected, "an item's text");
    RequireSame(Call([&] {
                  return m_profile.GetSimpleItemValue(name, fallback, context.get(),
                                                      throughParameters);
                }),
                m_reading.ItemNumber(node, name, throughParameters, fallback), "an item's number");
  }

  void WriteItem() {
    const std::string name = m_input.Of(kItems);
    xmlNode* const rule = AnyRule();
    const xmlNode* const item = m_reading.Item(rule, name, true);
    const NodePtr context = NodeOf(rule);
    std::string value = m_input.Of(kValues);
    bool isWritten = false;
    if (m_input.Flag()) {
      const int number = m_input.Byte() - 128;
      value = std::to_string(number);
      isWritten = Call([&] { return m_profile.SetSimpleItemValue(name, number, context.get()); });
    } else {
      isWritten = Call([&] { return m_profile.SetSimpleItemValue(name, value, context.get()); });
    }
    Require(isWritten == (item != nullptr), "whether an item is written");
    if (item) RequireSame(PlainText(item, "Value"), value, "a written item");
  }

  void AddItem() {
    const std::string name = m_input.Of(kItems);
    const std::string value = m_input.Of(kValues);
    xmlNode* const parameters = AnyParameters();
    const NodePtr context = NodeOf(parameters);
    const xmlNode* const before = m_reading.Item(parameters, name, false);
    const xmlNode* const last = parameters ? parameters->last : nullptr;
    Require(Call([&] { return m_profile.SetOrAddSimpleItemValue(name, value, context.get()); }),
            "an added item");
    if (before) return RequireSame(PlainText(before, "Value"), value, "a replaced item");
    if (!parameters) return;
    const xmlNode* const added = parameters->last;
    Require(added != last && added->ns == parameters->ns, "where an item is added");
    RequireSame(StringOf(added->name), "SimpleItem", "the name of an added element");
    RequireSame(PlainText(added, "Name"), name, "the name of an added item");
    RequireSame(PlainText(added, "Value"), value, "the value of an added item");
  }

  void Delete() {
    const std::string type = m_input.Of(kTypes);
    const std::size_t expected = type.empty() ? 0 : m_reading.Rules(type).size();
    RequireSame(Call([&] { return m_profile.DeleteRules(type); }), static_cast<int>(expected),
                "how many are deleted");
    if (!type.empty()) Require(m_reading.Rules(type).empty(), "what a deletion leaves");
  }

  ProfileDoc& m_profile;
  Input& m_input;
  const ProfileReading m_reading;
};

const MemoryFile& File() {
  static const MemoryFile file;
  return file;
}

/// Loads the settings of a vocabulary, unless they are loaded.
void Use(const Vocabulary& names) {
  static const Vocabulary* used = &kVocabularies[0];  // the built-in one
  if (used == &names) return;
  File().Write(SettingsOf(names));
  Require(Call([] { return Settings::LoadSettings(File().Path()); }), "the settings are loaded");
  used = &names;
}

}  // namespace

void SetUp() { setenv("ANALYTICS_INI", File().Path().c_str(), 1); }

void RunOne(Input& input) {
  const std::string chosen = input.Text(40);
  Input choices(reinterpret_cast<const std::uint8_t*>(chosen.data()), chosen.size());
  const Vocabulary& names = kVocabularies[choices.Seldom(16) ? 1 : 0];
  Use(names);
  ProfileDoc profile;
  const std::string text = MadeProfile(input, names);
  Require(Call([&] { return profile.ParseString(text); }), "a made profile is well-formed");
  Comparison comparison(profile, choices, names);
  for (int step = 0; step < 4 && !choices.IsUsedUp(); ++step) comparison.Step();
}

}  // namespace fuzz
