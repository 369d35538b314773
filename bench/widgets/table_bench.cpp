// A table of the whole screen: one row onwards by the bar, and one cell onwards by the keys, in ten
// thousand rows and in a hundred. Beside it stand the pixels alone, filled behind and copied to the
// front.
#include "support/aims.h"
#include "widget_screen.h"

#include <benchmark/benchmark.h>

#include <cstring>
#include <vector>
#include <zrcheckbox>
#include <zrscreen>
#include <zrscrollbar>
#include <zrtablewidget>

namespace
{

constexpr int Columns = 6;
constexpr int Many = 10000;
constexpr int Few = 100;
const ZrRect Place(24, 100, 1872, 900);

ZrTableWidget *makeTable(WidgetScreen &screen, int rows)
{
    auto *table = new ZrTableWidget(screen.window()); // a child
    table->setColumnCount(Columns);
    table->setRowCount(rows);
    table->setAlternatingRowColors(true);
    for (int column = 0; column < Columns; ++column) {
        table->setColumnShare(column, 1);
        table->setColumnTitle(column, ZrString("Column %1").arg(column + 1));
        for (int row = 0; row < rows; ++row)
            table->setText(row, column, ZrString("Row %1").arg(row % 100));
    }
    table->setGeometry(Place);
    table->show();
    screen.settle();
    return table;
}

// Of what the next flush repaints.
int dirtyPixels()
{
    int pixels = 0;
    for (const ZrRect &rect : ZrScreen::instance()->dirtyRegion())
        pixels += rect.width() * rect.height();
    return pixels;
}

void scrollBack(benchmark::State &state, WidgetScreen &screen, ZrTableWidget *table)
{
    const int height = table->rowHeight(0);
    const int start = table->vScrollBar()->maximum() / 2 / height * height;
    table->vScrollBar()->setValue(start);
    screen.settle();
    int pixels = 0;
    bool further = false;
    for (auto _ : state) {
        further = !further;
        table->vScrollBar()->setValue(start + (further ? height : 0));
        pixels = dirtyPixels();
        screen.settle();
    }
    state.counters["pixels"] = pixels;
}

void tableScroll(benchmark::State &state)
{
    WidgetScreen screen;
    scrollBack(state, screen, makeTable(screen, int(state.range(0))));
}
BENCHMARK(tableScroll)->Arg(Few)->Arg(Many)->Unit(benchmark::kMicrosecond)->UseRealTime();

// A widget in every row, of which some thirty are in sight.
void tableScrollChecks(benchmark::State &state)
{
    WidgetScreen screen;
    ZrTableWidget *table = makeTable(screen, int(state.range(0)));
    for (int row = 0; row < table->rowCount(); ++row)
        table->setCellWidget(row, 0, new ZrCheckBox); // the table's
    screen.settle();
    scrollBack(state, screen, table);
}
BENCHMARK(tableScrollChecks)->Arg(Few)->Arg(Many)->Unit(benchmark::kMicrosecond)->UseRealTime();

void tableKey(benchmark::State &state)
{
    WidgetScreen screen;
    ZrTableWidget *table = makeTable(screen, int(state.range(0)));
    table->setFocus(Zr::KeyManagerFocus);
    table->setCurrentCell(table->rowCount() / 2, 1);
    screen.settle();
    int pixels = 0;
    bool right = false;
    for (auto _ : state) {
        right = !right;
        ZrKeyEvent event(ZrEvent::KeyPress, right ? Zr::Key_Right : Zr::Key_Left);
        ZrApplication::notify(table, &event);
        pixels = dirtyPixels();
        screen.settle();
    }
    state.counters["pixels"] = pixels;
}
BENCHMARK(tableKey)->Arg(Few)->Arg(Many)->Unit(benchmark::kMicrosecond)->UseRealTime();

void tablePixels(benchmark::State &state)
{
    std::vector<std::uint16_t> back(std::size_t(BenchWidth) * BenchHeight);
    std::vector<std::uint16_t> front(back.size());
    const std::size_t bytes = std::size_t(Place.width()) * 2;
    const auto line = [](std::vector<std::uint16_t> &picture, int y) {
        return &picture[std::size_t(y) * BenchWidth + Place.left()];
    };
    for (auto _ : state) {
        for (int y = Place.top(); y <= Place.bottom(); ++y)
            std::memset(line(back, y), y, bytes);
        benchmark::ClobberMemory();
        for (int y = Place.top(); y <= Place.bottom(); ++y)
            std::memcpy(line(front, y), line(back, y), bytes);
        benchmark::ClobberMemory();
    }
}
BENCHMARK(tablePixels)->Unit(benchmark::kMicrosecond)->UseRealTime();

[[maybe_unused]] const bool aims[] = {
    zrbench::atMost("scroll 10,000 rows by one / 2 ms", "tableScroll/10000", "twoMilliseconds",
                    1.0),
    zrbench::atMost("scroll 10,000 rows by one / 100 rows", "tableScroll/10000", "tableScroll/100",
                    1.3),
    zrbench::atMost("scroll 10,000 check boxes by one row / 100", "tableScrollChecks/10000",
                    "tableScrollChecks/100", 2.0),
    zrbench::atMost("a cell onwards in 10,000 rows / in 100", "tableKey/10000", "tableKey/100",
                    1.3),
    zrbench::atMost("a cell onwards / a scroll", "tableKey/10000", "tableScroll/10000", 0.1),
};

} // namespace
