#include "live/mainviewvideo.h"

#include "link/startup.h"
#include "live/recordflagbox.h"
#include "live/zrvideoscreen.h"
#include "ui/scale.h"
#include "ui/text_ids.h"

#include <algorithm>
#include <zrfontmetrics>
#include <zrinifile>
#include <zrpainter>
#include <zrtranslation>

namespace
{

constexpr float NameFontUnits = 15;
constexpr float StateFontUnits = 26;
constexpr float SmallestStateFontUnits = 16;
constexpr int StatePaddingX = 16; // what the text's size grows by
constexpr int StatePaddingY = 10;
constexpr float FlagUnits = 20; // one icon's side
constexpr float FlagTopUnits = 6;
constexpr float NameMarginXUnits = 10; // from the edge of the cell, for names that go to a corner
constexpr float NameMarginYUnits = 7;
constexpr int RingReach = 2; // a border's change touches that much on either side

// The colour of each border style, read once by the first cell.
const ZrColor &borderColor(int style)
{
    static const ZrList<ZrColor> colors = [] {
        static const char *const keys[] = {"MainViewVideo/Border/Unused",
                                           "MainViewVideo/Border/NoIpcAdded/NotSelected",
                                           "MainViewVideo/Border/NoIpcAdded/Selected",
                                           "MainViewVideo/Border/Normal/NotSelected",
                                           "MainViewVideo/Border/Normal/Selected",
                                           "MainViewVideo/Border/Enlarged"};
        const ZrIniFile file(resolveResourcePath(ZrString("style/mainview.ini")));
        ZrList<ZrColor> read;
        for (const char *key : keys)
            read.append(file.colorValue(ZrString(key)));
        return read;
    }();
    return colors.at(style);
}

ZrRegion ring(const ZrRect &outer, int width)
{
    ZrRegion region(outer);
    const ZrRect inner = outer.adjusted(width, width, -width, -width);
    if (!inner.isEmpty())
        region -= inner;
    return region;
}

// The text for each reason why an online channel shows no good picture; 0 keeps the present one.
constexpr int VideoStatusTexts[] = {0,
                                    0,
                                    Text::LowBattery,
                                    Text::LowBandwidth,
                                    Text::StreamUnsupported,
                                    Text::NoPermissionForChannel,
                                    Text::NoPermissionForChannel,
                                    Text::StreamUnsupported,
                                    Text::DecodeFailed,
                                    Text::ResolutionUnsupported,
                                    Text::StreamLost};

} // namespace

MainViewVideo::MainViewVideo(ZrVideoScreen *screen)
    : Video(screen),
      screen_(screen),
      nameLabel_(new VideoLabel(this, screen)),
      stateLabel_(new VideoLabel(this, screen)),
      flagBox_(new RecordFlagBox(screen))
{
    nameLabel_->setFont(ZrFont(fontUnits(NameFontUnits)), 0);
    nameLabel_->setAlignment(Zr::AlignLeft | Zr::AlignVCenter);
    stateLabel_->setAlignment(Zr::AlignCenter | Zr::TextWordWrap);
    flagBox_->setGeometry(ZrRect(0, 0, 3 * fontUnits(FlagUnits), 2 * fontUnits(FlagUnits)));
}

MainViewVideo::~MainViewVideo()
{
    if (channel_)
        channel_->removeListener(this);
}

void MainViewVideo::setChannel(ZrChannel *channel)
{
    if (channel == channel_)
        return;
    if (channel_)
        channel_->removeListener(this);
    channel_ = channel;
    if (channel_)
        channel_->addListener(this);
    updateBorder();
    refreshNameLabel();
    refreshFlags();
    refreshStateLabel();
}

void MainViewVideo::setInUse(bool inUse)
{
    inUse_ = inUse;
    updateBorder();
    refreshStateLabel();
}

void MainViewVideo::setSelected(bool selected)
{
    selected_ = selected;
    if (!selected)
        enlarged_ = false;
    updateBorder();
}

void MainViewVideo::setEnlarged(bool enlarged)
{
    enlarged_ = enlarged;
    updateBorder();
}

int MainViewVideo::indexInScreen() const
{
    return screen_->indexOf(this);
}

// --- border ---

int MainViewVideo::borderWidth() const
{
    return borderStyle_ == NoCameraSelected || borderStyle_ == NormalSelected ? 2 : 1;
}

ZrRegion MainViewVideo::ringAround() const
{
    const ZrRect outer = geometry().adjusted(-RingReach, -RingReach, RingReach, RingReach);
    return ring(outer, 2 * RingReach);
}

void MainViewVideo::updateBorder()
{
    BorderStyle style = Unused;
    if (inUse_ && !channel_)
        style = selected_ ? NoCameraSelected : NoCamera;
    else if (inUse_)
        style = !selected_ ? Normal : enlarged_ ? Enlarged : NormalSelected;
    if (style == borderStyle_)
        return;
    borderStyle_ = style;
    if (!isVisible())
        return;
    screen_->update(ringAround());
    overlaysChanged();
}

ZrRegion MainViewVideo::paintedRegion() const
{
    ZrRegion painted = ring(geometry(), borderWidth());
    for (const ZrWidget *overlay :
         {static_cast<const ZrWidget *>(nameLabel_), static_cast<const ZrWidget *>(stateLabel_),
          static_cast<const ZrWidget *>(flagBox_)}) {
        if (!overlay->isHidden())
            painted += overlay->geometry();
    }
    return painted;
}

void MainViewVideo::paintEvent(const ZrRegion &region)
{
    const ZrRegion border = ring(geometry(), borderWidth());
    if (!region.intersects(border))
        return;
    ZrPainter painter(screen_);
    const int inset = borderWidth() / 2;
    painter.setPen(ZrPen(borderColor(borderStyle_), borderWidth()));
    painter.drawRect(geometry().adjusted(inset, inset, -inset, -inset));
}

// --- overlays ---

void MainViewVideo::overlaysChanged()
{
    screen_->overlaysChanged();
}

// Overlays never leave their cell.
void MainViewVideo::moveInside(ZrWidget &overlay, int x, int y) const
{
    const int left = std::max(std::min(x, geometry().width() - overlay.width()), 0);
    const int top = std::max(std::min(y, geometry().height() - overlay.height()), 0);
    overlay.move(ZrPoint(geometry().left() + left, geometry().top() + top));
}

void MainViewVideo::refreshNameLabel()
{
    if (channel_) {
        nameLabel_->setText(channel_->displayNameWithSub());
        placeNameLabel();
    }
    const bool shown =
        channel_ && canBeShown() &&
        (channel_->isIp() ? channel_->osdPosition() != ZrChannel::NoName : channel_->showName());
    nameLabel_->setWanted(shown && inUse_);
    overlaysChanged();
}

void MainViewVideo::placeNameLabel()
{
    nameLabel_->fitToText();
    if (!channel_->isIp()) {
        const ZrRect &main = screen_->mainRect();
        moveInside(*nameLabel_, channel_->osdPos().x() * geometry().width() / main.width(),
                   channel_->osdPos().y() * geometry().height() / main.height());
        return;
    }
    const int corner = channel_->osdPosition();
    const bool right = corner == ZrChannel::UpperRight || corner == ZrChannel::LowerRight;
    const bool lower = corner == ZrChannel::LowerLeft || corner == ZrChannel::LowerRight;
    const int marginX = fontUnits(NameMarginXUnits);
    const int marginY = fontUnits(NameMarginYUnits);
    moveInside(*nameLabel_, right ? geometry().width() - nameLabel_->width() - marginX : marginX,
               lower ? geometry().height() - nameLabel_->height() - marginY : marginY);
}

void MainViewVideo::refreshFlags()
{
    flagBox_->setChannel(channel_);
    placeFlags();
    flagBox_->setVisible(isVisible() && inUse_ && !flagBox_->isEmpty());
    overlaysChanged();
}

void MainViewVideo::placeFlags()
{
    moveInside(*flagBox_, geometry().width(), unitsY(FlagTopUnits));
}

// The text that stands in the middle of a cell without a good picture; 0 when none does.
int MainViewVideo::stateText() const
{
    if (!channel_)
        return Text::NoCamera;
    if (!channel_->isOnline()) {
        // Until App has told the first state, no text: it would only flash.
        if (!screen_->showsNoVideoHint() || channel_->connectState() == ZrChannel::Unknown)
            return 0;
        if (!channel_->isIp())
            return Text::NoVideo;
        switch (channel_->connectState()) {
        case ZrChannel::Connecting:
            return Text::Connecting;
        case 3:
            return Text::LoginFailed;
        case 4:
            return Text::OutOfDecoders;
        default:
            return Text::NoVideo;
        }
    }
    const int status = channel_->videoStatus();
    return status >= 0 && status < int(std::size(VideoStatusTexts)) ? VideoStatusTexts[status] : 0;
}

void MainViewVideo::refreshStateLabel()
{
    const int text = inUse_ ? stateText() : 0;
    const bool keepsPresentText = channel_ && channel_->isOnline() && channel_->videoStatus() == 1;
    if (text != 0)
        shownText_ = text;
    if (shownText_ != 0 && (text != 0 || keepsPresentText)) {
        stateLabel_->setText(tr(shownText_));
        placeStateLabel();
    }
    stateLabel_->setWanted(text != 0 || keepsPresentText);
    overlaysChanged();
}

void MainViewVideo::placeStateLabel()
{
    const int widest = geometry().width() - geometry().width() / 10;
    int size = fontUnits(StateFontUnits);
    const int wanted = ZrFontMetrics(stateLabel_->text(), ZrFont(size), 0, 0).sizeHint().width();
    if (wanted > widest && !stateLabel_->text().isEmpty()) {
        const int average = std::max(wanted / stateLabel_->text().size(), 1);
        size =
            std::max(size - ((wanted - widest) / average + 1), fontUnits(SmallestStateFontUnits));
    }
    stateLabel_->setFont(ZrFont(size), 0);
    const ZrSize hint = stateLabel_->sizeHint();
    stateLabel_->resize(ZrSize(std::min(hint.width() + StatePaddingX, geometry().width()),
                               std::min(hint.height() + StatePaddingY, geometry().height())));
    moveInside(*stateLabel_, (geometry().width() - stateLabel_->width()) / 2,
               (geometry().height() - stateLabel_->height()) / 2);
}

// --- events ---

void MainViewVideo::resizeEvent(ZrResizeEvent *)
{
    if (channel_)
        placeNameLabel();
    placeStateLabel();
    placeFlags();
}

void MainViewVideo::hideEvent()
{
    nameLabel_->setOwnerVisible(false);
    stateLabel_->setOwnerVisible(false);
    flagBox_->hide();
}

void MainViewVideo::showEvent()
{
    nameLabel_->setOwnerVisible(true);
    stateLabel_->setOwnerVisible(true);
    flagBox_->setVisible(inUse_ && !flagBox_->isEmpty());
}

void MainViewVideo::customEvent(ZrEvent *event)
{
    switch (event->type()) {
    case ChannelEvent::ConnectState:
    case ChannelEvent::VideoStatus:
        refreshStateLabel();
        break;
    case ChannelEvent::Overlay:
    case ChannelEvent::Name:
        refreshNameLabel();
        break;
    default:
        refreshFlags();
        emit(this, &alarmChanged);
        break;
    }
}
