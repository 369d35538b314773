// What the commands of a script do.
#include "workbench/board/pngfile.h"
#include "workbench/workbench.h"

#include <cstdio>
#include <cstdlib>

namespace
{

constexpr std::chrono::seconds kDeadline(30);

std::vector<uint8_t> bytesOf(const std::string &hexadecimal)
{
    std::vector<uint8_t> bytes;
    for (size_t i = 0; i + 1 < hexadecimal.size(); i += 2)
        bytes.push_back(uint8_t(strtoul(hexadecimal.substr(i, 2).c_str(), nullptr, 16)));
    return bytes;
}

int buttonOf(const ScriptCommand &command)
{
    return command.arguments.size() > 2 ? command.number(2) : 1;
}

} // namespace

int Workbench::runScript()
{
    while (next_ < script_.size()) {
        const ScriptCommand &command = script_[next_];
        switch (runCommand(command)) {
        case Step::Done:
            ++next_;
            commandBegan_ = Clock::now();
            continue;
        case Step::Quit:
            return 0;
        case Step::Failed:
            return 1;
        case Step::Waiting:
            break;
        }
        if (command.name == "wait" || Clock::now() - commandBegan_ < kDeadline)
            return -1;
        fprintf(stderr, "%s\n", whatIsMissing(command));
        return 1;
    }
    return -1;
}

const char *Workbench::whatIsMissing(const ScriptCommand &command) const
{
    if (app_->connections() == 0)
        return "The interface did not come up: it never connected to App.";
    if (command.name == "await")
        return "The interface did not come up: it never sent what was waited for.";
    if (command.name == "settle")
        return shownBody_.empty() ? "The interface did not come up: it shows no live view."
                                  : "The interface does not come to rest.";
    return "The script does not go on.";
}

Workbench::Step Workbench::runCommand(const ScriptCommand &command)
{
    if (command.name == "quit")
        return Step::Quit;
    if (command.name == "screenshot") {
        nextFrame();
        return writePng(compositor_.picture(), command.text(0)) ? Step::Done : Step::Failed;
    }
    if (runPointer(command) || runDevice(command) || runPeer(command))
        return Step::Done;
    return runWaiting(command);
}

Workbench::Step Workbench::runWaiting(const ScriptCommand &command)
{
    bool over = false;
    if (command.name == "wait") {
        over = Clock::now() - commandBegan_ >= std::chrono::milliseconds(command.number(0));
    } else if (command.name == "settle") {
        over = isSettled();
    } else { // await
        const int wanted = command.arguments.size() > 2 ? command.number(2) : 1;
        over = app_->waitMessage(uint16_t(command.number(0)), uint16_t(command.number(1)), wanted,
                                 SimApp::Milliseconds(0))
                   .has_value();
    }
    // What follows an answer of the interface shows in its picture a little later.
    if (over)
        quietFrames_ = 0;
    return over ? Step::Done : Step::Waiting;
}

bool Workbench::runPointer(const ScriptCommand &command)
{
    PointerPort &pointer = board_.pointer();
    const int x = command.number(0), y = command.number(1);
    const auto click = [&] {
        pointer.moveTo(x, y, buttonOf(command));
        pointer.moveTo(x, y, 0);
    };
    if (command.name == "move") {
        pointer.moveTo(x, y, buttons_);
    } else if (command.name == "press") {
        pointer.moveTo(x, y, buttons_ = buttonOf(command));
    } else if (command.name == "release") {
        pointer.moveTo(x, y, buttons_ = 0);
    } else if (command.name == "click") {
        click();
    } else if (command.name == "doubleclick") {
        click();
        click();
    } else if (command.name == "wheel") {
        pointer.moveTo(x, y, buttons_, command.number(2));
    } else {
        return false;
    }
    quietFrames_ = 0;
    return true;
}

bool Workbench::runDevice(const ScriptCommand &command)
{
    const int number = command.number(0), value = command.number(1);
    if (command.name != "state" && command.name != "record" && command.name != "motion")
        return false;
    app_->change([&](SimDevice &device) {
        if (number < 0 || number >= device.channelCount())
            return;
        SimChannel &channel = device.channel(number);
        if (command.name == "state")
            channel.state = SimChannel::State(value);
        else if (command.name == "record")
            channel.isRecording = value != 0;
        else
            channel.hasMotion = value != 0;
    });
    quietFrames_ = 0;
    return true;
}

bool Workbench::runPeer(const ScriptCommand &command)
{
    using Action = SimApp::Rule::Action;
    const auto mainType = uint16_t(command.number(0)), subType = uint16_t(command.number(1));
    const auto value = size_t(std::max(0, command.number(2)));
    if (command.name == "send")
        app_->send(mainType, subType, bytesOf(command.text(2)));
    else if (command.name == "silent")
        app_->addRule({mainType, subType, Action::Silent});
    else if (command.name == "late")
        app_->addRule({mainType, subType, Action::Late, value});
    else if (command.name == "resize")
        app_->addRule({mainType, subType, Action::Resized, value});
    else if (command.name == "refuse")
        app_->addRule({mainType, subType, Action::Dropped});
    else if (command.name == "obey")
        app_->clearRules();
    else if (command.name == "drop")
        app_->dropConnection();
    else if (command.name == "panel")
        board_.panel().sendLine(command.text(0) +
                                (command.arguments.size() > 1 ? " " + command.text(1) : ""));
    else
        return false;
    quietFrames_ = 0;
    return true;
}
