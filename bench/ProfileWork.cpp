#include <algorithm>
#include <memory>
#include <optional>
#include <string>
#include <unordered_set>
#include <utility>
#include <vector>

#include <analytics/DocumentNode.h>
#include <analytics/ProfileDoc.h>

#include "bench/Samples.h"
#include "bench/Work.h"
#include "bench/sides/Everyone.h"
#include "tests/support/TemporaryDirectory.h"

namespace bench {
namespace {

/// A profile that a side has parsed.
template <typename Side>
struct Parsed {
  explicit Parsed(const std::string& text) : profile(Side::Parse(text)) {}

  std::string Dump() const { return profile.Dump(); }
  bool Save(const std::string& path) const { return profile.Save(path); }

  Side profile;
};

template <>
struct Parsed<Library> {
  explicit Parsed(const std::string& text) { profile.ParseString(text); }

  std::string Dump() { return profile.DumpToString(); }
  bool Save(const std::string& path) { return profile.SaveToFile(path); }

  analytics::ProfileDoc profile;
};

template <typename Side>
class Parse {
 public:
  explicit Parse(const Profile& sample) : m_text(sample.Text()) {}

  bool operator()() const {
    Parsed<Side> parsed(m_text);
    benchmark::DoNotOptimize(parsed);
    return true;
  }

  std::string Outcome() const { return Compact(Parsed<Side>(m_text).Dump()); }

 private:
  const std::string m_text;
};

template <typename Side>
class Dump {
 public:
  explicit Dump(const Profile& sample) : m_parsed(sample.Text()) {}

  std::string operator()() { return m_parsed.Dump(); }
  std::string Outcome() { return Compact((*this)()); }

 private:
  Parsed<Side> m_parsed;
};

template <typename Side>
class Save {
 public:
  explicit Save(const Profile& sample) : m_parsed(sample.Text()) {}

  bool operator()() { return m_parsed.Save(m_path); }
  std::string Outcome() { return (*this)() ? Compact(tests::FileText(m_path)) : std::string(); }

 private:
  Parsed<Side> m_parsed;
  const std::string m_path = PathOf("saved.xml");
};

template <typename Side>
class ActiveRules {
 public:
  explicit ActiveRules(const Profile& sample) : m_parsed(sample.Text()) {}

  std::vector<std::string> operator()() const {
    std::vector<std::string> types;
    std::unordered_set<std::string> known;
    for (const auto& rule : m_parsed.profile.Select(m_parsed.profile.Root(), m_rules)) {
      if (!IsActive(rule)) continue;
      std::string type = Side::Attribute(rule, "Type");
      if (!type.empty() && known.insert(type).second) types.push_back(std::move(type));
    }
    return types;
  }

  std::vector<std::string> Outcome() const { return (*this)(); }

 private:
  bool IsActive(typename Side::Node rule) const {
    const auto item = m_parsed.profile.First(rule, m_active);
    return item && Side::Number(item, "Value") != 0;
  }

  const Parsed<Side> m_parsed;
  const typename Side::Path m_rules{"//tt:rule"};
  const typename Side::Path m_active{"tt:Parameters/tt:SimpleItem[@Name='Active']"};
};

template <>
class ActiveRules<Library> {
 public:
  explicit ActiveRules(const Profile& sample) : m_parsed(sample.Text()) {}

  std::vector<std::string> operator()() { return m_parsed.profile.ActiveRules(); }
  std::vector<std::string> Outcome() { return (*this)(); }

 private:
  Parsed<Library> m_parsed;
};

std::string TypedRulesQry() { return "//tt:rule[@Type='" + TypeOf(1) + "']"; }

template <typename Side>
class SelectRules {
 public:
  explicit SelectRules(const Profile& sample) : m_parsed(sample.Text()) {}

  typename Side::Nodes operator()() const {
    return m_parsed.profile.Select(m_parsed.profile.Root(), m_query);
  }

  std::vector<std::string> Outcome() const {
    std::vector<std::string> names;
    for (const auto& rule : (*this)()) names.push_back(Side::Attribute(rule, "Name"));
    return names;
  }

 private:
  const Parsed<Side> m_parsed;
  const typename Side::Path m_query{TypedRulesQry()};
};

template <>
class SelectRules<Library> {
 public:
  explicit SelectRules(const Profile& sample) : m_parsed(sample.Text()) {}

  /// The handles are deleted as well, which is part of selecting.
  std::size_t operator()() { return Select().size(); }

  std::vector<std::string> Outcome() {
    std::vector<std::string> names;
    for (const auto& rule : Select()) names.push_back(rule->GetProperty("Name"));
    return names;
  }

 private:
  std::vector<std::unique_ptr<analytics::DocumentNode>> Select() {
    const std::vector<analytics::DocumentNode*> rules = m_parsed.profile.SelectRules(TypeOf(1));
    return {rules.begin(), rules.end()};
  }

  Parsed<Library> m_parsed;
};

template <typename Side>
int DeleteRules(Side& profile) {
  const typename Side::Nodes rules =
      profile.Select(profile.Root(), typename Side::Path(TypedRulesQry()));
  for (const auto& rule : rules) Side::Remove(rule);
  return static_cast<int>(rules.size());
}

int DeleteRules(analytics::ProfileDoc& profile) { return profile.DeleteRules(TypeOf(1)); }

template <typename Side>
class Delete {
 public:
  explicit Delete(const Profile& sample) : m_text(sample.Text()) {}

  void Renew() { m_parsed.emplace(m_text); }
  int operator()() { return DeleteRules(m_parsed->profile); }

  std::string Outcome() {
    Renew();
    return (*this)() > 0 ? Compact(m_parsed->Dump()) : std::string();
  }

 private:
  const std::string m_text;
  std::optional<Parsed<Side>> m_parsed;
};

}  // namespace

void AddProfileWork() {
  for (const int rules : {10, 100, 1000, 10000}) {
    const std::string size = "/" + std::to_string(rules);
    AddWork<Parse>(Everyone(), "parse", size, Profile{rules});
    AddWork<ActiveRules>(Everyone(), "list the active rules", size, Profile{rules});
    AddWork<ActiveRules>(Everyone(), "list the active rules, of as many types", size,
                         Profile{rules, rules});
    AddWork<SelectRules>(Everyone(), "select the rules of a type", size, Profile{rules});
    AddWork<Delete>(Everyone(), "delete half of the rules", size, Profile{rules, 2});
    AddWork<Dump>(Documents(), "dump", size, Profile{rules});
  }
  AddWork<Save>(Documents(), "save", "/100", Profile());
}

}  // namespace bench
