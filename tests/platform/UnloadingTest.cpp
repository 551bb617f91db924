#include <string>

#include <gmock/gmock.h>

#include "tests/platform/PlatformCalls.h"
#include "tests/platform/Regions.h"
#include "tests/platform/Subscribers.h"
#include "tests/support/LoadedLibrary.h"

namespace {

using testing::AnyOf;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;
using tests::Calls;
using tests::IniFile;
using tests::Listener;
using tests::LoadedLibrary;

fakes::CallLog& Log() { return fakes::CallLog::Instance(); }

fakes::Platform& Platform() { return fakes::Platform::Instance(); }

IniFile TwoRegions() { return tests::SwitchedOn({tests::RedRegion(), tests::BlueRegion()}); }

/// What a program may have done with the library before it unloads it.
struct Use {
  const char* name;
  bool makesInstance;
  void (*use)(LoadedLibrary& library);
};

const Use kUses[] = {
    {"Nothing", false, [](LoadedLibrary&) {}},
    {"AvailableResources", false, [](LoadedLibrary& library) { library.AvailableResources(); }},
    {"ReserveResources", false, [](LoadedLibrary& library) { library.ReserveResources(2); }},
    {"Instance", true, [](LoadedLibrary& library) { library.Instance(); }},
    {"Start", true, [](LoadedLibrary& library) { library.Start(); }},
    {"StartAndStop", true,
     [](LoadedLibrary& library) {
       library.Start();
       library.Stop();
     }},
    {"Subscribe", true,
     [](LoadedLibrary& library) { library.Subscribe(&tests::NoteCall, tests::Named("A")); }},
    {"Everything", true,
     [](LoadedLibrary& library) {
       library.ReserveResources(2);
       library.Subscribe(&tests::NoteCall, tests::Named("A"));
       library.Start();
       tests::Change(Platform().stored);
     }},
};

class AnUnloadedLibrary : public testing::TestWithParam<Use> {
 protected:
  void SetUp() override {
    Platform().Reset();
    Platform().stored = TwoRegions();
  }
  void TearDown() override { Platform().Reset(); }

  /// What the platform sees of the unloading after the use.
  static Calls CallsOfUnloading() {
    {
      LoadedLibrary library;
      GetParam().use(library);
      Log().Clear();
    }
    return Log().Calls();
  }
};

TEST_P(AnUnloadedLibrary, IsGoneFromTheProcess) {
  ASSERT_FALSE(LoadedLibrary::IsInTheProcess());
  {
    LoadedLibrary library;
    GetParam().use(library);
    EXPECT_TRUE(LoadedLibrary::IsInTheProcess());
  }
  EXPECT_FALSE(LoadedLibrary::IsInTheProcess());
}

// The mutex of the server and the singletons of window blanking belong to different files, whose
// order is the linker's; the last mutex of a list that has two may be the server's or come first.
TEST_P(AnUnloadedLibrary, HasDestroyedSettingsThenClientThenMutexAndEndedNoSubscription) {
  const Calls calls = CallsOfUnloading();
  if (!GetParam().makesInstance) {
    EXPECT_THAT(calls, ElementsAre("Mutex::~Mutex()"));
    return;
  }
  Calls implementation = {"IniFile::~IniFile()", "TavrelSettingsClient::~TavrelSettingsClient()",
                          "Mutex::~Mutex()", "IChangeCallback::~IChangeCallback()"};
  Calls serverLast = implementation;
  serverLast.emplace_back("Mutex::~Mutex()");
  implementation.insert(implementation.begin(), "Mutex::~Mutex()");
  EXPECT_THAT(calls, AnyOf(implementation, serverLast));
}

TEST_P(AnUnloadedLibrary, HasDestroyedAsMuchAsItMade) {
  {
    LoadedLibrary library;
    GetParam().use(library);
  }
  const char* const pairs[][2] = {
      {"Mutex::Mutex(", "Mutex::~"},
      {"TavrelSettingsClient::TavrelSettingsClient(", "TavrelSettingsClient::~"},
      {"ResourceReserver::ResourceReserver(", "ResourceReserver::~"}};
  for (const auto& [made, destroyed] : pairs) {
    EXPECT_EQ(Log().CallsOf(made).size(), Log().CallsOf(destroyed).size()) << made;
  }
  EXPECT_THAT(Log().CallsOf("Mutex::Mutex("), SizeIs(GetParam().makesInstance ? 2 : 1));
}

TEST_P(AnUnloadedLibrary, ReleasedItsLocksBefore) {
  {
    LoadedLibrary library;
    GetParam().use(library);
  }
  EXPECT_EQ(Log().CallsOf("Mutex::Lock()").size(), Log().CallsOf("Mutex::Unlock()").size());
}

INSTANTIATE_TEST_SUITE_P(After, AnUnloadedLibrary, testing::ValuesIn(kUses),
                         [](const auto& row) { return std::string(row.param.name); });

class ALoadedLibrary : public testing::Test {
 protected:
  void SetUp() override { Platform().Reset(); }
  void TearDown() override { Platform().Reset(); }
};

TEST_F(ALoadedLibrary, MakesTheMutexOfTheServerAndNothingElse) {
  const LoadedLibrary library;
  EXPECT_THAT(Log().Calls(), ElementsAre("Mutex::Mutex(true)"));
}

TEST_F(ALoadedLibrary, LeavesItsSubscriptionInForceWhenItIsUnloadedWhileStarted) {
  {
    const LoadedLibrary library;
    library.Start();
    EXPECT_THAT(Platform().subscriptions, SizeIs(1));
  }
  EXPECT_THAT(Platform().subscriptions, SizeIs(1));
  EXPECT_THAT(Log().Calls(), Not(Contains(HasSubstr("UnSubscribe"))));
}

TEST_F(ALoadedLibrary, StaysWhileItIsOpenElsewhere) {
  const LoadedLibrary library;
  library.Start();
  { const LoadedLibrary again; }
  EXPECT_TRUE(LoadedLibrary::IsInTheProcess());
  EXPECT_THAT(tests::CallsDuring([&] { library.Start(); }),
              ElementsAre("Mutex::Lock()", "Mutex::Unlock()"));
}

TEST_F(ALoadedLibrary, HasNoSubscribersAndNoRecordOfAnEarlierLoad) {
  Platform().stored = TwoRegions();
  {
    const LoadedLibrary library;
    library.Subscribe(&tests::NoteCall, tests::Named("A"));
    library.Start();
  }
  const LoadedLibrary library;
  Listener listener;
  library.Subscribe(&Listener::Hear, &listener);
  EXPECT_EQ(0, listener.calls);
  library.SetConfiguration(tests::OneRegion());
  EXPECT_EQ(1, listener.calls);
  EXPECT_THAT(tests::CalledSubscribers(), IsEmpty());
}

TEST_F(ALoadedLibrary, IsNotStartedThoughAnEarlierLoadWas) {
  {
    const LoadedLibrary library;
    library.Start();
  }
  Platform().Reset();
  const LoadedLibrary library;
  library.Start();
  EXPECT_THAT(Platform().subscriptions, SizeIs(1));
}

}  // namespace
