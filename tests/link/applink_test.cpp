#include "link/appcalls.h"
#include "link/applink.h"
#include "link/fakehost.h"
#include "link/pendingreplies.h"
#include "link/rawpeer.h"
#include "support/deadline.h"

#include <gtest/gtest.h>

#include <future>
#include <random>

namespace
{

using Body = std::vector<uint8_t>;

// A link with a peer that has taken its connection.
class LinkTest : public testing::Test
{
protected:
    LinkTest() { appUseLink(&link); }
    ~LinkTest() override
    {
        link.stop();
        appUseLink(nullptr);
    }
    void start(ZrObject *object)
    {
        link.setHost(&host);
        link.start(object);
        ASSERT_TRUE(peer.accept());
    }
    ZrObject *receiver() { return reinterpret_cast<ZrObject *>(&receiver_); }

    RawPeer peer;
    FakeHost host;
    AppLink link{peer.path()};
    int receiver_ = 0;
};

TEST_F(LinkTest, SendsTheHeadAsAppReadsIt)
{
    start(nullptr);
    const uint8_t body[] = {7, 8, 9};
    EXPECT_EQ(appSend(1000, 45, body, 3), 1u);
    const auto message = peer.receive();
    EXPECT_EQ(message.head.headTag, 1u);
    EXPECT_EQ(message.head.headKind, 1);
    EXPECT_EQ(message.head.headFlag, 0);
    EXPECT_EQ(message.head.bodyCount, 1);
    EXPECT_EQ(message.head.mainType, 1000);
    EXPECT_EQ(message.head.subType, 45);
    EXPECT_EQ(message.head.seqNumber, 1u);
    EXPECT_EQ(message.body, (Body{7, 8, 9}));
    appSend(1000, 105);
    EXPECT_EQ(peer.receive().head.bodyCount, 1); // also without a body
}

TEST_F(LinkTest, NumbersWrapPastZero)
{
    start(nullptr);
    link.setSequence(0xFFFFFFFF);
    EXPECT_EQ(appSend(1, 1), 0xFFFFFFFFu);
    EXPECT_EQ(appSend(1, 1), 1u);
    EXPECT_EQ(appSend(1, 1), 2u);
}

TEST_F(LinkTest, DeliversWhatAppSendsHoweverTheStreamIsCut)
{
    const unsigned seed = std::random_device()();
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::mt19937 random(seed);
    start(receiver());
    Body stream;
    uint32_t expected = 0;
    for (int i = 0; i < 300; ++i) {
        AppMsgHead head;
        head.mainType = 100;
        head.subType = uint16_t(i);
        Body body;
        if (random() % 5 == 0) {
            // No body follows such a head, whatever length it names.
            head.bodyCount = int16_t(-int(random() % 2));
            head.bodyLength = 40;
        } else {
            body.assign(random() % 8 == 0 ? random() % 200000 : random() % 50, uint8_t(i));
            head.bodyLength = uint32_t(body.size());
            head.seqNumber = ++expected;
        }
        const Body frame = RawPeer::frame(head, body);
        stream.insert(stream.end(), frame.begin(), frame.end());
    }
    for (size_t at = 0; at < stream.size();) {
        const size_t piece = std::min(stream.size() - at, size_t(1 + random() % 60000));
        ASSERT_TRUE(
            peer.sendBytes(Body(stream.begin() + long(at), stream.begin() + long(at + piece))));
        at += piece;
    }
    const auto posted = host.waitPosted(expected);
    ASSERT_EQ(posted.size(), expected);
    for (uint32_t i = 0; i < expected; ++i)
        EXPECT_EQ(posted[i].sequence, i + 1);
    EXPECT_EQ(host.lastReceiver, receiver());
}

TEST_F(LinkTest, AnswersALostConnectionWithOneNewOne)
{
    start(receiver());
    appSend(1000, 105);
    EXPECT_EQ(peer.receive().head.seqNumber, 1u);
    testing::internal::CaptureStderr();
    peer.hangUp();
    ASSERT_TRUE(peer.accept());
    const std::string log = testing::internal::GetCapturedStderr();
    EXPECT_EQ(log.find("[IPC_UI_QT] func: [ReadData], , line: ["), 0u);
    for (const char *line : {"!!!!------Connect rest by peer!", "ss32Size=24,s32ReadSize = 0",
                             "[ClientStar]", "rec head error, client sock close"})
        EXPECT_NE(log.find(line), std::string::npos) << line;
    peer.send(100, 1, {}, 5);
    EXPECT_EQ(host.waitPosted(1)[0].sequence, 5u);
    appSend(1000, 105);
    EXPECT_EQ(peer.receive().head.seqNumber, 2u); // the counter goes on
}

TEST_F(LinkTest, ABodyThatNobodyCouldHoldIsALostConnection)
{
    start(receiver());
    AppMsgHead head;
    head.bodyLength = 0xFFFFFFFF;
    peer.send(100, 1, {}, 1);
    peer.sendBytes(RawPeer::frame(head, {}));
    EXPECT_EQ(host.waitPosted(1).size(), 1u); // what came before it is not lost
    ASSERT_TRUE(peer.accept());
    peer.send(100, 2, {}, 2);
    EXPECT_EQ(host.waitPosted(2)[1].sequence, 2u);
}

TEST_F(LinkTest, RefusedReconnectEndsTheClientAndSendersWaitUntilTheLinkIsStopped)
{
    start(nullptr);
    testing::internal::CaptureStderr();
    peer.hangUp(RawPeer::Then::StopListening);
    // Whether the sender meets the broken connection or none at all is a race; neither may crash.
    auto sender = std::async(std::launch::async, [] { return appSend(1000, 105); });
    link.stop();
    EXPECT_EQ(sender.wait_for(std::chrono::milliseconds(kDeadlineMs)), std::future_status::ready);
    testing::internal::GetCapturedStderr();
}

TEST_F(LinkTest, ARequestTakesItsReplyAndDeliversTheRestBehindItInOrder)
{
    start(receiver());
    auto app = std::async(std::launch::async, [this] {
        const auto request = peer.receive();
        peer.send(100, 1, {}, 901);
        // The right number with a wrong type is somebody else's message.
        peer.send(request.head.mainType, 99, {}, request.head.seqNumber);
        peer.send(100, 2, {}, 902);
        peer.reply(request, {1, 2, 3, 4});
        return request;
    });
    uint8_t out[6] = {9, 9, 9, 9, 9, 9};
    EXPECT_EQ(appRequest(1000, 104, out, sizeof out, "ab", 2), 4u);
    EXPECT_EQ(app.get().body, (Body{'a', 'b'}));
    EXPECT_EQ(Body(out, out + 6), (Body{1, 2, 3, 4, 9, 9}));
    const auto posted = host.waitPosted(3);
    EXPECT_EQ(posted[0].sequence, 901u);
    EXPECT_EQ(posted[1].subType, 99);
    EXPECT_EQ(posted[2].sequence, 902u);
    EXPECT_EQ(posted[2].thread, std::this_thread::get_id());
}

TEST(PendingReplies, AMessageOfAppsOwnWithTheNumberDoesNotHideTheReply)
{
    const auto message = [](uint16_t mainType, uint16_t subType, uint32_t number) {
        AppMsgHead head;
        head.mainType = mainType;
        head.subType = subType;
        head.seqNumber = number;
        uint8_t bytes[AppMsgHead::Size];
        head.encode(bytes);
        return AppMessage::allocate(bytes);
    };
    PendingReplies replies;
    replies.begin();
    ASSERT_TRUE(replies.enter(message(100, 2, 5)));
    ASSERT_TRUE(replies.enter(message(1000, 104, 5)));
    ASSERT_TRUE(replies.enter(message(100, 3, 6)));
    Silence silence(1, [] {});
    AppMessagePtr reply;
    EXPECT_EQ(replies.waitFor(5, 1000, 104, &silence, &reply), PendingReplies::Wait::Found);
    ASSERT_TRUE(reply);
    EXPECT_EQ(reply->subType(), 104);
    std::vector<int> rest;
    replies.finish([&rest](AppMessagePtr other) { rest.push_back(other->subType()); });
    EXPECT_EQ(rest, (std::vector<int>{2, 3}));
}

TEST_F(LinkTest, AReplyIsCutToTheCallersRecord)
{
    start(nullptr);
    auto app = std::async(std::launch::async, [this] { peer.reply(peer.receive(), Body(500, 7)); });
    uint8_t out[6] = {};
    EXPECT_EQ(appRequest(1000, 33, out, 4, nullptr, 0), 4u);
    EXPECT_EQ(Body(out, out + 6), (Body{7, 7, 7, 7, 0, 0}));
    EXPECT_TRUE(host.slow.empty());
}

TEST_F(LinkTest, AsksAgainUnderANewNumberAndIgnoresALateReplyToTheOld)
{
    link.setRepeatDelay(30);
    start(receiver());
    testing::internal::CaptureStdout();
    auto app = std::async(std::launch::async, [this] {
        const auto first = peer.receive();
        auto last = peer.receive();
        peer.reply(first, {1});
        EXPECT_EQ(first.body, last.body);
        EXPECT_NE(first.head.seqNumber, last.head.seqNumber);
        while (peer.hasInput()) // a slow machine may have asked a third time
            last = peer.receive();
        peer.reply(last, {2});
        return std::make_pair(first.head.seqNumber, last.head.seqNumber);
    });
    uint8_t out = 0;
    appRequest(600, 3, &out, 1, "x", 1);
    EXPECT_EQ(out, 2);
    EXPECT_EQ(host.slow, (std::vector<bool>{true, false})) << "the wait is told, and its end";
    const auto numbers = app.get();
    const std::string printed = testing::internal::GetCapturedStdout();
    EXPECT_EQ(printed.find("[GUI]: BlockWaiting data timeout(MainType:600, SubType:3, seqNumber:" +
                           std::to_string(numbers.first) + "), request again, new seqNumber:"),
              0u);
    EXPECT_EQ(host.waitPosted(1)[0].sequence, numbers.first);
}

TEST_F(LinkTest, ARequestSurvivesALostConnection)
{
    link.setRepeatDelay(30);
    start(nullptr);
    auto app = std::async(std::launch::async, [this] {
        peer.receive();
        peer.accept();
        peer.reply(peer.receive(), {5});
    });
    uint8_t out = 0;
    testing::internal::CaptureStderr();
    testing::internal::CaptureStdout();
    appRequest(1000, 104, &out, 1, nullptr, 0);
    testing::internal::GetCapturedStdout();
    testing::internal::GetCapturedStderr();
    EXPECT_EQ(out, 5);
}

TEST_F(LinkTest, MovesThePointerAtOnceEvenDuringARequest)
{
    start(receiver());
    host.width = 1920;
    host.height = 1080;
    auto app = std::async(std::launch::async, [this] {
        const auto request = peer.receive();
        // Source 1280x720 at (3, 5), not forced, left button; then a source without a size.
        peer.send(1000, 134, {0x00, 0x05, 0xD0, 0x02, 3, 0, 5, 0, 0, 0, 1, 0});
        peer.send(1000, 134, {0, 0, 0, 0, 3, 0, 5, 0, 0, 0, 1, 0});
        peer.send(1000, 134, {0x80, 0x07, 0x38, 0x04, 7, 0, 9, 0, 0xFF, 0xFF, 4, 0});
        host.waitMoved(2);
        peer.reply(request);
    });
    appRequest(1000, 104);
    const auto moved = host.waitMoved(2);
    EXPECT_EQ(moved[0].x, 5); // 4.5: halves go away from zero
    EXPECT_EQ(moved[0].y, 8); // 7.5
    EXPECT_EQ(moved[0].buttons, 1);
    EXPECT_FALSE(moved[0].force);
    EXPECT_EQ(moved[1].x, 7);
    EXPECT_EQ(moved[1].y, 9);
    EXPECT_TRUE(moved[1].force);
    EXPECT_NE(moved[1].thread, std::this_thread::get_id());
    peer.send(100, 1, {}, 77);
    EXPECT_EQ(host.waitPosted(1)[0].sequence, 77u); // and nothing of it was posted
}

TEST_F(LinkTest, NotesOnlySumsAtTheStart)
{
    start(nullptr);
    peer.send(500, 501); // the same sum as 1000/1, and the list makes no difference
    appWaitState(1);
    peer.send(1000, 3);
    peer.send(1000, 3);
    appWaitState(3);
    auto again = std::async(std::launch::async, [] { appWaitState(3); });
    // Every copy went with the first wait, or the second one arrived behind it and ends this.
    peer.send(1000, 3);
    EXPECT_EQ(again.wait_for(std::chrono::milliseconds(kDeadlineMs)), std::future_status::ready);
}

TEST_F(LinkTest, ANestedWaitEndsWithItsOwnReplyOnly)
{
    start(nullptr);
    appSetReceiver(receiver());
    appSetLoopWait(true);
    auto app = std::async(std::launch::async, [this] {
        const auto request = peer.receive();
        peer.send(request.head.mainType, request.head.subType, {0}, request.head.seqNumber + 1);
        peer.send(request.head.mainType, 1, {0}, request.head.seqNumber);
        peer.reply(request, {4, 2});
        peer.reply(request, {4, 3}); // a reply comes once; this is a message like any other
    });
    const ZrVector<uint8_t> body = appRequestData(1000, 157, nullptr, 0);
    ASSERT_EQ(body.size(), 2);
    EXPECT_EQ(body.at(1), 2);
    const auto posted = host.waitPosted(3);
    EXPECT_EQ(posted[1].subType, 1);
    EXPECT_EQ(posted[2].sequence, 1u);
}

TEST_F(LinkTest, ANestedWaitThatEndsWithoutAReplyAsksAgain)
{
    start(receiver());
    appSetLoopWait(true);
    auto app = std::async(std::launch::async, [this] {
        peer.receive();
        host.exitLoop();
        const auto second = peer.receive();
        EXPECT_EQ(second.head.seqNumber, 2u);
        peer.reply(second, {1, 2, 3});
    });
    uint8_t out[2] = {};
    EXPECT_TRUE(appRequestData(1000, 157, out, sizeof out).isEmpty());
    EXPECT_EQ(out[1], 2);
}

TEST_F(LinkTest, SendersOfSeveralThreadsNeverMixTheirMessages)
{
    start(nullptr);
    constexpr int kThreads = 4, kEach = 100;
    std::vector<std::thread> senders;
    for (int t = 0; t < kThreads; ++t) {
        senders.emplace_back([t] {
            const Body body(20000, uint8_t(t));
            for (int i = 0; i < kEach; ++i)
                appSend(1, uint16_t(t), body.data(), uint32_t(body.size()));
        });
    }
    std::vector<int> numbers;
    for (int i = 0; i < kThreads * kEach; ++i) {
        const auto message = peer.receive();
        ASSERT_EQ(message.body, Body(20000, uint8_t(message.head.subType)));
        numbers.push_back(int(message.head.seqNumber));
    }
    for (auto &sender : senders)
        sender.join();
    std::sort(numbers.begin(), numbers.end());
    EXPECT_TRUE(std::adjacent_find(numbers.begin(), numbers.end()) == numbers.end());
}

TEST_F(LinkTest, ARequestDoesNotStopReadingWhileAppIsBusySending)
{
    start(receiver());
    constexpr int kFlood = 200;
    const Body large(100000, 1);
    auto app = std::async(std::launch::async, [&] {
        // App reads nothing before it has got rid of all this, and the request does not fit the
        // socket either: whoever stops reading first stops both for ever.
        for (int i = 0; i < kFlood; ++i)
            peer.send(100, 1, large, uint32_t(1000 + i));
        peer.reply(peer.receive(), {3});
    });
    const Body question(4 << 20, 2);
    uint8_t out = 0;
    appRequest(600, 10, &out, 1, question.data(), uint32_t(question.size()));
    EXPECT_EQ(out, 3);
    EXPECT_EQ(host.waitPosted(kFlood).size(), size_t(kFlood));
}

TEST_F(LinkTest, EveryMessageBesideManyRequestsArrivesOnceAndInOrder)
{
    start(receiver());
    constexpr int kRequests = 300;
    std::atomic<uint32_t> noise{0};
    auto app = std::async(std::launch::async, [&] {
        std::mt19937 random(1);
        for (int i = 0; i < kRequests; ++i) {
            const auto request = peer.receive();
            for (unsigned n = random() % 4; n > 0; --n)
                peer.send(100, 1, {}, 100000 + noise++);
            peer.reply(request, {uint8_t(i)});
            for (unsigned n = random() % 4; n > 0; --n)
                peer.send(100, 1, {}, 100000 + noise++);
        }
    });
    for (int i = 0; i < kRequests; ++i) {
        uint8_t out = 0;
        appRequest(1000, 104, &out, 1, nullptr, 0);
        ASSERT_EQ(out, uint8_t(i));
    }
    app.get();
    const auto posted = host.waitPosted(noise);
    ASSERT_EQ(posted.size(), noise);
    for (uint32_t i = 0; i < noise; ++i)
        ASSERT_EQ(posted[i].sequence, 100000 + i);
}

} // namespace
