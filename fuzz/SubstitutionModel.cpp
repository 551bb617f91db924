#include "fuzz/SubstitutionModel.h"

#include <algorithm>
#include <cstddef>

namespace fuzz {
namespace {

constexpr int kMostSteps = 40;
constexpr std::size_t kMostText = 4096;

/// The value of the first variable of a name that has one.
std::string ValueOf(const std::string& name, const std::vector<Variable>& variables) {
  const auto found = std::find_if(
      variables.begin(), variables.end(),
      [&](const Variable& variable) { return variable.hasValue && variable.name == name; });
  return found == variables.end() ? std::string() : found->value;
}

}  // namespace

bool Substituted(const std::string& text, const std::vector<Variable>& variables,
                 std::string& result) {
  std::string done;
  std::string rest = text;
  for (int step = 0; step < kMostSteps && rest.size() < kMostText; ++step) {
    const std::size_t start = rest.find("${");
    const std::size_t end = start == std::string::npos ? start : rest.find('}', start);
    if (end == std::string::npos || end == start + 2) {
      result = done + rest;
      return true;
    }
    const std::string value = ValueOf(rest.substr(start + 2, end - start - 2), variables);
    done += rest.substr(0, start);
    rest.replace(0, end + 1, value);
    if (done.empty() || done.back() != '$') continue;
    done.pop_back();  // it may begin a reference together with what follows now
    rest.insert(0, 1, '$');
  }
  return false;
}

}  // namespace fuzz
