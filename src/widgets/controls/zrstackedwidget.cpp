#include <zrstackedwidget>

#include <algorithm>

ZrStackedWidget::ZrStackedWidget(ZrWidget *parent) : ZrFrame(parent)
{
    setFocusFrame(false);
}

ZrStackedWidget::~ZrStackedWidget()
{
    // The pages die in the base, when there is no stack to be told of it.
    for (ZrWidget *page : pages_)
        disconnect(page, this);
}

int ZrStackedWidget::insertWidget(int index, ZrWidget *page)
{
    if (!page || indexOf(page) >= 0)
        return indexOf(page);
    index = std::clamp(index, 0, count());
    page->hide();
    page->setParent(this);
    pages_.insert(index, page);
    connect(page, &page->destroyed, this, zrSlot<&ZrStackedWidget::pageDestroyed>);
    if (current_ < 0)
        setCurrentIndex(index);
    else if (index <= current_)
        ++current_;
    return index;
}

void ZrStackedWidget::removeWidget(ZrWidget *page)
{
    const int index = indexOf(page);
    if (index < 0)
        return;
    disconnect(page, this);
    page->hide();
    forgetPage(index);
}

void ZrStackedWidget::pageDestroyed(ZrObject *page)
{
    for (int i = 0; i < count(); ++i) {
        if (static_cast<ZrObject *>(pages_.at(i)) == page) {
            forgetPage(i);
            return;
        }
    }
}

void ZrStackedWidget::forgetPage(int index)
{
    pages_.removeAt(index);
    if (index > current_)
        return;
    if (index < current_) {
        --current_;
        return;
    }
    current_ = std::min(current_, count() - 1);
    showCurrent();
}

ZrWidget *ZrStackedWidget::widget(int index) const
{
    return index >= 0 && index < count() ? pages_.at(index) : nullptr;
}

int ZrStackedWidget::indexOf(const ZrWidget *page) const
{
    for (int i = 0; i < count(); ++i)
        if (pages_.at(i) == page)
            return i;
    return -1;
}

void ZrStackedWidget::setCurrentIndex(int index)
{
    if (index == current_ || index < 0 || index >= count())
        return;
    ZrWidget *before = currentWidget();
    current_ = index;
    if (before)
        before->hide();
    showCurrent();
}

void ZrStackedWidget::showCurrent()
{
    fitCurrent();
    if (ZrWidget *page = currentWidget())
        page->show();
    emit(this, &currentChanged);
}

void ZrStackedWidget::fitCurrent()
{
    if (ZrWidget *page = currentWidget())
        page->setGeometry(
            rect().adjusted(frameWidth(), frameWidth(), -frameWidth(), -frameWidth()));
}

ZrSize ZrStackedWidget::sizeHint() const
{
    ZrSize largest(0, 0);
    for (const ZrWidget *page : pages_) {
        const ZrSize hint = page->sizeHint();
        largest = ZrSize(std::max(largest.width(), hint.width()),
                         std::max(largest.height(), hint.height()));
    }
    return ZrSize(largest.width() + 2 * frameWidth(), largest.height() + 2 * frameWidth());
}

void ZrStackedWidget::resizeEvent(ZrResizeEvent *)
{
    fitCurrent();
}

void ZrStackedWidget::showEvent(ZrShowEvent *)
{
    fitCurrent();
}
