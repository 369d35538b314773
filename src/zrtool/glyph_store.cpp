#include "zrtool/glyph_store.h"

#include <ft2build.h>
#include FT_FREETYPE_H
#include FT_ADVANCES_H
#include FT_OUTLINE_H
#include <hb-ft.h>
#include <hb-ot.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <new>

namespace zrtool
{
namespace
{

constexpr int wide = 16; // what blits load at once
// Emboldening widens a glyph by this part of its size.
constexpr int boldness = 24;
// The slope of slanted text, 16.16.
constexpr FT_Fixed slant = 0x3000;
// Proportions of the lines when there is no font file, so that layouts keep their sizes.
constexpr int defaultUnits = 1000, defaultAscent = 1069, defaultDescent = 293;

int scaled(long value, int size, long units)
{
    return int(std::floor(double(value) * size / double(units) + 0.5));
}

int boldWidth(ZrFont font)
{
    return font.flags() & ZrFont::Bold ? std::max(1, font.pointSize() / boldness) : 0;
}

} // namespace

bool GlyphKey::operator==(const GlyphKey &other) const
{
    return glyph == other.glyph && size == other.size && style == other.style &&
           right == other.right && up == other.up && advance == other.advance;
}

std::size_t zrHash(const GlyphKey &key)
{
    const std::uint64_t place = std::uint64_t(std::uint16_t(key.right)) << 32 |
                                std::uint64_t(std::uint16_t(key.up)) << 16 |
                                std::uint16_t(key.advance);
    const std::uint64_t shape = std::uint64_t(key.glyph) << 16 | key.size << 8 | key.style;
    return std::size_t((place * 0x9E3779B97F4A7C15u) ^ (place >> 29) ^ shape);
}

// The file, opened by FreeType, which maps it: only the pages of glyphs in use take memory.
struct GlyphStore::Face {
    FT_Library library = nullptr;
    FT_Face face = nullptr;
    hb_font_t *base = nullptr;
    hb_font_t *sized = nullptr;
    ZrFont sizedFor{0};
    int size = 0;

    ~Face()
    {
        hb_font_destroy(sized);
        hb_font_destroy(base);
        if (face)
            FT_Done_Face(face);
        if (library)
            FT_Done_FreeType(library);
    }
    bool open(const char *path)
    {
        if (FT_Init_FreeType(&library) || FT_New_Face(library, path, 0, &face))
            return false;
        if (!FT_IS_SCALABLE(face) || face->units_per_EM == 0)
            return false;
        hb_face_t *shaping = hb_ft_face_create_referenced(face);
        base = hb_font_create(shaping);
        hb_ot_font_set_funcs(base);
        hb_face_destroy(shaping);
        return true;
    }
    bool setSize(int pixels)
    {
        if (size != pixels && FT_Set_Pixel_Sizes(face, 0, FT_UInt(pixels)))
            return false;
        size = pixels;
        return true;
    }
};

struct GlyphStore::Entry {
    GlyphBitmap bitmap; // first: a pointer to it is a pointer to its entry
    GlyphKey key;
    Entry *newer;
    Entry *older;
    int pins;
    bool held; // by the store; when not, it goes with its last pin
    std::size_t bytes;
};

GlyphStore &GlyphStore::instance()
{
    // Never destroyed: layouts in static objects may let go of glyphs late.
    static GlyphStore *store = new GlyphStore;
    return *store;
}

GlyphStore::GlyphStore() = default;
GlyphStore::~GlyphStore() = default;

bool GlyphStore::open(const char *path, std::size_t limit)
{
    clear();
    for (Entry *entry : entries_)
        entry->held = false;
    entries_.clear();
    newest_ = oldest_ = nullptr;
    bytes_ = 0;
    limit_ = limit;
    face_ = std::make_unique<Face>();
    if (face_->open(path))
        return true;
    face_.reset();
    std::printf("ZrFontMetrics::setFontFile: cannot read the font file %s\n", path);
    return false;
}

bool GlyphStore::isOpen() const
{
    return face_ != nullptr;
}

void GlyphStore::clear()
{
    for (Entry *entry = oldest_; entry;) {
        Entry *next = entry->newer;
        if (entry->pins == 0)
            drop(entry);
        entry = next;
    }
}

void GlyphStore::trim()
{
    for (Entry *entry = oldest_; entry && bytes_ > limit_;) {
        Entry *next = entry->newer;
        if (entry->pins == 0)
            drop(entry);
        entry = next;
    }
}

void GlyphStore::drop(Entry *entry)
{
    entries_.remove(entry->key);
    unlink(entry);
    bytes_ -= entry->bytes;
    freeEntry(entry);
}

void GlyphStore::freeEntry(Entry *entry)
{
    std::free(static_cast<void *>(entry));
}

void GlyphStore::link(Entry *entry)
{
    entry->older = newest_;
    entry->newer = nullptr;
    (newest_ ? newest_->newer : oldest_) = entry;
    newest_ = entry;
}

void GlyphStore::unlink(Entry *entry)
{
    (entry->older ? entry->older->newer : oldest_) = entry->newer;
    (entry->newer ? entry->newer->older : newest_) = entry->older;
}

int GlyphStore::ascent(ZrFont font) const
{
    return face_ ? scaled(face_->face->ascender, font.pointSize(), face_->face->units_per_EM)
                 : scaled(defaultAscent, font.pointSize(), defaultUnits);
}

int GlyphStore::descent(ZrFont font) const
{
    return face_ ? scaled(-face_->face->descender, font.pointSize(), face_->face->units_per_EM)
                 : scaled(defaultDescent, font.pointSize(), defaultUnits);
}

std::uint32_t GlyphStore::glyphOf(std::uint32_t character) const
{
    return face_ ? FT_Get_Char_Index(face_->face, character) : 0;
}

int GlyphStore::advanceOf(std::uint32_t glyph, ZrFont font) const
{
    FT_Fixed units = 0;
    if (!face_ || FT_Get_Advance(face_->face, glyph, FT_LOAD_NO_SCALE, &units) || units == 0)
        return 0;
    return scaled(units, font.pointSize(), face_->face->units_per_EM) + boldWidth(font);
}

const GlyphBitmap *GlyphStore::take(std::uint32_t glyph, ZrFont font)
{
    return take(GlyphKey{glyph, std::uint8_t(font.pointSize()),
                         std::uint8_t(font.flags() & ~ZrFont::UnderLine), 0, 0,
                         std::int16_t(advanceOf(glyph, font))});
}

const GlyphBitmap *GlyphStore::take(const GlyphKey &key)
{
    if (!face_ || key.size == 0)
        return nullptr;
    Entry *entry = std::as_const(entries_).value(key, nullptr);
    if (entry) {
        unlink(entry);
    } else {
        entry = render(key);
        if (!entry)
            return nullptr;
        entries_.insert(key, entry);
        bytes_ += entry->bytes;
    }
    link(entry);
    entry->pins++;
    return &entry->bitmap;
}

void GlyphStore::release(const GlyphBitmap *glyph)
{
    auto *entry = reinterpret_cast<Entry *>(const_cast<GlyphBitmap *>(glyph));
    if (--entry->pins == 0 && !entry->held)
        freeEntry(entry);
}

// A glyph that cannot be rendered is an empty one of its width.
GlyphStore::Entry *GlyphStore::render(const GlyphKey &key)
{
    FT_Face face = face_->face;
    const ZrFont font(FontAttr{key.size, key.style});
    const bool smooth = !(key.style & ZrFont::NotSmoothed);
    const FT_Int32 load = FT_LOAD_NO_BITMAP | (smooth ? FT_LOAD_TARGET_LIGHT : FT_LOAD_TARGET_MONO);
    const bool loaded = face_->setSize(key.size) && !FT_Load_Glyph(face, key.glyph, load);
    FT_GlyphSlot slot = face->glyph;
    if (loaded && slot->format == FT_GLYPH_FORMAT_OUTLINE) {
        if (const int bold = boldWidth(font))
            FT_Outline_EmboldenXY(&slot->outline, bold * 64, 0);
        if (key.style & ZrFont::Italic) {
            const FT_Matrix matrix = {0x10000, slant, 0, 0x10000};
            FT_Outline_Transform(&slot->outline, &matrix);
        }
    }
    const bool rendered =
        loaded && !FT_Render_Glyph(slot, smooth ? FT_RENDER_MODE_NORMAL : FT_RENDER_MODE_MONO);
    const int width = rendered ? int(slot->bitmap.width) : 0;
    const int rows = rendered ? int(slot->bitmap.rows) : 0;
    const int pitch = (width + wide - 1) / wide * wide;

    const std::size_t header = (sizeof(Entry) + wide - 1) / wide * wide;
    const std::size_t bytes = header + std::size_t(pitch) * std::size_t(rows) + wide;
    void *memory = std::aligned_alloc(wide, bytes);
    if (!memory)
        return nullptr;
    std::memset(memory, 0, bytes);
    auto *buffer = static_cast<std::uint8_t *>(memory) + header;
    for (int y = 0; y < rows; y++) {
        const std::uint8_t *from = slot->bitmap.buffer + std::ptrdiff_t(y) * slot->bitmap.pitch;
        std::uint8_t *to = buffer + std::ptrdiff_t(y) * pitch;
        for (int x = 0; x < width; x++)
            to[x] = smooth ? from[x] : (from[x / 8] >> (7 - x % 8) & 1) * 255;
    }
    auto *entry = new (memory) Entry{};
    entry->bitmap = {std::uint16_t(width),
                     std::uint16_t(rows),
                     std::uint16_t(pitch),
                     std::int16_t((rendered ? slot->bitmap_left : 0) + key.right),
                     std::int16_t((rendered ? slot->bitmap_top : 0) + key.up),
                     std::int16_t(descent(font)),
                     key.advance,
                     buffer};
    entry->key = key;
    entry->held = true;
    entry->bytes = bytes;
    return entry;
}

namespace
{

// What the advances of a shaping font are computed from.
struct ShapingSize {
    const GlyphStore *store;
    ZrFont font;
};

hb_position_t wholeAdvance(hb_font_t *, void *size, hb_codepoint_t glyph, void *)
{
    const auto *shaping = static_cast<const ShapingSize *>(size);
    return shaping->store->advanceOf(glyph, shaping->font) * 64;
}

hb_font_funcs_t *wholeAdvances()
{
    static hb_font_funcs_t *functions = [] {
        hb_font_funcs_t *made = hb_font_funcs_create();
        hb_font_funcs_set_glyph_h_advance_func(made, wholeAdvance, nullptr, nullptr);
        hb_font_funcs_make_immutable(made);
        return made;
    }();
    return functions;
}

} // namespace

hb_font_t *GlyphStore::shapingFont(ZrFont font)
{
    if (!face_ || font.pointSize() == 0)
        return nullptr;
    if (!face_->sized || face_->sizedFor != font) {
        hb_font_destroy(face_->sized);
        face_->sized = hb_font_create_sub_font(face_->base);
        face_->sizedFor = font;
        hb_font_set_scale(face_->sized, font.pointSize() * 64, font.pointSize() * 64);
        hb_font_set_funcs(face_->sized, wholeAdvances(), new ShapingSize{this, font},
                          [](void *size) { delete static_cast<ShapingSize *>(size); });
    }
    return face_->sized;
}

} // namespace zrtool
