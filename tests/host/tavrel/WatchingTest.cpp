#include <chrono>
#include <filesystem>

#include <gmock/gmock.h>
#include <tavrel/settings/ResourceReserver.h>

#include "tests/host/tavrel/ChangeRecorder.h"
#include "tests/host/tavrel/ChildProcess.h"
#include "tests/host/tavrel/FileReads.h"
#include "tests/host/tavrel/WatchedStore.h"

namespace tavrel {
namespace settings {
namespace {

using core::IniFile;
using std::chrono::milliseconds;
using testing::ElementsAre;

class AWatchedStore : public tests::WatchedStoreTest {};

TEST_F(AWatchedStore, TellsOfAnEditOfItsOwnProcess) {
  Set("A", "x", "2");
  m_recorder.WaitForValue("A", "x", "2");
}

TEST_F(AWatchedStore, TellsOfAnEditOfAnotherProcess) {
  tests::ChildProcess editor([] {
    Set("A", "x", "2");
    return 0;
  });
  m_recorder.WaitForValue("A", "x", "2");
}

TEST_F(AWatchedStore, TellsOfAClaimOfAResource) {
  tests::ChangeRecorder recorder;
  m_client.Subscribe(&recorder, "Resources/*");
  ResourceReserver(&m_client, "CPU", "Analytics").TrySetUsage(0);
  recorder.WaitForValue("Resources/CPU/Analytics", "Usage", "0");
}

TEST_F(AWatchedStore, TellsOfAFileMovedIntoItsPlace) {
  ReplaceBy("[A]\nx=2\n");
  m_recorder.WaitForValue("A", "x", "2");
}

TEST_F(AWatchedStore, TellsOfAFileWrittenInPlace) {
  Write("[A]\nx=2\n");
  m_recorder.WaitForValue("A", "x", "2");
}

TEST_F(AWatchedStore, TellsOfARemovedFile) {
  std::filesystem::remove(Path());
  EXPECT_THAT(m_recorder.Next().RemovedGroups(), ElementsAre("A"));
}

TEST_F(AWatchedStore, TellsOfAFileMovedAway) {
  std::filesystem::rename(Path(), m_directory.PathOf("old.ini"));
  EXPECT_THAT(m_recorder.Next().RemovedGroups(), ElementsAre("A"));
}

TEST_F(AWatchedStore, TellsOfAFileCreatedAnew) {
  std::filesystem::remove(Path());
  m_recorder.Next();
  Write("[A]\nx=2\n");
  m_recorder.WaitForValue("A", "x", "2");
}

TEST_F(AWatchedStore, TellsOfAFileLinkedIntoItsPlace) {
  std::filesystem::remove(Path());
  m_recorder.Next();
  std::filesystem::create_hard_link(m_directory.Write("other.ini", "[A]\nx=2\n"), Path());
  m_recorder.WaitForValue("A", "x", "2");
}

TEST_F(AWatchedStore, IsReadAgainWhenItsPermissionsChange) {
  // A write by a name in another directory goes unnoticed, so only the permissions tell of it.
  const tests::TemporaryDirectory elsewhere;
  std::filesystem::create_hard_link(Path(), elsewhere.PathOf("store.ini"));
  elsewhere.Write("store.ini", "[A]\nx=2\n");
  std::filesystem::permissions(Path(), std::filesystem::perms(0600));
  m_recorder.WaitForValue("A", "x", "2");
}

TEST_F(AWatchedStore, KeepsItsLastGoodStateWhileItIsMalformed) {
  Write("[A]\nx=1\ny=1\n");
  m_recorder.WaitForValue("A", "y", "1");
  tests::FileReads reads(m_directory.Write("other.ini", "[A]\nx=2\nabc\n"));
  std::filesystem::rename(m_directory.PathOf("other.ini"), Path());
  reads.WaitForOne();
  ReplaceBy("[A]\nx=2\ny=1\n");
  EXPECT_EQ((IniFile::Groups{{"A", {{"x", "2"}}}}), m_recorder.Next().AllGroups());
}

TEST_F(AWatchedStore, KeepsItsLastGoodStateWhileItCannotBeRead) {
  std::filesystem::remove(Path());
  m_recorder.Next();
  std::filesystem::create_directory(Path());
  EXPECT_TRUE(m_recorder.StaysSilentFor(milliseconds(500)));
  std::filesystem::remove(Path());
  Write("[A]\nx=2\n");
  EXPECT_EQ((IniFile::Groups{{"A", {{"x", "2"}}}}), m_recorder.Next().AllGroups());
}

}  // namespace
}  // namespace settings
}  // namespace tavrel
