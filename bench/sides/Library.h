#pragma once

#include <memory>
#include <string>

#include <analytics/DocumentNode.h>
#include <analytics/ProfileDoc.h>

#include "bench/Samples.h"

namespace bench {

/// The library as a side of a comparison.
struct Library {
  static constexpr char kName[] = "library";
};

/// A profile opened with the library, and one of its elements.
struct Opened {
  Opened(const Profile& sample, const std::string& elementQuery) {
    profile.ParseString(sample.Text());
    element.reset(profile.SelectNode(elementQuery));
  }

  analytics::ProfileDoc profile;
  std::unique_ptr<analytics::DocumentNode> element;
};

}  // namespace bench
