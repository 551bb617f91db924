#pragma once

#include <algorithm>
#include <iterator>
#include <type_traits>
#include <vector>

namespace settingsctl {

/// What `function` makes of each item, in order.
template <typename Items, typename Function>
auto Transformed(const Items& items, Function function) {
  std::vector<std::decay_t<decltype(function(*std::begin(items)))>> made;
  made.reserve(std::size(items));
  std::transform(std::begin(items), std::end(items), std::back_inserter(made), function);
  return made;
}

}  // namespace settingsctl
