// A form of 100 rows, each a label, a field and a gap: as boxes in a box, and as a grid. Beside it
// stands what nobody can do without: the hints of the same widgets written into arrays, the
// division of each line, and the placing of each widget.
#include "support/aims.h"
#include "widgets/layout/zrlayoutstruct.h"

#include <benchmark/benchmark.h>

#include <memory>
#include <vector>
#include <zrboxlayout>
#include <zrgridlayout>
#include <zrwidget>

namespace
{

constexpr int RowCount = 100;
constexpr int Spacing = 6;
constexpr int Gap = 40;
constexpr int Wide = 1200, Narrow = 1000, Height = 5000;

class Control : public ZrWidget
{
public:
    Control(int width, int height, ZrWidget *parent) : ZrWidget(parent), hint_(width, height) {}
    ZrSize sizeHint() const override { return hint_; }
    ZrSize minimumSizeHint() const override { return ZrSize(hint_.width() / 2, hint_.height()); }

private:
    ZrSize hint_;
};

struct Form {
    Form()
    {
        owner.setAttribute(ZrWidget::LayoutOnWholeRect);
        for (int row = 0; row < RowCount; ++row) {
            controls.push_back(new Control(80 + row % 7 * 10, 30, &owner));
            controls.push_back(new Control(120 + row % 5 * 20, 36, &owner));
            controls.back()->setSizePolicy(
                ZrSizePolicy(ZrSizePolicy::Expanding, ZrSizePolicy::Preferred));
        }
    }
    Control *label(int row) const { return controls[std::size_t(2 * row)]; }
    Control *field(int row) const { return controls[std::size_t(2 * row + 1)]; }

    ZrWidget owner;
    std::vector<Control *> controls; // owned by their parent
};

ZrLayout *makeBoxes(Form &form)
{
    auto *column = new ZrVBoxLayout(&form.owner);
    column->setSpacing(Spacing);
    for (int row = 0; row < RowCount; ++row) {
        auto *line = new ZrHBoxLayout;
        line->addWidget(form.label(row));
        line->addWidget(form.field(row));
        line->addSpacing(Gap);
        column->addLayout(line);
    }
    return column;
}

ZrLayout *makeGrid(Form &form)
{
    auto *grid = new ZrGridLayout(&form.owner);
    grid->setSpacing(Spacing);
    grid->setColumnMinimumWidth(2, Gap);
    for (int row = 0; row < RowCount; ++row) {
        grid->addWidget(form.label(row), row, 0);
        grid->addWidget(form.field(row), row, 1);
    }
    return grid;
}

// The same form without layouts.
class BareForm
{
public:
    BareForm() : lines_(RowCount, ZrVector<ZrLayoutStruct>(3)), column_(RowCount) {}

    void ask(const Form &form)
    {
        for (int row = 0; row < RowCount; ++row) {
            ZrVector<ZrLayoutStruct> &line = lines_[std::size_t(row)];
            ZrLayoutStruct &whole = column_[row];
            whole = ZrLayoutStruct();
            for (int i = 0; i < 2; ++i) {
                const Control *control = i == 0 ? form.label(row) : form.field(row);
                const ZrSize hint = control->sizeHint(), least = control->minimumSizeHint();
                line[i] = ZrLayoutStruct();
                line[i].sizeHint = hint.width();
                line[i].minimumSize = least.width();
                line[i].expansive = i == 1;
                line[i].empty = false;
                line[i].spacing = i == 0 ? Spacing : 0;
                whole.sizeHint = std::max(whole.sizeHint, hint.height());
                whole.minimumSize = std::max(whole.minimumSize, least.height());
            }
            line[2].sizeHint = line[2].minimumSize = line[2].maximumSize = Gap;
            whole.empty = false;
            whole.spacing = row + 1 < RowCount ? Spacing : 0;
        }
    }
    void place(const Form &form, int width)
    {
        calculateGeometry(column_, 0, RowCount, 0, Height);
        for (int row = 0; row < RowCount; ++row) {
            ZrVector<ZrLayoutStruct> &line = lines_[std::size_t(row)];
            const ZrLayoutStruct &whole = column_.at(row);
            calculateGeometry(line, 0, 3, 0, width);
            form.label(row)->setGeometry(
                ZrRect(line.at(0).pos, whole.pos, line.at(0).size, whole.size));
            form.field(row)->setGeometry(
                ZrRect(line.at(1).pos, whole.pos, line.at(1).size, whole.size));
        }
    }

private:
    std::vector<ZrVector<ZrLayoutStruct>> lines_;
    ZrVector<ZrLayoutStruct> column_;
};

int otherWidth(int width)
{
    return width == Wide ? Narrow : Wide;
}

using MakeLayout = ZrLayout *(*)(Form &);

// The window changes its size: no hint changes.
void resize(benchmark::State &state, MakeLayout make)
{
    Form form;
    ZrLayout *layout = make(form);
    int width = Wide;
    for (auto _ : state) {
        width = otherWidth(width);
        layout->setGeometry(ZrRect(0, 0, width, Height));
    }
}

void resizeYardstick(benchmark::State &state)
{
    Form form;
    BareForm bare;
    bare.ask(form);
    int width = Wide;
    for (auto _ : state) {
        width = otherWidth(width);
        bare.place(form, width);
    }
}

// Every hint changes, as with another language.
void relayout(benchmark::State &state, MakeLayout make)
{
    Form form;
    ZrLayout *layout = make(form);
    int width = Wide;
    for (auto _ : state) {
        width = otherWidth(width);
        for (Control *control : form.controls)
            control->updateGeometry();
        layout->setGeometry(ZrRect(0, 0, width, Height));
    }
}

void relayoutYardstick(benchmark::State &state)
{
    Form form;
    BareForm bare;
    int width = Wide;
    for (auto _ : state) {
        width = otherWidth(width);
        bare.ask(form);
        bare.place(form, width);
    }
}

void oneLabelChanges(benchmark::State &state)
{
    Form form;
    ZrLayout *layout = makeBoxes(form);
    layout->setGeometry(ZrRect(0, 0, Wide, Height));
    for (auto _ : state) {
        form.label(RowCount / 2)->updateGeometry();
        layout->setGeometry(ZrRect(0, 0, Wide, Height));
    }
}

void nothingChanges(benchmark::State &state)
{
    Form form;
    ZrLayout *layout = makeBoxes(form);
    layout->setGeometry(ZrRect(0, 0, Wide, Height));
    for (auto _ : state)
        layout->setGeometry(ZrRect(0, 0, Wide, Height));
}

BENCHMARK_CAPTURE(resize, boxes, makeBoxes)->Name("resizeBoxes");
BENCHMARK_CAPTURE(resize, grid, makeGrid)->Name("resizeGrid");
BENCHMARK(resizeYardstick);
BENCHMARK_CAPTURE(relayout, boxes, makeBoxes)->Name("relayoutBoxes");
BENCHMARK_CAPTURE(relayout, grid, makeGrid)->Name("relayoutGrid");
BENCHMARK(relayoutYardstick);
BENCHMARK(oneLabelChanges);
BENCHMARK(nothingChanges);

// An item is asked for its hints by virtual calls, of which the bare lines know nothing. The limits
// hold the few dozen microseconds that a form takes, a small part of a frame.
const bool aims[] = {
    zrbench::atMost("100 rows of boxes in another size beside the bare lines", "resizeBoxes",
                    "resizeYardstick", 3.0),
    zrbench::atMost("100 rows of a grid in another size beside the bare lines", "resizeGrid",
                    "resizeYardstick", 2.0),
    zrbench::atMost("100 rows of boxes with new hints beside the bare lines", "relayoutBoxes",
                    "relayoutYardstick", 6.0),
    zrbench::atMost("100 rows of a grid with new hints beside the bare lines", "relayoutGrid",
                    "relayoutYardstick", 6.0),
    zrbench::atLeastTimesFaster("one new hint beside all", "oneLabelChanges", "relayoutBoxes", 2.0),
    zrbench::atLeastTimesFaster("no change beside a new size", "nothingChanges", "resizeBoxes",
                                1000.0),
};

} // namespace
