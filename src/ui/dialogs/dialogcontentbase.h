// The base of every page that a DialogFrame holds.
#pragma once

#include <zrwidget>

class DialogContentBase : public ZrWidget
{
    ZR_OBJECT(DialogContentBase, ZrWidget)
public:
    // Without a ground of its own: the frame's shows.
    explicit DialogContentBase(ZrWidget *parent = nullptr) : ZrWidget(parent)
    {
        setBackgroundColor(ZrColor());
    }

    // Wants the dialog to end with the result; the frame listens.
    ZrSignal finished;
    int finishResult() const { return finishResult_; }

    // The frame's buttons. True lets the dialog end.
    virtual bool okPressed() { return true; }
    virtual bool cancelPressed() { return true; }
    // The page gets its place, or the screen's scale has changed.
    virtual void layoutForScale() {}
    // In pixels.
    virtual ZrSize preferredSize() const { return size(); }

protected:
    void finish(int result)
    {
        finishResult_ = result;
        emit(this, &finished);
    }
    void resizeEvent(ZrResizeEvent *) override { layoutForScale(); }

private:
    int finishResult_ = 0;
};
