#include <tavrel/settings/IChangeCallback.h>

namespace tavrel {
namespace settings {

IChangeCallback::~IChangeCallback() = default;

}  // namespace settings
}  // namespace tavrel
