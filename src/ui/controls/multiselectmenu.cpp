#include "ui/controls/multiselectmenu.h"

#include "ui/controls/checklist.h"
#include "ui/controls/primarybutton.h"
#include "ui/scale.h"
#include "ui/stylefiles.h"
#include "ui/text_ids.h"

#include <algorithm>
#include <zrapplication>
#include <zrcheckbox>
#include <zrpainter>
#include <zrpushbutton>
#include <zrtranslation>

namespace
{

constexpr float InsetUnits = 12;
constexpr float HeadUnits = 36;
constexpr float ButtonUnits = 36;
constexpr float ButtonWidthUnits = 110;
constexpr float NarrowestUnits = 260;
constexpr int MostRows = 10;

} // namespace

MultiSelectMenu::MultiSelectMenu(const ZrStringList &texts, const ZrBitArray &checked)
    : allBox_(new ZrCheckBox(tr(Text::SelectAll), this)), // a child, as the others
      list_(new CheckList(this)),
      okButton_(new ZrPushButton(tr(Text::Ok), this)),
      cancelButton_(new ZrPushButton(tr(Text::Cancel), this)),
      ground_(commonStyleFile().colorValue(ZrString("Common/Background/Panel"))),
      border_(commonStyleFile().colorValue(ZrString("Common/Border/Normal")))
{
    list_->setRows(texts, checked);
    allBox_->setChecked(list_->areAllChecked());
    makePrimary(okButton_);
    connect(allBox_, &allBox_->clicked, this, zrSlot<&MultiSelectMenu::allClicked>);
    connect(list_, &list_->checkedChanged, this, zrSlot<&MultiSelectMenu::rowSwitched>);
    connect(okButton_, &okButton_->clicked, this, zrSlot<&MultiSelectMenu::accept>);
    connect(cancelButton_, &cancelButton_->clicked, this, zrSlot<&MultiSelectMenu::reject>);
}

int MultiSelectMenu::execAt(const ZrPoint &global)
{
    const ZrRect screen = ZrApplication::instance()->desktopRect();
    const ZrSize size = sizeHint();
    const int farX = std::max(screen.left(), screen.right() - size.width() + 1);
    const int farY = std::max(screen.top(), screen.bottom() - size.height() + 1);
    setGeometry(ZrRect(ZrPoint(std::clamp(global.x(), screen.left(), farX),
                               std::clamp(global.y(), screen.top(), farY)),
                       size));
    return exec();
}

const ZrBitArray &MultiSelectMenu::checkedRows() const
{
    return list_->checkedRows();
}

void MultiSelectMenu::allClicked()
{
    list_->setAllChecked(allBox_->isChecked());
}

void MultiSelectMenu::rowSwitched()
{
    allBox_->setChecked(list_->areAllChecked());
}

ZrSize MultiSelectMenu::sizeHint() const
{
    const int rows = std::min(list_->count(), MostRows);
    const ZrSize contents = list_->contentsHint();
    const int listHeight = contents.height() - (list_->count() - rows) * list_->rowHeight();
    const int width = std::max(contents.width(), unitsX(NarrowestUnits));
    return ZrSize(width + 2 * unitsX(InsetUnits),
                  listHeight + unitsY(HeadUnits) + unitsY(ButtonUnits) + 3 * unitsY(InsetUnits));
}

void MultiSelectMenu::resizeEvent(ZrResizeEvent *)
{
    const int x = unitsX(InsetUnits);
    const int y = unitsY(InsetUnits);
    const int inner = width() - 2 * x;
    const int button = std::min(unitsX(ButtonWidthUnits), (inner - x) / 2);
    const int foot = height() - y - unitsY(ButtonUnits);
    allBox_->setGeometry(ZrRect(x, y / 2, inner, unitsY(HeadUnits)));
    list_->setGeometry(
        ZrRect::fromEdges(x, y / 2 + unitsY(HeadUnits), x + inner - 1, foot - y - 1));
    okButton_->setGeometry(ZrRect(x + inner - button, foot, button, unitsY(ButtonUnits)));
    cancelButton_->setGeometry(
        ZrRect(x + inner - 2 * button - x, foot, button, unitsY(ButtonUnits)));
}

void MultiSelectMenu::paintEvent(ZrPaintEvent *)
{
    ZrPainter painter(this);
    painter.fillRect(rect(), border_);
    painter.fillRect(rect().adjusted(1, 1, -1, -1), ground_);
}
