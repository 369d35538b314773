#include "workbench/simapp/simapp.h"

#include "link/parameters.h"
#include "link/profilelayout.h"
#include "workbench/simapp/simconnection.h"

#include <algorithm>

using Clock = std::chrono::steady_clock;

struct SimApp::Later {
    Clock::time_point when;
    Received request;
    std::optional<Rule> rule;
};

SimApp::SimApp(const Options &options)
    : options_(options),
      device_(options.device),
      connection_(std::make_unique<SimConnection>(options.socketPath))
{
    device_.fillParams(&params_);
}

SimApp::~SimApp()
{
    stop();
}

bool SimApp::start()
{
    if (!connection_->listen())
        return false;
    stopping_ = false;
    thread_ = std::thread([this] { run(); });
    return true;
}

void SimApp::stop()
{
    {
        std::lock_guard<std::mutex> lock(mutex_);
        stopping_ = true;
        wake();
    }
    if (thread_.joinable())
        thread_.join();
    std::lock_guard<std::mutex> lock(mutex_);
    connection_->stopListening();
    connection_->hangUp();
    changed_.notify_all();
}

void SimApp::wake()
{
    connection_->wake();
}

// The thread

void SimApp::run()
{
    std::unique_lock<std::mutex> lock(mutex_);
    while (!stopping_) {
        const SimConnection::Watch watch = connection_->watch();
        const int wait = millisecondsToNext();
        lock.unlock();
        SimConnection::wait(watch, wait);
        lock.lock();
        connection_->clearWake();
        connection_->flush();
        if (connection_->accept()) {
            ++connectionCount_;
            later_.clear();
        }
        std::vector<AppMessage *> messages;
        connection_->read(messages);
        for (AppMessage *message : messages)
            take(AppMessagePtr(message));
        runLate();
        changed_.notify_all();
    }
}

int SimApp::millisecondsToNext() const
{
    if (later_.empty())
        return -1;
    const auto next = std::min_element(later_.begin(), later_.end(), [](auto &left, auto &right) {
        return left.when < right.when;
    });
    const auto rest = std::chrono::ceil<Milliseconds>(next->when - Clock::now());
    return int(std::max<long>(0, rest.count()));
}

void SimApp::runLate()
{
    const auto now = Clock::now();
    std::vector<Later> due;
    for (auto entry = later_.begin(); entry != later_.end();) {
        if (entry->when > now) {
            ++entry;
            continue;
        }
        due.push_back(std::move(*entry));
        entry = later_.erase(entry);
    }
    for (const Later &entry : due)
        answerNow(entry.request, entry.rule);
}

void SimApp::take(AppMessagePtr message)
{
    Received received;
    uint8_t head[AppMsgHead::Size];
    memcpy(head, message->toData(), sizeof head);
    received.head = AppMsgHead::decode(head);
    received.body.assign(message->body(), message->body() + message->bodyLength());
    received.connection = connectionCount_;
    received_.push_back(received);
    answer(received);
}

std::optional<SimApp::Rule> SimApp::ruleFor(uint16_t mainType, uint16_t subType)
{
    for (auto rule = rules_.begin(); rule != rules_.end(); ++rule) {
        if (rule->mainType != mainType || rule->subType != subType)
            continue;
        const Rule found = *rule;
        if (rule->times > 0 && --rule->times == 0)
            rules_.erase(rule);
        return found;
    }
    return std::nullopt;
}

void SimApp::answer(const Received &request)
{
    const auto rule = ruleFor(request.head.mainType, request.head.subType);
    if (rule && rule->action == Rule::Action::Dropped) {
        connection_->hangUp();
        return;
    }
    if (rule && rule->action == Rule::Action::Late) {
        later_.push_back({Clock::now() + Milliseconds(rule->value), request, std::nullopt});
        return;
    }
    answerNow(request, rule);
}

void SimApp::answerNow(const Received &request, const std::optional<Rule> &rule)
{
    auto body = bodyOfAnswer(request);
    const bool isSilent = rule && rule->action == Rule::Action::Silent;
    if (body && rule && rule->action == Rule::Action::Resized)
        body->resize(rule->value, 0xEE);
    if (body && !isSilent)
        sendLocked(request.head.mainType, request.head.subType, *body, request.head.seqNumber, 0);
    if (!isSilent)
        afterwards(request);
}

// Control

void SimApp::addRule(const Rule &rule)
{
    std::lock_guard<std::mutex> lock(mutex_);
    rules_.push_back(rule);
}

void SimApp::clearRules()
{
    std::lock_guard<std::mutex> lock(mutex_);
    rules_.clear();
}

void SimApp::dropConnection()
{
    std::lock_guard<std::mutex> lock(mutex_);
    connection_->hangUp();
    wake();
}

void SimApp::stopListening()
{
    std::lock_guard<std::mutex> lock(mutex_);
    connection_->stopListening();
    wake();
}

bool SimApp::listenAgain()
{
    std::lock_guard<std::mutex> lock(mutex_);
    const bool listening = connection_->listen();
    wake();
    return listening;
}

void SimApp::sendLocked(uint16_t mainType, uint16_t subType, const std::vector<uint8_t> &body,
                        uint32_t sequence, uint32_t result)
{
    AppMsgHead head;
    head.mainType = mainType;
    head.subType = subType;
    head.bodyLength = uint32_t(body.size());
    head.seqNumber = sequence;
    head.headResult = result;
    uint8_t bytes[AppMsgHead::Size];
    head.encode(bytes);
    std::vector<uint8_t> whole(sizeof bytes + body.size());
    std::copy(std::begin(bytes), std::end(bytes), whole.begin());
    std::copy(body.begin(), body.end(), whole.begin() + sizeof bytes);
    connection_->write(whole);
}

void SimApp::send(uint16_t mainType, uint16_t subType, const std::vector<uint8_t> &body,
                  uint32_t sequence, uint32_t result)
{
    std::lock_guard<std::mutex> lock(mutex_);
    sendLocked(mainType, subType, body, sequence, result);
    wake();
}

void SimApp::sendBytes(const std::vector<uint8_t> &bytes)
{
    std::lock_guard<std::mutex> lock(mutex_);
    connection_->write(bytes);
    wake();
}

void SimApp::change(const std::function<void(SimDevice &)> &how)
{
    std::lock_guard<std::mutex> lock(mutex_);
    how(device_);
    sendStates();
    wake();
}

void SimApp::changeParam(uint32_t kind, const std::function<void(std::vector<uint8_t> &)> &how)
{
    std::lock_guard<std::mutex> lock(mutex_);
    std::vector<uint8_t> record = params_.current(kind);
    how(record);
    params_.store(kind, record.data(), record.size());
    WireWriter echo(8);
    echo.u32(4, kind);
    sendLocked(AppMain::parameters, AppParameter::paramAccess, {echo.data(), echo.data() + 8}, 0,
               0);
    wake();
}

void SimApp::announceStates()
{
    std::lock_guard<std::mutex> lock(mutex_);
    sendStates();
    wake();
}

void SimApp::sendStates()
{
    const auto tell = [this](uint16_t subType, const std::vector<uint8_t> &body) {
        sendLocked(AppMain::system, subType, body, 0, 0);
    };
    tell(AppSystem::videoTypes, device_.videoTypes());
    tell(AppSystem::connectStates, device_.connectStates());
    tell(AppSystem::videoStatus, device_.videoStatus());
    tell(AppSystem::recordStatus, device_.recordStatus());
    tell(AppSystem::channelStatusBits, device_.statusBits());
}

// Looking

std::vector<uint8_t> SimApp::param(uint32_t kind) const
{
    std::lock_guard<std::mutex> lock(mutex_);
    return params_.current(kind);
}

SimDevice SimApp::device() const
{
    std::lock_guard<std::mutex> lock(mutex_);
    return device_;
}

SimApp::Messages SimApp::received() const
{
    std::lock_guard<std::mutex> lock(mutex_);
    return received_;
}

void SimApp::forgetReceived()
{
    std::lock_guard<std::mutex> lock(mutex_);
    received_.clear();
}

bool SimApp::waitFor(const std::function<bool(const Messages &)> &condition,
                     Milliseconds deadline) const
{
    std::unique_lock<std::mutex> lock(mutex_);
    return changed_.wait_until(lock, Clock::now() + deadline, [&] { return condition(received_); });
}

std::optional<SimApp::Received> SimApp::waitMessage(uint16_t mainType, uint16_t subType, int nth,
                                                    Milliseconds deadline) const
{
    std::optional<Received> found;
    waitFor(
        [&](const Messages &messages) {
            int count = 0;
            for (const Received &message : messages) {
                if (message.is(mainType, subType) && ++count == nth) {
                    found = message;
                    return true;
                }
            }
            return false;
        },
        deadline);
    return found;
}

bool SimApp::waitConnections(int count, Milliseconds deadline) const
{
    return waitFor([&](const Messages &) { return connectionCount_ >= count; }, deadline);
}

int SimApp::connections() const
{
    std::lock_guard<std::mutex> lock(mutex_);
    return connectionCount_;
}

std::vector<uint8_t> SimApp::pictures() const
{
    std::lock_guard<std::mutex> lock(mutex_);
    return pictures_;
}
