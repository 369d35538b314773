// Option groups: which entry a state takes, who shares what, and the box to the pixel.
#include "probe.h"

#include "widgets/style/boxmodel.h"

#include <zrframe>
#include <zrlabel>
#include <zrstyle>

namespace
{

using State = ZrVisualState;
using Chain = ZrStateChain;

class Style : public WidgetTest
{
protected:
    ~Style() override { ZrStyle::applicationStyle() = ZrStyle(); }
};

std::uint16_t pixelOf(const ZrColor &color)
{
    return std::uint16_t(0x8000 | color.red() >> 3 << 10 | color.green() >> 3 << 5 |
                         color.blue() >> 3);
}

class Box : public ZrFrame
{
public:
    explicit Box(const ZrRect &place)
    {
        setAttribute(DeleteOnClose, false);
        setGeometry(place);
    }
    ZrRect contents;

protected:
    void paintEvent(ZrPaintEvent *) override
    {
        ZrPainter painter(this);
        contents = BoxModel(*this, style().frame()).draw(painter, rect());
    }
};

} // namespace

TEST(StateChain, FallsBackFromTheMostSpecialStateThatIsSet)
{
    constexpr int Nothing = -1;
    const struct {
        int flags;
        std::vector<State> set;
        int picked;
    } rows[] = {
        {0, {State::Normal, State::Hover, State::Focus}, zrIndex(State::Normal)},
        {0, {State::Hover, State::Disabled, State::On}, Nothing},
        {Chain::Hovered, {State::Normal}, zrIndex(State::Normal)},
        {Chain::Hovered, {State::Focus, State::Normal}, zrIndex(State::Normal)},
        {Chain::Focused, {State::Normal, State::Focus}, zrIndex(State::Focus)},
        {Chain::Hovered | Chain::Focused, {State::Hover, State::Focus}, zrIndex(State::Hover)},
        {Chain::Hovered | Chain::Focused, {State::Focus, State::Normal}, zrIndex(State::Focus)},
        {Chain::Disabled, {State::Normal}, zrIndex(State::Normal)},
        {Chain::Disabled | Chain::Hovered | Chain::Focused,
         {State::Hover, State::Focus, State::Disabled},
         zrIndex(State::Disabled)},
        {Chain::Disabled | Chain::Hovered, {State::Hover}, Nothing},
        {Chain::On, {State::On, State::Normal}, zrIndex(State::On)},
        {Chain::On, {State::HoverOn, State::Normal}, zrIndex(State::Normal)},
        {Chain::On | Chain::Hovered, {State::Hover, State::On}, zrIndex(State::Hover)},
        {Chain::On | Chain::Hovered, {State::HoverOn, State::Hover}, zrIndex(State::HoverOn)},
        {Chain::On | Chain::Focused, {State::On, State::Normal}, zrIndex(State::On)},
        {Chain::On | Chain::Hovered | Chain::Focused,
         {State::FocusOn, State::HoverOn},
         zrIndex(State::HoverOn)},
        {Chain::On | Chain::Disabled, {State::On, State::Disabled}, zrIndex(State::Disabled)},
    };
    for (const auto &row : rows) {
        ZrSTOptArray<ZrSTWidth, ZrVisualStates> array;
        for (State state : row.set)
            array.set(zrIndex(state), zrIndex(state));
        const int *picked = Chain(row.flags).pick(array);
        EXPECT_EQ(picked ? *picked : Nothing, row.picked) << "row " << &row - rows;
    }
    EXPECT_EQ((ZrSTOptArray<ZrSTWidth, 2>().get(2)), nullptr);
}

TEST_F(Style, WritingToOneWidgetLeavesTheOthersAndItsOtherGroupsAlone)
{
    const int normal = zrIndex(State::Normal);
    ZrStyle::applicationStyle().labelOption().foreground.set(normal, ZrColor(1, 1, 1));
    ZrStyle::applicationStyle().frameOption().background.set(normal, ZrColor(2, 2, 2));
    ZrLabel one, other;
    one.setAttribute(ZrWidget::DeleteOnClose, false);
    other.setAttribute(ZrWidget::DeleteOnClose, false);
    one.style().labelOption().foreground.set(normal, ZrColor(9, 9, 9));
    EXPECT_EQ(*one.style().label().foreground.get(normal), ZrColor(9, 9, 9));
    EXPECT_EQ(*other.style().label().foreground.get(normal), ZrColor(1, 1, 1));
    EXPECT_EQ(*ZrStyle::applicationStyle().label().foreground.get(normal), ZrColor(1, 1, 1));
    EXPECT_EQ(&one.style().frame(), &other.style().frame()) << "still shared";
    const ZrStyle copy = one.style();
    one.style().labelOption().foreground.set(normal, ZrColor(7, 7, 7));
    EXPECT_EQ(*copy.label().foreground.get(normal), ZrColor(9, 9, 9)) << "a copy is a value";
    ZrStyle::applicationStyle().labelOption().foreground.set(normal, ZrColor(3, 3, 3));
    EXPECT_EQ(*other.style().label().foreground.get(normal), ZrColor(3, 3, 3));
    EXPECT_EQ(*one.style().label().foreground.get(normal), ZrColor(7, 7, 7));
}

TEST_F(Style, TheBoxStandsToThePixel)
{
    const int normal = zrIndex(State::Normal);
    const ZrColor ground(0, 0, 248), top(248, 0, 0), left(0, 248, 0), right(248, 248, 0),
        bottom(0, 248, 248);
    Box box(ZrRect(10, 20, 60, 40));
    ZrFrameOption &look = box.style().frameOption();
    look.background.set(normal, ground);
    look.margin.set(normal, ZrSides(2, 3, 4, 5)); // top, right, bottom, left
    look.borderWidth.set(normal, ZrSides(1, 2, 3, 4));
    ZrSideColors colors;
    colors.top = top;
    colors.right = right;
    colors.bottom = bottom;
    colors.left = left;
    look.borderColor.set(normal, colors);
    look.padding.set(normal, ZrSides(6, 7, 8, 9));
    box.show();
    screen->settle();
    EXPECT_EQ(box.contents,
              ZrRect::fromEdges(5 + 4 + 9, 2 + 1 + 6, 59 - 3 - 2 - 7, 39 - 4 - 3 - 8));
    const struct {
        const char *what;
        int x, y;
        ZrColor expected;
    } rows[] = {
        {"margin on the left", 4, 20, ground},
        {"margin on the right", 57, 20, ground},
        {"left border, outer", 5, 20, left},
        {"left border, inner", 8, 20, left},
        {"behind it", 9, 20, ground},
        {"right border, outer", 56, 20, right},
        {"right border, inner", 55, 20, right},
        {"before it", 54, 20, ground},
        {"top border", 30, 2, top},
        {"above it", 30, 1, ground},
        {"below it", 30, 3, ground},
        {"bottom border, outer", 30, 35, bottom},
        {"bottom border, inner", 30, 33, bottom},
        {"above the bottom", 30, 32, ground},
        {"top over the left corner", 5, 2, top},
        {"right over the top corner", 56, 2, right},
        {"bottom over the corners", 56, 35, bottom},
    };
    for (const auto &row : rows)
        EXPECT_EQ(screen->pixel(10 + row.x, 20 + row.y), pixelOf(row.expected)) << row.what;
}

TEST_F(Style, ATransparentEntryDrawsNothingAndDoesNotFallBack)
{
    Box box(ZrRect(10, 20, 60, 40));
    box.setBackgroundColor(ZrColor(80, 80, 80));
    ZrFrameOption &look = box.style().frameOption();
    look.background.set(zrIndex(State::Normal), ZrColor(248, 0, 0));
    look.background.set(zrIndex(State::Disabled), ZrColor(0, 0, 0, 0));
    box.show();
    screen->settle();
    EXPECT_EQ(screen->pixel(40, 40), pixelOf(ZrColor(248, 0, 0)));
    box.setEnabled(false);
    screen->settle();
    EXPECT_EQ(screen->pixel(40, 40), pixelOf(ZrColor(80, 80, 80)));
}

TEST_F(Style, OperationsOnNoWidgetTellAndGoOn)
{
    const ZrStyle style;
    testing::internal::CaptureStdout();
    testing::internal::CaptureStderr();
    style.drawWidget(nullptr);
    style.drawPushButton(nullptr);
    style.drawTable(nullptr);
    const std::string told =
        testing::internal::GetCapturedStdout() + testing::internal::GetCapturedStderr();
    std::size_t lines = 0;
    for (std::size_t at = 0; (at = told.find("Invalid param.", at)) != std::string::npos; ++at)
        ++lines;
    EXPECT_EQ(lines, 3u) << told;
}
