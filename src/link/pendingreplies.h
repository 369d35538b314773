// What has arrived while the process waits for App: replies to a blocking request, and state
// messages of the start.
#pragma once

#include "link/appmessage.h"
#include "link/silence.h"

#include <atomic>
#include <functional>
#include <zrlist>
#include <zrmap>
#include <zrwaitcondition>

// One thread waits, another enters. The lock here may be held while messages are delivered, so it
// comes before every other lock of the link.
class PendingReplies
{
public:
    enum class Wait { Found, TimedOut, Closed };

    ~PendingReplies();

    // From here until finish, every message is kept for the requester. To be called before the
    // request goes out, so that no reply passes unnoticed.
    void begin();
    // Takes the message if a request is blocking. Otherwise it stays the caller's.
    bool enter(AppMessage *message);
    // Waits for the reply with this number and type, and takes it out. Every message that arrives
    // breaks the silence. A message with the number but another type stays where it is.
    Wait waitFor(uint32_t seqNumber, uint16_t mainType, uint16_t subType, Silence *silence,
                 AppMessagePtr *reply);
    // Hands every other message over in order of arrival, forgets all, and ends what begin began.
    void finish(const std::function<void(AppMessagePtr)> &deliver);

    // A state message of the start: only the sum of its two types is kept.
    void noteState(uint32_t sum);
    // Waits until the sum has been noted, without limit, and removes every copy. False when closed.
    bool waitState(uint32_t sum);
    void clear();

    // Ends every wait, present and future.
    void close();

private:
    bool takeReply(uint32_t seqNumber, uint16_t mainType, uint16_t subType, AppMessagePtr *reply);
    void clearLocked();

    ZrWaitCondition waitLock_;
    std::atomic<bool> blocking_{false};
    bool closed_ = false;
    ZrList<uint32_t> stateList_;             // numbers of replies, or sums of the start
    ZrMap<uint32_t, AppMessage *> replyMap_; // by number; equal keys in order of arrival
    ZrList<AppMessage *> replyList_;         // owns: the same messages, in order of arrival
};
