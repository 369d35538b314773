#include "live/mainviewlayoutconfigdialog.h"

#include "cameras/cameramodel.h"
#include "gfx/fillring.h"
#include "ui/controls/combobox.h"
#include "ui/controls/iconbutton.h"
#include "ui/dialogs/dialogframe.h"
#include "ui/scale.h"
#include "ui/stylefiles.h"
#include "ui/text_ids.h"

#include <algorithm>
#include <zrlabel>
#include <zrpainter>
#include <zrtranslation>

namespace
{

// Units.
constexpr float PictureWidth = 880;
constexpr float PictureHeight = 480;
constexpr float Margin = 16;
constexpr float CellGap = 4;
constexpr float BoxInset = 8;
constexpr float WidestBox = 220;
constexpr float BoxHeight = 34;
constexpr float PagerHeight = 40;
constexpr float PageLabelWidth = 80;

} // namespace

MainViewLayoutConfigDialog::MainViewLayoutConfigDialog(const ZrVideoScreenLayout &layout,
                                                       const ZrVector<std::uint8_t> &order,
                                                       const ZrList<Choice> &choices)
    : order_(order),
      ground_(commonStyleFile().colorValue(ZrString("Common/Background/Raised"))),
      line_(commonStyleFile().colorValue(ZrString("Common/Border/Normal")))
{
    layout.dimensions(rows_, columns_);
    for (int row = 0; row < rows_; ++row) {
        for (int column = 0; column < columns_; ++column) {
            if (const int span = layout.spanAt(row, column))
                places_.append({row, column, span});
        }
    }
    makeBoxes(choices);
    if (pageCount() > 1)
        makePager();
    showOrder();
}

void MainViewLayoutConfigDialog::makeBoxes(const ZrList<Choice> &choices)
{
    for (int i = 0; i < places_.size(); ++i) {
        auto *box = new ComboBox(this);
        box->addItem(tr(Text::None), ZrVideoScreen::NoChannel);
        for (const Choice &choice : choices)
            box->addItem(choice.name, choice.channel);
        connect(box, &box->currentIndexChanged, this, zrSlot<&MainViewLayoutConfigDialog::chosen>);
        boxes_.append(box);
    }
}

void MainViewLayoutConfigDialog::makePager()
{
    previous_ = new IconButton({"images/page-previous.png", "images/page-previous-hover.png",
                                "images/page-previous-disabled.png"},
                               this);
    next_ = new IconButton(
        {"images/page-next.png", "images/page-next-hover.png", "images/page-next-disabled.png"},
        this);
    pageLabel_ = new ZrLabel(ZrString(), this);
    pageLabel_->setAlignment(Zr::AlignCenter);
    connect(previous_, &previous_->clicked, this,
            zrSlot<&MainViewLayoutConfigDialog::previousPage>);
    connect(next_, &next_->clicked, this, zrSlot<&MainViewLayoutConfigDialog::nextPage>);
}

bool MainViewLayoutConfigDialog::run(ZrVideoScreen &screen)
{
    ZrList<Choice> choices;
    CameraModel *cameras = CameraModel::instance();
    for (int number = 0; cameras && number < cameras->channelCount(); ++number) {
        const ZrChannel *channel = cameras->channel(number);
        if (channel->isValid())
            choices.append({channel->displayName(), std::uint8_t(number)});
    }
    auto *page =
        new MainViewLayoutConfigDialog(screen.userLayout(), screen.channelOrder(), choices);
    DialogFrame frame(page, tr(Text::SplitModes)); // takes the page over
    frame.setAttribute(DeleteOnClose, false);
    if (frame.exec() != ZrDialog::Accepted)
        return false;
    screen.setChannelOrder(page->order());
    return true;
}

ComboBox *MainViewLayoutConfigDialog::boxOf(int cell) const
{
    const int box = cell - firstCell();
    return box >= 0 && box < boxes_.size() && isUsed(box) ? boxes_.at(box) : nullptr;
}

int MainViewLayoutConfigDialog::pageCount() const
{
    return std::max(1, (order_.size() + places_.size() - 1) / places_.size());
}

void MainViewLayoutConfigDialog::setPage(int page)
{
    page_ = std::clamp(page, 0, pageCount() - 1);
    showOrder();
}

void MainViewLayoutConfigDialog::showOrder()
{
    for (int i = 0; i < boxes_.size(); ++i) {
        ComboBox *box = boxes_.at(i);
        box->setVisible(isUsed(i));
        if (!isUsed(i))
            continue;
        const bool was = box->blockSignals(true);
        box->setCurrentIndex(std::max(0, box->findData(order_.at(firstCell() + i))));
        box->blockSignals(was);
    }
    if (!pageLabel_)
        return;
    pageLabel_->setText(ZrString::number(page_ + 1) + ZrString(" / ") +
                        ZrString::number(pageCount()));
    previous_->setEnabled(page_ > 0);
    next_->setEnabled(page_ + 1 < pageCount());
}

void MainViewLayoutConfigDialog::chosen(ZrObject *sender)
{
    const auto box = std::find(boxes_.begin(), boxes_.end(), sender);
    if (box == boxes_.end())
        return;
    const int cell = firstCell() + int(box - boxes_.begin());
    const auto channel = std::uint8_t((*box)->currentData());
    const auto other = std::find(order_.begin(), order_.end(), channel);
    if (channel != ZrVideoScreen::NoChannel && other != order_.end())
        *other = order_.at(cell);
    order_[cell] = channel;
    showOrder();
}

// --- places ---

ZrSize MainViewLayoutConfigDialog::preferredSize() const
{
    const float pager = pageCount() > 1 ? PagerHeight : 0;
    return ZrSize(unitsX(PictureWidth + 2 * Margin), unitsY(PictureHeight + 2 * Margin + pager));
}

ZrRect MainViewLayoutConfigDialog::cellRect(const Place &place) const
{
    const int left = unitsX(Margin);
    const int top = unitsY(Margin);
    const int wide = width() - 2 * left;
    const int high = height() - 2 * top - (pageLabel_ ? unitsY(PagerHeight) : 0);
    const int gap = fontUnits(CellGap);
    const int x = left + wide * place.column / columns_;
    const int y = top + high * place.row / rows_;
    return ZrRect(x, y, left + wide * (place.column + place.span) / columns_ - x - gap,
                  top + high * (place.row + place.span) / rows_ - y - gap);
}

void MainViewLayoutConfigDialog::layoutForScale()
{
    for (int i = 0; i < boxes_.size(); ++i) {
        const ZrRect cell = cellRect(places_.at(i));
        const int wide = std::min(unitsX(WidestBox), cell.width() - 2 * fontUnits(BoxInset));
        const int high = std::min(unitsY(BoxHeight), cell.height());
        boxes_.at(i)->setGeometry(ZrRect(cell.left() + (cell.width() - wide) / 2,
                                         cell.top() + (cell.height() - high) / 2, wide, high));
    }
    if (!pageLabel_)
        return;
    const int side = unitsY(PagerHeight);
    const int label = unitsX(PageLabelWidth);
    const int left = (width() - label) / 2;
    const int top = height() - unitsY(Margin) - side;
    previous_->setGeometry(ZrRect(left - side, top, side, side));
    pageLabel_->setGeometry(ZrRect(left, top, label, side));
    next_->setGeometry(ZrRect(left + label, top, side, side));
}

void MainViewLayoutConfigDialog::paintEvent(ZrPaintEvent *)
{
    ZrPainter painter(this);
    for (const Place &place : places_) {
        painter.fillRect(cellRect(place), ground_);
        fillRing(painter, cellRect(place), line_, 1);
    }
}
