#include <csignal>
#include <memory>
#include <ostream>
#include <string>

#include <gmock/gmock.h>
#include <tavrel/settings/TavrelSettingsClient.h>

#include "tests/host/tavrel/ChangeRecorder.h"
#include "tests/host/tavrel/HostctlTest.h"

namespace {

using tavrel::settings::TavrelSettingsClient;

class HostctlWatch : public tests::HostctlTest {
 protected:
  /// Starts watching; from its first line on it misses no change.
  void Start(const std::string& pattern) {
    m_watch = std::make_unique<tests::Command>(CommandLine({"watch", pattern}));
    EXPECT_EQ("# Watching " + pattern + " in " + Path(), m_watch->NextLine());
  }

  std::unique_ptr<tests::Command> m_watch;
};

TEST_F(HostctlWatch, PrintsNewAndChangedSettings) {
  Write("[A]\nx=1\ny=1\n");
  Start("*");
  ReplaceBy("[A]\nx=2\ny=1\n[B]\nz=3\n");
  EXPECT_EQ("[A]", m_watch->NextLine());
  EXPECT_EQ("x=2", m_watch->NextLine());
  EXPECT_EQ("", m_watch->NextLine());
  EXPECT_EQ("[B]", m_watch->NextLine());
  EXPECT_EQ("z=3", m_watch->NextLine());
}

TEST_F(HostctlWatch, PrintsWhatWasRemoved) {
  Write("[A]\nx=1\ny=1\n[B]\nz=3\n");
  Start("*");
  ReplaceBy("[A]\nx=1\n");
  EXPECT_EQ("-[B]", m_watch->NextLine());
  EXPECT_EQ("[A]", m_watch->NextLine());
  EXPECT_EQ("- y", m_watch->NextLine());
}

TEST_F(HostctlWatch, PrintsEachChangeAsItArrives) {
  Start("A*");
  Set("A", "x", "1");
  EXPECT_EQ("[A]", m_watch->NextLine());
  EXPECT_EQ("x=1", m_watch->NextLine());
  Set("Other", "x", "1");
  Set("A/B", "y", "2");
  EXPECT_EQ("[A/B]", m_watch->NextLine());
  EXPECT_EQ("y=2", m_watch->NextLine());
}

class ASignal : public HostctlWatch, public testing::WithParamInterface<int> {};

TEST_P(ASignal, EndsWatchingWithSuccess) {
  Start("*");
  m_watch->Signal(GetParam());
  EXPECT_EQ(0, m_watch->Wait());
  EXPECT_EQ("", m_watch->Output());
  EXPECT_EQ("", m_watch->Errors());
}

INSTANTIATE_TEST_SUITE_P(Rows, ASignal, testing::Values(SIGINT, SIGTERM));

class AnEditByHostctl : public tests::HostctlTest {};

TEST_F(AnEditByHostctl, IsDeliveredToOtherProcesses) {
  Write("[A]\nx=1\n");
  tests::ChangeRecorder recorder;
  TavrelSettingsClient client(TavrelSettingsClient::kObserve);
  client.Subscribe(&recorder, "A");
  EXPECT_EQ(0, Run({"set", "A", "x", "2"}).status);
  recorder.WaitForValue("A", "x", "2");
  EXPECT_EQ(0, Run({"unset", "A"}).status);
  EXPECT_EQ(1U, recorder.Next().RemovedGroups().count("A"));
}

}  // namespace
