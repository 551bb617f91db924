#pragma once

#include <tavrel/core/IniFile.h>
#include <tavrel/settings/IChangeCallback.h>

namespace bench {

/// What the platform's client gives within this program, in the place of the host platform's, which
/// would report changes on a thread of its own.
tavrel::core::IniFile& PlatformSettings();

/// Whom the client was told to report changes to; null before that.
tavrel::settings::IChangeCallback* Subscribed();

}  // namespace bench
