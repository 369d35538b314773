#include "ui/input/zrkeymanager.h"

#include <panelmap>
#include <zrapplication>
#include <zrthread>
#include <zrwaitcondition>
#include <zrwipe>

ZrKeyManager *ZrKeyManager::instance_ = nullptr;

class ZrKeyManager::KeyThread : public ZrThread
{
public:
    explicit KeyThread(ZrObject *receiver) : receiver_(receiver) {}
    ~KeyThread() override { stop(); }

protected:
    // The panel library has no way to wait for a key, so it is asked.
    static constexpr int PollMs = 30;

    void run() override
    {
        while (!stopRequested()) {
            {
                sleep_.lock();
                if (!stopRequested())
                    sleep_.wait(PollMs);
                sleep_.unlock();
            }
            for (int key = 0; GetAllKeyValue_keytype(&key), key != PanelKeyNone;)
                ZrApplication::postEvent(receiver_, new DvrKeyEvent(key, false));
            KeyString string;
            while (GetAllKeyValue_StringLen(&string), string.length > 0)
                ZrApplication::postEvent(receiver_,
                                         new DvrKeyEvent(ZrString(string.text, string.length)));
            zrWipe(&string, sizeof string); // it may have been a password
        }
    }
    void wake() override
    {
        sleep_.lock();
        sleep_.wakeAll();
        sleep_.unlock();
    }

private:
    ZrObject *receiver_;
    ZrWaitCondition sleep_;
};

ZrKeyManager::ZrKeyManager(ZrObject *parent) : ZrObject(parent)
{
    instance_ = this;
}

ZrKeyManager::~ZrKeyManager()
{
    thread_.reset();
    instance_ = nullptr;
}

void ZrKeyManager::startPanel()
{
    const KeyBoardparam_t wiring = {};
    if (InitVersionAndFrontBoard(&wiring, nullptr) != 0)
        return;
    thread_ = std::make_unique<KeyThread>(this);
    thread_->start();
}

void ZrKeyManager::customEvent(ZrEvent *event)
{
    if (event->type() != DvrKeyEvent::Type)
        return ZrObject::customEvent(event);
    const auto *key = static_cast<DvrKeyEvent *>(event);
    if (!key->text.isEmpty())
        navigation_.text(key->text);
    else
        processKey(key->keyValue);
}

void ZrKeyManager::processKey(int key)
{
    switch (key) {
    case PanelKeyUp:
        return navigation_.arrow(KeyNavigation::Direction::Up);
    case PanelKeyDown:
        return navigation_.arrow(KeyNavigation::Direction::Down);
    case PanelKeyLeft:
        return navigation_.arrow(KeyNavigation::Direction::Left);
    case PanelKeyRight:
        return navigation_.arrow(KeyNavigation::Direction::Right);
    case PanelKeyEnter:
        return navigation_.enter();
    case PanelKeyBack:
        return navigation_.key(Zr::Key_Escape);
    case PanelKeyErase:
        return navigation_.key(Zr::Key_Backspace);
    default:
        if (key >= PanelKeyDigit0 && key < PanelKeyDigit0 + 10)
            navigation_.text(ZrString::number(key - PanelKeyDigit0));
    }
}
