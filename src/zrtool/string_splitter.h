// Cuts a text into strings whose bodies are allocated many at a time.
#pragma once

#include <zrstring>
#include <zrstringlist>

struct ZrString::Slab {
    ZrAtomicInt bodies; // of them in use, and one more while the splitter still adds some
    int used;           // bytes from the begin of the slab
};

class ZrStringSplitter
{
public:
    ZrStringSplitter(const ZrString &text, ZrString::SplitBehavior behavior);
    ~ZrStringSplitter() { closeSlab(); }
    ZrStringSplitter(const ZrStringSplitter &) = delete;
    ZrStringSplitter &operator=(const ZrStringSplitter &) = delete;

    void reserve(int parts) { parts_.reserve(parts); }
    // Ends a part; the next begins behind the separator.
    void cut(const ZrUcs2 *at, int separator);
    ZrStringList finish(const ZrUcs2 *end);
    const ZrUcs2 *begin() const { return begin_; }

private:
    ZrString::Data *allocate(int length);
    void closeSlab();

    const ZrUcs2 *begin_;
    const ZrUcs2 *const end_;
    ZrString::SplitBehavior behavior_;
    ZrStringList parts_;
    ZrString::Slab *slab_ = nullptr;
};
