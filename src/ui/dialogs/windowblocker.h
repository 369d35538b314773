// Holds the person off while a slow operation runs: for the life of a scope a small window takes
// all keys and mouse events, and once the operation turns out to be slow a sign tells what is
// waited for.
//
//     WindowBlocker blocker(tr(Text::SearchingRecordings));
//     appRequest(...);
//
// Widget thread only.
#pragma once

#include <zrdialog>
#include <zrguard>
#include <zrtimer>

class WindowBlocker
{
public:
    // Without a reason the sign names what was asked of App.
    explicit WindowBlocker(const ZrString &reason = ZrString());
    ~WindowBlocker();
    WindowBlocker(const WindowBlocker &) = delete;
    WindowBlocker &operator=(const WindowBlocker &) = delete;

    class Blocker;

private:
    ZrGuard<Blocker> blocker_;
};

class WindowBlocker::Blocker : public ZrDialog
{
    ZR_OBJECT(Blocker, ZrDialog)
public:
    explicit Blocker(const ZrString &reason);
    ~Blocker() override;

    // The one made last; null when nothing is blocked.
    static Blocker *innermost() { return innermost_; }
    const ZrString &reason() const { return reason_; }

protected:
    void paintEvent(ZrPaintEvent *event) override;
    void mousePressEvent(ZrMouseEvent *event) override;
    void wheelEvent(ZrWheelEvent *event) override;
    void keyPressEvent(ZrKeyEvent *event) override;

private:
    static constexpr int SlowAfterMs = 700;

    void slow();

    static Blocker *innermost_;

    ZrString reason_;
    ZrTimer slowTimer_;
    Blocker *outer_;
};
