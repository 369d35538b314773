// The box that every control is drawn in, from the outside: background, margin, picture, border,
// padding, contents.
#pragma once

#include <zrfont>
#include <zrpainter>
#include <zrstyleoption>

class ZrWidget;

// The box of one widget while it paints, or while its size is computed.
class BoxModel
{
public:
    // `on`: the control is down or checked.
    BoxModel(const ZrWidget &widget, const ZrFrameOption &group, bool on = false);

    const ZrStateChain &chain() const { return chain_; }
    // Draws everything but the contents, and tells where these go. The background fills `rect`.
    ZrRect draw(ZrPainter &painter, const ZrRect &rect) const;
    // The border alone, for what covers the contents' edge.
    void drawBorder(ZrPainter &painter, const ZrRect &rect) const;
    // The sign of focus, also for a control that has it only in effect.
    void drawRing(ZrPainter &painter, const ZrRect &rect) const;
    // Where the contents go, without drawing.
    ZrRect contents(const ZrRect &rect) const;
    // What the box takes beside the contents, both sides together.
    ZrSize surplus() const;

    // Prepares the painter for text in the colour and font of the state; false when there is no
    // colour.
    bool prepareText(ZrPainter &painter) const;
    ZrFont font() const;
    int alignment() const;

private:
    void drawBackground(ZrPainter &painter, const ZrRect &rect) const;
    void drawFocusRing(ZrPainter &painter, const ZrRect &rect) const;
    ZrSides margin() const;
    ZrSides inner() const; // border and padding

    const ZrWidget &widget_;
    const ZrFrameOption &group_;
    ZrStateChain chain_;
};

// The states of a widget, as flags of ZrStateChain.
ZrStateChain zrStateOf(const ZrWidget &widget, bool on = false);
