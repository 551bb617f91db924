#include <algorithm>
#include <iterator>

#include <libxml/tree.h>

#include "Transformed.h"
#include "check/Elements.h"
#include "check/ProfileChecks.h"
#include "input/LineNumbers.h"
#include "input/Nodes.h"

namespace settingsctl {
namespace {

using Words = std::vector<std::string>;

/// One of the library's three queries: what it is made of, finds, and should find.
struct OwnerQuery {
  const char* name;
  bool isVendors;
  const char* tagPath;
  std::string ProfileVocabulary::*tag;
  bool (ProfileVocabulary::*isOwner)(const xmlNode*) const;
  std::vector<analytics::DocumentNode*> (analytics::ProfileDoc::*select)(const std::string&);
};

const OwnerQuery kQueries[] = {
    {"rules", false, "<tags><rule>", &ProfileVocabulary::ruleTag, &ProfileVocabulary::IsRule,
     &analytics::ProfileDoc::SelectRules},
    {"engines", false, "<tags><engine>", &ProfileVocabulary::engineTag,
     &ProfileVocabulary::IsEngine, &analytics::ProfileDoc::SelectEngines},
    {"event sinks", true, "<tags><eventSink>", &ProfileVocabulary::eventSinkTag,
     &ProfileVocabulary::IsEventSink, &analytics::ProfileDoc::SelectEventSinks},
};

/// A setting with which queries fail. What is wrong with it stands around its path in a message:
/// "leaves <tags><rule> empty".
struct Fault {
  std::string path;
  std::string verb;
  std::string problem;
};

using Faults = std::vector<Fault>;

bool IsSameProblem(const Fault& left, const Fault& right) {
  return left.verb == right.verb && left.problem == right.problem;
}

bool IsXmlName(const std::string& text) {
  return xmlValidateNCName(reinterpret_cast<const xmlChar*>(text.c_str()), 0) == 0;
}

void AddNameFault(const std::string& path, const std::string& name, Faults& faults) {
  if (name.empty()) {
    faults.push_back({path, "leaves", "empty"});
  } else if (!IsXmlName(name)) {
    faults.push_back({path, "sets", "to " + Quoted(name) + ", which is not a valid XML name"});
  }
}

/// Prefixes that are right as names, but stand for another namespace.
void AddTakenPrefix(const ProfileVocabulary& words, bool isVendors, const std::string& path,
                    Faults& faults) {
  const std::string& prefix = isVendors ? words.kestalPrefix : words.onvifPrefix;
  const std::string& uri = isVendors ? words.kestalNs : words.onvifNs;
  const bool isShared = !isVendors && prefix == words.kestalPrefix && uri != words.kestalNs;
  if (!prefix.empty() && isShared) {
    faults.push_back({path, "sets", "to " + Quoted(prefix) + ", which is the vendor's prefix too"});
  }
  if (prefix == "xml" && uri != reinterpret_cast<const char*>(XML_XML_NAMESPACE)) {
    faults.push_back({path, "sets", "to 'xml', which always stands for XML's own namespace"});
  }
}

Faults NamespaceFaults(const ProfileVocabulary& words, bool isVendors) {
  const std::string start = isVendors ? "<namespaces><kestal>" : "<namespaces><onvif>";
  Faults faults;
  AddNameFault(start + "<prefix>", isVendors ? words.kestalPrefix : words.onvifPrefix, faults);
  AddTakenPrefix(words, isVendors, start + "<prefix>", faults);
  if ((isVendors ? words.kestalNs : words.onvifNs).empty()) {
    faults.push_back({start + "<url>", "leaves", "empty"});
  }
  return faults;
}

Faults FaultsOf(const ProfileVocabulary& words, const OwnerQuery& query) {
  Faults faults = NamespaceFaults(words, query.isVendors);
  AddNameFault(query.tagPath, words.*query.tag, faults);
  return faults;
}

std::vector<const xmlNode*> Found(const CheckedProfile& checked, const OwnerQuery& query) {
  return Transformed(Owned((checked.profile.*query.select)("")), [](const NodePtr& node) {
    return static_cast<const xmlNode*>(node->Handle());
  });
}

std::vector<const xmlNode*> Held(const CheckedProfile& checked, const OwnerQuery& query) {
  std::vector<const xmlNode*> held;
  std::copy_if(checked.elements.begin(), checked.elements.end(), std::back_inserter(held),
               [&](const xmlNode* element) { return (checked.words.*query.isOwner)(element); });
  return held;
}

/// A query and what came of it.
struct Answer {
  const OwnerQuery* query;
  Faults faults;  ///< none if the query can be trusted
  bool isEmpty;
};

/// Settings that look wrong and yet find just what they should are right.
Answer Ask(const CheckedProfile& checked, const OwnerQuery& query) {
  const auto found = Found(checked, query);
  const bool isRight = !found.empty() && found == Held(checked, query);
  return {&query, isRight ? Faults() : FaultsOf(checked.words, query), found.empty()};
}

/// "a", "a and b", "a, b and c"
std::string Listed(const Words& words) {
  std::string listed;
  for (std::size_t index = 0; index < words.size(); ++index) {
    const bool isLast = index + 1 == words.size();
    if (index > 0) listed += isLast ? " and " : ", ";
    listed += words[index];
  }
  return listed;
}

void AddOnce(const std::string& word, Words& words) {
  if (std::find(words.begin(), words.end(), word) == words.end()) words.push_back(word);
}

/// One finding for all settings of which the same is wrong.
void Report(const CheckedProfile& checked, const std::vector<Answer>& answers, const Fault& fault,
            int line) {
  Words queries;
  Words paths;
  for (const Answer& answer : answers) {
    for (const Fault& other : answer.faults) {
      if (!IsSameProblem(fault, other)) continue;
      AddOnce(answer.query->name, queries);
      AddOnce(other.path, paths);
    }
  }
  const std::string file = checked.settings.empty() ? "the settings file" : checked.settings;
  checked.findings.Add("unusable-prefix", line,
                       "queries for " + Listed(queries) + " fail: " + file + " " + fault.verb +
                           " " + Listed(paths) + " " + fault.problem);
}

void ReportFaults(const CheckedProfile& checked, const std::vector<Answer>& answers, int line) {
  Faults reported;
  for (const Answer& answer : answers) {
    for (const Fault& fault : answer.faults) {
      const bool isKnown =
          std::any_of(reported.begin(), reported.end(),
                      [&fault](const Fault& other) { return IsSameProblem(fault, other); });
      if (isKnown) continue;
      Report(checked, answers, fault, line);
      reported.push_back(fault);
    }
  }
}

void ReportNothing(const CheckedProfile& checked, int line) {
  const Words tags = Transformed(
      kQueries, [&](const OwnerQuery& query) { return Quoted(checked.words.*query.tag); });
  checked.findings.Add("nothing-found", line,
                       "the library finds no rule, engine or event sink in this file: the settings "
                       "name them " +
                           Listed(tags));
}

bool IsTrusted(const Answer& answer) { return answer.faults.empty(); }

bool IsEmpty(const Answer& answer) { return answer.isEmpty; }

/// Where only the tag is wrong, the namespace still serves other queries.
bool HasUsableNamespace(const ProfileVocabulary& words, const Answer& answer) {
  return IsTrusted(answer) || NamespaceFaults(words, answer.query->isVendors).empty();
}

UsableNamespaces UsableWith(const ProfileVocabulary& words, const std::vector<Answer>& answers) {
  UsableNamespaces usable = {true, true};
  for (const Answer& answer : answers) {
    bool& isUsable = answer.query->isVendors ? usable.vendors : usable.onvif;
    isUsable = isUsable && HasUsableNamespace(words, answer);
  }
  return usable;
}

}  // namespace

UsableNamespaces CheckQueries(CheckedProfile& checked) {
  const auto answers =
      Transformed(kQueries, [&](const OwnerQuery& query) { return Ask(checked, query); });
  const int line = checked.elements.empty() ? 1 : LineOf(checked.elements.front());
  const bool areTrusted = std::all_of(answers.begin(), answers.end(), IsTrusted);
  const bool isNothing = std::all_of(answers.begin(), answers.end(), IsEmpty);
  ReportFaults(checked, answers, line);
  if (areTrusted && isNothing) ReportNothing(checked, line);
  checked.placesAreKnown = areTrusted && !isNothing;
  const UsableNamespaces usable = UsableWith(checked.words, answers);
  for (const Answer& answer : answers) {
    if (!IsTrusted(answer)) checked.words.*answer.query->tag = {};
  }
  return usable;
}

}  // namespace settingsctl
