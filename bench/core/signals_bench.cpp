// Emit and connect, beside a vector of function pointers and libsigc++.
#include "support/aims.h"

#include <benchmark/benchmark.h>

#include <memory>
#include <sigc++/sigc++.h>
#include <vector>
#include <zrobject>

namespace
{

struct Sender : ZrObject {
    ZrSignal changed;
    void change() { emit(this, &changed); }
};

struct Receiver : ZrObject, sigc::trackable {
    long calls = 0;
    void heard() { ++calls; }
};

using Receivers = std::vector<std::unique_ptr<Receiver>>;

Receivers makeReceivers(benchmark::State &state)
{
    Receivers receivers;
    for (int i = 0; i < state.range(0); ++i)
        receivers.push_back(std::make_unique<Receiver>());
    return receivers;
}

void emitSignal(benchmark::State &state)
{
    const Receivers receivers = makeReceivers(state);
    Sender sender;
    for (const auto &receiver : receivers)
        ZrObject::connect(&sender, &sender.changed, receiver.get(), zrSlot<&Receiver::heard>);
    for (auto _ : state) {
        sender.change();
        benchmark::ClobberMemory();
    }
}

struct PlainSlot {
    void (*function)(void *);
    void *receiver;
};

__attribute__((noinline)) void callAll(const std::vector<PlainSlot> &slots)
{
    for (const PlainSlot &slot : slots)
        slot.function(slot.receiver);
}

void emitPlain(benchmark::State &state)
{
    const Receivers receivers = makeReceivers(state);
    std::vector<PlainSlot> slots;
    for (const auto &receiver : receivers)
        slots.push_back(
            {[](void *self) { static_cast<Receiver *>(self)->heard(); }, receiver.get()});
    for (auto _ : state) {
        callAll(slots);
        benchmark::ClobberMemory();
    }
}

void emitSigc(benchmark::State &state)
{
    const Receivers receivers = makeReceivers(state);
    sigc::signal<void> changed;
    for (const auto &receiver : receivers)
        changed.connect(sigc::mem_fun(*receiver, &Receiver::heard));
    for (auto _ : state) {
        changed.emit();
        benchmark::ClobberMemory();
    }
}

void connectSignal(benchmark::State &state)
{
    Sender sender;
    Receiver receiver;
    for (auto _ : state) {
        ZrObject::connect(&sender, &sender.changed, &receiver, zrSlot<&Receiver::heard>);
        ZrObject::disconnect(&sender, &sender.changed, &receiver, zrSlot<&Receiver::heard>);
    }
}

void connectSigc(benchmark::State &state)
{
    sigc::signal<void> changed;
    Receiver receiver;
    for (auto _ : state) {
        sigc::connection connection = changed.connect(sigc::mem_fun(receiver, &Receiver::heard));
        connection.disconnect();
    }
}

BENCHMARK(emitSignal)->Arg(1)->Arg(10)->Arg(100);
BENCHMARK(emitPlain)->Arg(1)->Arg(10)->Arg(100);
BENCHMARK(emitSigc)->Arg(1)->Arg(10)->Arg(100);
BENCHMARK(connectSignal);
BENCHMARK(connectSigc);

[[maybe_unused]] const bool aims[] = {
    zrbench::atMost("emit to 1 slot beside a function pointer", "emitSignal/1", "emitPlain/1", 3),
    zrbench::atMost("emit to 10 slots beside function pointers", "emitSignal/10", "emitPlain/10",
                    1.5),
    zrbench::atMost("emit to 100 slots beside function pointers", "emitSignal/100", "emitPlain/100",
                    1.5),
    zrbench::atMost("emit to 1 slot beside libsigc++", "emitSignal/1", "emitSigc/1", 1),
    zrbench::atMost("emit to 10 slots beside libsigc++", "emitSignal/10", "emitSigc/10", 1),
    zrbench::atMost("emit to 100 slots beside libsigc++", "emitSignal/100", "emitSigc/100", 1),
    zrbench::atMost("connect and disconnect beside libsigc++", "connectSignal", "connectSigc", 1)};

} // namespace
