#include "host/tavrel-settings/Settling.h"

#include <chrono>

#include <gtest/gtest.h>

namespace tavrel {
namespace settings {
namespace {

using std::chrono::milliseconds;

constexpr bool kThere = true;
constexpr bool kMissing = false;

/// A file that changes at times which the test sets.
class SettlingFile : public testing::Test {
 protected:
  static Settling::Time At(int time) { return Settling::Time(milliseconds(time)); }

  /// The file changes in place every 50 ms, up to a time.
  void ChangeOftenUntil(int end) {
    for (int time = 0; time <= end; time += 50) m_file.Note(FileChange::kOther, kThere, At(time));
  }

  Settling m_file;
};

TEST_F(SettlingFile, IsNotReadWithoutReason) { EXPECT_FALSE(m_file.IsPending()); }

TEST_F(SettlingFile, IsReadOnceItHasBeenLeftAlone) {
  m_file.Note(FileChange::kOther, kThere, At(0));
  m_file.Note(FileChange::kOther, kThere, At(90));
  EXPECT_TRUE(m_file.IsPending());
  EXPECT_EQ(At(190), m_file.Due());
}

TEST_F(SettlingFile, IsReadInTheEndIfItIsNeverLeftAlone) {
  ChangeOftenUntil(1950);
  EXPECT_EQ(At(2000), m_file.Due());
}

TEST_F(SettlingFile, IsReadAtOnceIfItWasReplaced) {
  m_file.Note(FileChange::kOther, kThere, At(0));
  m_file.Note(FileChange::kReplaced, kThere, At(10));
  EXPECT_EQ(At(10), m_file.Due());
}

TEST_F(SettlingFile, IsWaitedForIfItIsWrittenAfterItWasReplaced) {
  m_file.Note(FileChange::kReplaced, kThere, At(0));
  m_file.Note(FileChange::kOther, kThere, At(10));
  EXPECT_EQ(At(110), m_file.Due());
}

TEST_F(SettlingFile, HasToBeMissingForLonger) {
  m_file.Note(FileChange::kOther, kMissing, At(0));
  EXPECT_EQ(At(300), m_file.Due());
}

TEST_F(SettlingFile, ThatComesBackIsReadLikeAnyOther) {
  m_file.Note(FileChange::kOther, kMissing, At(0));
  m_file.Note(FileChange::kOther, kThere, At(250));
  EXPECT_EQ(At(350), m_file.Due());
}

TEST_F(SettlingFile, HasToBeMissingForLongerAlsoWhenItHasChangedForLong) {
  ChangeOftenUntil(1950);
  m_file.Note(FileChange::kOther, kMissing, At(1990));
  EXPECT_EQ(At(2290), m_file.Due());
}

TEST_F(SettlingFile, IsReadOnRequestOnlyOnceItHasBeenLeftAlone) {
  m_file.Ask(kThere, At(0));
  EXPECT_EQ(At(100), m_file.Due());
}

TEST_F(SettlingFile, IsNotPutOffByRequests) {
  m_file.Note(FileChange::kOther, kThere, At(0));
  m_file.Ask(kThere, At(90));
  EXPECT_EQ(At(100), m_file.Due());
}

TEST_F(SettlingFile, IsTriedAgainAfterASecond) {
  m_file.Fail(At(0));
  m_file.Ask(kThere, At(10));
  EXPECT_TRUE(m_file.IsPending());
  EXPECT_EQ(At(1000), m_file.Due());
}

TEST_F(SettlingFile, IsTriedAgainAfterASecondAlsoIfItWasMissing) {
  m_file.Note(FileChange::kOther, kMissing, At(0));
  m_file.Fail(At(300));
  EXPECT_EQ(At(1300), m_file.Due());
}

TEST_F(SettlingFile, IsTriedAgainSoonerIfItChanges) {
  m_file.Fail(At(0));
  m_file.Note(FileChange::kOther, kThere, At(10));
  EXPECT_EQ(At(110), m_file.Due());
}

TEST_F(SettlingFile, MayBeReadIfItIsAsItWas) {
  m_file.Note(FileChange::kOther, kThere, At(0));
  EXPECT_TRUE(m_file.MayRead(FileChange::kNone, kThere, At(100)));
  EXPECT_FALSE(m_file.IsPending());
}

TEST_F(SettlingFile, MayNotBeReadIfItHasChangedUnnoticed) {
  m_file.Note(FileChange::kOther, kThere, At(0));
  EXPECT_FALSE(m_file.MayRead(FileChange::kOther, kThere, At(100)));
  EXPECT_EQ(At(200), m_file.Due());
}

TEST_F(SettlingFile, MayBeReadWhileItChangesIfItHasForLong) {
  ChangeOftenUntil(1950);
  EXPECT_TRUE(m_file.MayRead(FileChange::kOther, kThere, At(2000)));
}

TEST_F(SettlingFile, MayNotBeReadIfItHasJustGoneAfterChangingForLong) {
  ChangeOftenUntil(1950);
  EXPECT_FALSE(m_file.MayRead(FileChange::kOther, kMissing, At(2000)));
  EXPECT_EQ(At(2300), m_file.Due());
}

/// A file that is read 100 ms after its first change.
class AReadFile : public SettlingFile {
 protected:
  AReadFile() {
    m_file.Note(FileChange::kOther, kThere, At(0));
    m_file.MayRead(FileChange::kNone, kThere, At(100));
  }
};

TEST_F(AReadFile, CountsIfNothingHappenedMeanwhile) {
  EXPECT_TRUE(m_file.HasRead(FileChange::kNone, kThere, At(110)));
  EXPECT_FALSE(m_file.IsPending());
}

TEST_F(AReadFile, DoesNotCountIfItWasWrittenMeanwhile) {
  EXPECT_FALSE(m_file.HasRead(FileChange::kOther, kThere, At(110)));
  EXPECT_EQ(At(210), m_file.Due());
}

TEST_F(AReadFile, CountsIfItWasReplacedMeanwhileAndIsReadAgain) {
  EXPECT_TRUE(m_file.HasRead(FileChange::kReplaced, kThere, At(110)));
  EXPECT_EQ(At(110), m_file.Due());
}

TEST_F(AReadFile, HasNoMoreTimeThanBeforeIfItWasWrittenMeanwhile) {
  m_file.HasRead(FileChange::kOther, kThere, At(110));
  m_file.Note(FileChange::kOther, kThere, At(1990));
  EXPECT_EQ(At(2000), m_file.Due());
}

TEST_F(AReadFile, CountsIfItHasChangedForLongAndIsReadAgain) {
  EXPECT_TRUE(m_file.HasRead(FileChange::kOther, kThere, At(2000)));
  EXPECT_EQ(At(2100), m_file.Due());
  m_file.Note(FileChange::kOther, kThere, At(3990));
  EXPECT_EQ(At(4000), m_file.Due());
}

}  // namespace
}  // namespace settings
}  // namespace tavrel
