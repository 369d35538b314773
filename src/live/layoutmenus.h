// The menus by which a user picks a split mode. Each button posts the command; the live view obeys.
#pragma once

#include <zrimage>
#include <zrvector>
#include <zrwidget>

// A picture that can be clicked, with a twin for the pointer over it or the focus on it.
class LayoutButton : public ZrWidget
{
    ZR_OBJECT(LayoutButton, ZrWidget)
public:
    // `file` is the picture's name in "images/" without its ending.
    LayoutButton(const ZrString &file, int modeId, ZrWidget *parent);

    ZrSignal clicked;
    int modeId() const { return modeId_; }

protected:
    void paintEvent(ZrPaintEvent *event) override;
    void mousePressEvent(ZrMouseEvent *event) override;
    void mouseReleaseEvent(ZrMouseEvent *event) override;
    void keyPressEvent(ZrKeyEvent *event) override;
    void hoverEnterEvent(ZrHoverEvent *event) override;
    void hoverLeaveEvent(ZrHoverEvent *event) override;
    void focusInEvent(ZrFocusEvent *event) override;
    void focusOutEvent(ZrFocusEvent *event) override;

private:
    ZrImage image_;
    ZrImage hoverImage_;
    int modeId_;
};

// The regular modes that the device has channels for, side by side, and a button for the others.
class ScreanLayoutMenu : public ZrWidget
{
    ZR_OBJECT(ScreanLayoutMenu, ZrWidget)
public:
    explicit ScreanLayoutMenu(ZrWidget *parent = nullptr);

    const ZrVector<LayoutButton *> &buttons() const { return buttons_; }
    ZrSize sizeHint() const override;

private:
    void retranslate();
    void pick(ZrObject *button);
    void showMore();

    ZrVector<LayoutButton *> buttons_; // children
    LayoutButton *more_;
};

// The merged and uneven modes, in a square. One for the process.
class MoreLayoutMenu : public ZrWidget
{
    ZR_OBJECT(MoreLayoutMenu, ZrWidget)
public:
    static MoreLayoutMenu *instance();
    ~MoreLayoutMenu() override;

    const ZrVector<LayoutButton *> &buttons() const { return buttons_; }
    // -1 before anything was picked.
    int lastMode() const { return lastMode_; }
    ZrSize sizeHint() const override;

protected:
    void paintEvent(ZrPaintEvent *event) override;

private:
    MoreLayoutMenu();
    void retranslate();
    void pick(ZrObject *button);

    static MoreLayoutMenu *instance_;
    ZrVector<LayoutButton *> buttons_; // children
    int side_ = 1;                     // buttons along a side of the square
    int lastMode_ = -1;
    ZrColor border_;
    ZrColor background_;
    ZrColor line_;
    int lineWidth_ = 1;
};
