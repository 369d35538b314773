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

// The link posts through the application while one exists.
void connectLinkEvents();
void disconnectLinkEvents();
