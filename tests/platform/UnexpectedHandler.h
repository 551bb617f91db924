#pragma once

namespace tests {

/// Installs `handler` for exceptions that leave a function declared to throw nothing. Compiled as
/// C++14, the last language that has such a handler.
void InstallUnexpectedHandler(void (*handler)());

}  // namespace tests
