#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include <analytics/ProfileDoc.h>

#include "bench/ByHand.h"
#include "bench/Pair.h"
#include "bench/Samples.h"

namespace bench {
namespace {

class ParseWithLibrary {
 public:
  explicit ParseWithLibrary(int rules) : m_text(ProfileText(rules)) {}

  bool operator()() const {
    analytics::ProfileDoc profile;
    return profile.ParseString(m_text);
  }

  std::string Outcome() const {
    analytics::ProfileDoc profile;
    profile.ParseString(m_text);
    return profile.DumpToString();
  }

 private:
  const std::string m_text;
};

class ParseByHand {
 public:
  explicit ParseByHand(int rules) : m_text(ProfileText(rules)) {}

  bool operator()() const { return ParseProfile(m_text).document != nullptr; }
  std::string Outcome() const { return Dump(ParseProfile(m_text)); }

 private:
  const std::string m_text;
};

class ActiveRulesWithLibrary {
 public:
  explicit ActiveRulesWithLibrary(int rules) { m_profile.ParseString(ProfileText(rules)); }

  std::vector<std::string> operator()() { return m_profile.ActiveRules(); }
  std::vector<std::string> Outcome() { return (*this)(); }

 private:
  analytics::ProfileDoc m_profile;
};

class ActiveRulesByHand {
 public:
  explicit ActiveRulesByHand(int rules) : m_profile(ParseProfile(ProfileText(rules))) {}

  std::vector<std::string> operator()() const {
    std::vector<std::string> types;
    const XmlPtr<xmlXPathObject> rules = Evaluate(m_profile, m_profile.Root(), "//tt:rule");
    for (int index = 0; index < xmlXPathNodeSetGetLength(rules->nodesetval); ++index) {
      const xmlNodePtr rule = rules->nodesetval->nodeTab[index];
      if (IsActive(rule)) AddOnce(types, Copy(Attribute(rule, "Type").get()));
    }
    return types;
  }

  std::vector<std::string> Outcome() const { return (*this)(); }

 private:
  bool IsActive(xmlNodePtr rule) const {
    const xmlNodePtr item = First(m_profile, rule, "tt:Parameters/tt:SimpleItem[@Name='Active']");
    return item && NumberAttribute(item, "Value", 0) != 0;
  }

  static void AddOnce(std::vector<std::string>& types, std::string type) {
    const bool known = std::find(types.begin(), types.end(), type) != types.end();
    if (!type.empty() && !known) types.push_back(std::move(type));
  }

  const Tree m_profile;
};

}  // namespace

void AddProfilePairs() {
  for (const int rules : {1, 10, 100, 1000}) {
    AddPair<ParseWithLibrary, ParseByHand>("parse a profile", rules);
  }
  for (const int rules : {1, 10, 100, 1000}) {
    AddPair<ActiveRulesWithLibrary, ActiveRulesByHand>("list the active rules", rules);
  }
}

}  // namespace bench
