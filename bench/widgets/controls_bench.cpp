// From a key or the pointer to the framebuffer: opening a combo box, and hovering one thing among
// many.
#include "support/aims.h"
#include "widget_screen.h"

#include <benchmark/benchmark.h>

#include <chrono>
#include <cstring>
#include <vector>
#include <zrcombobox>
#include <zrinnerlistwidget>
#include <zrlistwidget>
#include <zrpushbutton>
#include <zrscreen>

namespace
{

using Clock = std::chrono::steady_clock;

constexpr int Entries = 64;
constexpr auto Bearable = std::chrono::milliseconds(2);

double secondsSince(Clock::time_point start)
{
    return std::chrono::duration<double>(Clock::now() - start).count();
}

void fillCombo(ZrComboBox *combo)
{
    for (int i = 0; i < Entries; ++i)
        combo->addItem(ZrString("Channel %1").arg(i + 1), i);
    combo->setGeometry(ZrRect(400, 200, 240, 51));
    combo->setMaxVisibleItems(Entries); // as many as the screen holds
    combo->show();
}

// The pop-up is made when a combo box is opened first.
enum class Opening { First, Again };
void comboOpen(benchmark::State &state, Opening opening)
{
    WidgetScreen screen;
    auto combo = std::make_unique<ZrComboBox>(screen.window());
    fillCombo(combo.get());
    int pixels = 0;
    for (auto _ : state) {
        if (opening == Opening::First) {
            combo = std::make_unique<ZrComboBox>(screen.window());
            fillCombo(combo.get());
        }
        screen.settle();
        const Clock::time_point start = Clock::now();
        combo->showPopup();
        screen.settle();
        state.SetIterationTime(secondsSince(start));
        const auto *popup = static_cast<ZrWidget *>(ZrScreen::instance()->topLevels().last());
        pixels = popup->width() * popup->height() + combo->width() * combo->height();
        combo->hidePopup();
        screen.settle();
    }
    state.counters["pixels"] = pixels;
    combo.reset();
}
BENCHMARK_CAPTURE(comboOpen, first, Opening::First)->UseManualTime()->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(comboOpen, again, Opening::Again)->UseManualTime()->Unit(benchmark::kMicrosecond);

void twoMilliseconds(benchmark::State &state)
{
    for (auto _ : state) {
        const Clock::time_point start = Clock::now();
        while (Clock::now() - start < Bearable) {
        }
        state.SetIterationTime(secondsSince(start));
    }
}
BENCHMARK(twoMilliseconds)->UseManualTime()->Unit(benchmark::kMicrosecond);

void hover(ZrWidget *widget, int type)
{
    ZrHoverEvent event(type, ZrPoint(1, 1));
    ZrApplication::notify(widget, &event);
}

void buttonHover(benchmark::State &state)
{
    WidgetScreen screen;
    const int count = int(state.range(0));
    std::vector<ZrPushButton *> buttons;
    for (int i = 0; i < count; ++i) {
        buttons.push_back(new ZrPushButton(ZrString("Apply"), screen.window())); // a child
        buttons.back()->setGeometry(ZrRect(20 + i % 10 * 188, 20 + i / 10 * 52, 186, 50));
        buttons.back()->show();
    }
    screen.settle();
    ZrPushButton *one = buttons[std::size_t(count / 2)];
    bool entered = false;
    for (auto _ : state) {
        entered = !entered;
        hover(one, entered ? ZrEvent::HoverEnter : ZrEvent::HoverLeave);
        screen.settle();
    }
    state.counters["pixels"] = one->width() * one->height();
}
BENCHMARK(buttonHover)->Arg(1)->Arg(200)->Unit(benchmark::kMicrosecond);

void listHover(benchmark::State &state)
{
    WidgetScreen screen;
    auto *list = new ZrListWidget(screen.window()); // a child
    ZrList<ZrListWidgetItem> items;
    for (int i = 0; i < int(state.range(0)); ++i)
        items.append(ZrListWidgetItem(ZrString("Row %1").arg(i % 100)));
    list->setItems(items);
    list->setGeometry(ZrRect(20, 20, 400, 800));
    list->show();
    screen.settle();
    int row = 0;
    for (auto _ : state) {
        row = (row + 1) % 10;
        ZrMouseEvent move(ZrEvent::MouseMove, list->rowRect(row).center(), ZrPoint(), 0, 0);
        ZrApplication::notify(list->viewport(), &move);
        screen.settle();
    }
    state.counters["pixels"] = 2 * list->viewport()->width() * list->rowHeight();
}
BENCHMARK(listHover)->Arg(20)->Arg(10000)->Unit(benchmark::kMicrosecond);

// What the pixels of a button cost alone: filled behind, copied to the front.
void buttonPixels(benchmark::State &state)
{
    constexpr int Width = 186;
    constexpr int Height = 50;
    std::vector<std::uint16_t> back(std::size_t(BenchWidth) * BenchHeight);
    std::vector<std::uint16_t> front(back.size());
    for (auto _ : state) {
        for (int y = 0; y < Height; ++y)
            std::memset(&back[std::size_t(y) * BenchWidth], y, Width * 2);
        benchmark::ClobberMemory();
        for (int y = 0; y < Height; ++y)
            std::memcpy(&front[std::size_t(y) * BenchWidth], &back[std::size_t(y) * BenchWidth],
                        Width * 2);
        benchmark::ClobberMemory();
    }
}
BENCHMARK(buttonPixels)->Unit(benchmark::kMicrosecond);

[[maybe_unused]] const bool aims[] = {
    zrbench::atMost("open a combo box of 64 / 2 ms", "comboOpen/first", "twoMilliseconds", 1.0),
    zrbench::atMost("open it again / 2 ms", "comboOpen/again", "twoMilliseconds", 0.5),
    zrbench::atMost("hover a button / its pixels alone", "buttonHover/1", "buttonPixels", 12),
    zrbench::atMost("hover one button of 200 / of 1", "buttonHover/200", "buttonHover/1", 1.3),
    zrbench::atMost("hover a row of 10,000 / of 20", "listHover/10000", "listHover/20", 1.2),
};

} // namespace
