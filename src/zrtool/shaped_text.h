// A text as clusters of glyphs, in logical order. Widget thread only.
#pragma once

#include <zrfont>
#include <zrfontengine>
#include <zrstring>

#include <cstdint>
#include <vector>

namespace zrtool
{

// The code units that are displayed as one: a cursor stands before or behind it.
struct Cluster {
    int start;              // first code unit; the cluster ends where the next one starts
    int firstGlyph;         // its glyphs, left to right; they end where the next cluster's begin
    int width;              // pixels
    std::uint8_t level;     // of embedding; odd ones run from right to left
    std::uint8_t baseLevel; // of the paragraph
    bool space;             // takes no room at the end of a line
    bool lineEnd;           // ends the line; has no glyphs
    bool mayBreakBehind = false; // a line may end behind it
};

// Pins its glyphs. Counted without atomics: layouts live on the widget thread only.
class ShapedText
{
public:
    // Takes time in proportion to the text. The result has one reference.
    static const ShapedText *make(const ZrString &text, ZrFont font);
    void ref() const { references_++; }
    void deref() const
    {
        if (--references_ == 0)
            delete this;
    }

    const ZrString &text() const { return text_; }
    ZrFont font() const { return font_; }
    // The real clusters and one more behind the end of the text.
    const std::vector<Cluster> &clusters() const { return clusters_; }
    int clusterCount() const { return int(clusters_.size()) - 1; }
    const std::vector<const GlyphBitmap *> &glyphs() const { return glyphs_; }
    // The index of the cluster that holds a code unit; of the end for positions behind it.
    int clusterAt(int position) const;

private:
    ShapedText(const ZrString &text, ZrFont font) : text_(text), font_(font) {}
    ~ShapedText();
    void markBreaks();

    friend class Shaper;
    ZrString text_;
    ZrFont font_;
    std::vector<Cluster> clusters_;
    std::vector<const GlyphBitmap *> glyphs_;
    mutable int references_ = 1;
};

// Appends the clusters from..to-1 of one line to `order` as they stand from left to right.
void visualOrder(const std::vector<Cluster> &clusters, int from, int to, std::vector<int> &order);

} // namespace zrtool
