// From a key to the framebuffer: typing into a field, by a real keyboard and by the one on the
// screen.
#include "support/aims.h"
#include "ui/controls/lineedit.h"
#include "ui/keyboard/keyboardlayouts.h"
#include "ui/keyboard/textkeyboard.h"
#include "widget_screen.h"

#include <benchmark/benchmark.h>

#include <zrregion>
#include <zrtranslation>

namespace
{

const ZrRect FieldPlace(40, 40, 1840, 54);

// A field that tells what of it was painted.
class CountingEdit : public LineEdit
{
    ZR_OBJECT(CountingEdit, LineEdit)
public:
    explicit CountingEdit(ZrWidget *parent) : LineEdit(parent) {}
    int takePixels() { return std::exchange(pixels_, 0); }

protected:
    void paintEvent(ZrPaintEvent *event) override
    {
        for (const ZrRect &rect : event->region().rects())
            pixels_ += rect.width() * rect.height();
        LineEdit::paintEvent(event);
    }

private:
    int pixels_ = 0;
};

void press(ZrWidget *widget, int key, const ZrString &text = ZrString())
{
    ZrKeyEvent event(ZrEvent::KeyPress, key, text);
    ZrApplication::notify(widget, &event);
}

CountingEdit *makeField(WidgetScreen &screen, const ZrString &letters, int count)
{
    auto *field = new CountingEdit(screen.window()); // a child
    ZrString text;
    for (int i = 0; i < count; ++i)
        text += letters.mid(i % letters.size(), 1);
    field->setText(text);
    field->setGeometry(FieldPlace);
    field->show();
    field->setFocus(Zr::KeyManagerFocus);
    screen.settle();
    return field;
}

// A letter at the end, and away again: each a key press and what it repaints.
void typeAtEnd(benchmark::State &state, const char *alphabet)
{
    WidgetScreen screen;
    const ZrString letters(alphabet);
    CountingEdit *field = makeField(screen, letters, int(state.range(0)));
    field->takePixels();
    bool typed = false;
    for (auto _ : state) {
        typed = !typed;
        press(field, typed ? 0 : int(Zr::Key_Backspace), typed ? letters.left(1) : ZrString());
        screen.settle();
    }
    state.counters["pixels"] = field->takePixels() / double(state.iterations());
}
BENCHMARK_CAPTURE(typeAtEnd, latin, "recording ")->Arg(25)->Arg(100)->Unit(benchmark::kMicrosecond);
// The whole line moves.
BENCHMARK_CAPTURE(typeAtEnd, arabic, "تسجيل ")->Arg(25)->Arg(100)->Unit(benchmark::kMicrosecond);

void moveCursor(benchmark::State &state)
{
    WidgetScreen screen;
    CountingEdit *field = makeField(screen, ZrString("recording "), int(state.range(0)));
    field->takePixels();
    bool left = false;
    for (auto _ : state) {
        left = !left;
        press(field, left ? Zr::Key_Left : Zr::Key_Right);
        screen.settle();
    }
    state.counters["pixels"] = field->takePixels() / double(state.iterations());
}
BENCHMARK(moveCursor)->Arg(25)->Arg(100)->Unit(benchmark::kMicrosecond);

TextKeyboard *openKeyboard(WidgetScreen &screen, ZrWidget *field, int language)
{
    auto *keyboard = new TextKeyboard(field, TextKeyboard::Open); // deletes itself
    keyboard->setLayout(keyboardLayoutOf(language));
    keyboard->open();
    screen.settle();
    return keyboard;
}

// A letter of the keyboard on the screen, and its erase key.
void pressOnScreen(benchmark::State &state)
{
    WidgetScreen screen;
    CountingEdit *field = makeField(screen, ZrString("recording "), 25);
    TextKeyboard *keyboard = openKeyboard(screen, field, ZrTranslation::English);
    const int last = int(keyboard->rows().size()) - 2;
    const int erase = int(keyboard->rows()[std::size_t(last)].size()) - 1;
    bool typed = false;
    for (auto _ : state) {
        typed = !typed;
        keyboard->press(typed ? 1 : last, typed ? 0 : erase);
        screen.settle();
    }
    keyboard->close();
    screen.settle();
}
BENCHMARK(pressOnScreen)->Unit(benchmark::kMicrosecond);

// A letter of a Chinese word, which looks words up and lays the candidates out.
void spellChinese(benchmark::State &state)
{
    constexpr int Chinese = 0;
    WidgetScreen screen;
    CountingEdit *field = makeField(screen, ZrString("recording "), 25);
    TextKeyboard *keyboard = openKeyboard(screen, field, Chinese);
    bool typed = false;
    for (auto _ : state) {
        typed = !typed;
        press(keyboard, typed ? 0 : int(Zr::Key_Backspace), typed ? ZrString("s") : ZrString());
        screen.settle();
    }
    keyboard->close();
    screen.settle();
}
BENCHMARK(spellChinese)->Unit(benchmark::kMicrosecond);

[[maybe_unused]] const bool aims[] = {
    zrbench::atMost("key press in a line edit / 2 ms", "typeAtEnd/latin/25",
                    "twoMilliseconds/manual_time", 1.0),
    zrbench::atMost("the same in Arabic, 100 letters / 2 ms", "typeAtEnd/arabic/100",
                    "twoMilliseconds/manual_time", 1.0),
    zrbench::atMost("key press in 4 times the text / in once", "typeAtEnd/latin/100",
                    "typeAtEnd/latin/25", 2.0),
    zrbench::atMost("cursor in 4 times the text / in once", "moveCursor/100", "moveCursor/25", 2.0),
    zrbench::atMost("key of the keyboard on the screen / 2 ms", "pressOnScreen",
                    "twoMilliseconds/manual_time", 1.0),
    zrbench::atMost("letter of a Chinese word / 2 ms", "spellChinese",
                    "twoMilliseconds/manual_time", 1.0),
};

} // namespace
