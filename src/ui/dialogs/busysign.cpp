#include "ui/dialogs/busysign.h"

#include "core/linkevents.h"
#include "gfx/fillring.h"
#include "link/app_messages.h"
#include "ui/dialogs/windowblocker.h"
#include "ui/scale.h"
#include "ui/stylefiles.h"
#include "ui/text_ids.h"

#include <zrapplication>
#include <zrguard>
#include <zrlabel>
#include <zrpainter>
#include <zrscreen>
#include <zrtranslation>

namespace
{

// Units.
constexpr float Height = 56;
constexpr float Inset = 24;
constexpr float DotSide = 8;
constexpr float DotGap = 8;
constexpr int Dots = 3;

class BusySign : public ZrWidget
{
    ZR_OBJECT(BusySign, ZrWidget)
public:
    BusySign()
        : line_(commonStyleFile().colorValue(ZrString("Common/Accent/Color"))),
          label_(new ZrLabel(this))
    {
        setAttribute(StayOnTop);
        setAttribute(MouseTransparent);
        setBackgroundColor(commonStyleFile().colorValue(ZrString("Common/Background/Raised")));
        label_->setAlignment(Zr::AlignLeft | Zr::AlignVCenter);
    }

    void setText(const ZrString &text)
    {
        label_->setText(text);
        const ZrRect &desktop = ZrApplication::instance()->desktopRect();
        const int width = dotsWidth() + label_->sizeHint().width() + 3 * unitsX(Inset);
        const int height = unitsY(Height);
        setGeometry(
            ZrRect((desktop.width() - width) / 2, (desktop.height() - height) / 2, width, height));
        label_->setGeometry(
            ZrRect::fromEdges(dotsWidth() + 2 * unitsX(Inset), 1, width - 2, height - 2));
    }

protected:
    void paintEvent(ZrPaintEvent *) override
    {
        ZrPainter painter(this);
        const int side = fontUnits(DotSide);
        for (int i = 0; i < Dots; ++i)
            painter.fillRect(ZrRect(unitsX(Inset) + i * (side + unitsX(DotGap)),
                                    (height() - side) / 2, side, side),
                             line_);
        fillRing(painter, rect(), line_, 1);
    }

private:
    static int dotsWidth() { return Dots * fontUnits(DotSide) + (Dots - 1) * unitsX(DotGap); }

    ZrColor line_;
    ZrLabel *label_;
};

ZrGuard<BusySign> &sign()
{
    static ZrGuard<BusySign> shown;
    return shown;
}

int textOf(int mainType)
{
    switch (mainType) {
    case AppMain::parameters:
        return Text::ReadingSettings;
    case AppMain::playback:
        return Text::SearchingRecordings;
    default:
        return Text::StillWaiting;
    }
}

void requestIsSlow(int mainType, bool waiting)
{
    if (!waiting)
        return hideBusySign();
    const WindowBlocker::Blocker *blocker = WindowBlocker::Blocker::innermost();
    showBusySign(blocker && !blocker->reason().isEmpty() ? blocker->reason()
                                                         : tr(textOf(mainType)));
}

} // namespace

void showBusySign(const ZrString &text)
{
    if (!ZrScreen::instance())
        return;
    if (!sign())
        sign() = new BusySign;
    sign()->setText(text);
    sign()->show();
    sign()->raise();
    ZrScreen::instance()->flushNow();
}

void hideBusySign()
{
    delete sign().get();
    if (ZrScreen::instance())
        ZrScreen::instance()->flushNow();
}

void watchSlowRequests()
{
    setSlowRequestSign(requestIsSlow);
}

void stopWatchingSlowRequests()
{
    setSlowRequestSign(nullptr);
}
