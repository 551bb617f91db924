#include "output/FileWriting.h"

#include <cerrno>
#include <cstring>
#include <system_error>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "Failure.h"
#include "files/LinkTarget.h"
#include "files/Replacement.h"
#include "input/FileDescriptor.h"

namespace settingsctl {
namespace {

constexpr const char* kUnchanged = ", and nothing was changed";

/// What helps against an error of writing.
const char* Remedy(int error) {
  switch (error) {
    case ENOSPC:
    case EDQUOT:
      return "free some space";
    case EFBIG:
      return "raise the limit on the size of files";
    case EISDIR:
      return "name a file in it";
    case ENOENT:
    case ENOTDIR:
      return "make its directory first";
    case ELOOP:
      return "remove the symbolic links that lead to each other";
    case ENXIO:
      return "start the reader of this pipe first";
    default:
      return "allow it, or write elsewhere with -o";
  }
}

[[noreturn]] void Refuse(const std::string& path, const std::string& consequence, int error) {
  throw Failure(path + ": cannot be written" + consequence + ": " + std::strerror(error) + "; " +
                Remedy(error));
}

bool WriteAll(const FileDescriptor& file, const std::string& text) {
  for (std::size_t done = 0; done < text.size();) {
    const ssize_t count = write(file.Get(), text.data() + done, text.size() - done);
    if (count < 0 && errno != EINTR) return false;
    if (count > 0) done += static_cast<std::size_t>(count);
  }
  return true;
}

void Replace(const std::string& path, const std::string& text) {
  try {
    files::Replacement replacement(files::LinkTarget(path));
    replacement.Write(text);
    replacement.TakePlace();
  } catch (const files::OwnershipError&) {
    throw Failure(path + ": cannot be written" + kUnchanged +
                  ": its owner or group would change; write it as its owner, or elsewhere with -o");
  } catch (const std::system_error& error) {
    Refuse(path, kUnchanged, error.code().value());
  }
}

void WriteInto(int file, const std::string& path, const std::string& text) {
  const FileDescriptor open(file);
  if (!open.IsOpen() || !WriteAll(open, text)) Refuse(path, "", errno);
}

/// Opens what is no plain file. A pipe that nobody reads is refused rather than waited for.
int OpenSpecial(const std::string& path) {
  const int file = open(path.c_str(), O_WRONLY | O_CLOEXEC | O_NONBLOCK);
  if (file >= 0) fcntl(file, F_SETFL, O_WRONLY);  // its reader is waited for
  return file;
}

}  // namespace

void WriteFile(const std::string& path, const std::string& text) {
  struct stat state {};
  if (path == "-") return WriteInto(dup(STDOUT_FILENO), "standard output", text);
  if (stat(path.c_str(), &state) == 0 && !S_ISREG(state.st_mode))
    return WriteInto(OpenSpecial(path), path, text);
  Replace(path, text);
}

}  // namespace settingsctl
