#include "fuzz/MadeProfile.h"

#include <vector>

#include "fuzz/MadeXml.h"

namespace fuzz {

const Vocabulary kVocabularies[2] = {
    {"tt", "http://www.onvif.org/ver10/schema", "ka", "urn:kestal-com:schema:onvif:analytics:1",
     "rule", "engine", "eventSink"},
    {"on", "urn:on", "v_1", "urn:vendor", "Rule", "Engine", "Sink"}};

const char* const kTypes[8] = {"", "A", "B", "A B", "it's", "q\"", "none", "&"};
const char* const kItems[8] = {"Active", "Level", "", "Calibration", "a\"b", "it's", "none", "<"};

namespace {

const char* const kNumbers[] = {"0", "1", "-1",  "80",   " 7",   "12px",        "abc",
                                "",  " ", "1.5", "0x10", "true", "99999999999", "-99999999999"};

/// What stands at the root: every namespace has two prefixes, and one is neither.
std::string Declarations(const Vocabulary& names) {
  return std::string(" xmlns:o='") + names.onvifUri + "' xmlns:p='" + names.onvifUri +
         "' xmlns:v='" + names.kestalUri + "' xmlns:w='" + names.kestalUri +
         "' xmlns:z='urn:other'";
}

/// A profile as far as it is written, and the elements that are open in it.
class Maker {
 public:
  Maker(Input& input, const Vocabulary& names) : m_input(input), m_names(names) {
    m_text = "<o:profile" + Declarations(names) + ">";
    m_open.emplace_back("o:profile");
  }

  void Step() {
    switch (m_input.Below(16)) {
      case 0:
      case 1:
        return OpenRule();
      case 2:
        return Open(Onvif("Parameters"), "");
      case 3:
      case 4:
        return Empty(Onvif("SimpleItem"), Item());
      case 5:
        return Open(Onvif("ElementItem"), Named(m_input.Seldom(4) ? "Other" : "Calibration"));
      case 6:
        return AddCalibration();
      case 7:
        return Empty(Onvif("Point"), Numbers({"x", "y"}));
      case 8:
        return Open(Kestal(m_input.Flag() ? "NearWidth" : "FarWidth"), "");
      case 9:
        return Empty(Kestal("ObjectAtNearLeft"), Numbers({"left", "top", "right", "bottom"}));
      case 10:
        return AddHeight();
      case 11:
        return Open(Kestal("Calibration"), "");
      case 12:
        return AddActiveRule();
      case 13:
        return Open(Kestal(m_names.eventSink), Typed());
      default:
        if (m_open.size() > 1) Close();
    }
  }

  std::string Finish() {
    while (!m_open.empty()) Close();
    return m_text;
  }

 private:
  void Open(const std::string& name, const std::string& attributes) {
    m_text += "<" + name + attributes + ">";
    m_open.push_back(name);
  }

  void Empty(const std::string& name, const std::string& attributes) {
    m_text += "<" + name + attributes + "/>";
  }

  void Close() {
    m_text += "</" + m_open.back() + ">";
    m_open.pop_back();
  }

  std::string Onvif(const char* name) { return Prefix("o:", "p:", "v:") + name; }
  std::string Kestal(const char* name) { return Prefix("v:", "w:", "o:") + name; }

  /// One of two prefixes for the right namespace, seldom another's or none.
  std::string Prefix(const char* first, const char* second, const char* wrong) {
    const std::size_t choice = m_input.Below(16);
    if (choice < 8) return first;
    if (choice < 13) return second;
    if (choice == 13) return wrong;
    return choice == 14 ? "z:" : "";
  }

  static std::string Named(const std::string& name) { return " Name=\"" + Escaped(name) + "\""; }

  std::string Typed() {
    const std::size_t choice = m_input.Below(16);
    if (choice == 8) return "";
    return (choice == 9 ? " o:Type=\"" : " Type=\"") + Escaped(kTypes[choice % 8]) + "\"";
  }

  std::string Item() {
    std::string attributes = Named(m_input.Of(kItems));
    const std::size_t choice = m_input.Below(8);
    if (choice == 0) return attributes;
    if (choice == 1) attributes += " o:Value=\"3\"";
    return attributes + " Value=\"" + m_input.Of(kNumbers) + "\"";
  }

  std::string Numbers(const std::vector<const char*>& attributes) {
    std::string text;
    const std::size_t left = m_input.Below(32);  // one bit says which one is left out
    for (std::size_t index = 0; index < attributes.size(); ++index) {
      if (((left >> index) & 1U) != 0) continue;
      text += std::string(" ") + attributes[index] + "=\"" + m_input.Of(kNumbers) + "\"";
    }
    return text;
  }

  void OpenRule() {
    const std::string name = Onvif(m_input.Flag() ? m_names.engine : m_names.rule);
    Open(name, Typed());
  }

  void AddHeight() {
    Open(Kestal("PhysicalHeight"), "");
    m_text += m_input.Of(kNumbers);
    Close();
  }

  /// A rule with its items, so that these are where they count.
  void AddActiveRule() {
    Open("o:" + std::string(m_names.rule), Typed());
    Open(Onvif("Parameters"), "");
    for (std::size_t count = m_input.Below(4); count > 0; --count)
      Empty(Onvif("SimpleItem"), Item());
    Empty("p:SimpleItem", Named("Active") + " Value=\"" + m_input.Of(kNumbers) + "\"");
    if (m_input.Flag()) Close();
    if (m_input.Flag()) Close();
  }

  /// A calibration down to its pieces, which later steps add.
  void AddCalibration() {
    Open("o:" + std::string(m_names.rule), "");
    Open(Onvif("Parameters"), "");
    Open(Onvif("ElementItem"), Named("Calibration"));
    Open(Kestal("Calibration"), "");
    Open(Kestal(m_input.Flag() ? "NearWidth" : "FarWidth"), "");
    for (std::size_t count = m_input.Below(4); count > 0; --count)
      Empty(Onvif("Point"), Numbers({"x", "y"}));
    Close();
  }

  Input& m_input;
  const Vocabulary& m_names;
  std::string m_text;
  std::vector<std::string> m_open;
};

}  // namespace

std::string SettingsOf(const Vocabulary& names) {
  return std::string("<s><tags><rule>") + names.rule + "</rule><engine>" + names.engine +
         "</engine><eventSink>" + names.eventSink + "</eventSink></tags><namespaces><onvif><url>" +
         names.onvifUri + "</url><prefix>" + names.onvifPrefix + "</prefix></onvif><kestal><url>" +
         names.kestalUri + "</url><prefix>" + names.kestalPrefix +
         "</prefix></kestal></namespaces></s>";
}

std::string MadeProfile(Input& input, const Vocabulary& names) {
  Maker maker(input, names);
  for (int step = 0; step < 16 && !input.IsUsedUp(); ++step) maker.Step();
  return maker.Finish();
}

}  // namespace fuzz
