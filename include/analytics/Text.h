// SPDX-FileCopyrightText: 2026 the analytics-settings authors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace analytics {

/// Helpers for texts and names that come from outside; all of them only look at their argument.
///
/// Errors: only `std::bad_alloc` gets out. Threads: any, at the same time.
namespace text {

/// What is not for callers.
namespace detail {

/// Number of bytes in a UTF-8 sequence that starts with `first`; 0 if none does.
inline std::size_t SequenceLength(std::uint32_t first) {
  if (first < 0x80) return 1;
  if (first < 0xC0) return 0;
  if (first < 0xE0) return 2;
  if (first < 0xF0) return 3;
  return first < 0xF8 ? 4 : 0;
}

/// A byte of `text`; 0, which continues no sequence, right after its end.
inline std::uint32_t ByteAt(const std::string& text, std::size_t at) {
  return static_cast<unsigned char>(text[at]);
}

/// Reads the character at `at` and moves on to the next; false if its bytes are not UTF-8.
inline bool ReadCharacter(const std::string& text, std::size_t& at, std::uint32_t& character) {
  static const std::uint32_t kLeast[] = {0, 0, 0x80, 0x800, 0x10000};
  const std::uint32_t first = ByteAt(text, at++);
  const std::size_t length = SequenceLength(first);
  character = length > 1 ? first & (0x7FU >> length) : first;
  for (std::size_t read = 1; read < length; ++read) {
    const std::uint32_t next = ByteAt(text, at++);
    if ((next & 0xC0) != 0x80) return false;
    character = character << 6 | (next & 0x3F);
  }
  return length > 0 && character >= kLeast[length];
}

/// The production "Char" of XML 1.0.
inline bool IsXmlCharacter(std::uint32_t character) {
  if (character < 0x20) return character == '\t' || character == '\n' || character == '\r';
  if (character < 0xE000) return character < 0xD800;
  return character <= 0x10FFFF && character != 0xFFFE && character != 0xFFFF;
}

inline bool IsPrintedCharacter(std::uint32_t character) {
  return IsXmlCharacter(character) && character >= 0x20 && !(character >= 0x7F && character < 0xA0);
}

inline bool IsTextOf(bool (*accepts)(std::uint32_t), const std::string& text) {
  std::uint32_t character = 0;
  for (std::size_t at = 0; at < text.size();) {
    if (!ReadCharacter(text, at, character) || !accepts(character)) return false;
  }
  return true;
}

}  // namespace detail

/// Whether `text` is UTF-8 and holds only characters that XML 1.0 allows.
///
/// Refused are overlong forms, surrogates, what lies beyond U+10FFFF, U+FFFE, U+FFFF, NUL and the
/// other characters below the blank but tab, line feed and carriage return.
inline bool IsXmlText(const std::string& text) {
  return detail::IsTextOf(detail::IsXmlCharacter, text);
}

/// What `SetValue` and `AddNewChild` of an element must be given for it to hold `text`.
///
///     node.SetValue(analytics::text::ElementText("R&D <\r\n"));  // GetValue() gives "R&D <\r\n"
///
/// If `IsXmlText(text)`, the element gives the text back byte for byte, also after a document in
/// UTF-8 was saved or dumped and parsed again, which may refuse a text of more than 10,000,000
/// bytes. Other encodings can change characters, and a dump cuts UTF-16. Not for `SetProperty` and
/// for the `SetValue` of a text node: they take a text as it is.
inline std::string ElementText(const std::string& text) {
  std::string escaped;
  escaped.reserve(text.size());
  for (const char byte : text) {
    if (byte == '&') {
      escaped += "&amp;";
    } else {
      escaped += byte;
    }
  }
  return escaped;
}

/// Whether `type` can stand in a query as a type, which is put in double quotes.
///
///     if (!analytics::text::IsQueryType(type)) return Refused(type);
///
/// Refused are a double quote, control characters (to U+001F, U+007F to U+009F) and what
/// `IsXmlText` refuses. An empty type is accepted: it selects elements of every type, but deletes
/// no rule.
inline bool IsQueryType(const std::string& type) {
  return detail::IsTextOf(detail::IsPrintedCharacter, type) && type.find('"') == std::string::npos;
}

/// Whether `name` can stand in a query as an item's name, which is put in single quotes; else as
/// `IsQueryType`. An empty name is accepted: it selects items whose "Name" is there and empty.
inline bool IsQueryItemName(const std::string& name) {
  return detail::IsTextOf(detail::IsPrintedCharacter, name) && name.find('\'') == std::string::npos;
}

}  // namespace text
}  // namespace analytics
