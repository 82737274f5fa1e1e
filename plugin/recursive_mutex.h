// The instance lock: a recursive POSIX mutex (the dispatcher holds it while
// resetBandStates takes it again), and a scope guard for it.
#pragma once

#include <pthread.h>

struct RecursiveMutex {
    pthread_mutex_t handle;

    void init() {
        pthread_mutexattr_t attributes;
        pthread_mutexattr_init(&attributes);
        pthread_mutexattr_settype(&attributes, PTHREAD_MUTEX_RECURSIVE);
        pthread_mutex_init(&handle, &attributes);
        pthread_mutexattr_destroy(&attributes);
    }
    void destroy() { pthread_mutex_destroy(&handle); }
    void lock() { pthread_mutex_lock(&handle); }
    void unlock() { pthread_mutex_unlock(&handle); }
};

class MutexLock {
public:
    explicit MutexLock(RecursiveMutex& mutex) : mutex_(mutex) { mutex_.lock(); }
    ~MutexLock() { mutex_.unlock(); }
    MutexLock(const MutexLock&) = delete;
    MutexLock& operator=(const MutexLock&) = delete;

private:
    RecursiveMutex& mutex_;
};
