#include <string>

#include "bench/Samples.h"
#include "bench/Work.h"
#include "bench/sides/Everyone.h"

namespace bench {
namespace {

const char kItemQuery[] = "tt:Parameters/tt:SimpleItem[@Name='Sensitivity']";

/// The middle rule of a profile.
template <typename Side>
struct MiddleRule {
  explicit MiddleRule(const Profile& sample)
      : profile(Side::Parse(sample.Text())),
        rule(profile.First(profile.Root(), typename Side::Path(MiddleRuleQry(sample)))) {}

  Side profile;
  typename Side::Node rule;
  typename Side::Path itemQuery{kItemQuery};
};

template <typename Side>
class ReadItem {
 public:
  explicit ReadItem(const Profile& sample) : m_at(sample) {}

  int operator()() const {
    const auto item = m_at.profile.First(m_at.rule, m_at.itemQuery);
    return item ? Side::Number(item, "Value") : 0;
  }

  int Outcome() const { return (*this)(); }

 private:
  const MiddleRule<Side> m_at;
};

template <>
class ReadItem<Library> {
 public:
  explicit ReadItem(const Profile& sample) : m_at(sample, MiddleRuleQry(sample)) {}

  int operator()() {
    return m_at.profile.GetSimpleItemValue("Sensitivity", 0, m_at.element.get(), true);
  }

  int Outcome() { return (*this)(); }

 private:
  Opened m_at;
};

template <typename Side>
class SetItem {
 public:
  explicit SetItem(const Profile& sample) : m_at(sample) {}

  bool operator()() {
    m_value = (m_value + 1) % 100;
    const auto item = m_at.profile.First(m_at.rule, m_at.itemQuery);
    if (item) Side::SetAttribute(item, "Value", std::to_string(m_value));
    return static_cast<bool>(item);
  }

  std::string Outcome() { return (*this)() ? Compact(m_at.profile.Dump()) : std::string(); }

 private:
  const MiddleRule<Side> m_at;
  int m_value = 0;
};

template <>
class SetItem<Library> {
 public:
  explicit SetItem(const Profile& sample) : m_at(sample, MiddleRuleQry(sample)) {}

  bool operator()() {
    m_value = (m_value + 1) % 100;
    return m_at.profile.SetSimpleItemValue("Sensitivity", m_value, m_at.element.get());
  }

  std::string Outcome() { return (*this)() ? Compact(m_at.profile.DumpToString()) : std::string(); }

 private:
  Opened m_at;
  int m_value = 0;
};

}  // namespace

void AddItemWork() {
  AddWork<ReadItem>(Everyone(), "read an integer item", "", Profile());
  AddWork<SetItem>(Everyone(), "set an integer item", "", Profile());
}

}  // namespace bench
