#include <chrono>
#include <filesystem>
#include <memory>
#include <stdexcept>
#include <string>
#include <thread>

#include <fcntl.h>
#include <gmock/gmock.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include "tests/host/tavrel/ChildProcess.h"
#include "tests/host/tavrel/StoreTest.h"

namespace tavrel {
namespace settings {
namespace {

namespace fs = std::filesystem;

using core::IniFile;
using std::chrono::seconds;
using std::chrono::steady_clock;
using testing::HasSubstr;
using testing::ThrowsMessage;

struct stat StateOf(const std::string& path) {
  struct stat state = {};
  EXPECT_EQ(0, stat(path.c_str(), &state)) << path;
  return state;
}

/// Holds a lock file as another program may, for a scope.
class HeldLock {
 public:
  explicit HeldLock(const std::string& path)
      : m_file(open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600)),
        m_inode(StateOf(path).st_ino) {
    EXPECT_EQ(0, flock(m_file, LOCK_EX | LOCK_NB));
  }
  ~HeldLock() {
    flock(m_file, LOCK_UN);  // for a child process, too
    close(m_file);
  }

  HeldLock(const HeldLock&) = delete;
  HeldLock& operator=(const HeldLock&) = delete;

  ino_t Inode() const { return m_inode; }

 private:
  const int m_file;
  const ino_t m_inode;
};

bool HasOpen(const tests::ChildProcess& process, ino_t inode) {
  for (const auto& file : fs::directory_iterator("/proc/" + std::to_string(process.Id()) + "/fd")) {
    struct stat state = {};
    if (stat(file.path().c_str(), &state) == 0 && state.st_ino == inode) return true;
  }
  return false;
}

class TheLock : public tests::StoreTest {
 protected:
  TheLock() { Write(kBefore); }

  static constexpr const char* kBefore = "[A]\nx=1\n";
  static constexpr const char* kAfter = "[A]\nx=2\n";

  std::string LockPath() const { return Path() + ".lock"; }

  /// Starts a process that writes once it is let go on. Made before any lock, which it would else
  /// have open from the start.
  static std::unique_ptr<tests::ChildProcess> Writer(tests::StartSignal& start) {
    return std::make_unique<tests::ChildProcess>([&start]() noexcept {
      start.Wait();
      Set("A", "x", "2");
      return EXIT_SUCCESS;
    });
  }

  /// Waits until a writer has opened a lock file, or has written or given up without it.
  void WaitUntilOpen(const tests::ChildProcess& writer, const HeldLock& lock) const {
    const auto end = steady_clock::now() + seconds(30);
    while (!HasOpen(writer, lock.Inode()) && Text() == kBefore && steady_clock::now() < end)
      std::this_thread::yield();
  }
};

TEST_F(TheLock, IsNoPipe) {
  ASSERT_EQ(0, mkfifo(LockPath().c_str(), 0600));
  EXPECT_THAT([] { Set("A", "x", "2"); }, ThrowsMessage<std::runtime_error>(HasSubstr(LockPath())));
  EXPECT_EQ(kBefore, Text());
}

TEST_F(TheLock, IsNotLookedForBehindALink) {
  fs::create_symlink(m_directory.PathOf("elsewhere"), LockPath());
  EXPECT_THAT([] { Set("A", "x", "2"); }, tests::FailsOn(LockPath(), "symbolic links"));
  EXPECT_EQ(kBefore, Text());
  EXPECT_FALSE(fs::exists(m_directory.PathOf("elsewhere")));
}

TEST_F(TheLock, IsWaitedForFiveSecondsAtMost) {
  const HeldLock held(LockPath());
  const auto start = steady_clock::now();
  EXPECT_THAT([] { Set("A", "x", "2"); }, tests::FailsOn(LockPath(), "held it for 5 seconds"));
  EXPECT_GE(steady_clock::now() - start, seconds(5));
  EXPECT_EQ(kBefore, Text());
}

TEST_F(TheLock, IsNotWaitedForToReportAMalformedStore) {
  Write("abc\n");
  const HeldLock held(LockPath());
  EXPECT_THAT([] { Set("A", "x", "2"); },
              ThrowsMessage<std::runtime_error>(HasSubstr(Path() + ":1: ")));
}

TEST_F(TheLock, IsWaitedFor) {
  tests::StartSignal start;
  const auto writer = Writer(start);
  auto held = std::make_unique<HeldLock>(LockPath());
  start.Give();
  WaitUntilOpen(*writer, *held);
  EXPECT_EQ(kBefore, Text());
  held.reset();
  EXPECT_EQ(EXIT_SUCCESS, writer->Wait());
  EXPECT_EQ(kAfter, Text());
}

TEST_F(TheLock, ThatWasRemovedIsNotHeldByItsWaiters) {
  tests::StartSignal start;
  const auto writer = Writer(start);
  auto removed = std::make_unique<HeldLock>(LockPath());
  start.Give();
  WaitUntilOpen(*writer, *removed);
  fs::rename(LockPath(), Path() + ".removed");  // so that its number is not given again
  auto held = std::make_unique<HeldLock>(LockPath());
  const std::string unfinished = m_directory.Write(".store.ini.new-12-0", "");
  removed.reset();
  WaitUntilOpen(*writer, *held);
  EXPECT_EQ(kBefore, Text());
  EXPECT_TRUE(fs::exists(unfinished)) << "what the holder is writing was removed";
  held.reset();
  EXPECT_EQ(EXIT_SUCCESS, writer->Wait());
  EXPECT_EQ(kAfter, Text());
}

TEST_F(TheLock, IsTakenAgainIfItIsRemovedDuringAnEdit) {
  int calls = 0;
  Store().Edit([&](IniFile& settings) {
    if (++calls == 1) fs::remove(LockPath());
    settings.SetValue("A", "x", "2");
  });
  EXPECT_EQ(2, calls);
  EXPECT_EQ(kAfter, Text());
}

TEST_F(TheLock, IsNotHeldByAProcessThatWasForkedDuringAnEdit) {
  std::unique_ptr<tests::ChildProcess> child;
  Store().Edit([&](IniFile& settings) {
    child = std::make_unique<tests::ChildProcess>([] { return pause(); });
    settings.SetValue("A", "x", "3");
  });
  Set("A", "x", "2");
  EXPECT_EQ(kAfter, Text());
}

}  // namespace
}  // namespace settings
}  // namespace tavrel
