// A text under a cursor: what a field edits, apart from how it looks.
//
// Positions count UTF-16 code units of the text. Steps by cluster need the layout of the shown
// text, which the caller brings. The units live in memory that is wiped whenever it is given back;
// of a masked text no other copy is made, and only dots and the one character that is revealed are
// ever laid out.
#pragma once

#include <zrcharacterset>
#include <zrfontmetrics>
#include <zrwipe>

#include <vector>

class EditableText
{
public:
    enum class Lines { One, Many };
    explicit EditableText(Lines lines = Lines::One) : lines_(lines) {}
    ~EditableText();
    EditableText(const EditableText &) = delete;
    EditableText &operator=(const EditableText &) = delete;

    ZrString text() const;
    int size() const { return int(units_.size()); }
    // As it is laid out.
    const ZrString &shown() const { return shown_; }
    // From position in the text to position in the shown text, and back.
    int toShown(int position) const;
    int fromShown(int position) const;

    bool isMasked() const { return masked_; }
    void setMasked(bool masked);
    // Hides the character that was typed last; false when none was showing.
    bool conceal();
    bool isRevealing() const { return revealed_ >= 0; }

    int maxLength = 0; // characters, 0 for no limit
    int maxBytes = 0;  // of UTF-8, 0 for no limit
    ZrCharacterSet allowed;

    int cursor() const { return cursor_; }
    int anchor() const { return anchor_; }
    bool hasSelection() const { return cursor_ != anchor_; }
    int selectionStart() const { return cursor_ < anchor_ ? cursor_ : anchor_; }
    int selectionEnd() const { return cursor_ < anchor_ ? anchor_ : cursor_; }

    // Each tells whether it changed anything.
    bool setText(const ZrString &text);
    // Cuts the text to limits that were changed.
    bool refit();
    bool insert(const ZrString &typed);
    bool backspace(const ZrFontMetrics &layout);
    bool moveTo(int position, const ZrFontMetrics &layout);
    bool select(int anchor, int cursor, const ZrFontMetrics &layout);
    bool step(int clusters, const ZrFontMetrics &layout);
    // What the text would be with that typed; for a text that is not masked.
    ZrString textWith(const ZrString &typed) const;
    // First unit of the shown text that the last change of the text touched.
    int changedFrom() const { return changedFrom_; }

private:
    using Units = std::vector<ZrUcs2, ZrWipingAllocator<ZrUcs2>>;

    // What the limits leave of a text when `kept` is in the field already.
    Units fitting(const ZrUcs2 *text, int size, const Units &kept) const;
    bool replaceAll(Units fit);
    void changed(int from);
    void refreshShown();
    int snapped(int position, const ZrFontMetrics &layout) const;

    Units units_;
    ZrString shown_;
    Lines lines_;
    int cursor_ = 0;
    int anchor_ = 0;
    int revealed_ = -1; // position of the character that shows
    int changedFrom_ = 0;
    bool masked_ = false;
    bool secret_ = false; // was masked once: what is shown is wiped too
};

// True for units of scripts that run from right to left, and for what may stand for such.
bool mayRunRightToLeft(ZrUcs2 unit);
bool mayRunRightToLeft(const ZrString &text);
