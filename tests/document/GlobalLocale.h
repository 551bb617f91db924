#pragma once

#include <locale>
#include <string>

namespace analytics {

/// Numbers in groups of three digits, as in "1,234.5".
class GroupedNumbers : public std::numpunct<char> {
 protected:
  char do_decimal_point() const override { return '.'; }
  char do_thousands_sep() const override { return ','; }
  std::string do_grouping() const override { return "\3"; }
};

/// Numbers with a decimal comma, as in "1234,5".
class CommaNumbers : public std::numpunct<char> {
 protected:
  char do_decimal_point() const override { return ','; }
  char do_thousands_sep() const override { return ' '; }
  std::string do_grouping() const override { return std::string(); }
};

/// Has the process write and read numbers in a way of its own, for a scope.
class GlobalLocale {
 public:
  /// @param numbers  a facet, owned by the locale that is made of it
  template <typename Facet>
  explicit GlobalLocale(Facet* numbers)
      : m_former(std::locale::global(std::locale(std::locale::classic(), numbers))) {}
  ~GlobalLocale() { std::locale::global(m_former); }

  GlobalLocale(const GlobalLocale&) = delete;
  GlobalLocale& operator=(const GlobalLocale&) = delete;

 private:
  const std::locale m_former;
};

}  // namespace analytics
