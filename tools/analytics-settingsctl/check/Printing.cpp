#include "check/Printing.h"

#include <iomanip>
#include <iostream>

#include "Transformed.h"
#include "output/Colours.h"
#include "output/Json.h"
#include "output/TextWidth.h"

namespace settingsctl {
namespace {

constexpr std::size_t kWidth = 80;
const std::string kIndent = "    ";

Style StyleOf(Severity severity) {
  return severity == Severity::kError ? Style::kBad : Style::kWarning;
}

void PrintFinding(const Finding& finding, bool withHint) {
  const Check& check = *finding.check;
  // A line break in the file's name would make two lines of one finding.
  const std::string place = Printable(finding.file) + ":" + std::to_string(finding.line) + ":";
  std::cout << Styled(Style::kBold, place) << " "
            << Styled(StyleOf(check.severity), std::string(SeverityName(check.severity)) + ":")
            << " " << finding.message << " "
            << Styled(Style::kDim, "[" + std::string(check.name) + "]") << "\n";
  if (withHint) std::cout << "    hint: " << check.hint << "\n";
}

Json JsonOf(const Finding& finding, bool withHint) {
  Json json = {{"file", finding.file},
               {"line", finding.line},
               {"severity", SeverityName(finding.check->severity)},
               {"message", finding.message},
               {"check", finding.check->name}};
  if (withHint) json["hint"] = finding.check->hint;
  return json;
}

Json JsonOf(const Check& check) {
  return {{"name", check.name},
          {"files", check.files},
          {"severity", SeverityName(check.severity)},
          {"description", check.description},
          {"hint", check.hint},
          {"example", check.example}};
}

void PrintRow(const Check& check) {
  std::cout << std::left << std::setw(24) << check.name << std::setw(10) << check.files
            << SeverityName(check.severity) << "\n";
  for (const std::string& line : Wrapped(check.description, kWidth - kIndent.size())) {
    std::cout << kIndent << line << "\n";
  }
}

}  // namespace

void PrintFindings(const std::vector<Finding>& findings, const PrintOptions& options) {
  if (options.asJson) {
    return PrintJson({{"findings", Transformed(findings, [&options](const Finding& finding) {
                         return JsonOf(finding, options.withHints);
                       })}});
  }
  for (const Finding& finding : findings) PrintFinding(finding, options.withHints);
}

void PrintChecks(const PrintOptions& options) {
  if (options.asJson) {
    return PrintJson(
        {{"checks", Transformed(AllChecks(), [](const Check& check) { return JsonOf(check); })}});
  }
  for (const Check& check : AllChecks()) PrintRow(check);
}

void PrintCheck(const Check& check) {
  std::cout << Styled(Style::kBold, check.name) << " (" << check.files << ", "
            << SeverityName(check.severity) << ")\n"
            << "  Finds:   " << check.description << "\n"
            << "  Do:      " << check.hint << "\n"
            << "  Example: " << check.example << "\n";
}

}  // namespace settingsctl
