#include "output/TextWidth.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace settingsctl {
namespace {

/// One character of a text in UTF-8, or one byte that belongs to none.
struct Character {
  std::uint32_t code;
  std::size_t length;
};

unsigned Byte(const std::string& text, std::size_t at) {
  return static_cast<unsigned char>(text[at]);
}

std::size_t LengthByFirst(unsigned first) {
  if (first < 0xC2U || first > 0xF4U) return 1;
  if (first < 0xE0U) return 2;
  return first < 0xF0U ? 3 : 4;
}

Character CharacterAt(const std::string& text, std::size_t at) {
  const unsigned first = Byte(text, at);
  const std::size_t length = LengthByFirst(first);
  const Character single{first, 1};
  if (length == 1 || at + length > text.size()) return single;
  std::uint32_t code = first & (0xFFU >> (length + 1));
  for (std::size_t index = 1; index < length; ++index) {
    const unsigned next = Byte(text, at + index);
    if ((next & 0xC0U) != 0x80U) return single;
    code = (code << 6U) | (next & 0x3FU);
  }
  return {code, length};
}

struct Range {
  std::uint32_t first;
  std::uint32_t last;
};

template <std::size_t kCount>
bool IsIn(const std::array<Range, kCount>& ranges, std::uint32_t code) {
  return std::any_of(ranges.begin(), ranges.end(), [code](const Range& range) {
    return code >= range.first && code <= range.last;
  });
}

/// Marks that are put on the character before them.
constexpr std::array<Range, 5> kWithoutWidth = {
    {{0x300, 0x36F}, {0x200B, 0x200F}, {0x20D0, 0x20FF}, {0xFE00, 0xFE0F}, {0xFE20, 0xFE2F}}};

/// Scripts and pictures whose characters take two columns.
constexpr std::array<Range, 8> kWide = {{{0x1100, 0x115F},
                                         {0x2E80, 0xA4CF},
                                         {0xAC00, 0xD7A3},
                                         {0xF900, 0xFAFF},
                                         {0xFE30, 0xFE6F},
                                         {0xFF00, 0xFF60},
                                         {0x1F300, 0x1FAFF},
                                         {0x20000, 0x3FFFD}}};

std::size_t WidthOf(std::uint32_t code) {
  if (IsIn(kWithoutWidth, code)) return 0;
  return IsIn(kWide, code) ? 2 : 1;
}

bool IsControl(std::uint32_t code) { return code < 0x20 || (code >= 0x7F && code < 0xA0); }

std::string Visible(std::uint32_t code) {
  if (code == '\n') return "\\n";
  if (code == '\t') return "\\t";
  if (code == '\r') return "\\r";
  const char* const digits = "0123456789abcdef";
  return std::string("\\x") + digits[code >> 4U] + digits[code & 15U];
}

/// Where a line of at most `width` columns ends that starts at `start`.
std::size_t EndOfLine(const std::string& text, std::size_t start, std::size_t width) {
  std::size_t used = 0;
  std::size_t breakable = start;  // before a blank or behind a slash
  for (std::size_t at = start; at < text.size();) {
    const Character next = CharacterAt(text, at);
    used += WidthOf(next.code);
    if (next.code == ' ') breakable = at;
    if (used > width) return breakable > start ? breakable : std::max(at, start + next.length);
    at += next.length;
    if (next.code == '/') breakable = at;
  }
  return text.size();
}

}  // namespace

std::size_t TextWidth(const std::string& text) {
  std::size_t width = 0;
  for (std::size_t at = 0; at < text.size();) {
    const Character next = CharacterAt(text, at);
    width += WidthOf(next.code);
    at += next.length;
  }
  return width;
}

std::string Printable(const std::string& text) {
  std::string visible;
  for (std::size_t at = 0; at < text.size();) {
    const Character next = CharacterAt(text, at);
    visible += IsControl(next.code) ? Visible(next.code) : text.substr(at, next.length);
    at += next.length;
  }
  return visible;
}

std::vector<std::string> Wrapped(const std::string& line, std::size_t width) {
  std::vector<std::string> lines;
  std::size_t start = 0;
  do {
    const std::size_t end = EndOfLine(line, start, width);
    lines.push_back(line.substr(start, end - start));
    start = end < line.size() && line[end] == ' ' ? end + 1 : end;
  } while (start < line.size());
  return lines;
}

}  // namespace settingsctl
