#include "ui/dialogs/dialogframe.h"

#include "gfx/fillring.h"
#include "ui/controls/primarybutton.h"
#include "ui/pictures.h"
#include "ui/scale.h"
#include "ui/stylefiles.h"
#include "ui/text_ids.h"

#include <algorithm>
#include <zrguard>
#include <zrpainter>
#include <zrtranslation>

namespace
{

// Units.
constexpr float TitleHeight = 46;
constexpr float TitleFont = 18;
constexpr float TitleInset = 16;
constexpr float ButtonWidth = 116;
constexpr float ButtonHeight = 40;
constexpr float ButtonGap = 12;
constexpr float ButtonInset = 20;
constexpr float CloseSide = 32;
constexpr float CloseIcon = 20;

} // namespace

DialogFrame::DialogFrame(DialogContentBase *content, const ZrString &title, int parts,
                         const ZrSize &contentSize)
    : content_(content), title_(title)
{
    readStyle();
    if (parts & CancelButton)
        cancelButton_ = makeButton(zrSlot<&DialogFrame::reject>);
    if (parts & OkButton) {
        okButton_ = makeButton(zrSlot<&DialogFrame::accept>);
        makePrimary(okButton_);
    }
    if (parts & TitleClose) {
        closeButton_ = makeButton(zrSlot<&DialogFrame::reject>);
        closeButton_->setIcon(picture("images/window-close.png"));
        closeButton_->setIconSize(ZrSize(fontUnits(CloseIcon), fontUnits(CloseIcon)));
        ZrPushButtonOption &look = closeButton_->style().pushButtonOption();
        look.background.set(zrIndex(ZrVisualState::Normal), ZrColor());
        look.padding.set(zrIndex(ZrVisualState::Normal), ZrSides());
    }
    retranslate();
    content_->setParent(this);
    connect(content_, &content_->finished, this, zrSlot<&DialogFrame::contentFinished>);
    if (ZrTranslation *texts = ZrTranslation::instance())
        connect(texts, &texts->languageChanged, this, zrSlot<&DialogFrame::retranslate>);
    const ZrSize page = contentSize.isEmpty() ? content_->preferredSize() : contentSize;
    centreOnScreen(ZrSize(page.width() + 2 * border(),
                          page.height() + 2 * border() + titleHeight() + buttonRowHeight()));
}

int DialogFrame::run(DialogContentBase *content, const ZrString &title, int parts)
{
    DialogFrame frame(content, title, parts);
    frame.setAttribute(DeleteOnClose, false);
    return frame.exec();
}

void DialogFrame::readStyle()
{
    const ZrIniFile &file = styleFile("style/dialog.ini");
    setBackgroundColor(file.colorValue(ZrString("Common/Background")));
    borderColor_ = file.colorValue(ZrString("Common/Border/Color"));
    borderWidth_ = file.intValue(ZrString("Common/Border/Width"));
    style().tableOption().colors.set(Zr::TableAlternateRow,
                                     file.colorValue(ZrString("TableWidget/AlternateBackground")));
    titleColor_ = commonStyleFile().colorValue(ZrString("Common/Foreground/Normal"));
    titleGround_ = commonStyleFile().colorValue(ZrString("Common/Background/Raised"));
}

ZrPushButton *DialogFrame::makeButton(ZrSlotFunction slot)
{
    auto *button = new ZrPushButton(this);
    connect(button, &button->clicked, this, slot);
    return button;
}

void DialogFrame::retranslate()
{
    if (okButton_)
        okButton_->setText(tr(Text::Ok));
    if (cancelButton_)
        cancelButton_->setText(tr(Text::Cancel));
}

void DialogFrame::setTitle(const ZrString &title)
{
    title_ = title;
    update(ZrRect(0, 0, width(), titleHeight() + border()));
}

void DialogFrame::accept()
{
    const ZrGuard<DialogFrame> self(this);
    if (content_->okPressed() && self)
        ZrDialog::accept();
}

void DialogFrame::reject()
{
    const ZrGuard<DialogFrame> self(this);
    if (content_->cancelPressed() && self)
        ZrDialog::reject();
}

void DialogFrame::contentFinished()
{
    done(content_->finishResult());
}

int DialogFrame::titleHeight() const
{
    return title_.isEmpty() && !closeButton_ ? 0 : unitsY(TitleHeight);
}

int DialogFrame::buttonRowHeight() const
{
    return okButton_ || cancelButton_ ? unitsY(ButtonHeight + 2 * ButtonInset) : 0;
}

int DialogFrame::border() const
{
    return std::max(1, unitsY(float(borderWidth_)));
}

ZrRect DialogFrame::contentPlace() const
{
    return ZrRect::fromEdges(border(), border() + titleHeight(), width() - 1 - border(),
                             height() - 1 - border() - buttonRowHeight());
}

void DialogFrame::resizeEvent(ZrResizeEvent *)
{
    content_->setGeometry(contentPlace());
    int right = width() - border() - unitsX(ButtonInset);
    const int top = height() - border() - unitsY(ButtonInset + ButtonHeight);
    for (ZrPushButton *button : {okButton_, cancelButton_}) {
        if (!button)
            continue;
        const int wide = std::max(unitsX(ButtonWidth), button->sizeHint().width());
        button->setGeometry(ZrRect(right - wide, top, wide, unitsY(ButtonHeight)));
        right -= wide + unitsX(ButtonGap);
    }
    if (closeButton_) {
        const int side = fontUnits(CloseSide);
        const int inset = (titleHeight() - side) / 2;
        closeButton_->setGeometry(
            ZrRect(width() - border() - inset - side, border() + inset, side, side));
    }
}

void DialogFrame::paintEvent(ZrPaintEvent *)
{
    ZrPainter painter(this);
    if (content_->backgroundColor().alpha() != 0)
        painter.fillRect(content_->geometry(), content_->backgroundColor());
    if (titleHeight() > 0) {
        const ZrRect bar(border(), border(), width() - 2 * border(), titleHeight());
        painter.fillRect(bar, titleGround_);
        painter.setPen(titleColor_);
        painter.setFont(ZrFont(fontUnits(TitleFont)));
        painter.drawText(ZrRect(bar.left() + unitsX(TitleInset), bar.top(),
                                bar.width() - 2 * unitsX(TitleInset), bar.height()),
                         Zr::AlignLeft | Zr::AlignVCenter, title_);
    }
    fillRing(painter, rect(), borderColor_, border());
}
