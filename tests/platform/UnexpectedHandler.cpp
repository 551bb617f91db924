#include "tests/platform/UnexpectedHandler.h"

#include <exception>

namespace tests {

#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wdeprecated-declarations"
void InstallUnexpectedHandler(void (*handler)()) { std::set_unexpected(handler); }
#pragma GCC diagnostic pop

}  // namespace tests
