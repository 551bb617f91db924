// Loads settings files, made or raw, and compares all settings with a reading of the tree by hand.

#include <cstdlib>
#include <string>
#include <vector>

#include <libxml/parser.h>

#include <analytics/Settings.h>

#include "fuzz/Call.h"
#include "fuzz/Check.h"
#include "fuzz/MadeXml.h"
#include "fuzz/MemoryFile.h"
#include "fuzz/NumberModel.h"
#include "fuzz/Selected.h"
#include "fuzz/Target.h"
#include "fuzz/Tree.h"

namespace fuzz {
namespace {

using analytics::Settings;
using analytics::XmlPtr;

/// A text setting: its element and those around it, from the inside, and who gives it.
struct TextSetting {
  std::vector<const char*> elements;
  std::string (*accessor)();
  std::string value;
};

/// What the library must answer for now: at first the built-in values, as there is no file.
struct Expected {
  std::vector<TextSetting> texts = {
      {{"pluginRepository"}, &Settings::PluginRepository, "/usr/local/kestal/analytics/plugins/"},
      {{"quadOutputFile"},
       &Settings::QuadOutputFile,
       "/usr/local/kestal/analytics/quad-output.yuv"},
      {{"profile", "tags"}, &Settings::ProfileTag, "analytics-profile"},
      {{"mediaSource", "tags"}, &Settings::MediaSourceTag, "MediaSource"},
      {{"engines", "tags"}, &Settings::EnginesTag, "engines"},
      {{"engine", "tags"}, &Settings::EngineTag, "engine"},
      {{"rules", "tags"}, &Settings::RulesTag, "rules"},
      {{"rule", "tags"}, &Settings::RuleTag, "rule"},
      {{"eventSinks", "tags"}, &Settings::EventSinksTag, "eventSinks"},
      {{"eventSink", "tags"}, &Settings::EventSinkTag, "eventSink"},
      {{"cameraPreset", "tags"}, &Settings::CameraPresetTag, "cameraPreset"},
      {{"profile4DefaultModules"},
       &Settings::Profile4DefaultModules,
       "/Users/Projects/analytics-runtime/Profile4DefaultModules.xml"},
      {{"url", "kestal", "namespaces"},
       &Settings::KestalNs,
       "urn:kestal-com:schema:onvif:analytics:1"},
      {{"prefix", "kestal", "namespaces"}, &Settings::KestalPrefix, "ka"},
      {{"url", "onvif", "namespaces"}, &Settings::OnvifNs, "http://www.onvif.org/ver10/schema"},
      {{"prefix", "onvif", "namespaces"}, &Settings::OnvifPrefix, "tt"}};
  int maxResource = 100000;
  std::vector<std::string> userDataPipes;
};

Expected& Now() {
  static Expected expected;
  return expected;
}

const char* const kElements[] = {"maxResource",
                                 "maxSessions",
                                 "userdataPipe",
                                 "pluginRepository",
                                 "tags",
                                 "namespaces",
                                 "kestal",
                                 "onvif",
                                 "url",
                                 "prefix",
                                 "profile",
                                 "mediaSource",
                                 "engines",
                                 "engine",
                                 "rules",
                                 "rule",
                                 "eventSinks",
                                 "eventSink",
                                 "cameraPreset",
                                 "quadOutputFile",
                                 "videoInputFile",
                                 "profile4DefaultModules",
                                 "variables",
                                 "other"};
const char* const kTexts[] = {
    "",   " ", "7",          " 12x",          "-3",    "99999999999", "abc",         "/a/",
    "/a", "/", "a<!--c-->b", "<![CDATA[s]]>", "&#65;", "<other/>t",   "-99999999999"};
const char* const kPaths[] = {"//maxSessions",
                              "//maxResource",
                              "//videoInputFile",
                              "//userdataPipe",
                              "//tags/*",
                              "//*",
                              "/*",
                              "tags/rule",
                              "//a:b",
                              "count(//*)",
                              "//",
                              "..",
                              "//tags/@*",
                              "//text()",
                              ""};

/// An element with its content up to a depth.
void AddElement(Input& input, int depth, std::string& text) {
  const std::string name = input.Of(kElements);
  const std::size_t choice = input.Below(8);
  const bool isForeign = choice == 7;  // elements of a namespace are no settings
  text += "<" + name + (isForeign ? " xmlns=\"urn:other\">" : ">");
  if (choice < 3 && depth > 0) {
    for (std::size_t count = 1 + input.Below(4); count > 0; --count)
      AddElement(input, depth - 1, text);
  } else {
    text += choice == 6 ? Escaped(input.Text(8)) : input.Of(kTexts);
  }
  text += "</" + name + ">";
}

std::string MadeFile(Input& input) {
  std::string text = "<settings>";
  for (std::size_t count = input.Below(16); count > 0; --count) AddElement(input, 3, text);
  return text + "</settings>";
}

bool LiesIn(const xmlNode* element, const std::vector<const char*>& names) {
  for (const char* const name : names) {
    if (!IsElement(element, "", name)) return false;
    element = element->parent;
  }
  return true;
}

std::vector<std::string> TextsOf(xmlDoc* file, const std::vector<const char*>& names) {
  std::vector<std::string> texts;
  for (const xmlNode* const element : ElementsOf(file, "", names[0])) {
    if (LiesIn(element, names)) texts.push_back(TextOf(element));
  }
  return texts;
}

std::string FirstTextOf(xmlDoc* file, const std::vector<const char*>& names) {
  const std::vector<std::string> texts = TextsOf(file, names);
  return texts.empty() ? std::string() : texts[0];
}

void ExpectFile(xmlDoc* file) {
  for (TextSetting& text : Now().texts) text.value = FirstTextOf(file, text.elements);
  std::string& repository = Now().texts[0].value;
  if (!repository.empty() && repository[repository.size() - 1] != '/') repository += '/';
  Now().maxResource = IntOf(FirstTextOf(file, {"maxResource"}), 100000);
  Now().userDataPipes.clear();
  for (const std::string& pipe : TextsOf(file, {"userdataPipe"})) {
    if (!pipe.empty()) Now().userDataPipes.push_back(pipe);
  }
  if (Now().userDataPipes.empty())
    Now().userDataPipes.emplace_back("/var/run/primary.h264UserData.pipe");
}

void CompareSettings() {
  for (const TextSetting& text : Now().texts)
    RequireSame(Call(text.accessor), text.value, text.elements[0]);
  RequireSame(Call(&Settings::MaxResource), Now().maxResource, "maxResource");
  Require(Call(&Settings::UserDataPipes) == Now().userDataPipes, "userdataPipe");
}

void CompareQuery(xmlDoc* file, Input& input) {
  const std::string path = input.Seldom(4) ? input.Text(24) : input.Of(kPaths);
  const int fallback = input.Byte();
  const XmlPtr<xmlXPathContext> searchContext(file ? xmlXPathNewContext(file) : nullptr);
  const Selected expected(searchContext.get(), file ? xmlDocGetRootElement(file) : nullptr, path);
  const std::string text = expected.FirstText();
  RequireSame(Call([&] { return Settings::GetValue(path); }), text, "a text");
  RequireSame(Call([&] { return Settings::GetValue(path, fallback); }), IntOf(text, fallback),
              "an integer");
  Require(Call([&] { return Settings::GetValues(path); }) == expected.Texts(), "texts");
}

const MemoryFile& File() {
  static const MemoryFile file;
  return file;
}

/// Whether libxml2 would unpack a file of this content.
bool IsPacked(const std::string& text) {
  return text.compare(0, 2, "\x1F\x8B") == 0 ||
         text.compare(0, 2,
                      "\xFD"
                      "7") == 0 ||
         text.compare(0, 1, "]") == 0;
}

/// What the environment may say, around the path of the file.
struct Environment {
  const char* before;
  const char* after;
  bool namesFile;
};

const Environment kEnvironments[] = {
    {"", "", true},       {"\"", "\" more", true}, {"  ", "\tmore", true}, {"'", "", false},
    {"\"\" ", "", false}, {"", "|", false},        {"$NOTHING", "", true}};

/// Has the environment name the file or something else, and loads what it names.
bool LoadByEnvironment(Input& choices, bool& namesFile) {
  const Environment& chosen = choices.Of(kEnvironments);
  const std::string value = chosen.before + File().Path() + chosen.after;
  const bool isSet = !choices.Seldom(8);
  if (isSet) {
    setenv("ANALYTICS_INI", value.c_str(), 1);
  } else {
    unsetenv("ANALYTICS_INI");
  }
  namesFile = isSet && chosen.namesFile;
  return Call([] { return Settings::LoadSettings(""); });
}

void CompareLoad(const std::string& text, Input& choices) {
  File().Write(text);
  XmlPtr<xmlDoc> file(xmlParseMemory(text.data(), static_cast<int>(text.size())));
  bool namesFile = true;
  const bool isLoaded = choices.Seldom(8)
                            ? LoadByEnvironment(choices, namesFile)
                            : Call([] { return Settings::LoadSettings(File().Path()); });
  if (!namesFile) file.reset();
  RequireSame(isLoaded, file != nullptr, "whether the settings are loaded");
  if (file) ExpectFile(file.get());
  CompareSettings();
  for (std::size_t queries = choices.Below(3); queries > 0; --queries)
    CompareQuery(file.get(), choices);
}

}  // namespace

void SetUp() {
  // The first use loads the file too, which is not yet there: so the built-in values stand.
  setenv("ANALYTICS_INI", File().Path().c_str(), 1);
  CompareSettings();
}

void RunOne(Input& input) {
  const std::string chosen = input.Text(24);
  Input choices(reinterpret_cast<const std::uint8_t*>(chosen.data()), chosen.size());
  const bool isMade = !choices.Seldom(4);
  const std::string text = isMade ? MadeFile(input) : input.Rest();
  if (isMade || !IsPacked(text)) CompareLoad(text, choices);
}

}  // namespace fuzz
