#include "zrtool/shaped_text.h"

#include "zrtool/character_class.h"
#include "zrtool/glyph_store.h"
#include "zrtool/utf8.h"

#include <fribidi.h>
#include <hb.h>

#include <algorithm>
#include <memory>

namespace zrtool
{
namespace
{

constexpr int tabSpaces = 4;
// Longer runs are shaped in pieces of this many units, cut at spaces.
constexpr int longestRun = 8192;

int rounded(hb_position_t position)
{
    return (position + 32) >> 6;
}

bool isControl(std::uint32_t unit)
{
    return unit < 0x20 || unit == 0x7F;
}

struct FreeBuffer {
    void operator()(hb_buffer_t *buffer) const { hb_buffer_destroy(buffer); }
};

} // namespace

// Fills a shaped text, paragraph by paragraph.
class Shaper
{
public:
    explicit Shaper(ShapedText &result)
        : result_(result),
          text_(result.text_.constData()),
          size_(result.text_.size()),
          font_(result.font_),
          store_(GlyphStore::instance())
    {
    }
    void run();

private:
    void addSimple(int from, int to, std::uint8_t level);
    void addParagraph(int from, int to);
    void addRun(int from, int to, std::uint8_t level, hb_script_t script);
    void addShaped(int from, int to, std::uint8_t level, hb_script_t script);
    void addShapedCluster(const hb_glyph_info_t *infos, const hb_glyph_position_t *positions,
                          unsigned first, unsigned count, int start, std::uint8_t level);
    void addLineEnd(int at);
    Cluster &addCluster(int start, std::uint8_t level);
    void addGlyph(const GlyphBitmap *glyph);
    int embedding(int from, int to);

    ShapedText &result_;
    const ZrUcs2 *const text_;
    const int size_;
    const ZrFont font_;
    GlyphStore &store_;
    std::uint8_t baseLevel_ = 0;
    // Of the paragraph: its characters, where each begins, and their levels.
    std::vector<FriBidiChar> characters_;
    std::vector<int> starts_;
    std::vector<FriBidiLevel> levels_;
    std::unique_ptr<hb_buffer_t, FreeBuffer> buffer_;
};

void Shaper::run()
{
    result_.clusters_.reserve(std::size_t(size_) + 1);
    for (int from = 0; from < size_;) {
        int to = from;
        bool simple = true;
        for (; to < size_ && !isLineEnd(text_[to]); to++)
            simple &= isSimple(text_[to]);
        baseLevel_ = 0;
        if (simple || !store_.isOpen())
            addSimple(from, to, 0);
        else
            addParagraph(from, to);
        if (to < size_)
            addLineEnd(to);
        from = to + 1;
    }
    addCluster(size_, 0);
}

Cluster &Shaper::addCluster(int start, std::uint8_t level)
{
    result_.clusters_.push_back(
        {start, int(result_.glyphs_.size()), 0, level, baseLevel_, false, false, false});
    return result_.clusters_.back();
}

void Shaper::addGlyph(const GlyphBitmap *glyph)
{
    if (!glyph)
        return;
    result_.glyphs_.push_back(glyph);
    result_.clusters_.back().width += glyph->advance;
}

void Shaper::addLineEnd(int at)
{
    addCluster(at, baseLevel_).lineEnd = true;
}

// One cluster for each character; a surrogate pair is one character here, too.
void Shaper::addSimple(int from, int to, std::uint8_t level)
{
    for (int i = from; i < to; i++) {
        std::uint32_t character = text_[i];
        Cluster &cluster = addCluster(i, level);
        cluster.space = isBreakingSpace(character);
        if (isHighSurrogate(character) && i + 1 < to && isLowSurrogate(text_[i + 1]))
            character = joinSurrogates(character, text_[++i]);
        if (character == '\t') {
            const std::uint32_t space = store_.glyphOf(' ');
            addGlyph(store_.take({space, std::uint8_t(font_.pointSize()), 0, 0, 0,
                                  std::int16_t(tabSpaces * store_.advanceOf(space, font_))}));
        } else if (!isControl(character)) {
            addGlyph(store_.take(store_.glyphOf(character), font_));
        }
    }
}

// Fills characters_, starts_ and levels_; returns how many characters there are.
int Shaper::embedding(int from, int to)
{
    characters_.clear();
    starts_.clear();
    for (int i = from; i < to; i++) {
        starts_.push_back(i);
        std::uint32_t character = text_[i];
        if (isHighSurrogate(character) && i + 1 < to && isLowSurrogate(text_[i + 1]))
            character = joinSurrogates(character, text_[++i]);
        else if (isHighSurrogate(character) || isLowSurrogate(character))
            character = 0xFFFD;
        characters_.push_back(character);
    }
    starts_.push_back(to);
    const int count = int(characters_.size());
    std::vector<FriBidiCharType> types(characters_.size());
    std::vector<FriBidiBracketType> brackets(characters_.size());
    levels_.assign(characters_.size(), 0);
    fribidi_get_bidi_types(characters_.data(), count, types.data());
    fribidi_get_bracket_types(characters_.data(), count, types.data(), brackets.data());
    FriBidiParType direction = FRIBIDI_PAR_ON; // by the first letter; left to right without one
    if (fribidi_get_par_embedding_levels_ex(types.data(), brackets.data(), count, &direction,
                                            levels_.data()) == 0)
        std::fill(levels_.begin(), levels_.end(), FriBidiLevel(0));
    baseLevel_ = FRIBIDI_IS_RTL(direction) ? 1 : 0;
    return count;
}

// Cuts the paragraph into runs of one level and one script.
void Shaper::addParagraph(int from, int to)
{
    const int count = embedding(from, to);
    hb_unicode_funcs_t *unicode = hb_unicode_funcs_get_default();
    int first = 0;
    hb_script_t script = HB_SCRIPT_COMMON;
    for (int i = 0; i < count; i++) {
        hb_script_t own = hb_unicode_script(unicode, characters_[std::size_t(i)]);
        const bool neutral = own == HB_SCRIPT_COMMON || own == HB_SCRIPT_INHERITED;
        const bool sameLevel = levels_[std::size_t(i)] == levels_[std::size_t(first)];
        const bool sameScript = neutral || script == HB_SCRIPT_COMMON || own == script;
        if (!sameLevel || !sameScript) {
            addRun(first, i, std::uint8_t(levels_[std::size_t(first)]), script);
            first = i;
            script = HB_SCRIPT_COMMON;
        }
        if (!neutral)
            script = own;
    }
    if (count > first)
        addRun(first, count, std::uint8_t(levels_[std::size_t(first)]), script);
}

// Of characters first..end-1: shaped only where it has to be.
void Shaper::addRun(int first, int end, std::uint8_t level, hb_script_t script)
{
    const auto simple = [](FriBidiChar c) { return isSimple(c); };
    const bool allSimple =
        std::all_of(characters_.begin() + first, characters_.begin() + end, simple);
    if (allSimple && level % 2 == 0) {
        addSimple(starts_[std::size_t(first)], starts_[std::size_t(end)], level);
        return;
    }
    while (end - first > longestRun) {
        int cut = first + longestRun;
        while (cut > first + longestRun / 2 && !isBreakingSpace(characters_[std::size_t(cut) - 1]))
            cut--;
        addShaped(starts_[std::size_t(first)], starts_[std::size_t(cut)], level, script);
        first = cut;
    }
    addShaped(starts_[std::size_t(first)], starts_[std::size_t(end)], level, script);
}

void Shaper::addShaped(int from, int to, std::uint8_t level, hb_script_t script)
{
    hb_font_t *font = store_.shapingFont(font_);
    if (!font) { // size 0: nothing is drawn, and the text still has its positions
        addSimple(from, to, level);
        return;
    }
    if (!buffer_)
        buffer_.reset(hb_buffer_create());
    hb_buffer_t *buffer = buffer_.get();
    hb_buffer_clear_contents(buffer);
    // What stands around decides how letters at the ends join.
    constexpr int context = 8;
    const int before = std::min(from, context), after = std::min(size_ - to, context);
    hb_buffer_add_utf16(buffer, text_ + from - before, before + to - from + after, unsigned(before),
                        to - from);
    hb_buffer_set_direction(buffer, level % 2 ? HB_DIRECTION_RTL : HB_DIRECTION_LTR);
    hb_buffer_set_script(buffer, script);
    hb_buffer_set_language(buffer, HB_LANGUAGE_INVALID);
    // Simple text is neither kerned nor ligated, so its letters among marks are not, either.
    const hb_feature_t plain[] = {
        {HB_TAG('k', 'e', 'r', 'n'), 0, HB_FEATURE_GLOBAL_START, HB_FEATURE_GLOBAL_END},
        {HB_TAG('l', 'i', 'g', 'a'), 0, HB_FEATURE_GLOBAL_START, HB_FEATURE_GLOBAL_END}};
    const bool alphabet = script == HB_SCRIPT_LATIN || script == HB_SCRIPT_GREEK ||
                          script == HB_SCRIPT_CYRILLIC || script == HB_SCRIPT_COMMON;
    hb_shape(font, buffer, plain, alphabet ? 2 : 0);

    unsigned count = 0;
    const hb_glyph_info_t *infos = hb_buffer_get_glyph_infos(buffer, &count);
    const hb_glyph_position_t *positions = hb_buffer_get_glyph_positions(buffer, &count);
    const int origin = from - before;
    // The buffer is in visual order, the clusters are wanted in logical order.
    if (level % 2) {
        for (unsigned end = count; end > 0;) {
            unsigned first = end - 1;
            while (first > 0 && infos[first - 1].cluster == infos[first].cluster)
                first--;
            addShapedCluster(infos, positions, first, end - first,
                             origin + int(infos[first].cluster), level);
            end = first;
        }
    } else {
        for (unsigned first = 0; first < count;) {
            unsigned end = first + 1;
            while (end < count && infos[end].cluster == infos[first].cluster)
                end++;
            addShapedCluster(infos, positions, first, end - first,
                             origin + int(infos[first].cluster), level);
            first = end;
        }
    }
}

void Shaper::addShapedCluster(const hb_glyph_info_t *infos, const hb_glyph_position_t *positions,
                              unsigned first, unsigned count, int start, std::uint8_t level)
{
    addCluster(start, level).space = isBreakingSpace(text_[start]);
    for (unsigned i = first; i < first + count; i++) {
        GlyphKey key = {infos[i].codepoint,
                        std::uint8_t(font_.pointSize()),
                        std::uint8_t(font_.flags() & ~ZrFont::UnderLine),
                        std::int16_t(rounded(positions[i].x_offset)),
                        std::int16_t(rounded(positions[i].y_offset)),
                        std::int16_t(rounded(positions[i].x_advance))};
        addGlyph(store_.take(key));
    }
}

const ShapedText *ShapedText::make(const ZrString &text, ZrFont font)
{
    auto *shaped = new ShapedText(text, font); // owned by its references
    Shaper(*shaped).run();
    shaped->markBreaks();
    return shaped;
}

ShapedText::~ShapedText()
{
    GlyphStore &store = GlyphStore::instance();
    for (const GlyphBitmap *glyph : glyphs_)
        store.release(glyph);
}

void ShapedText::markBreaks()
{
    for (int i = 0; i + 1 < clusterCount(); i++) {
        Cluster &cluster = clusters_[std::size_t(i)];
        const Cluster &next = clusters_[std::size_t(i) + 1];
        if (next.space || next.lineEnd || cluster.lineEnd)
            continue; // a line ends behind its spaces
        cluster.mayBreakBehind =
            cluster.space || mayBreakBetween(text_.at(next.start - 1), text_.at(next.start));
    }
}

int ShapedText::clusterAt(int position) const
{
    const auto after =
        std::upper_bound(clusters_.begin(), clusters_.end(), position,
                         [](int at, const Cluster &cluster) { return at < cluster.start; });
    return std::max(int(after - clusters_.begin()) - 1, 0);
}

void visualOrder(const std::vector<Cluster> &clusters, int from, int to, std::vector<int> &order)
{
    // Spaces at the end follow the paragraph.
    int textEnd = to;
    while (textEnd > from && clusters[std::size_t(textEnd) - 1].space)
        textEnd--;
    const auto levelOf = [&](int i) {
        const Cluster &cluster = clusters[std::size_t(i)];
        return i < textEnd ? cluster.level : cluster.baseLevel;
    };
    const std::size_t begin = order.size();
    int highest = 0, lowestOdd = 255;
    for (int i = from; i < to; i++) {
        order.push_back(i);
        highest = std::max<int>(highest, levelOf(i));
        if (levelOf(i) % 2)
            lowestOdd = std::min<int>(lowestOdd, levelOf(i));
    }
    for (int level = highest; level >= lowestOdd; level--) {
        for (int i = from; i < to;) {
            if (levelOf(i) < level) {
                i++;
                continue;
            }
            int end = i;
            while (end < to && levelOf(end) >= level)
                end++;
            std::reverse(order.begin() + std::ptrdiff_t(begin) + (i - from),
                         order.begin() + std::ptrdiff_t(begin) + (end - from));
            i = end;
        }
    }
}

} // namespace zrtool
