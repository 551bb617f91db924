#pragma once

#include "files/FileDescriptor.h"

namespace tavrel {
namespace settings {

using files::Checked;
using files::FileDescriptor;
using files::ThrowErrno;

}  // namespace settings
}  // namespace tavrel
