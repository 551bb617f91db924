#include <string>

#include <gmock/gmock.h>

#include "tests/host/tavrel/HostctlTest.h"

namespace {

using testing::HasSubstr;

/// Has a disk of 64 KB of its own, where one can be mounted.
class HostctlOnAFullDisk : public tests::HostctlTest {
 protected:
  /// Runs a shell in the disk, with the command as $HOSTCTL and a store.
  Result RunThere(const std::string& script) const {
    tests::Command command(
        {"/usr/bin/env", "HOSTCTL=" TESTS_HOSTCTL, "TAVREL_SETTINGS=store.ini", "sh", "-c",
         "for option in -m -rm; do\n"
         "  unshare $option true 2> /dev/null && exec unshare $option sh -c \"$0\"\n"
         "done\n"
         "exit 77",
         "mount -t tmpfs -o size=64k none " + m_directory.Path() + " && cd " + m_directory.Path() +
             " || exit 77\necho '[A]' > store.ini && : > store.ini.lock\n" + script});
    const int status = command.Wait();
    return {status, command.Output(), command.Errors()};
  }
};

TEST_F(HostctlOnAFullDisk, LeavesTheStoreAndNothingElse) {
  const Result result = RunThere(
      "head -c 57344 /dev/zero > big\n"
      "$HOSTCTL set A x $(head -c 9000 /dev/zero | tr '\\0' x)\n"
      "echo $?; ls -A; cat store.ini; rm big; $HOSTCTL set A x 1 && cat store.ini");
  if (result.status == 77) GTEST_SKIP() << "No file system can be mounted here.";
  EXPECT_EQ("1\nbig\nstore.ini\nstore.ini.lock\n[A]\n[A]\nx=1\n", result.output);
  EXPECT_THAT(result.errors, HasSubstr("store.ini: No space left on device\n"));
}

TEST_F(HostctlOnAFullDisk, MakesRoomByRemovingWhatAKilledWriterLeft) {
  const Result result = RunThere(
      "cat /dev/zero > .store.ini.new-12-0\n"
      "$HOSTCTL set A x 1; echo $?; ls -A; cat store.ini");
  if (result.status == 77) GTEST_SKIP() << "No file system can be mounted here.";
  EXPECT_EQ("0\nstore.ini\nstore.ini.lock\n[A]\nx=1\n", result.output);
}

}  // namespace
