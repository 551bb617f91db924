#pragma once

#include <memory>
#include <string>

#include <analytics/DocumentNode.h>
#include <analytics/ProfileDoc.h>

#include "bench/ByHand.h"
#include "bench/Samples.h"

namespace bench {

/// A profile opened with the library, and one of its elements.
struct OpenedWithLibrary {
  OpenedWithLibrary(int rules, const std::string& elementQuery) {
    profile.ParseString(ProfileText(rules));
    element.reset(profile.SelectNode(elementQuery));
  }

  analytics::ProfileDoc profile;
  std::unique_ptr<analytics::DocumentNode> element;
};

/// The same profile opened by hand, and the same element.
struct OpenedByHand {
  OpenedByHand(int rules, const std::string& elementQuery)
      : profile(ParseProfile(ProfileText(rules))),
        element(First(profile, profile.Root(), elementQuery.c_str())) {}

  Tree profile;
  xmlNodePtr element;
};

}  // namespace bench
