#include "ui/dialogs/windowblocker.h"

#include "ui/dialogs/busysign.h"
#include "ui/text_ids.h"
#include "widgets/zrdesktop.h"

#include <zrtranslation>

namespace
{

constexpr int BlockerWidth = 100;
constexpr int BlockerHeight = 50;

} // namespace

WindowBlocker::Blocker *WindowBlocker::Blocker::innermost_ = nullptr;

WindowBlocker::WindowBlocker(const ZrString &reason) : blocker_(new Blocker(reason))
{
    blocker_->setVisible(true);
}

WindowBlocker::~WindowBlocker()
{
    if (!blocker_)
        return;
    blocker_->setAttribute(ZrWidget::DeleteOnClose, false);
    blocker_->close();
    delete blocker_.get();
}

WindowBlocker::Blocker::Blocker(const ZrString &reason) : reason_(reason), outer_(innermost_)
{
    innermost_ = this;
    setAttribute(Translucent);
    setFixedSize(BlockerWidth, BlockerHeight);
    centreOnScreen(ZrSize(BlockerWidth, BlockerHeight));
    ZrDesktop::pushModal(this);
    slowTimer_.setSingleShot(true);
    connect(&slowTimer_, &slowTimer_.timeout, this, zrSlot<&Blocker::slow>);
    slowTimer_.start(SlowAfterMs);
}

WindowBlocker::Blocker::~Blocker()
{
    ZrDesktop::popModal(this);
    innermost_ = outer_;
    if (!outer_)
        hideBusySign();
}

// Only when events are handled during the operation; a request that blocks the thread shows the
// sign by itself.
void WindowBlocker::Blocker::slow()
{
    showBusySign(reason_.isEmpty() ? tr(Text::PleaseWait) : reason_);
}

void WindowBlocker::Blocker::paintEvent(ZrPaintEvent *) {}

void WindowBlocker::Blocker::mousePressEvent(ZrMouseEvent *event)
{
    event->ignore();
}

void WindowBlocker::Blocker::wheelEvent(ZrWheelEvent *event)
{
    event->ignore();
}

void WindowBlocker::Blocker::keyPressEvent(ZrKeyEvent *event)
{
    event->ignore();
}
