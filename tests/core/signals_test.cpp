#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <zrapplication>
#include <zrobject>

namespace
{

// Counts calls, and does what the test asks in the middle of a walk.
class Listener : public ZrObject
{
public:
    explicit Listener(std::string *log, char name, ZrObject *parent = nullptr)
        : ZrObject(parent), log_(log), name_(name)
    {
    }
    void heard()
    {
        *log_ += name_;
        if (onHeard)
            onHeard();
    }
    void heardToo() { *log_ += char(name_ - 'a' + 'A'); }
    std::function<void()> onHeard;

private:
    std::string *log_;
    char name_;
};

class Sender : public ZrObject
{
public:
    using ZrObject::ZrObject;
    ZrSignal changed;
    void change() { emit(this, &changed); }
};

class Signals : public testing::Test
{
protected:
    static bool listen(Sender *sender, Listener &listener,
                       ZrObject::Delivery delivery = ZrObject::Direct)
    {
        return ZrObject::connect(sender, &sender->changed, &listener, zrSlot<&Listener::heard>,
                                 delivery);
    }
    static bool unlisten(Sender *sender, Listener &listener)
    {
        return ZrObject::disconnect(sender, &sender->changed, &listener, zrSlot<&Listener::heard>);
    }

    std::string log;
    std::unique_ptr<Sender> sender = std::make_unique<Sender>();
    Listener a{&log, 'a'}, b{&log, 'b'}, c{&log, 'c'};
};

} // namespace

TEST_F(Signals, SlotsRunInOrderOnceForEachConnection)
{
    EXPECT_TRUE(listen(sender.get(), a));
    EXPECT_TRUE(listen(sender.get(), b));
    EXPECT_FALSE(listen(sender.get(), a)) << "the same receiver and function twice";
    EXPECT_TRUE(ZrObject::connect(sender.get(), &sender->changed, &a, zrSlot<&Listener::heardToo>));
    sender->change();
    EXPECT_EQ(log, "abA");
    EXPECT_TRUE(unlisten(sender.get(), a));
    EXPECT_FALSE(unlisten(sender.get(), a));
    sender->change();
    EXPECT_EQ(log, "abAbA");
    EXPECT_TRUE(ZrObject::disconnect(sender.get(), &a));
    sender->change();
    EXPECT_EQ(log, "abAbAb");
}

TEST_F(Signals, WhatSlotsDoToTheListDuringTheWalk)
{
    listen(sender.get(), a);
    listen(sender.get(), b);
    a.onHeard = [&] {
        unlisten(sender.get(), b); // ahead of the walk: not called any more
        listen(sender.get(), c);   // appended: still called in this walk
    };
    sender->change();
    EXPECT_EQ(log, "ac");

    log.clear();
    a.onHeard = [&] { unlisten(sender.get(), a); };
    c.onHeard = [&] { unlisten(sender.get(), c); };
    sender->change();
    EXPECT_EQ(log, "ac") << "a slot that disconnects itself must not hide the next one";
    log.clear();
    sender->change();
    EXPECT_EQ(log, "");
    a.onHeard = nullptr;
    EXPECT_TRUE(listen(sender.get(), a)) << "the list emptied during an emit is made anew";
    bool once = true;
    a.onHeard = [&] {
        if (!std::exchange(once, false))
            return;
        unlisten(sender.get(), a);
        EXPECT_TRUE(listen(sender.get(), a));
    };
    sender->change();
    EXPECT_EQ(log, "aa") << "one that connects itself anew is called once more";
    sender->change();
    EXPECT_EQ(log, "aaa");
}

TEST_F(Signals, ADeletedSenderEndsEveryEmitUnderWay)
{
    for (const std::size_t depth : {1, 3}) {
        log.clear();
        sender = std::make_unique<Sender>();
        Sender *raw = sender.get();
        listen(raw, a);
        listen(raw, b);
        a.onHeard = [&] { log.size() < depth ? raw->change() : sender.reset(); };
        raw->change();
        EXPECT_EQ(log, std::string(depth, 'a'));
    }
}

TEST_F(Signals, ReceiversThatDieAreForgotten)
{
    auto dying = std::make_unique<Listener>(&log, 'd');
    listen(sender.get(), a);
    listen(sender.get(), *dying);
    listen(sender.get(), b);
    a.onHeard = [&] { dying.reset(); };
    sender->change();
    sender->change();
    EXPECT_EQ(log, "abab");
}

TEST_F(Signals, BlockedSignalsStaySilentDestroyedIncluded)
{
    listen(sender.get(), a);
    ZrObject::connect(sender.get(), &sender->destroyed, &b, zrSlot<&Listener::heard>);
    EXPECT_FALSE(sender->blockSignals(true));
    sender->change();
    EXPECT_TRUE(sender->blockSignals(false));
    sender->change();
    EXPECT_EQ(log, "a");
    sender->blockSignals(true);
    sender.reset();
    EXPECT_EQ(log, "a");
}

TEST_F(Signals, DestroyedComesAfterTheChildrenAndAfterLeavingTheParent)
{
    struct Watch : ZrObject {
        using ZrObject::ZrObject;
        void gone(ZrObject *sender)
        {
            children = sender->children().size();
            hadParent = sender->parent() != nullptr;
        }
        int children = -1;
        bool hadParent = true;
    } watch;
    auto parent = std::make_unique<ZrObject>();
    auto *middle = new ZrObject(parent.get());
    new Listener(&log, 'x', middle);
    ZrObject::connect(middle, &middle->destroyed, &watch, zrSlot<&Watch::gone>);
    parent.reset();
    EXPECT_EQ(watch.children, 0);
    EXPECT_FALSE(watch.hadParent);
}

TEST_F(Signals, QueuedSlotsRunFromTheQueueAndNeverForADeadSenderOrReceiver)
{
    ZrApplication application(0, nullptr);
    auto receiver = std::make_unique<Listener>(&log, 'r');
    listen(sender.get(), *receiver, ZrObject::Queued);
    listen(sender.get(), a, ZrObject::Queued);
    sender->change();
    EXPECT_EQ(log, "") << "a queued slot never runs inside the emit";
    receiver.reset();
    application.processPending();
    EXPECT_EQ(log, "a");
    sender->change();
    sender.reset();
    application.processPending();
    EXPECT_EQ(log, "a") << "a slot reads its sender, so it must not run without one";
}
