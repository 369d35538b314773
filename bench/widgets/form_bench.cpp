// A form of 100 controls that fills the screen, painted whole, beside the bare fills and glyph runs
// that the same picture is made of; and the load of the common style beside the bare reading of the
// same files.
#include "link/startup.h"
#include "support/aims.h"
#include "ui/commonstyle.h"
#include "widget_screen.h"

#include <benchmark/benchmark.h>

#include <fstream>
#include <string>
#include <tinyxml.h>
#include <unistd.h>
#include <vector>
#include <zrapplication>
#include <zrfbcanvas>
#include <zrfontmetrics>
#include <zrinifile>
#include <zrlabel>
#include <zrlineedit>
#include <zrpainter>
#include <zrpushbutton>
#include <zrscreen>

namespace
{

constexpr int Controls = 100;
constexpr int PerRow = 4;
constexpr int StepX = 474;
constexpr int StepY = 42;
constexpr int ControlWidth = 440;
constexpr int ControlHeight = 36;

// Labels in the first column, buttons in the last one, fields between.
enum class Kind { Label, Field, Button };

Kind kindOf(int index)
{
    return index % PerRow == 0 ? Kind::Label : index % PerRow == 3 ? Kind::Button : Kind::Field;
}

ZrRect placeOf(int index)
{
    return ZrRect(24 + index % PerRow * StepX, 14 + index / PerRow * StepY, ControlWidth,
                  ControlHeight);
}

ZrString textOf(int index)
{
    return ZrString("Parameter %1").arg(index);
}

ZrWidget *makeControl(int index, ZrWidget *parent)
{
    switch (kindOf(index)) {
    case Kind::Label:
        return new ZrLabel(textOf(index), parent);
    case Kind::Field: {
        auto *edit = new ZrLineEdit(parent);
        edit->setText(textOf(index));
        return edit;
    }
    default:
        return new ZrPushButton(textOf(index), parent);
    }
}

void makeForm(ZrWidget *parent)
{
    for (int i = 0; i < Controls; ++i) {
        ZrWidget *control = makeControl(i, parent); // a child
        control->setFocusPolicy(ZrWidget::NoFocus);
        control->setGeometry(placeOf(i));
        control->show();
    }
}

struct Fill {
    ZrRect rect;
    ZrColor color;
};
struct Run {
    int x;
    int y;
    ZrColor color;
    ZrVector<const GlyphBitmap *> glyphs;
};

// The same picture by one widget that knows every fill and every glyph beforehand.
class BareForm : public ZrWidget
{
public:
    explicit BareForm(ZrWidget *parent) : ZrWidget(parent), font_(parent->font(0))
    {
        for (int i = 0; i < Controls; ++i)
            addControl(i);
    }

protected:
    void paintEvent(ZrPaintEvent *) override
    {
        ZrPainter painter(this);
        painter.setFont(font_);
        for (const Fill &fill : fills_)
            painter.fillRect(fill.rect, fill.color);
        for (const Run &run : runs_) {
            painter.setPen(run.color);
            painter.drawGlyphs(run.x, run.y, run.glyphs);
        }
    }

private:
    void addControl(int index)
    {
        const ZrStyle &style = ZrStyle::applicationStyle();
        const ZrRect place = placeOf(index);
        switch (kindOf(index)) {
        case Kind::Label:
            addText(textOf(index), place, ZrLabel().alignment(), *style.label().foreground.get(0));
            break;
        case Kind::Field: {
            const ZrLineEditOption &field = style.lineEdit();
            addBox(place, *field.background.get(0), field.borderColor.get(0)->top);
            const ZrSides &padding = *field.padding.get(0);
            const ZrSides &border = *field.borderWidth.get(0);
            addText(textOf(index), border.inside(padding.inside(place)),
                    Zr::AlignLeft | Zr::AlignVCenter, *field.foreground.get(0));
            break;
        }
        case Kind::Button:
            fills_.push_back({place.adjusted(1, 1, -1, -1), *style.pushButton().background.get(0)});
            addText(textOf(index), place, Zr::AlignCenter, *style.pushButton().foreground.get(0));
            break;
        }
    }
    void addBox(const ZrRect &box, const ZrColor &ground, const ZrColor &line)
    {
        fills_.push_back({box, ground});
        fills_.push_back({ZrRect(box.left(), box.top(), 1, box.height()), line});
        fills_.push_back({ZrRect(box.left(), box.top(), box.width(), 1), line});
        fills_.push_back({ZrRect(box.right(), box.top(), 1, box.height()), line});
        fills_.push_back({ZrRect(box.left(), box.bottom(), box.width(), 1), line});
    }
    void addText(const ZrString &text, const ZrRect &room, int align, const ZrColor &color)
    {
        layouts_.emplace_back(text, font_, room.width());
        ZrFontMetrics &layout = layouts_.back();
        layout.setAlignment(align);
        layout.setTextMinRect(room.left(), room.top(), room.width(), room.height());
        for (const ZrPaintInfo &line : layout.paintInfoList())
            runs_.push_back({line.x, line.y, color, line.glyphs});
    }

    ZrFont font_;
    std::vector<Fill> fills_;
    std::vector<Run> runs_;
    std::vector<ZrFontMetrics> layouts_; // hold the glyphs
};

std::vector<std::uint16_t> picture()
{
    const ZrFbCanvas *front = ZrFbCanvas::frontCanvas();
    return std::vector<std::uint16_t>(front->data(), front->data() + BenchWidth * BenchHeight);
}

void repaint(benchmark::State &state, WidgetScreen &screen)
{
    screen.settle();
    for (auto _ : state) {
        ZrScreen::instance()->markAllDirty();
        screen.settle();
    }
    state.counters["pixels"] = BenchWidth * BenchHeight;
}

void makeBareForm(ZrWidget *parent)
{
    auto *bare = new BareForm(parent); // a child
    bare->setGeometry(parent->rect());
    bare->show();
}

// Both pictures are the same, or the comparison means nothing.
bool samePictures()
{
    std::vector<std::uint16_t> pictures[2];
    for (const bool bare : {false, true}) {
        WidgetScreen screen;
        (bare ? makeBareForm : makeForm)(screen.window());
        screen.settle();
        pictures[bare] = picture();
    }
    return pictures[0] == pictures[1];
}

void formRepaint(benchmark::State &state)
{
    static const bool same = samePictures();
    if (!same)
        state.SkipWithError("the bare picture is another one");
    WidgetScreen screen;
    makeForm(screen.window());
    repaint(state, screen);
}

void formBare(benchmark::State &state)
{
    WidgetScreen screen;
    makeBareForm(screen.window());
    repaint(state, screen);
}

BENCHMARK(formRepaint)->Unit(benchmark::kMicrosecond)->UseRealTime();
BENCHMARK(formBare)->Unit(benchmark::kMicrosecond)->UseRealTime();

// --- the common style ---

// The keys and values of the style file as an XML document, one entry an element. Gone with the
// process.
class StyleDocument
{
public:
    StyleDocument() : name_("/tmp/zrstylebench" + std::to_string(getpid()) + ".xml")
    {
        const ZrIniFile style(resolveResourcePath(ZrString("style/commonstyle.ini")));
        std::ofstream file(name_);
        file << "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<style>\n";
        for (auto entry = style.values().begin(); entry != style.values().end(); ++entry)
            file << "  <entry key=\"" << entry.key().toUtf8().constData() << "\" value=\""
                 << entry.value().toUtf8().constData() << "\"/>\n";
        file << "</style>\n";
    }
    ~StyleDocument() { unlink(name_.c_str()); }
    StyleDocument(const StyleDocument &) = delete;
    StyleDocument &operator=(const StyleDocument &) = delete;
    const char *name() const { return name_.c_str(); }

private:
    std::string name_;
};

const char *const Pictures[] = {
    "slider-handle",
    "slider-handle-hover",
    "combobox-dropdown",
    "combobox-dropdown-focus",
    "combobox-dropdown-disabled",
    "checkbox-checked",
    "checkbox-uncheck",
    "checkbox-checked-hover",
    "checkbox-uncheck-hover",
    "checkbox-uncheck-disabled",
    "checkbox-checked-disabled",
    "common-up-arrow",
    "common-down-arrow",
    "common-up-arrow-disabled",
    "common-down-arrow-disabled",
    "radiobutton-uncheck",
    "radiobutton-checked",
    "radiobutton-uncheck-hover",
    "radiobutton-disabled-uncheck",
    "radiobutton-disabled-check",
    "datetimeedit-down-arrow",
    "datetimeedit-down-arrow-focus",
};

void readPictures()
{
    for (const char *name : Pictures) {
        const ZrPixmap picture(
            resolveResourcePath(ZrString("images/") + ZrString(name) + ZrString(".png")));
        benchmark::DoNotOptimize(picture.isNull());
    }
}

void styleLoad(benchmark::State &state)
{
    WidgetScreen screen;
    for (auto _ : state)
        loadCommonStyle();
}
BENCHMARK(styleLoad)->Unit(benchmark::kMicrosecond)->UseRealTime();

void stylePictures(benchmark::State &state)
{
    WidgetScreen screen;
    for (auto _ : state)
        readPictures();
}
BENCHMARK(stylePictures)->Unit(benchmark::kMicrosecond)->UseRealTime();

void styleBareParse(benchmark::State &state)
{
    WidgetScreen screen;
    const StyleDocument document;
    for (auto _ : state) {
        TiXmlDocument parsed;
        benchmark::DoNotOptimize(parsed.LoadFile(document.name(), TIXML_ENCODING_UTF8));
        readPictures();
    }
}
BENCHMARK(styleBareParse)->Unit(benchmark::kMicrosecond)->UseRealTime();

[[maybe_unused]] const bool aims[] = {
    zrbench::atMost("a form of 100 controls / its fills and glyphs", "formRepaint", "formBare",
                    1.5),
    zrbench::atMost("common style / bare parse and its pictures", "styleLoad", "styleBareParse",
                    1.3),
};

} // namespace
