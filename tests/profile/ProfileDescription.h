#pragma once

#include <string>

#include <analytics/ProfileDoc.h>

namespace tests {

/// What a profile document reads from an open profile, as a text: its elements in document order
/// with their items, points and rectangles, and which rules are active.
///
/// tests/data/onvif/generate_expected.py writes the same text without this library.
std::string Describe(analytics::ProfileDoc& profile);

}  // namespace tests
