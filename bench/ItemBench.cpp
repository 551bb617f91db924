#include <string>

#include "bench/Opened.h"
#include "bench/Pair.h"

namespace bench {
namespace {

const char kItemQuery[] = "tt:Parameters/tt:SimpleItem[@Name='Sensitivity']";

class ReadWithLibrary {
 public:
  explicit ReadWithLibrary(int rules) : m_rule(rules, MiddleRuleQry(rules)) {}

  int operator()() {
    return m_rule.profile.GetSimpleItemValue("Sensitivity", 0, m_rule.element.get(), true);
  }

  int Outcome() { return (*this)(); }

 private:
  OpenedWithLibrary m_rule;
};

class ReadByHand {
 public:
  explicit ReadByHand(int rules) : m_rule(rules, MiddleRuleQry(rules)) {}

  int operator()() const {
    const xmlNodePtr item = First(m_rule.profile, m_rule.element, kItemQuery);
    return item ? NumberAttribute(item, "Value", 0) : 0;
  }

  int Outcome() const { return (*this)(); }

 private:
  const OpenedByHand m_rule;
};

class SetWithLibrary {
 public:
  explicit SetWithLibrary(int rules) : m_rule(rules, MiddleRuleQry(rules)) {}

  bool operator()() {
    m_value = (m_value + 1) % 100;
    return m_rule.profile.SetSimpleItemValue("Sensitivity", m_value, m_rule.element.get());
  }

  std::string Outcome() { return (*this)() ? m_rule.profile.DumpToString() : std::string(); }

 private:
  OpenedWithLibrary m_rule;
  int m_value = 0;
};

class SetByHand {
 public:
  explicit SetByHand(int rules) : m_rule(rules, MiddleRuleQry(rules)) {}

  bool operator()() {
    m_value = (m_value + 1) % 100;
    const xmlNodePtr item = First(m_rule.profile, m_rule.element, kItemQuery);
    return item && xmlSetProp(item, Xml("Value"), Xml(std::to_string(m_value).c_str()));
  }

  std::string Outcome() { return (*this)() ? Dump(m_rule.profile) : std::string(); }

 private:
  const OpenedByHand m_rule;
  int m_value = 0;
};

}  // namespace

void AddItemPairs() {
  AddPair<ReadWithLibrary, ReadByHand>("read a simple item", kUsualRules);
  AddPair<SetWithLibrary, SetByHand>("set a simple item", kUsualRules);
}

}  // namespace bench
