// A simulated App: the far end of the interface's link, over a simulated recorder.
//
// It runs on a thread of its own from start() to stop(). Everything here may be called from any
// other thread. Every wait has a deadline and tells whether it was met.
#pragma once

#include "link/app_messages.h"
#include "link/appmessage.h"
#include "workbench/simapp/simdevice.h"

#include <chrono>
#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <thread>
#include <vector>

class SimConnection;

class SimApp
{
public:
    struct Options {
        std::string socketPath;
        DeviceOptions device;
        uint32_t chipCode = 7;
        // Without these the start waits for somebody to send 1000/1 and 1000/3.
        bool answersStart = true;
    };
    struct Received {
        AppMsgHead head;
        std::vector<uint8_t> body;
        int connection; // counted from 1
        bool is(uint16_t mainType, uint16_t subType) const
        {
            return head.mainType == mainType && head.subType == subType;
        }
    };
    using Messages = std::vector<Received>;
    using Milliseconds = std::chrono::milliseconds;
    static constexpr Milliseconds Deadline{20000};

    // What happens to a request instead of, or before, its ordinary answer.
    struct Rule {
        enum class Action { Silent, Late, Resized, Dropped };
        uint16_t mainType;
        uint16_t subType;
        Action action;
        size_t value = 0; // milliseconds of Late, bytes of Resized
        int times = -1;   // how often; -1 for always
    };

    explicit SimApp(const Options &options);
    ~SimApp();
    SimApp(const SimApp &) = delete;
    SimApp &operator=(const SimApp &) = delete;

    // Listens; false, with a line on standard error, when the socket cannot be had.
    bool start();
    void stop();

    // Behaviour.
    void addRule(const Rule &rule);
    void clearRules();
    void dropConnection();
    // Refuses connections, and takes them again. The present one stays.
    void stopListening();
    bool listenAgain();

    // Sends on the present connection; lost when there is none.
    void send(uint16_t mainType, uint16_t subType, const std::vector<uint8_t> &body = {},
              uint32_t sequence = 0, uint32_t result = 0);
    // Bytes as they stand, framed or not.
    void sendBytes(const std::vector<uint8_t> &bytes);

    // Changes the device or its parameters under the lock, then tells the interface of all states.
    void change(const std::function<void(SimDevice &)> &how);
    void changeParam(uint32_t kind, const std::function<void(std::vector<uint8_t> &)> &how);
    // Sends the states of all channels.
    void announceStates();
    std::vector<uint8_t> param(uint32_t kind) const;
    SimDevice device() const;

    // What came in, in order, since the start.
    Messages received() const;
    void forgetReceived();
    // Waits until the condition holds for what has come in; it is looked at with each message.
    bool waitFor(const std::function<bool(const Messages &)> &condition,
                 Milliseconds deadline = Deadline) const;
    // The nth message of this type, counted from 1.
    std::optional<Received> waitMessage(uint16_t mainType, uint16_t subType, int nth = 1,
                                        Milliseconds deadline = Deadline) const;
    bool waitConnections(int count, Milliseconds deadline = Deadline) const;
    int connections() const;

    // The body of the last 100/0 or 100/1; empty before.
    std::vector<uint8_t> pictures() const;

private:
    struct Later;

    void run();
    void take(AppMessagePtr message);
    std::optional<Rule> ruleFor(uint16_t mainType, uint16_t subType);
    void answer(const Received &request);
    void answerNow(const Received &request, const std::optional<Rule> &rule);
    std::optional<std::vector<uint8_t>> bodyOfAnswer(const Received &request);
    std::optional<std::vector<uint8_t>> systemAnswer(const Received &request);
    std::optional<std::vector<uint8_t>> parameterAnswer(const Received &request);
    void storeParam(const Received &request);
    void tellImported();
    void afterwards(const Received &request);
    void sendStates();
    void sendLocked(uint16_t mainType, uint16_t subType, const std::vector<uint8_t> &body,
                    uint32_t sequence, uint32_t result);
    int millisecondsToNext() const;
    void runLate();
    void wake();

    Options options_;
    mutable std::mutex mutex_; // guards all below except the thread
    mutable std::condition_variable changed_;
    SimDevice device_;
    ParamStore params_;
    std::vector<Rule> rules_;
    std::vector<Later> later_;
    Messages received_;
    std::vector<uint8_t> profile_;
    std::vector<uint8_t> pictures_;
    std::unique_ptr<SimConnection> connection_;
    int connectionCount_ = 0;
    bool stopping_ = false;
    std::thread thread_;
};
