#include <zrfontmetrics>

#include "zrtool/glyph_store.h"
#include "zrtool/text_layout.h"

#include <algorithm>
#include <climits>

using namespace zrtool;

ZrFontMetrics::ZrFontMetrics(const ZrString &text, const ZrFont &font, int width, int letterSpacing)
    : text_(text), font_(font), letterSpacing_(letterSpacing)
{
    if (width > 0)
        area_ = ZrRect(0, 0, width, 0);
}

ZrFontMetrics::ZrFontMetrics(const ZrFontMetrics &other)
    : text_(other.text_),
      font_(other.font_),
      wrap_(other.wrap_),
      alignment_(other.alignment_),
      letterSpacing_(other.letterSpacing_),
      area_(other.area_),
      layout_(other.layout_)
{
    if (layout_)
        layout_->ref();
}

ZrFontMetrics::~ZrFontMetrics()
{
    forgetLayout();
}

ZrFontMetrics &ZrFontMetrics::operator=(const ZrFontMetrics &other)
{
    if (other.layout_)
        other.layout_->ref();
    forgetLayout();
    text_ = other.text_;
    font_ = other.font_;
    wrap_ = other.wrap_;
    alignment_ = other.alignment_;
    letterSpacing_ = other.letterSpacing_;
    area_ = other.area_;
    layout_ = other.layout_;
    return *this;
}

void ZrFontMetrics::forgetLayout()
{
    if (layout_)
        layout_->deref();
    layout_ = nullptr;
}

const TextLayout &ZrFontMetrics::layout() const
{
    if (!layout_)
        layout_ = TextLayout::find(text_, font_, {area_, alignment_, letterSpacing_, wrap_});
    return *layout_;
}

bool ZrFontMetrics::setFontFile(const ZrString &path, int cacheBytes)
{
    TextLayout::clearCache();
    return GlyphStore::instance().open(path.toUtf8().constData(),
                                       std::size_t(std::max(cacheBytes, 0)));
}

void ZrFontMetrics::clearFontCache()
{
    TextLayout::clearCache();
    GlyphStore::instance().clear();
}

int ZrFontMetrics::fontCacheSize()
{
    return int(std::min<std::size_t>(GlyphStore::instance().bytes(), INT_MAX));
}

int ZrFontMetrics::ascent(const ZrFont &font)
{
    return GlyphStore::instance().ascent(font);
}

int ZrFontMetrics::descent(const ZrFont &font)
{
    return GlyphStore::instance().descent(font);
}

ZrString ZrFontMetrics::elided(const ZrString &text, const ZrFont &font, int width)
{
    const ZrFontMetrics whole(text, font);
    if (whole.sizeHint().width() <= width)
        return text;
    const ZrString ellipsis(ZrUcs2(0x2026));
    const int room = width - ZrFontMetrics(ellipsis, font).sizeHint().width();
    return text.left(whole.lengthForPixel(std::max(room, 0))) + ellipsis;
}

void ZrFontMetrics::setWorpWrap(bool on)
{
    if (wrap_ == on)
        return;
    wrap_ = on;
    forgetLayout();
}

void ZrFontMetrics::setAlignment(int alignment)
{
    if (alignment_ == alignment)
        return;
    alignment_ = alignment;
    forgetLayout();
}

void ZrFontMetrics::setTextMinRect(int left, int top, int width, int height)
{
    area_ = ZrRect(left, top, width, height);
    forgetLayout();
}

ZrList<ZrRect> ZrFontMetrics::lineRects() const
{
    ZrList<ZrRect> rects;
    for (const TextLine &line : layout().lines())
        rects.append(line.rect);
    return rects;
}

ZrSize ZrFontMetrics::sizeHint() const
{
    return layout().size();
}

const ZrVector<ZrPaintInfo> &ZrFontMetrics::paintInfoList() const
{
    return layout().paintInfo();
}

ZrList<int> ZrFontMetrics::characterWidth() const
{
    const std::vector<Cluster> &clusters = layout().shaped().clusters();
    ZrList<int> widths;
    widths.reserve(text_.size());
    for (int i = 0; i < layout().shaped().clusterCount(); i++) {
        const Cluster *cluster = &clusters[std::size_t(i)];
        widths.append(layout().widthOf(i));
        for (int unit = cluster->start + 1; unit < cluster[1].start; unit++)
            widths.append(0);
    }
    return widths;
}

int ZrFontMetrics::lengthForPixel(int width) const
{
    const ShapedText &shaped = layout().shaped();
    long long used = -letterSpacing_;
    int i = 0;
    for (; i < shaped.clusterCount(); i++) {
        used += layout().widthOf(i);
        if (used > width)
            break;
    }
    return shaped.clusters()[std::size_t(i)].start;
}

int ZrFontMetrics::charCombinationNum(int position) const
{
    const ShapedText &shaped = layout().shaped();
    const int i = shaped.clusterAt(position);
    if (position < 0 || i >= shaped.clusterCount())
        return 0;
    return shaped.clusters()[std::size_t(i) + 1].start - shaped.clusters()[std::size_t(i)].start;
}

int ZrFontMetrics::clusterStart(int position) const
{
    const ShapedText &shaped = layout().shaped();
    return shaped.clusters()[std::size_t(shaped.clusterAt(position))].start;
}

ZrPoint ZrFontMetrics::cursorPoint(int position) const
{
    const TextLayout &lines = layout();
    const std::vector<Cluster> &clusters = lines.shaped().clusters();
    const int cluster = lines.shaped().clusterAt(position);
    const TextLine &line = lines.lines()[std::size_t(lines.lineOf(cluster))];
    std::vector<int> order;
    visualOrder(clusters, line.from, line.to, order);
    // Behind the last cluster of a line the cursor stands at that one's trailing edge.
    const bool behind = cluster >= line.to && line.to > line.from;
    const int beside = behind ? line.to - 1 : cluster;
    int x = line.rect.left();
    for (const int i : order) {
        if (i == beside) {
            const bool toLeft = clusters[std::size_t(i)].level % 2;
            return {x + (toLeft != behind ? lines.widthOf(i) : 0), line.rect.top()};
        }
        x += lines.widthOf(i);
    }
    return {x, line.rect.top()};
}

int ZrFontMetrics::positionAt(ZrPoint point) const
{
    const TextLayout &lines = layout();
    const std::vector<Cluster> &clusters = lines.shaped().clusters();
    std::size_t found = 0;
    while (found + 1 < lines.lines().size() && point.y() > lines.lines()[found].rect.bottom())
        found++;
    const TextLine &line = lines.lines()[found];
    std::vector<int> order;
    visualOrder(clusters, line.from, line.to, order);
    int x = line.rect.left();
    for (std::size_t n = 0; n < order.size(); n++) {
        const Cluster *cluster = &clusters[std::size_t(order[n])];
        const int width = lines.widthOf(order[n]);
        if (point.x() < x + width || n + 1 == order.size()) {
            const bool leftHalf = point.x() < x + width / 2 + width % 2;
            const bool before = leftHalf == (cluster->level % 2 == 0) || cluster->lineEnd;
            return before ? cluster->start : cluster[1].start;
        }
        x += width;
    }
    return clusters[std::size_t(line.from)].start;
}
