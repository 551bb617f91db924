#include "files/AbandonedFiles.h"

#include <climits>
#include <cstddef>
#include <functional>
#include <memory>

#include <dirent.h>
#include <unistd.h>

#include "files/LinkTarget.h"

namespace files {
namespace {

struct DirectoryClose {
  void operator()(DIR* directory) const noexcept { closedir(directory); }
};

bool IsReplacement(const std::string& path, const std::string& prefix) {
  return path.compare(0, prefix.size(), prefix) == 0 &&
         path.find_first_not_of("0123456789-", prefix.size()) == std::string::npos;
}

/// Stands for a file's name where that is too long for more to be added to it.
std::string ShortName(const std::string& name) {
  constexpr std::size_t kLongest = NAME_MAX - sizeof "..new-1234567-1234567890";
  if (name.size() <= kLongest) return name;
  const std::string hash = std::to_string(std::hash<std::string>()(name));
  return name.substr(0, kLongest - hash.size()) + hash;
}

}  // namespace

std::string ReplacementPrefix(const std::string& path) {
  return DirectoryOf(path) + "/." + ShortName(path.substr(path.rfind('/') + 1)) + ".new-";
}

void RemoveAbandonedFiles(const std::string& path) {
  const std::string directory = DirectoryOf(path);
  const std::string prefix = ReplacementPrefix(path);
  const std::unique_ptr<DIR, DirectoryClose> names(opendir(directory.c_str()));
  if (!names) return;  // who may not look into it writes all the same
  while (const dirent* const entry = readdir(names.get())) {
    const std::string found = directory + "/" + entry->d_name;
    if (IsReplacement(found, prefix)) unlink(found.c_str());
  }
}

}  // namespace files
