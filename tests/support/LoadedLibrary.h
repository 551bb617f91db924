#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <stdexcept>
#include <string>

#include <dlfcn.h>
#include <gtest/gtest.h>

#include <analytics/ResourceUsageServer.h>
#include <analytics/WindowBlankingChanges.h>

namespace tests {

/// The library, loaded for a scope by a program that is not linked with it. Its platform is what
/// the program is linked with, such as the fakes.
class LoadedLibrary {
 public:
  LoadedLibrary() : m_handle(Found(dlopen(ANALYTICS_SETTINGS_LIBRARY, RTLD_NOW | RTLD_LOCAL))) {}
  ~LoadedLibrary() { EXPECT_EQ(0, dlclose(m_handle)) << dlerror(); }

  LoadedLibrary(const LoadedLibrary&) = delete;
  LoadedLibrary& operator=(const LoadedLibrary&) = delete;

  static bool IsInTheProcess() {
    void* const handle = dlopen(ANALYTICS_SETTINGS_LIBRARY, RTLD_NOW | RTLD_NOLOAD);
    if (handle) dlclose(handle);
    return handle != nullptr;
  }

  // The operations of the library's classes, called as their callers do.

  std::int64_t MaxResource() const {
    return reinterpret_cast<std::int64_t (*)()>(Symbol("_ZN9analytics8Settings11MaxResourceEv"))();
  }
  bool LoadSettings(const std::string& path) const {
    return reinterpret_cast<bool (*)(const std::string&)>(
        Symbol("_ZN9analytics8Settings12LoadSettingsERK"
               "NSt7__cxx1112basic_stringIcSt11char_traitsIcESaIcEEE"))(path);
  }

  int AvailableResources() {
    return (Server().*Member<int (analytics::ResourceUsageServer::*)()>(
                          "_ZN9analytics19ResourceUsageServer18AvailableResourcesEv"))();
  }
  int ReserveResources(int count) {
    return (Server().*Member<int (analytics::ResourceUsageServer::*)(int)>(
                          "_ZN9analytics19ResourceUsageServer16ReserveResourcesEi"))(count);
  }

  analytics::WindowBlankingChanges* Instance() const {
    return reinterpret_cast<analytics::WindowBlankingChanges* (*)()>(
        Symbol("_ZN9analytics21WindowBlankingChanges8InstanceEv"))();
  }
  void Start() const {
    (Instance()->*Member<Operation>("_ZNK9analytics21WindowBlankingChanges5StartEv"))();
  }
  void Stop() const {
    (Instance()->*Member<Operation>("_ZNK9analytics21WindowBlankingChanges4StopEv"))();
  }
  void Subscribe(WindowBlankingCallback callback, void* context) const {
    (Instance()->*Member<ListOperation>(
                      "_ZNK9analytics21WindowBlankingChanges9SubscribeEPFiPviS1_iES1_"))(callback,
                                                                                         context);
  }
  void Unsubscribe(WindowBlankingCallback callback, void* context) const {
    (Instance()->*Member<ListOperation>(
                      "_ZNK9analytics21WindowBlankingChanges11UnsubscribeEPFiPviS1_iES1_"))(
        callback, context);
  }
  void SetConfiguration(const tagWindowBlankingRegions& regions) const {
    (Instance()
         ->*Member<void (analytics::WindowBlankingChanges::*)(const tagWindowBlankingRegions&)
                       const>("_ZNK9analytics21WindowBlankingChanges16SetConfigurationERK"
                              "24tagWindowBlankingRegions"))(regions);
  }

 private:
  using Operation = void (analytics::WindowBlankingChanges::*)() const;
  using ListOperation = void (analytics::WindowBlankingChanges::*)(WindowBlankingCallback,
                                                                   void*) const;

  static void* Found(void* found) {
    if (!found) throw std::runtime_error(dlerror());
    return found;
  }

  void* Symbol(const char* name) const { return Found(dlsym(m_handle, name)); }

  /// A member function by its name for the linker: one that is not virtual is pointed to by its
  /// address and an adjustment of 0.
  template <typename Pointer>
  Pointer Member(const char* name) const {
    const struct {
      void* address;
      std::ptrdiff_t adjustment;
    } parts = {Symbol(name), 0};
    Pointer pointer = nullptr;
    static_assert(sizeof pointer == sizeof parts, "laid out as in the Itanium C++ ABI");
    std::memcpy(&pointer, &parts, sizeof pointer);
    return pointer;
  }

  /// A server holds nothing, so that its place will do for its operations.
  analytics::ResourceUsageServer& Server() {
    return reinterpret_cast<analytics::ResourceUsageServer&>(m_server);
  }

  void* const m_handle;
  char m_server = 0;
};

}  // namespace tests
