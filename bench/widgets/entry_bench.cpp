// From a key to the framebuffer: typing into a field, by a real keyboard and by the one on the
// screen.
#include "support/aims.h"
#include "ui/controls/lineedit.h"
#include "ui/keyboard/keyboardlayouts.h"
#include "ui/keyboard/textkeyboard.h"
#include "widget_screen.h"

#include <benchmark/benchmark.h>

#include <chrono>
#include <random>
#include <zrregion>
#include <zrtranslation>

namespace
{

using Clock = std::chrono::steady_clock;

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

double secondsSince(Clock::time_point start)
{
    return std::chrono::duration<double>(Clock::now() - start).count();
}

// Texts that were not laid out before, or not of late.
class Texts
{
public:
    explicit Texts(const char *alphabet) : letters_(alphabet) {}
    ZrString letter() { return letters_.mid(int(random_() % unsigned(letters_.size())), 1); }
    ZrString text(int count)
    {
        ZrString text;
        for (int i = 0; i < count; ++i)
            text += i % 8 == 7 ? ZrString(" ") : letter();
        return text;
    }

private:
    const ZrString letters_;
    std::mt19937 random_{1};
};

CountingEdit *makeField(WidgetScreen &screen, const ZrString &text)
{
    auto *field = new CountingEdit(screen.window()); // a child
    field->setText(text);
    field->setGeometry(FieldPlace);
    field->show();
    field->setFocus(Zr::KeyManagerFocus);
    screen.settle();
    return field;
}

// A letter at the end of a text of so many.
void typeAtEnd(benchmark::State &state, const char *alphabet)
{
    constexpr int LettersToEachText = 8;
    WidgetScreen screen;
    Texts texts(alphabet);
    CountingEdit *field = makeField(screen, ZrString());
    int pixels = 0;
    int typed = 0;
    for (auto _ : state) {
        if (typed++ % LettersToEachText == 0)
            field->setText(texts.text(int(state.range(0)) - LettersToEachText / 2));
        const ZrString letter = texts.letter();
        screen.settle();
        field->takePixels();
        const Clock::time_point start = Clock::now();
        press(field, 0, letter);
        screen.settle();
        state.SetIterationTime(secondsSince(start));
        pixels += field->takePixels();
    }
    state.counters["pixels"] = pixels / double(state.iterations());
}
BENCHMARK_CAPTURE(typeAtEnd, latin, "abcdefghijklmnopqrstuvwxyz")
    ->Arg(25)
    ->Arg(100)
    ->UseManualTime()
    ->Unit(benchmark::kMicrosecond);
// The whole line moves.
BENCHMARK_CAPTURE(typeAtEnd, arabic, "ابتثجحخدرزسشصطعفقكلمنهوي")
    ->Arg(25)
    ->Arg(100)
    ->UseManualTime()
    ->Unit(benchmark::kMicrosecond);

void moveCursor(benchmark::State &state)
{
    WidgetScreen screen;
    CountingEdit *field = makeField(screen, Texts("abcdefgh").text(int(state.range(0))));
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

// A letter of the keyboard on the screen.
void pressOnScreen(benchmark::State &state)
{
    constexpr int MostLetters = 60;
    WidgetScreen screen;
    Texts texts("abcdefghijklmnopqrstuvwxyz");
    CountingEdit *field = makeField(screen, ZrString());
    TextKeyboard *keyboard = openKeyboard(screen, field, ZrTranslation::English);
    const int letters = int(keyboard->rows()[1].size());
    int typed = 0;
    for (auto _ : state) {
        if (typed++ % MostLetters == 0)
            field->setText(texts.text(4));
        screen.settle();
        const Clock::time_point start = Clock::now();
        keyboard->press(1, typed * 7 % letters);
        screen.settle();
        state.SetIterationTime(secondsSince(start));
    }
    keyboard->close();
    screen.settle();
}
BENCHMARK(pressOnScreen)->UseManualTime()->Unit(benchmark::kMicrosecond);

// A letter of a Chinese word, which looks words up and lays the candidates out.
void spellChinese(benchmark::State &state)
{
    constexpr int Chinese = 0;
    WidgetScreen screen;
    CountingEdit *field = makeField(screen, Texts("abcdefgh").text(25));
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
    zrbench::atMost("key press in a line edit / 2 ms", "typeAtEnd/latin/25", "twoMilliseconds",
                    1.0),
    zrbench::atMost("the same in Arabic, 100 letters / 2 ms", "typeAtEnd/arabic/100",
                    "twoMilliseconds", 1.0),
    zrbench::atMost("key press in 4 times the text / in once", "typeAtEnd/latin/100",
                    "typeAtEnd/latin/25", 3.0),
    zrbench::atMost("cursor in 4 times the text / in once", "moveCursor/100", "moveCursor/25", 2.5),
    zrbench::atMost("key of the keyboard on the screen / 2 ms", "pressOnScreen", "twoMilliseconds",
                    1.0),
    zrbench::atMost("letter of a Chinese word / 2 ms", "spellChinese", "twoMilliseconds", 1.0),
};

} // namespace
