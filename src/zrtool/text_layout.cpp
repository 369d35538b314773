#include "zrtool/text_layout.h"

#include "zrtool/glyph_store.h"

#include <zrnamespace>

#include <algorithm>
#include <array>
#include <climits>
#include <cstddef>

namespace zrtool
{
namespace
{

// Texts laid out last: sets of a few, the last used first; the hash names the set. One text often
// stands there twice, as it is measured and as it is painted. A longer text is laid out seldom and
// would keep too many glyphs from being dropped.
constexpr std::size_t setCount = 128;
constexpr std::size_t setSize = 4;
constexpr int longestCached = 2048;

struct Slot {
    std::size_t hash = 0;
    const TextLayout *layout = nullptr;
};
using Set = std::array<Slot, setSize>;

std::array<Set, setCount> &cache()
{
    static std::array<Set, setCount> sets;
    return sets;
}

// The slot becomes the first of its set.
void promote(Set &set, std::size_t place)
{
    std::rotate(set.begin(), set.begin() + std::ptrdiff_t(place),
                set.begin() + std::ptrdiff_t(place) + 1);
}

std::size_t hashOf(const ZrString &text, ZrFont font)
{
    return zrHash(text) ^ (std::size_t(font.pointSize()) << 8 | font.flags()) * 0x9E3779B9u;
}

bool isOf(const TextLayout &layout, const ZrString &text, ZrFont font)
{
    return layout.shaped().font() == font && layout.shaped().text() == text;
}

} // namespace

const TextLayout *TextLayout::find(const ZrString &text, ZrFont font, const LayoutOptions &options)
{
    if (text.size() > longestCached) {
        const TextLayout *layout = new TextLayout(ShapedText::make(text, font), options);
        GlyphStore::instance().trim();
        return layout;
    }
    const std::size_t hash = hashOf(text, font);
    Set &set = cache()[hash % setCount];
    const ShapedText *shaped = nullptr; // of the same text, laid out otherwise
    for (std::size_t i = 0; i < setSize && set[i].layout; i++) {
        if (set[i].hash != hash || !isOf(*set[i].layout, text, font))
            continue;
        if (set[i].layout->options() == options) {
            promote(set, i);
            set[0].layout->ref();
            return set[0].layout;
        }
        shaped = &set[i].layout->shaped();
    }
    if (shaped)
        shaped->ref();
    else
        shaped = ShapedText::make(text, font);
    const TextLayout *layout = new TextLayout(shaped, options); // the cache's and the caller's
    layout->ref();
    promote(set, setSize - 1);
    if (set[0].layout)
        set[0].layout->deref();
    set[0] = {hash, layout};
    GlyphStore &store = GlyphStore::instance();
    store.trim();
    if (store.bytes() > store.limit()) {
        // The cached texts pin too much of the glyphs: begin anew with the next one.
        clearCache();
        store.trim();
    }
    return layout;
}

void TextLayout::clearCache()
{
    for (Set &set : cache()) {
        for (Slot &slot : set) {
            if (slot.layout)
                slot.layout->deref();
            slot = {};
        }
    }
}

TextLayout::TextLayout(const ShapedText *shaped, const LayoutOptions &options)
    : shaped_(shaped), options_(options)
{
    breakLines();
    placeLines();
    order_ = {};
}

TextLayout::~TextLayout()
{
    shaped_->deref();
}

int TextLayout::widthOf(int cluster) const
{
    const Cluster *c = &shaped_->clusters()[std::size_t(cluster)];
    return c->width + (c[1].firstGlyph - c->firstGlyph) * options_.letterSpacing;
}

int TextLayout::lineOf(int cluster) const
{
    const auto after =
        std::upper_bound(lines_.begin(), lines_.end(), cluster,
                         [](int at, const TextLine &line) { return at < line.from; });
    return std::max(int(after - lines_.begin()) - 1, 0);
}

// One past the last cluster of the line that begins with this one.
int TextLayout::endOfLine(int from) const
{
    const std::vector<Cluster> &clusters = shaped_->clusters();
    const int count = shaped_->clusterCount();
    const int most = options_.wrap && options_.area.width() > 0 ? options_.area.width() : INT_MAX;
    long long width = 0;
    int possible = from; // the last place where the line may end
    for (int i = from; i < count; i++) {
        const Cluster &cluster = clusters[std::size_t(i)];
        if (cluster.lineEnd)
            return i + 1;
        width += widthOf(i);
        if (width - options_.letterSpacing > most && !cluster.space && i > from)
            return possible > from ? possible : i;
        if (cluster.mayBreakBehind)
            possible = i + 1;
    }
    return count;
}

void TextLayout::breakLines()
{
    const int count = shaped_->clusterCount();
    int from = 0;
    while (from < count) {
        const int to = endOfLine(from);
        lines_.push_back({from, to, ZrRect()});
        from = to;
    }
    const std::vector<Cluster> &clusters = shaped_->clusters();
    if (count == 0 || clusters[std::size_t(count) - 1].lineEnd)
        lines_.push_back({count, count, ZrRect()});
}

int TextLayout::topOfLines(int height) const
{
    const ZrRect &area = options_.area;
    if (area.height() <= 0 || !(options_.alignment & (Zr::AlignBottom | Zr::AlignVCenter)))
        return area.top();
    const int room = area.height() - height;
    return area.top() + (options_.alignment & Zr::AlignBottom ? room : room / 2);
}

int TextLayout::leftOfLine(int firstCluster, int width) const
{
    const ZrRect &area = options_.area;
    const int room = area.width() - width;
    if (area.width() <= 0)
        return area.left();
    if (room < 0) {
        const bool fromRight = firstCluster < shaped_->clusterCount() &&
                               shaped_->clusters()[std::size_t(firstCluster)].baseLevel % 2;
        return area.left() + (fromRight ? room : 0);
    }
    if (options_.alignment & Zr::AlignRight)
        return area.left() + room;
    return area.left() + (options_.alignment & Zr::AlignHCenter ? room / 2 : 0);
}

void TextLayout::placeLines()
{
    const int lineHeight = ZrFontMetrics::lineHeight(shaped_->font());
    const std::vector<Cluster> &clusters = shaped_->clusters();
    const int height = lineHeight * int(lines_.size());
    int y = topOfLines(height);
    int widest = 0;
    paintInfo_.reserve(int(lines_.size()));
    for (TextLine &line : lines_) {
        int end = line.to;
        const auto takesNoRoom = [&](const Cluster &cluster) {
            return cluster.lineEnd || (options_.wrap && cluster.space);
        };
        while (end > line.from && takesNoRoom(clusters[std::size_t(end) - 1]))
            end--;
        int width = end > line.from ? -options_.letterSpacing : 0;
        for (int i = line.from; i < end; i++)
            width += widthOf(i);
        line.rect = ZrRect(leftOfLine(line.from, width), y, width, lineHeight);
        addPaintInfo({line.from, end, line.rect});
        widest = std::max(widest, width);
        y += lineHeight;
    }
    size_ = ZrSize(widest, height);
}

void TextLayout::addPaintInfo(const TextLine &line)
{
    const std::vector<Cluster> &clusters = shaped_->clusters();
    const int size = shaped_->font().pointSize();
    ZrPaintInfo info;
    info.x = line.rect.left();
    info.y = line.rect.bottom() + 1 + size / 8 + 1;
    order_.clear();
    visualOrder(clusters, line.from, line.to, order_);
    for (const int i : order_) {
        const Cluster *cluster = &clusters[std::size_t(i)];
        info.glyphs.append(shaped_->glyphs().data() + cluster->firstGlyph,
                           cluster[1].firstGlyph - cluster->firstGlyph);
    }
    paintInfo_.append(info);
}

} // namespace zrtool
