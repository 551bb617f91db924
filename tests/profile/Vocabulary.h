#pragma once

#include <string>

#include <gtest/gtest.h>

#include <analytics/Settings.h>

#include "tests/support/TemporaryDirectory.h"

namespace tests {

/// The settings that profiles are read with; as it is made, the built-in ones.
struct Vocabulary {
  std::string rule = "rule";
  std::string engine = "engine";
  std::string eventSink = "eventSink";
  std::string onvifUri = "http://www.onvif.org/ver10/schema";
  std::string onvifPrefix = "tt";
  std::string kestalUri = "urn:kestal-com:schema:onvif:analytics:1";
  std::string kestalPrefix = "ka";
};

inline std::string NamespaceText(const std::string& tag, const std::string& uri,
                                 const std::string& prefix) {
  return "<" + tag + "><url>" + uri + "</url><prefix>" + prefix + "</prefix></" + tag + ">";
}

/// Makes this the vocabulary of the process; only for bodies of `InFreshProcess`.
inline void Load(const Vocabulary& vocabulary) {
  const TemporaryDirectory directory;
  const std::string path = directory.Write(
      "analytics.ini", "<settings><tags><rule>" + vocabulary.rule + "</rule><engine>" +
                           vocabulary.engine + "</engine><eventSink>" + vocabulary.eventSink +
                           "</eventSink></tags><namespaces>" +
                           NamespaceText("kestal", vocabulary.kestalUri, vocabulary.kestalPrefix) +
                           NamespaceText("onvif", vocabulary.onvifUri, vocabulary.onvifPrefix) +
                           "</namespaces></settings>");
  ASSERT_TRUE(analytics::Settings::LoadSettings(path));
}

}  // namespace tests
