#pragma once

#include <memory>

#include <glib.h>

namespace tavrel {
namespace settings {

/// Releases what GLib hands out; the only place that calls its free functions.
struct GlibDelete {
  void operator()(GKeyFile* file) const noexcept { g_key_file_free(file); }
  void operator()(GError* error) const noexcept { g_error_free(error); }
  void operator()(char* memory) const noexcept { g_free(memory); }
  void operator()(char** texts) const noexcept { g_strfreev(texts); }
};

/// Owns one object of GLib's; `GlibPtr<char*>` owns a null-terminated list of texts.
template <typename T>
using GlibPtr = std::unique_ptr<T, GlibDelete>;

}  // namespace settings
}  // namespace tavrel
