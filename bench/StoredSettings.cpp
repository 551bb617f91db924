#include "bench/StoredSettings.h"

#include <libxml/parser.h>

namespace bench {
namespace {

struct StoredText {
  const char* query;
  std::string StoredSettings::*member;
};

const StoredText kTexts[] = {
    {"//pluginRepository", &StoredSettings::pluginRepository},
    {"//videoInputFile", &StoredSettings::videoInputFile},
    {"//quadOutputFile", &StoredSettings::quadOutputFile},
    {"//tags/profile", &StoredSettings::profileTag},
    {"//tags/mediaSource", &StoredSettings::mediaSourceTag},
    {"//tags/engines", &StoredSettings::enginesTag},
    {"//tags/engine", &StoredSettings::engineTag},
    {"//tags/rules", &StoredSettings::rulesTag},
    {"//tags/rule", &StoredSettings::ruleTag},
    {"//tags/eventSinks", &StoredSettings::eventSinksTag},
    {"//tags/eventSink", &StoredSettings::eventSinkTag},
    {"//tags/cameraPreset", &StoredSettings::cameraPresetTag},
    {"//profile4DefaultModules", &StoredSettings::profile4DefaultModules},
    {"//namespaces/kestal/url", &StoredSettings::kestalNs},
    {"//namespaces/kestal/prefix", &StoredSettings::kestalPrefix},
    {"//namespaces/onvif/url", &StoredSettings::onvifNs},
    {"//namespaces/onvif/prefix", &StoredSettings::onvifPrefix},
};

}  // namespace

bool StoredSettings::Load(const std::string& path) {
  tree.queries.reset();
  tree.document.reset(xmlParseFile(path.c_str()));
  if (!tree.document) return false;
  tree.queries.reset(xmlXPathNewContext(tree.document.get()));
  maxSessions = Value("//maxSessions", 1);
  maxResource = Value("//maxResource", 100000);
  ReadTexts();
  ReadPipes();
  return true;
}

void StoredSettings::ReadTexts() {
  for (const StoredText& text : kTexts) this->*text.member = Value(text.query);
  if (!pluginRepository.empty() && pluginRepository.back() != '/') pluginRepository += '/';
}

void StoredSettings::ReadPipes() {
  pipes.clear();
  const XmlPtr<xmlXPathObject> result = Evaluate(tree, tree.Root(), "//userdataPipe");
  for (int index = 0; index < xmlXPathNodeSetGetLength(result->nodesetval); ++index) {
    std::string pipe = Copy(Text(result->nodesetval->nodeTab[index]).get());
    if (!pipe.empty()) pipes.push_back(std::move(pipe));
  }
  if (pipes.empty()) pipes.emplace_back("/var/run/primary.h264UserData.pipe");
}

std::string StoredSettings::RuleTag() const { return ruleTag; }

int StoredSettings::Value(const char* query, int fallback) const {
  return Number(Text(First(tree, tree.Root(), query)).get(), fallback);
}

std::string StoredSettings::Value(const char* query) const {
  return Copy(Text(First(tree, tree.Root(), query)).get());
}

std::string StoredSettings::Substitute(std::string text) const {
  std::size_t start = 0;
  while ((start = text.find("${")) != std::string::npos) {
    const std::size_t end = text.find('}', start);
    if (end == std::string::npos || end == start + 2) break;
    const std::string name = text.substr(start + 2, end - start - 2);
    const std::string query = "//variables/variable[@name=\"" + name + "\"]/@value";
    text.replace(start, end - start + 1, Value(query.c_str()));
  }
  return text;
}

}  // namespace bench
