// Who is there to get what App sends. Each subject stores itself here while it lives; a message for
// somebody absent is dropped, since App may answer late. Widget thread only.
#pragma once

#include "link/appmessage.h"

#include <zrevent>

class ZrObject;

// Types of the events that carry App's messages to their subjects. Each owns its message.
enum SubjectEvent {
    LiveViewEvent = 1024,     // all of main type 100
    CameraStatusEvent = 1038, // what the camera model keeps
};

enum class Receiver { CameraModel, MainViewManager, Count };

void setReceiver(Receiver which, ZrObject *object);
// Only if it is still this object.
void clearReceiver(Receiver which, const ZrObject *object);
ZrObject *receiver(Receiver which);

// The message that a subject event carries; null when somebody took it out.
const AppMessage *messageOf(const ZrEvent *event);
