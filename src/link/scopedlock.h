// Holds a plain mutex for a block.
#pragma once

#include <pthread.h>

class ScopedLock
{
public:
    explicit ScopedLock(pthread_mutex_t &mutex) : mutex_(mutex) { pthread_mutex_lock(&mutex_); }
    ~ScopedLock() { pthread_mutex_unlock(&mutex_); }
    ScopedLock(const ScopedLock &) = delete;
    ScopedLock &operator=(const ScopedLock &) = delete;

private:
    pthread_mutex_t &mutex_;
};
