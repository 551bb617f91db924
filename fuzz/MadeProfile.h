#pragma once

#include <string>

#include "fuzz/Input.h"

namespace fuzz {

/// The names that settings give to a profile's elements.
struct Vocabulary {
  const char* onvifPrefix;
  const char* onvifUri;
  const char* kestalPrefix;
  const char* kestalUri;
  const char* rule;
  const char* engine;
  const char* eventSink;
};

/// The built-in vocabulary, and one with all names changed.
extern const Vocabulary kVocabularies[2];

/// A settings file with the names of a vocabulary.
std::string SettingsOf(const Vocabulary& names);

/// Types that rules, engines and event sinks of a made profile have, and some that none has.
extern const char* const kTypes[8];

/// Names of items, likewise.
extern const char* const kItems[8];

/// Builds a profile: elements of the vocabulary, nested as they should be or not, with whatever
/// prefix stands for their namespace, and in other namespaces.
std::string MadeProfile(Input& input, const Vocabulary& names);

}  // namespace fuzz
