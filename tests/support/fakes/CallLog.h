#pragma once

#include <cstddef>
#include <cstdlib>
#include <map>
#include <mutex>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace fakes {

/// Takes memory from `malloc`, so that noting a call never fails where a test lets `operator new`
/// fail: destructors and locks are noted as well, which must not throw.
template <typename T>
struct MallocAllocator {
  using value_type = T;

  MallocAllocator() = default;
  template <typename Other>
  explicit MallocAllocator(const MallocAllocator<Other>& /*other*/) {}

  T* allocate(std::size_t count) {
    void* const memory = std::malloc(count * sizeof(T));
    if (!memory) std::abort();
    return static_cast<T*>(memory);
  }
  void deallocate(T* memory, std::size_t /*count*/) { std::free(memory); }

  bool operator==(const MallocAllocator& /*other*/) const { return true; }
  bool operator!=(const MallocAllocator& /*other*/) const { return false; }
};

/// What a fake throws when it is told to.
struct Failure : std::runtime_error {
  using std::runtime_error::runtime_error;
};

/// What a call that fails throws: a `Failure`, or a number, which is no `std::exception`.
enum class Thrown { kFailure, kNumber };

/// What the library asked of the platform, one entry a call, in order.
///
/// Threads: any.
class CallLog {
 public:
  /// The log of this process.
  static CallLog& Instance();

  /// Notes a call, such as "Calibration::SetPhysicalHeight(7)", and throws if it is one that shall
  /// fail.
  void Note(std::string_view call);

  /// Has the nth call from now whose entry starts with `start` fail, once.
  void FailAt(const std::string& start, int nth);

  /// Has the nth call from now fail, once; of those that may: neither destructors nor the taking
  /// and releasing of a lock count.
  void FailAtAny(int nth);

  /// What calls that fail throw from now on.
  void SetThrown(Thrown thrown);

  /// The last call that failed; empty if none did.
  std::string FailedCall() const;

  /// Forgets the calls, those that failed, and the failures to come.
  void Clear();

  std::vector<std::string> Calls() const;

  /// The calls whose entry starts with `start`, in order.
  std::vector<std::string> CallsOf(const std::string& start) const;

 private:
  [[noreturn]] void Fail(std::string_view call);  // m_mutex held

  using Entry = std::basic_string<char, std::char_traits<char>, MallocAllocator<char>>;

  mutable std::mutex m_mutex;
  std::vector<Entry, MallocAllocator<Entry>> m_calls;  // under m_mutex
  std::map<std::string, int> m_callsToFail;            // under m_mutex; from start to calls left
  int m_untilFailure = 0;                              // under m_mutex; 0 while none is to fail
  Thrown m_thrown = Thrown::kFailure;                  // under m_mutex
  std::string m_failedCall;                            // under m_mutex
};

}  // namespace fakes
