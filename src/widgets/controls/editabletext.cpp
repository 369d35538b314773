#include "widgets/controls/editabletext.h"

#include "widgets/controls/codepoints.h"

#include <algorithm>

namespace
{

constexpr ZrUcs2 Dot = 0x2022;

} // namespace

bool mayRunRightToLeft(ZrUcs2 unit)
{
    // Hebrew to Arabic Extended, their presentation forms, direction marks, and surrogates of the
    // planes' right-to-left blocks.
    return (unit >= 0x0590 && unit < 0x0900) || (unit >= 0xFB1D && unit < 0xFF00) ||
           (unit >= 0x200E && unit < 0x2010) || (unit >= 0x202A && unit < 0x202F) ||
           (unit >= 0xD800 && unit < 0xE000);
}

bool mayRunRightToLeft(const ZrString &text)
{
    return std::any_of(text.begin(), text.end(),
                       [](ZrUcs2 unit) { return mayRunRightToLeft(unit); });
}

EditableText::~EditableText()
{
    if (secret_)
        zrWipe(shown_);
}

ZrString EditableText::text() const
{
    return ZrString::fromUtf16(units_.data(), size());
}

int EditableText::toShown(int position) const
{
    if (!masked_)
        return position;
    int shown = 0;
    for (int at = 0; at < position; ++shown) {
        const bool wide = at == revealed_;
        const int before = at;
        nextCodePoint(units_.data(), size(), at);
        shown += wide ? at - before - 1 : 0;
    }
    return shown;
}

int EditableText::fromShown(int position) const
{
    if (!masked_)
        return position;
    int at = 0;
    while (at < size() && toShown(at) < position)
        nextCodePoint(units_.data(), size(), at);
    return at;
}

void EditableText::setMasked(bool masked)
{
    if (masked == masked_)
        return;
    masked_ = masked;
    secret_ = secret_ || masked;
    revealed_ = -1;
    refreshShown();
}

bool EditableText::conceal()
{
    if (revealed_ < 0)
        return false;
    changed(toShown(revealed_));
    return true;
}

bool EditableText::setText(const ZrString &text)
{
    return replaceAll(fitting(text.constData(), text.size(), Units()));
}

bool EditableText::refit()
{
    return replaceAll(fitting(units_.data(), size(), Units()));
}

bool EditableText::replaceAll(Units fit)
{
    if (fit == units_)
        return false;
    const auto differs = std::mismatch(units_.begin(), units_.end(), fit.begin(), fit.end()).first;
    const int same = masked_ ? 0 : int(differs - units_.begin());
    units_.swap(fit);
    cursor_ = anchor_ = size();
    changed(same);
    return true;
}

bool EditableText::insert(const ZrString &typed)
{
    const int from = selectionStart();
    Units rest(units_.begin(), units_.begin() + from);
    rest.insert(rest.end(), units_.begin() + selectionEnd(), units_.end());
    const Units fit = fitting(typed.constData(), typed.size(), rest);
    if (fit.empty())
        return false;
    const int shownFrom = toShown(from);
    rest.insert(rest.begin() + from, fit.begin(), fit.end());
    units_.swap(rest);
    cursor_ = anchor_ = from + int(fit.size());
    changed(shownFrom);
    if (masked_ && codePointBefore(units_.data(), cursor_) == from) {
        revealed_ = from;
        refreshShown();
        // A mark would join the dot before it, which cannot be told apart from that dot's own.
        if (ZrFontMetrics(shown_, ZrFont()).clusterStart(shownFrom) != shownFrom)
            changed(changedFrom_);
    }
    return true;
}

bool EditableText::backspace(const ZrFontMetrics &layout)
{
    if (!hasSelection() && cursor_ == 0)
        return false;
    const int to = selectionEnd();
    const int from = hasSelection() ? selectionStart() : snapped(cursor_ - 1, layout);
    const int shownFrom = toShown(from);
    units_.erase(units_.begin() + from, units_.begin() + to);
    cursor_ = anchor_ = from;
    changed(shownFrom);
    return true;
}

bool EditableText::moveTo(int position, const ZrFontMetrics &layout)
{
    return select(position, position, layout);
}

bool EditableText::select(int anchor, int cursor, const ZrFontMetrics &layout)
{
    anchor = snapped(anchor, layout);
    cursor = snapped(cursor, layout);
    const bool moved = anchor != anchor_ || cursor != cursor_;
    anchor_ = anchor;
    cursor_ = cursor;
    return moved;
}

bool EditableText::step(int clusters, const ZrFontMetrics &layout)
{
    if (hasSelection())
        return moveTo(clusters < 0 ? selectionStart() : selectionEnd(), layout);
    int shown = toShown(cursor_);
    for (; clusters < 0 && shown > 0; ++clusters)
        shown = layout.clusterStart(shown - 1);
    for (; clusters > 0 && shown < shown_.size(); --clusters)
        shown += std::max(1, layout.charCombinationNum(shown));
    return moveTo(fromShown(shown), layout);
}

ZrString EditableText::textWith(const ZrString &typed) const
{
    const ZrString now = text();
    return now.left(selectionStart()) + typed + now.mid(selectionEnd());
}

EditableText::Units EditableText::fitting(const ZrUcs2 *text, int size, const Units &kept) const
{
    int characters = 0;
    int bytes = 0;
    for (int at = 0; at < int(kept.size()); ++characters)
        bytes += utf8Length(nextCodePoint(kept.data(), int(kept.size()), at));
    Units fit;
    for (int at = 0; at < size;) {
        const int from = at;
        const std::uint32_t character = nextCodePoint(text, size, at);
        const bool isNewLine = character == '\n' && lines_ == Lines::Many;
        const bool isHalf = character >= 0xD800 && character < 0xE000;
        if (isHalf || (!isNewLine && !allowed.contains(character)))
            continue;
        characters++;
        bytes += utf8Length(character);
        if ((maxLength > 0 && characters > maxLength) || (maxBytes > 0 && bytes > maxBytes))
            break;
        fit.insert(fit.end(), text + from, text + at);
    }
    return fit;
}

void EditableText::changed(int from)
{
    // What was revealed is a dot again; the change begins there if that comes first.
    if (revealed_ >= 0 && revealed_ < size())
        from = std::min(from, toShown(revealed_));
    revealed_ = -1;
    changedFrom_ = from;
    refreshShown();
}

void EditableText::refreshShown()
{
    if (secret_)
        zrWipe(shown_);
    if (!masked_) {
        shown_ = ZrString::fromUtf16(units_.data(), size());
        return;
    }
    shown_.reserve(size() + 1);
    for (int at = 0; at < size();) {
        const int from = at;
        nextCodePoint(units_.data(), size(), at);
        if (from == revealed_)
            shown_.append(units_.data() + from, at - from);
        else
            shown_.append(Dot);
    }
}

int EditableText::snapped(int position, const ZrFontMetrics &layout) const
{
    position = std::clamp(position, 0, size());
    if (position == size())
        return position;
    if (!masked_)
        return layout.clusterStart(position);
    // Not into the middle of a pair.
    return position > 0 && units_[std::size_t(position)] >= 0xDC00 &&
                   units_[std::size_t(position)] < 0xE000
               ? codePointBefore(units_.data(), position + 1)
               : position;
}
