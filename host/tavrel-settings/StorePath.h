#pragma once

#include <functional>
#include <string>

namespace tavrel {
namespace settings {

/// The path of the store that the environment names; see `TavrelSettingsClient`.
///
/// A relative one starts at the directory that the process was in when this library was loaded: a
/// program that changes its directory later keeps its store.
std::string NamedStore();

/// Called before a name is looked up in a directory, whose own path leads over no link.
using BeforeStep = std::function<void(const std::string& directory, const std::string& name)>;

/// What an absolute path leads to: the same path without links, "." and "..". What does not exist
/// leads to itself, so that a link whose target does not exist leads to that target.
///
/// Errors: links that never end give a `std::system_error`.
std::string FollowedPath(const std::string& path, const BeforeStep& beforeStep);
std::string FollowedPath(const std::string& path);

}  // namespace settings
}  // namespace tavrel
