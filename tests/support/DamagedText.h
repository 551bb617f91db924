#pragma once

#include <cstdlib>
#include <functional>
#include <string>

#include "tests/support/TimeLimit.h"

namespace tests {

/// Called with each damaged text and with what was done to it, for the report of a failure.
using DamageCheck = std::function<void(const std::string& text, const std::string& damage)>;

/// Distance between the bytes that are damaged: 1, unless ANALYTICS_DAMAGE_STRIDE names another,
/// for builds in which every text takes many times as long.
inline std::size_t DamageStride() {
  const char* stride = std::getenv("ANALYTICS_DAMAGE_STRIDE");
  return stride ? std::stoul(stride) : 1;
}

inline void Check(const DamageCheck& check, const std::string& text, const std::string& damage) {
  const TimeLimit limit;
  check(text, damage);
}

/// Goes through the beginnings of a text, from the empty one to the whole text.
///
/// @return how many there were
inline long ForEachTruncation(const std::string& text, const DamageCheck& check) {
  long count = 0;
  for (std::size_t length = 0; length <= text.size(); length += DamageStride(), ++count) {
    Check(check, text.substr(0, length), "cut to " + std::to_string(length) + " bytes");
  }
  return count;
}

/// What a byte is replaced by: its complement, which is no ASCII; its neighbour, which is another
/// letter or digit; its other case; NUL, which ends texts of C; and the four characters that mean
/// something to XML.
inline std::string Replacements(char byte) {
  const auto flipped = [byte](int bits) { return static_cast<char>(byte ^ bits); };
  return {flipped(0xFF), flipped(0x01), flipped(0x20), '\0', '<', '&', '"', '>'};
}

/// Goes through the texts in which one byte is replaced by one of its `Replacements`, other than
/// itself.
///
/// @return how many there were
inline long ForEachReplacedByte(const std::string& text, const DamageCheck& check) {
  long count = 0;
  for (std::size_t position = 0; position < text.size(); position += DamageStride()) {
    for (const char byte : Replacements(text[position])) {
      if (byte == text[position]) continue;
      std::string damaged = text;
      damaged[position] = byte;
      Check(check, damaged,
            "byte " + std::to_string(position) + " is " + std::to_string(int{byte}));
      ++count;
    }
  }
  return count;
}

}  // namespace tests
