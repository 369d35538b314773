// The App link beside bare sockets: a burst of small messages, and a blocking request.
#include "link/applink.h"
#include "link/wirewriter.h"
#include "support/aims.h"

#include <benchmark/benchmark.h>

#include <condition_variable>
#include <deque>
#include <mutex>
#include <sys/socket.h>
#include <sys/uio.h>
#include <sys/un.h>
#include <thread>
#include <unistd.h>

namespace
{

constexpr int kBurst = 1000000;
constexpr uint16_t kMain = 1000;
constexpr uint16_t kSub = 33;
constexpr uint32_t kBodySize = 100;

struct Frame {
    uint8_t head[AppMsgHead::Size];
    uint8_t body[kBodySize];
};

// The far end of the link: a listening socket on which one connection is taken.
class Peer
{
public:
    Peer() : path_("/tmp/zrlinkbench" + std::to_string(getpid()))
    {
        unlink(path_.c_str());
        listener_ = socket(AF_UNIX, SOCK_STREAM, 0);
        sockaddr_un address = {};
        address.sun_family = AF_UNIX;
        memcpy(address.sun_path, path_.c_str(), path_.size());
        if (bind(listener_, reinterpret_cast<sockaddr *>(&address), sizeof address) < 0 ||
            listen(listener_, 1) < 0)
            abort();
    }
    ~Peer()
    {
        hangUp();
        close(listener_);
        unlink(path_.c_str());
    }
    const std::string &path() const { return path_; }
    int connection()
    {
        if (connection_ < 0)
            connection_ = accept(listener_, nullptr, nullptr);
        return connection_;
    }
    // Lets the link's reconnect fail, so that its threads end.
    void hangUp()
    {
        unlink(path_.c_str());
        if (connection_ >= 0)
            close(connection_);
        connection_ = -1;
    }

private:
    std::string path_;
    int listener_;
    int connection_ = -1;
};

bool readAll(int descriptor, void *out, size_t size)
{
    auto *bytes = static_cast<uint8_t *>(out);
    for (size_t done = 0; done < size;) {
        const ssize_t count = recv(descriptor, bytes + done, size - done, 0);
        if (count <= 0)
            return false;
        done += size_t(count);
    }
    return true;
}

// Both ends of a burst: the given count of messages without a body, as fast as the socket takes
// them.
void sendBurst(int descriptor)
{
    AppMsgHead head;
    head.mainType = kMain;
    head.subType = kSub;
    uint8_t bytes[AppMsgHead::Size];
    head.encode(bytes);
    std::vector<uint8_t> many;
    for (int i = 0; i < 1000; ++i)
        many.insert(many.end(), bytes, bytes + sizeof bytes);
    for (int i = 0; i < kBurst / 1000; ++i) {
        for (size_t done = 0; done < many.size();) {
            const ssize_t count =
                send(descriptor, many.data() + done, many.size() - done, MSG_NOSIGNAL);
            if (count <= 0)
                return;
            done += size_t(count);
        }
    }
}

// Counts what the link posts.
class CountingHost : public LinkHost
{
public:
    void postMessage(ZrObject *, AppMessage *message) override
    {
        AppMessage::release(message);
        if (++count_ % kBurst == 0) {
            std::lock_guard<std::mutex> lock(mutex_);
            ++bursts_;
            done_.notify_one();
        }
    }
    std::unique_ptr<LinkWaitLoop> makeWaitLoop() override { return nullptr; }
    bool screenSize(int *, int *) override { return false; }
    void pointerMoved(int, int, int, bool) override {}
    void slowRequest(uint16_t, uint16_t, bool) override {}

    void waitForBurst()
    {
        std::unique_lock<std::mutex> lock(mutex_);
        done_.wait(lock, [this] { return bursts_ > 0; });
        --bursts_;
    }

private:
    int count_ = 0;
    int bursts_ = 0;
    std::mutex mutex_;
    std::condition_variable done_;
};

// Lines about a crowded queue would be timed too.
void silenceErrors()
{
    static const bool silent = freopen("/dev/null", "w", stderr) != nullptr;
    benchmark::DoNotOptimize(silent);
}

void linkBurst(benchmark::State &state)
{
    silenceErrors();
    zrbench::pinToOneCore();
    Peer peer;
    CountingHost host;
    AppLink link(peer.path());
    link.setHost(&host);
    int receiver;
    link.start(reinterpret_cast<ZrObject *>(&receiver));
    const int descriptor = peer.connection();
    for (auto _ : state) {
        std::thread sender(sendBurst, descriptor);
        host.waitForBurst();
        sender.join();
    }
    peer.hangUp();
    link.setHost(nullptr);
}

// The straightforward way: each head is received on its own and handed over under a lock.
void plainBurst(benchmark::State &state)
{
    zrbench::pinToOneCore();
    int ends[2];
    socketpair(AF_UNIX, SOCK_STREAM, 0, ends);
    std::deque<uint8_t *> queue;
    std::mutex mutex;
    std::condition_variable filled;
    std::thread reader([&] {
        uint8_t head[AppMsgHead::Size];
        while (readAll(ends[1], head, sizeof head)) {
            auto *message = new uint8_t[sizeof head];
            memcpy(message, head, sizeof head);
            std::lock_guard<std::mutex> lock(mutex);
            queue.push_back(message);
            filled.notify_one();
        }
    });
    for (auto _ : state) {
        std::thread sender(sendBurst, ends[0]);
        for (int i = 0; i < kBurst; ++i) {
            std::unique_lock<std::mutex> lock(mutex);
            filled.wait(lock, [&] { return !queue.empty(); });
            uint8_t *message = queue.front();
            queue.pop_front();
            lock.unlock();
            delete[] message;
        }
        sender.join();
    }
    shutdown(ends[0], SHUT_RDWR);
    reader.join();
    close(ends[0]);
    close(ends[1]);
}

// Answers every request with a body of the same size and the request's number.
void answer(int descriptor)
{
    Frame frame;
    while (readAll(descriptor, &frame, sizeof frame)) {
        if (send(descriptor, &frame, sizeof frame, MSG_NOSIGNAL) != ssize_t(sizeof frame))
            return;
    }
}

void linkRoundTrip(benchmark::State &state)
{
    silenceErrors();
    zrbench::pinToOneCore();
    Peer peer;
    AppLink link(peer.path());
    link.start(nullptr);
    std::thread app(answer, peer.connection());
    const uint8_t body[kBodySize] = {};
    for (auto _ : state)
        benchmark::DoNotOptimize(link.request(kMain, kSub, body, sizeof body));
    shutdown(peer.connection(), SHUT_RDWR);
    app.join();
    peer.hangUp();
}

void bareRoundTrip(benchmark::State &state)
{
    zrbench::pinToOneCore();
    int ends[2];
    socketpair(AF_UNIX, SOCK_STREAM, 0, ends);
    std::thread app(answer, ends[1]);
    AppMsgHead head;
    head.bodyLength = kBodySize;
    uint8_t bytes[AppMsgHead::Size];
    head.encode(bytes);
    uint8_t body[kBodySize] = {};
    std::vector<uint8_t> buffer(64 << 10);
    for (auto _ : state) {
        iovec parts[2] = {{bytes, sizeof bytes}, {body, sizeof body}};
        benchmark::DoNotOptimize(writev(ends[0], parts, 2));
        for (size_t done = 0; done < sizeof(Frame);)
            done += size_t(recv(ends[0], buffer.data() + done, buffer.size() - done, 0));
    }
    shutdown(ends[0], SHUT_RDWR);
    app.join();
    close(ends[0]);
    close(ends[1]);
}

BENCHMARK(linkBurst)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(plainBurst)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(linkRoundTrip)->UseRealTime();
BENCHMARK(bareRoundTrip)->UseRealTime();

const bool aimed =
    zrbench::atLeastTimesFaster("1,000,000 messages from socket to receiver", "linkBurst",
                                "plainBurst", 2.0) &&
    zrbench::atMost("round trip of a blocking request", "linkRoundTrip", "bareRoundTrip", 1.3);

} // namespace
