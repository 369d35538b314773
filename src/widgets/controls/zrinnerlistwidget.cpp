#include <zrinnerlistwidget>

#include <zrguard>
#include <zrpainter>

ZrInnerListWidget::ZrInnerListWidget()
{
    setWindowFlags(Popup);
    setAttribute(DeleteOnClose, false);
    setFocusFrame(false);
}

bool ZrInnerListWidget::close()
{
    const ZrGuard<ZrInnerListWidget> self(this);
    if (!isVisible() || !ZrListWidget::close())
        return false;
    if (self)
        emit(this, &closed);
    return true;
}

// Gone before the slots run: they may open another window.
void ZrInnerListWidget::activate()
{
    const ZrGuard<ZrInnerListWidget> self(this);
    close();
    if (self)
        ZrListWidget::activate();
}

int ZrInnerListWidget::frameInset() const
{
    const int *border = style().comboBox().popupBorderWidth.get(0);
    return border ? *border : 0;
}

ZrListWidget::RowLook ZrInnerListWidget::rowLook(int row) const
{
    const ZrComboBoxOption &group = style().comboBox();
    const bool current = row == currentRow();
    const int state = zrIndex(current ? ZrVisualState::Hover : ZrVisualState::Normal);
    RowLook look;
    look.foreground = item(row).isEnabled()
                          ? group.popupForeground.get(state)
                          : group.foreground.get(zrIndex(ZrVisualState::Disabled));
    look.background = current ? group.popupBackground.get(state) : nullptr;
    look.mark = current ? style().list().mark.get(0) : nullptr;
    return look;
}

void ZrInnerListWidget::paintEvent(ZrPaintEvent *)
{
    const ZrComboBoxOption &group = style().comboBox();
    ZrPainter painter(this);
    if (const ZrColor *color = group.popupBorder.get(0))
        painter.fillRect(rect(), *color);
    const int inset = frameInset();
    if (const ZrColor *color = group.popupBackground.get(zrIndex(ZrVisualState::Normal)))
        painter.fillRect(rect().adjusted(inset, inset, -inset, -inset), *color);
}

bool ZrInnerListWidget::viewportEvent(ZrEvent *event)
{
    // The row under the pointer is the one that Enter would take.
    if (event->type() == ZrEvent::MouseMove) {
        const int row = rowAt(static_cast<ZrMouseEvent *>(event)->position());
        if (row >= 0 && item(row).isEnabled())
            setCurrentRow(row);
        event->accept();
        return true;
    }
    return ZrListWidget::viewportEvent(event);
}
