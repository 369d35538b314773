// The menus by which a user picks a split mode. Each button posts the command; the live view obeys.
#pragma once

#include <zrcolor>
#include <zrvector>
#include <zrwidget>

class IconButton;

// The regular modes that the device has channels for, side by side, and a button for the others.
class ScreanLayoutMenu : public ZrWidget
{
    ZR_OBJECT(ScreanLayoutMenu, ZrWidget)
public:
    explicit ScreanLayoutMenu(ZrWidget *parent = nullptr);

    const ZrVector<IconButton *> &buttons() const { return buttons_; }
    ZrSize sizeHint() const override;

private:
    void retranslate();
    void pick(ZrObject *button);
    void showMore();

    ZrVector<IconButton *> buttons_; // children
    IconButton *more_;
};

// The merged and uneven modes, in a square. One for the process.
class MoreLayoutMenu : public ZrWidget
{
    ZR_OBJECT(MoreLayoutMenu, ZrWidget)
public:
    static MoreLayoutMenu *instance();
    ~MoreLayoutMenu() override;

    const ZrVector<IconButton *> &buttons() const { return buttons_; }
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
    ZrVector<IconButton *> buttons_; // children
    int side_ = 1;                   // buttons along a side of the square
    int lastMode_ = -1;
    ZrColor border_;
    ZrColor background_;
    ZrColor line_;
    int lineWidth_ = 1;
};
