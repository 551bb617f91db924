#include "check/FileCheck.h"

#include <memory>

#include <analytics/ProfileDoc.h>
#include <analytics/Settings.h>

#include "Failure.h"
#include "Transformed.h"
#include "check/FileKind.h"
#include "check/ProfileChecks.h"
#include "check/SettingsChecks.h"
#include "input/Input.h"
#include "input/MemoryFile.h"
#include "input/XmlInput.h"

namespace settingsctl {
namespace {

std::string NameOf(const std::string& path) { return path == "-" ? "standard input" : path; }

/// What a failure says behind the name of the file, which stands before each finding anyway.
std::string ReasonOf(const Failure& failure, const std::string& name) {
  const std::string message = failure.what();
  const std::string start = name + ": ";
  return message.compare(0, start.size(), start) == 0 ? message.substr(start.size()) : message;
}

/// One file on its way through the checks.
class FileCheck {
 public:
  FileCheck(const std::string& path, const CheckOptions& options)
      : m_findings(NameOf(path), options.without), m_settings(options.settings) {
    try {
      Read(ReadInput(path), options);
    } catch (const Failure& failure) {
      m_isReadable = false;
      m_findings.Add("unreadable", 1, ReasonOf(failure, NameOf(path)));
    }
  }

  bool IsReadable() const { return m_isReadable; }
  std::vector<Finding> Take() const { return m_findings.ByLine(); }

  void CheckAs(FileKind kind) {
    if (m_kind != kind || !m_xml) return;
    kind == FileKind::kProfile ? CheckAsProfile() : CheckAsSettings();
  }

 private:
  void Read(Input input, const CheckOptions& options) {
    m_input = std::move(input);
    m_xml = std::make_unique<XmlInput>(m_input);
    if (!m_xml->Document()) {
      m_findings.Add("not-well-formed", m_xml->Problem().line, m_xml->Problem().message);
      m_xml.reset();
      return;
    }
    xmlNode* root = xmlDocGetRootElement(m_xml->Document());
    m_kind = options.kind ? *options.kind : KindOfFile(root);
  }

  void CheckAsProfile() {
    analytics::ProfileDoc profile;
    profile.ParseString(m_input.text);
    NumberLines(profile, m_xml->Document());
    CheckProfile(profile, m_findings, m_settings);
  }

  void CheckAsSettings() {
    // Standard input cannot be read again, and a file could have changed since.
    const MemoryFile file(m_input.text);
    analytics::Settings::LoadSettings(file.Path());
    CheckSettings(xmlDocGetRootElement(m_xml->Document()), m_findings);
  }

  Findings m_findings;
  const std::string m_settings;
  Input m_input;
  std::unique_ptr<XmlInput> m_xml;
  FileKind m_kind = FileKind::kSettings;
  bool m_isReadable = true;
};

void Append(const std::vector<Finding>& findings, CheckReport& report) {
  report.findings.insert(report.findings.end(), findings.begin(), findings.end());
}

}  // namespace

CheckReport CheckFiles(const std::vector<std::string>& paths, const CheckOptions& options) {
  const auto files = Transformed(paths, [&options](const std::string& path) {
    return std::make_unique<FileCheck>(path, options);
  });
  // Profiles come first: a settings file among the files must not change what they are checked by.
  for (const auto& file : files) file->CheckAs(FileKind::kProfile);
  for (const auto& file : files) file->CheckAs(FileKind::kSettings);
  CheckReport report;
  for (const auto& file : files) {
    report.isComplete = report.isComplete && file->IsReadable();
    Append(file->Take(), report);
  }
  return report;
}

std::vector<Finding> CheckProfileText(const std::string& name, const std::string& text) {
  const XmlInput xml({name, name, text});
  analytics::ProfileDoc profile;
  profile.ParseString(text);
  NumberLines(profile, xml.Document());
  Findings findings(name, {});
  CheckProfile(profile, findings, {});
  return findings.ByLine();
}

}  // namespace settingsctl
