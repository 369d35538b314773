// Which signals came, in order, one letter each.
#pragma once

#include <string>
#include <zrobject>

namespace zrtest
{

class SignalLog : public ZrObject
{
public:
    template <char Letter>
    void watch(ZrObject *sender, ZrSignal *signal)
    {
        connect(sender, signal, this, zrSlot<&SignalLog::note<Letter>>);
    }
    // The letters since the last call.
    std::string take() { return std::exchange(letters_, std::string()); }

private:
    template <char Letter>
    void note()
    {
        letters_ += Letter;
    }

    std::string letters_;
};

// A slot of the kind that tests every emitter: it deletes the sender.
inline void deleteSender(ZrObject *sender, ZrObject *, ZrSlotList *)
{
    delete sender;
}

} // namespace zrtest
