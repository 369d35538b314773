// Post and dispatch of events, beside a deque under mutex and condition with the same allocation.
#include "support/aims.h"

#include <benchmark/benchmark.h>

#include <condition_variable>
#include <deque>
#include <mutex>
#include <zrapplication>

namespace
{

constexpr int Batch = 1000;
constexpr int Events = 1000000;

struct Counter : ZrObject {
    void customEvent(ZrEvent *) override { ++count; }
    long count = 0;
};

void postAndDispatch(benchmark::State &state)
{
    zrbench::pinToOneCore();
    ZrApplication application(0, nullptr);
    Counter counter;
    for (auto _ : state) {
        for (int done = 0; done < Events; done += Batch) {
            for (int i = 0; i < Batch; ++i)
                ZrApplication::postEvent(&counter, new ZrEvent(1013));
            for (int i = 0; i < Batch; ++i)
                application.processEvents();
        }
    }
    state.SetItemsProcessed(state.iterations() * Events);
}

// What anyone would write first.
class PlainQueue
{
public:
    void post(ZrObject *receiver, ZrEvent *event)
    {
        std::lock_guard<std::mutex> lock(mutex_);
        queue_.push_back({receiver, event});
        posted_.notify_one();
    }
    void processOne()
    {
        std::unique_lock<std::mutex> lock(mutex_);
        posted_.wait(lock, [this] { return !queue_.empty(); });
        const auto entry = queue_.front();
        queue_.pop_front();
        lock.unlock();
        entry.first->customEvent(entry.second);
        delete entry.second;
    }

private:
    std::mutex mutex_;
    std::condition_variable posted_;
    std::deque<std::pair<ZrObject *, ZrEvent *>> queue_;
};

void postAndDispatchPlain(benchmark::State &state)
{
    zrbench::pinToOneCore();
    PlainQueue queue;
    Counter counter;
    for (auto _ : state) {
        for (int done = 0; done < Events; done += Batch) {
            for (int i = 0; i < Batch; ++i)
                queue.post(&counter, new ZrEvent(1013));
            for (int i = 0; i < Batch; ++i)
                queue.processOne();
        }
    }
    state.SetItemsProcessed(state.iterations() * Events);
}

BENCHMARK(postAndDispatch)->Unit(benchmark::kMillisecond);
BENCHMARK(postAndDispatchPlain)->Unit(benchmark::kMillisecond);

[[maybe_unused]] const bool aims[] = {
    zrbench::atMost("post and dispatch of 1,000,000 events beside a plain deque", "postAndDispatch",
                    "postAndDispatchPlain", 1)};

} // namespace
