// The event queue's side of the App link: messages become events, waits become nested loops.
#pragma once

#include <zrevent>

struct AppMessage;

// A message from App on its way to the receiver; it owns the message, head and body.
class AppMessageEvent : public CEvent
{
public:
    explicit AppMessageEvent(AppMessage *message);
    const AppMessage *message() const;
};

// Who shows that a blocking request takes long, by the main type of what was asked, and that it is
// over. Called on the widget thread, which handles no events meanwhile. Null takes it away.
using SlowRequestSign = void (*)(int mainType, bool waiting);
void setSlowRequestSign(SlowRequestSign sign);

// The link posts through the application while one exists.
void connectLinkEvents();
void disconnectLinkEvents();
