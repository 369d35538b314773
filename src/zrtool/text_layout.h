// Lines of a shaped text, aligned in an area, ready to be painted. Widget thread only.
#pragma once

#include "zrtool/shaped_text.h"

#include <zrfontmetrics>
#include <zrrect>
#include <zrsize>

#include <vector>

namespace zrtool
{

struct LayoutOptions {
    ZrRect area;
    int alignment;
    int letterSpacing;
    bool wrap;

    bool operator==(const LayoutOptions &other) const
    {
        return area == other.area && alignment == other.alignment &&
               letterSpacing == other.letterSpacing && wrap == other.wrap;
    }
};

struct TextLine {
    int from; // clusters from..to-1; the end of the line and what of it takes no room belong to it
    int to;
    ZrRect rect;
};

class TextLayout
{
public:
    // From a small cache of the texts laid out last, or new. The result holds one more reference.
    static const TextLayout *find(const ZrString &text, ZrFont font, const LayoutOptions &options);
    static void clearCache();

    void ref() const { references_++; }
    void deref() const
    {
        if (--references_ == 0)
            delete this;
    }

    const ShapedText &shaped() const { return *shaped_; }
    const LayoutOptions &options() const { return options_; }
    const std::vector<TextLine> &lines() const { return lines_; }
    const ZrVector<ZrPaintInfo> &paintInfo() const { return paintInfo_; }
    ZrSize size() const { return size_; }
    // With the spacing behind each of its glyphs.
    int widthOf(int cluster) const;
    // The line that a cursor before this cluster stands in.
    int lineOf(int cluster) const;

private:
    TextLayout(const ShapedText *shaped, const LayoutOptions &options);
    ~TextLayout();
    void breakLines();
    int endOfLine(int from) const;
    int topOfLines(int height) const;
    int leftOfLine(int firstCluster, int width) const;
    void placeLines();
    void addPaintInfo(const TextLine &line);

    const ShapedText *shaped_;
    LayoutOptions options_;
    std::vector<TextLine> lines_;
    std::vector<int> order_; // scratch
    ZrVector<ZrPaintInfo> paintInfo_;
    ZrSize size_;
    mutable int references_ = 1;
};

} // namespace zrtool
