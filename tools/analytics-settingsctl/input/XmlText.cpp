#include "input/XmlText.h"

#include <array>
#include <iomanip>
#include <sstream>

#include <libxml/parserInternals.h>
#include <libxml/xmlstring.h>

namespace settingsctl {
namespace {

constexpr int kNoCharacter = -1;

/// A character in UTF-8, or one byte that is none.
struct Character {
  int code;
  std::size_t length;
};

/// Halves of characters in UTF-16, and what is beyond the last character, are none.
bool IsOfUnicode(int code) { return code <= 0x10FFFF && (code < 0xD800 || code > 0xDFFF); }

/// Bytes that continue a character, longer forms than needed, and what is no character are no
/// UTF-8, but libxml2 before 2.14 takes them.
bool IsUtf8(unsigned char first, int code, int length) {
  constexpr std::array<int, 5> kLeast = {0, 0, 0x80, 0x800, 0x10000};
  const bool isContinued = first >= 0x80U && first < 0xC0U;
  return !isContinued && code >= kLeast.at(static_cast<std::size_t>(length)) && IsOfUnicode(code);
}

Character CharacterAt(const std::string& text, std::size_t at) {
  const auto* const bytes = reinterpret_cast<const xmlChar*>(text.c_str() + at);
  int length = static_cast<int>(text.size() - at);
  const int code = xmlGetUTF8Char(bytes, &length);
  if (code < 0 || !IsUtf8(*bytes, code, length)) return {kNoCharacter, 1};
  return {code, static_cast<std::size_t>(length)};
}

bool IsAllowed(const Character& character) {
  return character.code != kNoCharacter && xmlIsCharQ(character.code);
}

std::string InHex(unsigned number, int digits) {
  std::ostringstream text;
  text << std::uppercase << std::hex << std::setfill('0') << std::setw(digits) << number;
  return text.str();
}

}  // namespace

std::string ProblemInXml(const std::string& text) {
  std::size_t at = 0;
  Character next{};
  for (; at < text.size(); at += next.length) {
    next = CharacterAt(text, at);
    if (!IsAllowed(next)) break;
  }
  if (at >= text.size()) return {};
  const std::string place = "byte " + std::to_string(at + 1) + " of the value";
  if (next.code == kNoCharacter) {
    return place + ", 0x" + InHex(static_cast<unsigned char>(text[at]), 2) +
           ", is no UTF-8; write the value in UTF-8";
  }
  return place + " starts U+" + InHex(static_cast<unsigned>(next.code), 4) +
         ", which no XML file can hold; leave that character out";
}

std::string FitForXml(const std::string& text) {
  std::string fit;
  for (std::size_t at = 0; at < text.size();) {
    const Character next = CharacterAt(text, at);
    fit += IsAllowed(next) ? text.substr(at, next.length) : "\xEF\xBF\xBD";
    at += next.length;
  }
  return fit;
}

}  // namespace settingsctl
