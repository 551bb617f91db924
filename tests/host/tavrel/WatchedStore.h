#pragma once

#include <string>

#include <tavrel/core/IniFile.h>
#include <tavrel/settings/TavrelSettingsClient.h>

#include "tests/host/tavrel/ChangeRecorder.h"
#include "tests/host/tavrel/FileReads.h"
#include "tests/host/tavrel/StoreTest.h"

namespace tests {

/// A store with "x=1" in the group "A" that is watched, by a client that waits for the first
/// change.
class WatchedStoreTest : public StoreTest {
 protected:
  WatchedStoreTest() {
    Write("[A]\nx=1\n");
    tavrel::core::IniFile settings;
    m_client.GetSettings("A", settings);
    FileReads reads(Path());
    m_client.Subscribe(&m_recorder, "A");
    reads.WaitForOne();  // to compare with what was got
  }

  ChangeRecorder m_recorder;
  tavrel::settings::TavrelSettingsClient m_client{tavrel::settings::TavrelSettingsClient::kObserve};
};

}  // namespace tests
