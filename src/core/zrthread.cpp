#include <zrthread>

ZrThread::~ZrThread()
{
    stop();
}

void ZrThread::run() {}

void ZrThread::wake() {}

void *ZrThread::body(void *self)
{
    auto *thread = static_cast<ZrThread *>(self);
    thread->run();
    thread->threadHandle_.store(0);
    return nullptr;
}

bool ZrThread::start()
{
    if (isRunning())
        return true;
    if (joinable_) {
        pthread_join(joinable_, nullptr);
        joinable_ = 0;
    }
    stopRequested_.store(false);
    // Held until the handle is stored, so that a body that returns at once cannot be overtaken.
    pthread_t created = 0;
    threadHandle_.store(1);
    if (pthread_create(&created, nullptr, body, this) != 0) {
        threadHandle_.store(0);
        return false;
    }
    joinable_ = created;
    pthread_t placeholder = 1;
    threadHandle_.compare_exchange_strong(placeholder, created);
    return true;
}

void ZrThread::stop()
{
    if (!joinable_)
        return;
    stopRequested_.store(true);
    wake();
    pthread_join(joinable_, nullptr);
    joinable_ = 0;
    threadHandle_.store(0);
}
