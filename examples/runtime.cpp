// The smallest honest analytics runtime: loads its settings, reads a profile, shows what it would
// run, changes a parameter and saves a copy, reserves resources and follows the privacy masks.

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <iterator>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include <analytics/Calibration.h>
#include <unistd.h>
#include <wordexp.h>

#include <analytics/DocumentNode.h>
#include <analytics/ProfileDoc.h>
#include <analytics/ResourceUsageServer.h>
#include <analytics/Settings.h>
#include <analytics/Text.h>

#include "Printing.h"
#include "PrivacyMasks.h"
#include "XmlProblem.h"

namespace {

using examples::Heading;
using examples::Joined;
using examples::Line;
using examples::Row;

using analytics::DocumentNode;
using analytics::ProfileDoc;
using analytics::Settings;
using analytics::types::Point;
namespace text = analytics::text;

// Whatever the library hands out as a node is the caller's to delete.
using NodePtr = std::unique_ptr<DocumentNode>;
using NodePtrs = std::vector<NodePtr>;

NodePtrs Owned(const std::vector<DocumentNode*>& nodes) {
  return NodePtrs(nodes.begin(), nodes.end());
}

std::string Text(const Point& point) {
  return "(" + std::to_string(point.x) + ", " + std::to_string(point.y) + ")";
}

std::string Text(const Point (&pair)[2]) { return Text(pair[0]) + " - " + Text(pair[1]); }

std::string Text(const std::vector<Point>& points) {
  std::vector<std::string> texts;
  texts.reserve(points.size());
  std::transform(points.begin(), points.end(), std::back_inserter(texts),
                 [](const Point& point) { return Text(point); });
  return Joined(texts);
}

// The path that the library resolves. It keeps that path to itself, so a runtime that wants to show
// it expands the variable in the same way.
std::string SettingsPath() {
  const char* variable = std::getenv("ANALYTICS_INI");
  if (!variable) return "/usr/local/kestal/analytics/conf/analytics.ini";
  wordexp_t words;
  if (wordexp(variable, &words, 0) != 0) return variable;
  std::string path;
  if (words.we_wordc > 0) path = words.we_wordv[0];
  wordfree(&words);
  return path.empty() ? "/usr/local/kestal/analytics/conf/analytics.ini" : path;
}

void LoadSettings(const examples::XmlProblem& problem) {
  if (Settings::LoadSettings("")) return;
  throw std::runtime_error("the settings file '" + SettingsPath() +
                           "' cannot be used: " + problem.Text());
}

void ShowSettings() {
  Heading("Settings from " + SettingsPath());
  Row(1, "MaxResource", Settings::MaxResource());
  Row(1, "UserDataPipes", Joined(Settings::UserDataPipes()));
  Row(1, "PluginRepository", Settings::PluginRepository());
  Row(1, "QuadOutputFile", Settings::QuadOutputFile());
  Row(1, "Profile4DefaultModules", Settings::Profile4DefaultModules());
  Row(1, "//maxSessions", Settings::GetValue("//maxSessions", 1));
  Row(1, "//videoInputFile", Settings::GetValue("//videoInputFile"));
  const std::string text = "${profiles}/${site}.xml";
  Row(1, text, Settings::SubstituteVariables(text));
}

void ShowVocabulary() {
  Heading("Vocabulary of profiles");
  Row(1, "ProfileTag", Settings::ProfileTag());
  Row(1, "MediaSourceTag", Settings::MediaSourceTag());
  Row(1, "EnginesTag", Settings::EnginesTag());
  Row(1, "EngineTag", Settings::EngineTag());
  Row(1, "RulesTag", Settings::RulesTag());
  Row(1, "RuleTag", Settings::RuleTag());
  Row(1, "EventSinksTag", Settings::EventSinksTag());
  Row(1, "EventSinkTag", Settings::EventSinkTag());
  Row(1, "CameraPresetTag", Settings::CameraPresetTag());
  Row(1, "OnvifPrefix", Settings::OnvifPrefix());
  Row(1, "OnvifNs", Settings::OnvifNs());
  Row(1, "KestalPrefix", Settings::KestalPrefix());
  Row(1, "KestalNs", Settings::KestalNs());
}

std::string ItemText(DocumentNode& item) {
  return item.GetProperty("Name") + " = " + item.GetProperty("Value");
}

void ShowItems(ProfileDoc& profile, DocumentNode* element) {
  const NodePtrs items = Owned(profile.SelectNodes(ProfileDoc::SimpleItemQry(true), element));
  std::vector<std::string> texts;
  std::transform(items.begin(), items.end(), std::back_inserter(texts),
                 [](const NodePtr& item) { return ItemText(*item); });
  Row(2, "items", Joined(texts));
}

void ShowTitle(DocumentNode& element, const std::string& remark) {
  Line(1) << element.GetProperty("Type") << "  \"" << element.GetProperty("Name") << "\"" << remark
          << "\n";
}

// The path of an ONVIF element anywhere below a rule.
std::string Below(const std::string& element) {
  return ".//" + Settings::OnvifPrefix() + ":" + element;
}

void ShowGeometry(ProfileDoc& profile, DocumentNode* rule) {
  const std::string point = Settings::OnvifPrefix() + ":Point";
  for (const NodePtr& polygon : Owned(profile.SelectNodes(Below("Polygon"), rule))) {
    std::vector<Point> points;
    if (profile.GetPoints(points, point, polygon.get())) Row(2, "points", Text(points));
  }
  for (const NodePtr& polyline : Owned(profile.SelectNodes(Below("Polyline"), rule))) {
    Point line[2] = {};
    if (profile.GetLine(line, point, polyline.get())) Row(2, "line", Text(line));
  }
  for (const NodePtr& element : Owned(profile.SelectNodes(Below("Rectangle"), rule))) {
    Point rectangle[2] = {};
    if (profile.GetRectangle(rectangle, ".", element.get())) Row(2, "rectangle", Text(rectangle));
  }
}

// GetCalibration() answers true in any case, so whether there is one is asked first.
bool HasCalibration(ProfileDoc& profile, DocumentNode* rule) {
  const std::string item = ProfileDoc::ElementItemQry(true) + "[@Name='Calibration']";
  return NodePtr(profile.SelectNode(item, rule)) != nullptr;
}

void ShowCalibration(ProfileDoc& profile, DocumentNode* rule) {
  if (!HasCalibration(profile, rule)) return;
  analytics::Calibration calibration;
  profile.GetCalibration(calibration, rule);
  Line(2) << "calibration\n";
  Row(3, "object at near left", Text(calibration.NearLeftSize()));
  Row(3, "near width", Text(calibration.NearWidth()));
  Row(3, "far width", Text(calibration.FarWidth()));
  Row(3, "physical height", calibration.PhysicalHeight());
}

void ShowEngines(ProfileDoc& profile) {
  const NodePtrs engines = Owned(profile.SelectEngines(""));
  Heading("Engines: " + std::to_string(engines.size()));
  for (const NodePtr& engine : engines) {
    ShowTitle(*engine, "");
    ShowItems(profile, engine.get());
    ShowCalibration(profile, engine.get());
  }
}

void ShowRules(ProfileDoc& profile) {
  const NodePtrs rules = Owned(profile.SelectRules(""));
  Heading("Rules: " + std::to_string(rules.size()));
  for (const NodePtr& rule : rules) {
    const bool isActive = profile.GetSimpleItemValue("Active", 0, rule.get(), true) != 0;
    ShowTitle(*rule, isActive ? "  [active]" : "  [not active]");
    ShowItems(profile, rule.get());
    ShowGeometry(profile, rule.get());
    ShowCalibration(profile, rule.get());
  }
}

void ShowEventSinks(ProfileDoc& profile) {
  const NodePtrs sinks = Owned(profile.SelectEventSinks(""));
  Heading("Event sinks: " + std::to_string(sinks.size()));
  for (const NodePtr& sink : sinks) {
    ShowTitle(*sink, "");
    ShowItems(profile, sink.get());
  }
}

std::string TemporaryDirectory() {
  const char* directory = std::getenv("TMPDIR");
  return directory ? directory : "/tmp";
}

// A file that is there while it is in scope.
class TemporaryFile {
 public:
  TemporaryFile() : m_path(TemporaryDirectory() + "/analytics-profile-XXXXXX") {
    const int file = mkstemp(&m_path.front());
    if (file < 0) throw std::runtime_error("no temporary file can be made for the copy");
    close(file);
  }
  ~TemporaryFile() { std::remove(m_path.c_str()); }

  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;

  const std::string& Path() const { return m_path; }

 private:
  std::string m_path;
};

std::string SensitivityOf(ProfileDoc& profile, DocumentNode* rule) {
  const std::string value = profile.GetSimpleItemValue("Sensitivity", rule, true);
  return value.empty() ? "none" : value;
}

// SaveToFile() does not report a failed write, so a copy that matters is read back.
std::string SensitivityInCopy(ProfileDoc& profile, const std::string& type) {
  const TemporaryFile file;
  profile.SaveToFile(file.Path());
  ProfileDoc copy;
  if (!copy.ParseFile(file.Path())) throw std::runtime_error("the copy does not read back");
  const NodePtr rule(copy.SelectRule(type));
  return SensitivityOf(copy, rule.get());
}

// Both texts come from outside: a type with a quote would become part of the query, and a path may
// hold what XML cannot.
void EditAndSave(ProfileDoc& profile, const std::string& path, const std::string& type) {
  const NodePtr rule(text::IsQueryType(type) ? profile.SelectRule(type) : nullptr);
  const std::string parameters = Settings::OnvifPrefix() + ":Parameters";
  const NodePtr items(rule ? profile.SelectNode(parameters, rule.get()) : nullptr);
  if (!items) return;
  Heading("Edit");
  Row(1, "sensitivity before", SensitivityOf(profile, rule.get()));
  profile.SetOrAddSimpleItemValue("Sensitivity", 90, items.get());
  if (text::IsXmlText(path)) NodePtr(rule->AddNewChild("Source", text::ElementText(path))).reset();
  Row(1, "in the saved copy", SensitivityInCopy(profile, type));
}

// The platform does not report whether a claim was accepted; the units left tell.
void ReserveResources() {
  constexpr int kWantedUnits = 30;
  analytics::ResourceUsageServer server;
  Heading("Resources");
  Row(1, "free units", server.AvailableResources());
  server.ReserveResources(kWantedUnits);
  Row(1, "asked for", kWantedUnits);
  Row(1, "free units after that", server.AvailableResources());
}

void Run(const std::string& path) {
  examples::XmlProblem problem;
  LoadSettings(problem);
  problem.Clear();
  ShowSettings();
  ShowVocabulary();
  ProfileDoc profile;
  if (!profile.ParseFile(path)) {
    throw std::runtime_error("the profile '" + path + "' cannot be used: " + problem.Text());
  }
  Heading("Profile " + path);
  ShowEngines(profile);
  ShowRules(profile);
  ShowEventSinks(profile);
  const std::vector<std::string> types = profile.ActiveRules();
  Heading("Active types: " + Joined(types));
  EditAndSave(profile, path, types.empty() ? std::string() : types.front());
  ReserveResources();
  examples::WatchPrivacyMasks();
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    std::cerr << "usage: analytics-runtime PROFILE\n"
                 "The settings file is the one that ANALYTICS_INI names.\n";
    return EXIT_FAILURE;
  }
  try {
    Run(argv[1]);
  } catch (const std::exception& problem) {
    std::cerr << "analytics-runtime: " << problem.what() << "\n";
    return EXIT_FAILURE;
  }
  return EXIT_SUCCESS;
}
