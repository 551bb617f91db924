#include "host/tavrel-settings/StorePath.h"

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstdlib>
#include <stdexcept>

#include <unistd.h>

#include "host/tavrel-settings/FileDescriptor.h"

namespace tavrel {
namespace settings {
namespace {

constexpr int kMostLinks = 40;  // as many as the system follows

/// The directory that the process is in when the library is loaded; empty if there is none. It
/// needs no destruction: a thread may ask for it until the process ends.
struct StartDirectory {
  StartDirectory() {
    if (!getcwd(path, sizeof path)) path[0] = '\0';
  }

  char path[PATH_MAX];
};

const StartDirectory kStart;

/// Value of an environment variable; one without a value counts as missing.
std::string Variable(const char* name) {
  const char* const value = std::getenv(name);
  return value ? value : "";
}

std::string NamedPath() {
  std::string file = Variable("TAVREL_SETTINGS");
  if (!file.empty()) return file;
  const std::string state = Variable("XDG_STATE_HOME");
  if (!state.empty()) return state + "/tavrel-settings.ini";
  const std::string home = Variable("HOME");
  if (!home.empty()) return home + "/.local/state/tavrel-settings.ini";
  throw std::runtime_error(
      "cannot find the settings: none of TAVREL_SETTINGS, XDG_STATE_HOME and HOME is set");
}

/// Where a link leads; empty for anything else.
std::string LinkAt(const std::string& path) {
  char target[PATH_MAX];
  const ssize_t size = readlink(path.c_str(), target, sizeof target);
  return size < 0 ? "" : std::string(target, static_cast<std::size_t>(size));
}

/// Takes the first name off a path; empty if there is none.
std::string TakeName(std::string& path) {
  const std::size_t start = std::min(path.find_first_not_of('/'), path.size());
  const std::size_t end = std::min(path.find('/', start), path.size());
  std::string name = path.substr(start, end - start);
  path.erase(0, end);
  return name;
}

/// A path that is followed step by step.
class Way {
 public:
  explicit Way(const std::string& path) : m_path(path), m_rest(path) {}

  void Follow(const BeforeStep& beforeStep) {
    for (std::string name = TakeName(m_rest); !name.empty(); name = TakeName(m_rest)) {
      if (name == ".") continue;
      if (name == "..")
        m_reached.erase(std::min(m_reached.rfind('/'), m_reached.size()));
      else
        Step(name, beforeStep);
    }
  }

  const std::string& Reached() const { return m_reached; }

 private:
  void Step(const std::string& name, const BeforeStep& beforeStep) {
    beforeStep(m_reached.empty() ? "/" : m_reached, name);
    const std::string link = LinkAt(m_reached + "/" + name);
    if (link.empty())
      m_reached += "/" + name;
    else
      GoOnAt(link);
  }

  void GoOnAt(const std::string& link) {
    errno = ELOOP;
    if (++m_links > kMostLinks) ThrowErrno("cannot follow the links of", m_path);
    if (link.front() == '/') m_reached.clear();
    m_rest.insert(0, link + "/");
  }

  const std::string m_path;  // as it was asked for
  std::string m_reached;     // without a slash at its end, so empty for the root
  std::string m_rest;        // what is still to be followed
  int m_links = 0;
};

}  // namespace

std::string NamedStore() {
  std::string path = NamedPath();
  if (path.front() == '/') return path;
  const std::string start = kStart.path;
  if (start.empty())
    throw std::runtime_error("cannot find the settings: " + path +
                             " starts at a directory that did not exist");
  return start + "/" + path;
}

std::string FollowedPath(const std::string& path, const BeforeStep& beforeStep) {
  Way way(path);
  way.Follow(beforeStep);
  return way.Reached().empty() ? "/" : way.Reached();
}

std::string FollowedPath(const std::string& path) {
  return FollowedPath(path, [](const std::string&, const std::string&) {});
}

}  // namespace settings
}  // namespace tavrel
