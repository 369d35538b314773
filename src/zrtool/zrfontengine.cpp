#include <zrfontengine>

#include "zrtool/character_class.h"
#include "zrtool/shaped_text.h"

#include "zrtool/glyph_store.h"

using namespace zrtool;

ZrFontEngine::~ZrFontEngine()
{
    if (shaped_)
        shaped_->deref();
}

ZrVector<const GlyphBitmap *> ZrFontEngine::resloveText(const ZrString &text, const ZrFont &font)
{
    if (shaped_)
        shaped_->deref();
    shaped_ = ShapedText::make(text, font);
    font_ = font;
    GlyphStore::instance().trim();
    const std::vector<Cluster> &clusters = shaped_->clusters();
    std::vector<int> order;
    visualOrder(clusters, 0, shaped_->clusterCount(), order);
    ZrVector<const GlyphBitmap *> glyphs;
    glyphs.reserve(int(shaped_->glyphs().size()));
    for (const int i : order) {
        const Cluster *cluster = &clusters[std::size_t(i)];
        glyphs.append(shaped_->glyphs().data() + cluster->firstGlyph,
                      cluster[1].firstGlyph - cluster->firstGlyph);
    }
    return glyphs;
}

bool ZrFontEngine::displayThaiFont(const ZrString &text, int *units, int *glyphs, int *width)
{
    // No cluster of Thai is longer than this; the rest of a long text need not be shaped.
    constexpr int longestCluster = 16;
    int first[3] = {0, 0, 0};
    const bool thai = !text.isEmpty() && isThai(text.at(0));
    if (thai) {
        const ShapedText *shaped = ShapedText::make(text.left(longestCluster), font_);
        const Cluster *cluster = shaped->clusters().data();
        first[0] = cluster[1].start;
        first[1] = cluster[1].firstGlyph;
        first[2] = cluster[0].width;
        shaped->deref();
    }
    int *const results[3] = {units, glyphs, width};
    for (int i = 0; i < 3; i++)
        if (results[i])
            *results[i] = first[i];
    return thai;
}
