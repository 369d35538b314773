#include "ui/keyboard/keyboardlook.h"

#include "ui/pictures.h"
#include "ui/scale.h"
#include "ui/stylefiles.h"
#include "widgets/style/drawpicture.h"

#include <algorithm>
#include <zrfontmetrics>
#include <zrpixmap>

namespace
{

// Units.
constexpr float LetterFont = 20;
constexpr float WordFont = 15;
constexpr float IconSide = 24;
constexpr float CaptionInset = 8;

const char *const StateWords[] = {"Normal", "Hover", "Focus", "On"};

// Signs for what cannot be seen, or says too little by itself: the joiner that parts two letters,
// and the key for all other forms of a kana.
const struct {
    ZrUcs2 text;
    const char *caption;
} Captions[] = {{0x200C, "]["}, {0x309B, "゛゜"}};

// A mark that stands alone is shown on the sign that stands for any letter.
bool isMark(ZrUcs2 unit)
{
    const struct {
        ZrUcs2 first, last;
    } marks[] = {{0x0300, 0x036F}, {0x05B0, 0x05BD}, {0x05C1, 0x05C2}, {0x064B, 0x065F},
                 {0x0670, 0x0670}, {0x0900, 0x0903}, {0x093A, 0x094F}, {0x0E31, 0x0E31},
                 {0x0E34, 0x0E3A}, {0x0E47, 0x0E4E}, {0x0962, 0x0963}};
    return std::any_of(std::begin(marks), std::end(marks), [unit](const auto &range) {
        return unit >= range.first && unit <= range.last && unit != 0x093D;
    });
}

ZrString shownCaption(const KeyboardKey &key)
{
    if (!key.caption.isEmpty())
        return key.caption;
    for (const auto &[text, caption] : Captions)
        if (key.text == ZrString(text))
            return ZrString(caption);
    return !key.text.isEmpty() && isMark(key.text.at(0)) ? ZrString(ZrUcs2(0x25CC)) + key.text
                                                         : key.text;
}

} // namespace

KeyboardRow typingRow(const ZrString &captions)
{
    KeyboardRow row;
    int from = 0;
    while (from < captions.size()) {
        const int space = captions.indexOf(' ', from);
        const int to = space < 0 ? captions.size() : space;
        if (to > from)
            row.push_back(typingKey(captions.mid(from, to - from)));
        from = to + 1;
    }
    return row;
}

// data: style/keyboard.ini Keyboard/Key/{Fore,Back}ground/{Normal,Hover,Focus,On}
KeyboardLook::KeyboardLook()
{
    const ZrIniFile &file = styleFile("style/keyboard.ini");
    const auto color = [&file](const char *key) { return file.colorValue(ZrString(key)); };
    ground_ = color("Keyboard/Background");
    border_ = color("Keyboard/Border/Color");
    borderWidth_ = file.intValue(ZrString("Keyboard/Border/Width"));
    for (int state = Normal; state <= On; ++state) {
        const ZrString word(StateWords[state]);
        foreground_[state] = file.colorValue(ZrString("Keyboard/Key/Foreground/") + word);
        background_[state] = file.colorValue(ZrString("Keyboard/Key/Background/") + word);
    }
    keyBorder_[Hover] = color("Keyboard/Key/Border/Hover");
    keyBorder_[Focus] = keyBorder_[On] = color("Keyboard/Key/Border/Focus");
    keyBorderWidth_ = file.intValue(ZrString("Keyboard/Key/BorderWidth"));
    specialForeground_ = color("Keyboard/SpecialKey/Foreground/Normal");
    specialBackground_ = color("Keyboard/SpecialKey/Background/Normal");
    candidateBackground_ = color("Keyboard/Candidate/Background/Normal");
}

void KeyboardLook::drawGround(ZrPainter &painter, const ZrRect &rect) const
{
    painter.fillRect(rect, border_);
    painter.fillRect(rect.adjusted(borderWidth_, borderWidth_, -borderWidth_, -borderWidth_),
                     ground_);
}

void KeyboardLook::drawKey(ZrPainter &painter, const KeyboardKey &key, State state) const
{
    const bool isPlain = key.action == KeyboardKey::Type && key.caption.isEmpty();
    ZrColor background = background_[state];
    ZrColor foreground = foreground_[state];
    if (state == Normal && key.action == KeyboardKey::Candidate) {
        background = candidateBackground_;
    } else if (state == Normal && !isPlain) {
        background = specialBackground_;
        foreground = specialForeground_;
    }
    if ((key.on || key.action == KeyboardKey::Done) && state == Normal)
        background = background_[On];
    painter.fillRect(key.rect, background);
    // A pressed key is told from the one that the arrows stand on by its whole face.
    if (state == On)
        painter.fillRect(key.rect, keyBorder_[On]);
    if (state == Hover || state == Focus) {
        const int w = keyBorderWidth_;
        painter.fillRect(key.rect, keyBorder_[state]);
        painter.fillRect(key.rect.adjusted(w, w, -w, -w), background);
    }
    if (key.on)
        painter.fillRect(ZrRect(key.rect.left(), key.rect.bottom() - keyBorderWidth_,
                                key.rect.width(), keyBorderWidth_),
                         keyBorder_[Focus]);
    drawCaption(painter, key, state == On ? ground_ : foreground);
}

void KeyboardLook::drawCaption(ZrPainter &painter, const KeyboardKey &key,
                               const ZrColor &color) const
{
    if (key.icon) {
        const int side = std::min(fontUnits(IconSide), key.rect.height());
        drawPictureInMiddle(painter, key.rect, ZrSize(side, side), picture(key.icon));
        return;
    }
    painter.setFont(fontOf(key));
    painter.setPen(color);
    const ZrString caption =
        ZrFontMetrics::elided(shownCaption(key), fontOf(key), key.rect.width() - 2);
    painter.drawText(key.rect, Zr::AlignCenter, caption);
}

ZrFont KeyboardLook::fontOf(const KeyboardKey &key)
{
    const bool isLetter = key.action == KeyboardKey::Type || key.action == KeyboardKey::Candidate;
    return ZrFont(fontUnits(isLetter && key.caption.isEmpty() ? LetterFont : WordFont));
}

int KeyboardLook::captionWidth(const KeyboardKey &key) const
{
    return ZrFontMetrics(shownCaption(key), fontOf(key)).sizeHint().width() +
           2 * unitsX(CaptionInset);
}
