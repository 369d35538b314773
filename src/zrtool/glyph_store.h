// The open font file and the glyphs rendered from it. Widget thread only.
#pragma once

#include <zrfont>
#include <zrfontengine>
#include <zrhash>

#include <cstddef>
#include <cstdint>
#include <memory>

struct hb_font_t;

namespace zrtool
{

// Which glyph, of which size and style, moved by which offsets.
struct GlyphKey {
    std::uint32_t glyph;
    std::uint8_t size;
    std::uint8_t style;
    std::int16_t right; // pixels to the right of the pen
    std::int16_t up;    // pixels above the baseline
    std::int16_t advance;

    bool operator==(const GlyphKey &other) const;
};
std::size_t zrHash(const GlyphKey &key);

// Holds glyphs up to a limit of bytes; beyond it those used least recently go first, but never one
// that is pinned. A pinned glyph outlives even the change of the font file.
class GlyphStore
{
public:
    static GlyphStore &instance();

    // Prints a line and returns false when the file is missing or broken; there are no glyphs then.
    bool open(const char *path, std::size_t limit);
    bool isOpen() const;
    // Drops what is not pinned.
    void clear();
    void trim();
    std::size_t bytes() const { return bytes_; }
    std::size_t limit() const { return limit_; }

    int ascent(ZrFont font) const;
    int descent(ZrFont font) const;

    // The glyph number of a character, 0 when the font has none.
    std::uint32_t glyphOf(std::uint32_t character) const;
    int advanceOf(std::uint32_t glyph, ZrFont font) const;
    // Null when there is no font file or the size is 0. The result is pinned.
    const GlyphBitmap *take(std::uint32_t glyph, ZrFont font);
    const GlyphBitmap *take(const GlyphKey &key);
    void release(const GlyphBitmap *glyph);

    // The font for shaping, scaled to 26.6 pixels of this size; its advances are whole pixels.
    hb_font_t *shapingFont(ZrFont font);

private:
    struct Face;
    struct Entry;

    GlyphStore();
    ~GlyphStore();
    Entry *render(const GlyphKey &key);
    void link(Entry *entry);
    void unlink(Entry *entry);
    void drop(Entry *entry);
    static void freeEntry(Entry *entry);

    std::unique_ptr<Face> face_;
    ZrHash<GlyphKey, Entry *> entries_;
    Entry *newest_ = nullptr;
    Entry *oldest_ = nullptr;
    std::size_t bytes_ = 0;
    std::size_t limit_ = 0;
};

} // namespace zrtool
