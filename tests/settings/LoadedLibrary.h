#pragma once

#include <cstdint>

#include <dlfcn.h>
#include <gtest/gtest.h>

namespace tests {

/// The library, loaded for a scope by a program that is not linked with it.
class LoadedLibrary {
 public:
  LoadedLibrary() : m_handle(dlopen(ANALYTICS_SETTINGS_LIBRARY, RTLD_NOW | RTLD_LOCAL)) {
    EXPECT_NE(nullptr, m_handle) << dlerror();
  }
  ~LoadedLibrary() { EXPECT_EQ(0, dlclose(m_handle)) << dlerror(); }

  LoadedLibrary(const LoadedLibrary&) = delete;
  LoadedLibrary& operator=(const LoadedLibrary&) = delete;

  static bool IsInTheProcess() {
    void* const handle = dlopen(ANALYTICS_SETTINGS_LIBRARY, RTLD_NOW | RTLD_NOLOAD);
    if (handle) dlclose(handle);
    return handle != nullptr;
  }

  std::int64_t MaxResource() const {
    // analytics::Settings::MaxResource()
    void* const symbol = dlsym(m_handle, "_ZN9analytics8Settings11MaxResourceEv");
    EXPECT_NE(nullptr, symbol) << dlerror();
    return symbol ? reinterpret_cast<std::int64_t (*)()>(symbol)() : 0;
  }

 private:
  void* const m_handle;
};

}  // namespace tests
