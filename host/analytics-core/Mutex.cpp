#include <analytics/Mutex.h>

#include <system_error>

namespace analytics {
namespace {

void Check(int error, const char* what) {
  if (error != 0) throw std::system_error(error, std::generic_category(), what);
}

}  // namespace

Mutex::Mutex(bool recursive) : m_mutex() {
  pthread_mutexattr_t attributes;
  Check(pthread_mutexattr_init(&attributes), "pthread_mutexattr_init");
  // Error checking makes misuse answer with its error instead of waiting for ever.
  pthread_mutexattr_settype(&attributes,
                            recursive ? PTHREAD_MUTEX_RECURSIVE : PTHREAD_MUTEX_ERRORCHECK);
  const int error = pthread_mutex_init(&m_mutex, &attributes);
  pthread_mutexattr_destroy(&attributes);
  Check(error, "pthread_mutex_init");
}

Mutex::~Mutex() { pthread_mutex_destroy(&m_mutex); }

int Mutex::Lock() { return pthread_mutex_lock(&m_mutex); }

int Mutex::Unlock() { return pthread_mutex_unlock(&m_mutex); }

}  // namespace analytics
