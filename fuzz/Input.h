#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>

namespace fuzz {

/// Reads the bytes of a fuzzer from the front and turns them into choices and texts.
///
/// Bytes that are used up read as zero, so every input means something, and a byte more or less at
/// the end changes little: that is what lets the fuzzer grow an input step by step.
class Input {
 public:
  Input(const std::uint8_t* data, std::size_t size) : m_next(data), m_end(data + size) {}

  bool IsUsedUp() const { return m_next == m_end; }

  std::uint8_t Byte() { return IsUsedUp() ? std::uint8_t{0} : *m_next++; }

  /// A number from 0 to `bound` - 1.
  std::size_t Below(std::size_t bound) { return Byte() % bound; }

  bool Flag() { return (Byte() & 1U) != 0; }

  /// True for one byte in `rarity`, and not where the input is used up.
  bool Seldom(std::size_t rarity) { return Byte() % rarity == rarity - 1; }

  /// An entry of a table.
  template <typename Entry, std::size_t size>
  const Entry& Of(const Entry (&table)[size]) {
    return table[Below(size)];
  }

  /// The next bytes as they are, their number first.
  std::string Text(std::size_t most) { return Take(Below(most + 1)); }

  std::string Rest() { return Take(static_cast<std::size_t>(m_end - m_next)); }

 private:
  std::string Take(std::size_t wanted) {
    const std::size_t length = std::min(wanted, static_cast<std::size_t>(m_end - m_next));
    std::string text(m_next, m_next + length);
    m_next += length;
    return text;
  }

  const std::uint8_t* m_next;
  const std::uint8_t* const m_end;
};

}  // namespace fuzz
