#include "host/tavrel-settings/FileWatch.h"

#include <filesystem>
#include <memory>
#include <string>

#include <gtest/gtest.h>

#include "tests/support/TemporaryDirectory.h"

namespace tavrel {
namespace settings {
namespace {

using Clock = Settling::Clock;

/// A file with a second name in another directory, by which it can be written unnoticed.
class AFileWatch : public testing::Test {
 protected:
  AFileWatch() {
    std::filesystem::create_hard_link(m_path, m_elsewhere.PathOf("file"));
    m_watch = std::make_unique<FileWatch>(m_path);
  }

  void WriteUnnoticed(const std::string& text) const { m_elsewhere.Write("file", text); }

  const tests::TemporaryDirectory m_directory;
  const tests::TemporaryDirectory m_elsewhere;
  const std::string m_path = m_directory.Write("file", "");
  std::unique_ptr<FileWatch> m_watch;
};

TEST_F(AFileWatch, EndsItsWaitWhenItIsStopped) {
  m_directory.Write("file", "1");
  m_watch->Stop();
  EXPECT_FALSE(m_watch->Wait());
}

TEST_F(AFileWatch, AcceptsAReadDuringWhichNothingHappened) {
  m_directory.Write("file", "1");
  EXPECT_TRUE(m_watch->Wait());
  EXPECT_TRUE(m_watch->HasRead());
}

TEST_F(AFileWatch, RefusesAReadDuringWhichTheFileWasWritten) {
  m_watch->Wake();
  EXPECT_TRUE(m_watch->Wait());
  m_directory.Write("file", "1");
  EXPECT_FALSE(m_watch->HasRead());
  EXPECT_TRUE(m_watch->Wait());
  EXPECT_TRUE(m_watch->HasRead());
}

TEST_F(AFileWatch, RefusesAReadDuringWhichTheFileWasWrittenUnnoticed) {
  m_watch->Wake();
  EXPECT_TRUE(m_watch->Wait());
  WriteUnnoticed("1");
  EXPECT_FALSE(m_watch->HasRead());
  EXPECT_TRUE(m_watch->Wait());
}

TEST_F(AFileWatch, HasAReadThatFailedTriedAgainAfterAWhile) {
  m_watch->Wake();
  EXPECT_TRUE(m_watch->Wait());
  m_watch->HasFailed();
  const auto start = Clock::now();
  EXPECT_TRUE(m_watch->Wait());
  EXPECT_GE(Clock::now() - start, Settling::kRetry);
}

TEST_F(AFileWatch, HasTheFileSettleAlsoIfItIsFoundChangedUnnoticed) {
  m_watch->HasFailed();
  const auto start = Clock::now();
  WriteUnnoticed("1");
  EXPECT_TRUE(m_watch->Wait());
  EXPECT_GE(Clock::now() - start, Settling::kQuiet);
}

}  // namespace
}  // namespace settings
}  // namespace tavrel
