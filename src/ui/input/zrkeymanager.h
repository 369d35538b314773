// The keys of the panel, the remote and a keyboard, from the panel library to the window in front.
#pragma once

#include "ui/input/keynavigation.h"

#include <memory>
#include <zrevent>
#include <zrobject>
#include <zrstring>

// A key by its value, or a typed string.
class DvrKeyEvent : public CEvent
{
public:
    static constexpr int Type = 1029;
    DvrKeyEvent(int value, bool remote) : CEvent(Type), keyValue(value), fromRemote(remote) {}
    explicit DvrKeyEvent(const ZrString &string) : CEvent(Type), text(string) {}

    int keyValue = 0;
    bool fromRemote = false;
    ZrString text;
};

class ZrKeyManager : public ZrObject
{
    ZR_OBJECT(ZrKeyManager, ZrObject)
public:
    explicit ZrKeyManager(ZrObject *parent);
    ~ZrKeyManager() override;
    static ZrKeyManager *instance() { return instance_; }

    // Opens the panel and reads its keys on a thread of its own.
    void startPanel();
    void customEvent(ZrEvent *event) override;
    void processKey(int key);
    KeyNavigation &navigation() { return navigation_; }

private:
    class KeyThread;

    static ZrKeyManager *instance_;
    KeyNavigation navigation_;
    std::unique_ptr<KeyThread> thread_;
};
