#include "settings/SettingsPath.h"

#include <cstdlib>

#include <wordexp.h>

namespace analytics {
namespace {

/// The words that a text expands to; released only where the expansion succeeded.
///
/// Deliberate: commands in the text are run, as a shell would, so whoever sets it runs commands as
/// this process. Kept for compatibility: installed runtimes see it.
class Expansion {
 public:
  explicit Expansion(const char* text) : m_words(), m_succeeded(wordexp(text, &m_words, 0) == 0) {}
  ~Expansion() {
    if (m_succeeded) wordfree(&m_words);
  }

  Expansion(const Expansion&) = delete;
  Expansion& operator=(const Expansion&) = delete;

  bool Succeeded() const { return m_succeeded; }

  const char* FirstWordOr(const char* fallback) const {
    return m_words.we_wordc > 0 ? m_words.we_wordv[0] : fallback;
  }

 private:
  wordexp_t m_words;
  const bool m_succeeded;
};

}  // namespace

std::string ResolveSettingsPath() {
  const char* variable = std::getenv("ANALYTICS_INI");
  if (!variable) return kBuiltInSettingsPath;
  const Expansion expansion(variable);
  return expansion.Succeeded() ? expansion.FirstWordOr(kBuiltInSettingsPath) : variable;
}

}  // namespace analytics
