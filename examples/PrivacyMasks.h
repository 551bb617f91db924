#pragma once

namespace examples {

/// Prints the privacy masks as they are and then each change of them as it arrives, until the end
/// of standard input or Ctrl-C; then ends the subscription.
void WatchPrivacyMasks();

}  // namespace examples
