// Commands to the live view: whoever wants it to do something posts one, so that a menu's own call
// can finish first. Widget thread.
#pragma once

#include <zrevent>

namespace MainViewCommand
{
enum Command {
    SetLayout = 8, // the mode id
    PageUp = 9,
    PageDown = 10,
};
} // namespace MainViewCommand

// Travels as an event of type ControlRequest.
class CommonCtrlEvent : public CEvent
{
public:
    CommonCtrlEvent(int command, int argument)
        : CEvent(ControlRequest), command_(command), argument_(argument)
    {
    }
    int command() const { return command_; }
    int argument() const { return argument_; }

private:
    int command_;
    int argument_;
};

// Lost when there is no live view.
void postMainViewCommand(int command, int argument = 0);
