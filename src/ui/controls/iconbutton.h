// A button that is a picture, one for each state.
#pragma once

#include "ui/controls/tipbutton.h"

// Paths relative to the resources; a state without a picture shows the normal one.
struct StatePictures {
    const char *normal = nullptr;
    const char *hover = nullptr; // also with the focus
    const char *disabled = nullptr;
    const char *on = nullptr; // down or checked
};

class IconButton : public TipButton
{
    ZR_OBJECT(IconButton, TipButton)
public:
    static constexpr float SideUnits = 30;

    explicit IconButton(ZrWidget *parent = nullptr);
    IconButton(const StatePictures &pictures, ZrWidget *parent = nullptr);

    void setPictures(const StatePictures &pictures);
    // The picture of the state it is in now.
    const ZrPixmap &shownPicture() const;
    // The caller's own number.
    int action() const { return action_; }
    void setAction(int action) { action_ = action; }

    ZrSize sizeHint() const override;

protected:
    void paintEvent(ZrPaintEvent *event) override;
    void checkStateSet() override { update(); }

private:
    ZrPixmap normal_;
    ZrPixmap hover_;
    ZrPixmap disabled_;
    ZrPixmap on_;
    int action_ = 0;
};
