#include <zrdialog>

#include "widgets/zrdesktop.h"

#include <zrapplication>
#include <zrguard>

ZrDialog::ZrDialog(ZrWidget *parent, unsigned flags) : ZrWidget(parent)
{
    setWindowFlags(flags);
    setAttribute(StayOnTop);
}

ZrDialog::~ZrDialog()
{
    ZrDesktop::popModal(this);
}

int ZrDialog::exec()
{
    if (inLoop_)
        return Accepted;
    const ZrGuard<ZrDialog> self(this);
    result_ = Rejected;
    inLoop_ = true;
    keepLooping_ = true;
    ZrDesktop::pushModal(this);
    setVisible(true);
    while (self && keepLooping_)
        ZrApplication::instance()->processEvents();
    if (!self)
        return Rejected;
    inLoop_ = false;
    ZrDesktop::popModal(this);
    setVisible(false);
    if (testAttribute(DeleteOnClose))
        deleteLater();
    return result_;
}

bool ZrDialog::close()
{
    if (!inLoop_)
        return ZrWidget::close();
    ZrCloseEvent event;
    ZrApplication::notify(this, &event);
    if (!event.isAccepted())
        return false;
    keepLooping_ = false;
    return true;
}

void ZrDialog::centreOnScreen(const ZrSize &size)
{
    const ZrRect &desktop = ZrApplication::instance()->desktopRect();
    setGeometry(ZrRect((desktop.width() - size.width()) / 2, (desktop.height() - size.height()) / 2,
                       size.width(), size.height()));
}

void ZrDialog::done(int result)
{
    result_ = result;
    const ZrGuard<ZrDialog> self(this);
    if (!close() || !self)
        return;
    if (result == Accepted)
        emit(this, &accepted);
    else if (result == Rejected)
        emit(this, &rejected);
}

void ZrDialog::keyPressEvent(ZrKeyEvent *event)
{
    if (event->key() == Zr::Key_Escape) {
        event->accept();
        reject();
        return;
    }
    event->ignore();
}
