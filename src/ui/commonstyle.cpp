#include "ui/commonstyle.h"

#include "link/startup.h"
#include "ui/scale.h"

#include <zrinifile>
#include <zrstyle>

namespace
{

using ColorState = ZrSTOptArray<ZrSTColor, ZrVisualStates>;
using PixmapState = ZrSTOptArray<ZrSTPixmap, ZrVisualStates>;

constexpr int Normal = zrIndex(ZrVisualState::Normal);
constexpr int Hover = zrIndex(ZrVisualState::Hover);
constexpr int Focus = zrIndex(ZrVisualState::Focus);
constexpr int Disabled = zrIndex(ZrVisualState::Disabled);
constexpr int LastState = zrIndex(ZrVisualState::FocusOn);
const char *const StateWords[] = {"Normal", "Hover", "Focus", "Disabled"};

// Sets of states.
constexpr int N = 1 << Normal;
constexpr int H = 1 << Hover;
constexpr int F = 1 << Focus;
constexpr int D = 1 << Disabled;
constexpr int All = N | H | F | D;
// Down or checked, whether the pointer or the focus is there or not.
constexpr int O = 1 << zrIndex(ZrVisualState::On) | 1 << zrIndex(ZrVisualState::HoverOn) |
                  1 << zrIndex(ZrVisualState::FocusOn);

// Units; the sizes that the style file does not name.
constexpr float BaseFontUnits = 17;
constexpr float FocusRingUnits = 2;
constexpr float FieldPaddingUnits = 10;
constexpr float ButtonPaddingUnits = 14;
constexpr float SpacingUnits = 8;
constexpr float IndicatorUnits = 20;
constexpr float HandleUnits = 18;
constexpr float GrooveUnits = 4;

// One writer for each kind of place that a colour of the file goes to.
using ApplyColor = void (*)(ZrStyle &style, int state, const ZrColor &color);

template <auto Group, auto Array>
void fill(ZrStyle &style, int state, const ZrColor &color)
{
    ((style.*Group)().*Array).set(state, color);
}

template <auto Group>
void border(ZrStyle &style, int state, const ZrColor &color)
{
    (style.*Group)().borderColor.set(state, ZrSideColors(color));
}

// A border that is one pixel wide wherever it has a colour.
template <auto Group>
void thinBorder(ZrStyle &style, int state, const ZrColor &color)
{
    border<Group>(style, state, color);
    (style.*Group)().borderWidth.set(state, ZrSides(1));
}

template <int Part>
void tablePart(ZrStyle &style, int, const ZrColor &color)
{
    style.tableOption().colors.set(Part, color);
}

// The key is the prefix and the state's word, or the prefix alone when that is the whole key.
struct ColorKeys {
    const char *prefix;
    enum Naming { ByState, Whole } naming;
    int states;
    ApplyColor apply;
};

constexpr auto Foreground = &ZrWidgetOption::foreground;
constexpr auto Background = &ZrWidgetOption::background;

const ColorKeys Colors[] = {
    {"ZrLabel/Foreground/", ColorKeys::ByState, N, fill<&ZrStyle::labelOption, Foreground>},

    {"ZrPushButton/Foreground/", ColorKeys::ByState, All,
     fill<&ZrStyle::pushButtonOption, Foreground>},
    {"ZrPushButton/Background/", ColorKeys::ByState, All,
     fill<&ZrStyle::pushButtonOption, Background>},
    {"ZrPushButton/BorderColor/", ColorKeys::ByState, H | F, border<&ZrStyle::pushButtonOption>},

    {"ZrSlider/Border/", ColorKeys::ByState, All, thinBorder<&ZrStyle::sliderOption>},
    {"ZrSlider/Groove/Background/", ColorKeys::ByState, N,
     fill<&ZrStyle::sliderOption, &ZrSliderOption::groove>},
    {"ZrSlider/SubPage/Background/", ColorKeys::ByState, N | H,
     fill<&ZrStyle::sliderOption, &ZrSliderOption::subPage>},

    {"ZrLineEdit/Foreground/", ColorKeys::ByState, All, fill<&ZrStyle::lineEditOption, Foreground>},
    {"ZrLineEdit/Background/", ColorKeys::ByState, All, fill<&ZrStyle::lineEditOption, Background>},
    {"ZrLineEdit/Border/", ColorKeys::ByState, All, thinBorder<&ZrStyle::lineEditOption>},

    {"LineEdit/Selected/Foreground", ColorKeys::Whole, N,
     fill<&ZrStyle::lineEditOption, &ZrLineEditOption::selectionForeground>},
    {"LineEdit/Selected/Background", ColorKeys::Whole, N,
     fill<&ZrStyle::lineEditOption, &ZrLineEditOption::selectionBackground>},
    {"LineEdit/Hint/Foreground", ColorKeys::Whole, N,
     fill<&ZrStyle::lineEditOption, &ZrLineEditOption::hint>},

    {"ZrComboBox/Border/", ColorKeys::ByState, All, thinBorder<&ZrStyle::comboBoxOption>},
    {"ZrComboBox/Foreground/", ColorKeys::ByState, All, fill<&ZrStyle::comboBoxOption, Foreground>},
    {"ZrComboBox/Background/", ColorKeys::ByState, All, fill<&ZrStyle::comboBoxOption, Background>},
    {"ZrComboBox/DropDown/Border/", ColorKeys::ByState, All,
     fill<&ZrStyle::comboBoxOption, &ZrComboBoxOption::arrowBorder>},
    {"ZrComboBox/DropDown/Arrow/", ColorKeys::ByState, D,
     fill<&ZrStyle::comboBoxOption, &ZrComboBoxOption::arrowColor>},
    {"ZrComboBox/Popup/Background/", ColorKeys::ByState, N | H,
     fill<&ZrStyle::comboBoxOption, &ZrComboBoxOption::popupBackground>},
    {"ZrComboBox/Popup/Foreground/", ColorKeys::ByState, N | H,
     fill<&ZrStyle::comboBoxOption, &ZrComboBoxOption::popupForeground>},
    {"ZrComboBox/Popup/BorderColor", ColorKeys::Whole, N,
     fill<&ZrStyle::comboBoxOption, &ZrComboBoxOption::popupBorder>},

    {"ZrCheckBox/Foreground/", ColorKeys::ByState, N | D,
     fill<&ZrStyle::checkBoxOption, Foreground>},
    {"ZrCheckBox/Border/", ColorKeys::ByState, All, border<&ZrStyle::checkBoxOption>},

    {"ZrSpinBox/Border/", ColorKeys::ByState, All, thinBorder<&ZrStyle::spinBoxOption>},
    {"ZrSpinBox/Foreground/", ColorKeys::ByState, All, fill<&ZrStyle::spinBoxOption, Foreground>},
    {"ZrSpinBox/Background/", ColorKeys::ByState, All, fill<&ZrStyle::spinBoxOption, Background>},

    {"ZrRadioButton/Foreground/", ColorKeys::ByState, N | D,
     fill<&ZrStyle::radioButtonOption, Foreground>},
    {"ZrRadioButton/Border/", ColorKeys::ByState, All, thinBorder<&ZrStyle::radioButtonOption>},

    {"ZrTableWidget/Border/", ColorKeys::ByState, N | F, border<&ZrStyle::tableOption>},
    {"ZrTableWidget/Cell/Border/Focus", ColorKeys::Whole, N, tablePart<Zr::TableCellFocusBorder>},
    {"ZrTableWidget/TitleRow/Background", ColorKeys::Whole, N, tablePart<Zr::TableTitleBackground>},
    {"Common/Foreground/Normal", ColorKeys::Whole, N, tablePart<Zr::TableCellForeground>},
    {"Common/Foreground/Disabled", ColorKeys::Whole, N, tablePart<Zr::TableCellForegroundDisabled>},
    {"Common/Foreground/Current", ColorKeys::Whole, N, tablePart<Zr::TableCurrentForeground>},
    {"Common/Foreground/Dim", ColorKeys::Whole, N, tablePart<Zr::TableTitleForeground>},
    {"Common/Background/Current", ColorKeys::Whole, N, tablePart<Zr::TableCurrentBackground>},
    {"Common/Background/Hover", ColorKeys::Whole, N, tablePart<Zr::TableHoverBackground>},
    {"Common/Background/Panel", ColorKeys::Whole, N, tablePart<Zr::TableAlternateRow>},
    {"Common/Separator/Color", ColorKeys::Whole, N, tablePart<Zr::TableGrid>},

    {"ZrListWidget/Border/", ColorKeys::ByState, N | F, thinBorder<&ZrStyle::listOption>},
    {"ZrListWidget/Selected/Foreground", ColorKeys::Whole, N,
     fill<&ZrStyle::listOption, &ZrListOption::selectedForeground>},
    {"ZrListWidget/Selected/Background", ColorKeys::Whole, N,
     fill<&ZrStyle::listOption, &ZrListOption::selectedBackground>},

    {"ZrDateEdit/Border/", ColorKeys::ByState, All, thinBorder<&ZrStyle::dateEditOption>},
    {"ZrDateEdit/Foreground/", ColorKeys::ByState, All, fill<&ZrStyle::dateEditOption, Foreground>},
    {"ZrDateEdit/Background/", ColorKeys::ByState, All, fill<&ZrStyle::dateEditOption, Background>},

    {"ZrProgressBar/Border", ColorKeys::Whole, N, thinBorder<&ZrStyle::progressBarOption>},
    {"ZrProgressBar/Foreground", ColorKeys::Whole, N,
     fill<&ZrStyle::progressBarOption, Foreground>},
    {"ZrProgressBar/Chunk", ColorKeys::Whole, N,
     fill<&ZrStyle::progressBarOption, &ZrProgressBarOption::chunk>},

    {"ZrScrollBar/Background/", ColorKeys::ByState, N | H | F,
     fill<&ZrStyle::scrollBarOption, Background>},
    {"ZrScrollBar/Groove/", ColorKeys::ByState, N | H | F,
     fill<&ZrStyle::scrollBarOption, &ZrScrollBarOption::groove>},
    {"ZrScrollBar/Slider/", ColorKeys::ByState, N | H | F,
     fill<&ZrStyle::scrollBarOption, &ZrScrollBarOption::slider>},

    // What the classes' own sections leave open.
    {"Common/Background/Current", ColorKeys::Whole, O,
     fill<&ZrStyle::pushButtonOption, Background>},
    {"Common/Accent/Color", ColorKeys::Whole, O, border<&ZrStyle::pushButtonOption>},
    {"Common/Background/Raised", ColorKeys::Whole, N, fill<&ZrStyle::listOption, Background>},
    {"Common/Background/Hover", ColorKeys::Whole, H, fill<&ZrStyle::listOption, Background>},
    {"Common/Foreground/Normal", ColorKeys::Whole, N, fill<&ZrStyle::listOption, Foreground>},
    {"Common/Foreground/Disabled", ColorKeys::Whole, D, fill<&ZrStyle::listOption, Foreground>},
    {"Common/Accent/Color", ColorKeys::Whole, N, fill<&ZrStyle::listOption, &ZrListOption::mark>},
    {"Common/Border/", ColorKeys::ByState, N | F, border<&ZrStyle::frameOption>},
    {"Common/Background/Raised", ColorKeys::Whole, N,
     fill<&ZrStyle::progressBarOption, Background>},

    {"ZrToolTip/Foreground", ColorKeys::Whole, N, fill<&ZrStyle::toolTipOption, Foreground>},
    {"ZrToolTip/Background", ColorKeys::Whole, N, fill<&ZrStyle::toolTipOption, Background>},
    {"ZrToolTip/BorderColor", ColorKeys::Whole, N, border<&ZrStyle::toolTipOption>},
};

// A picture for some states of a control.
struct ImageFile {
    const char *path;
    int states;
    void (*apply)(ZrStyle &style, int state, const ZrPixmap &pixmap);
};

template <auto Group, auto Array>
void picture(ZrStyle &style, int state, const ZrPixmap &pixmap)
{
    ((style.*Group)().*Array).set(state, pixmap);
}

constexpr auto CheckBox = &ZrStyle::checkBoxOption;
constexpr auto RadioButton = &ZrStyle::radioButtonOption;
constexpr auto Checked = &ZrIndicatorOption::checked;
constexpr auto Unchecked = &ZrIndicatorOption::unchecked;
constexpr auto SpinBox = &ZrStyle::spinBoxOption;

const ImageFile Images[] = {
    {"images/slider-handle.png", N, picture<&ZrStyle::sliderOption, &ZrSliderOption::handle>},
    {"images/slider-handle-hover.png", H | F,
     picture<&ZrStyle::sliderOption, &ZrSliderOption::handle>},
    {"images/slider-handle-disabled.png", D,
     picture<&ZrStyle::sliderOption, &ZrSliderOption::handle>},
    {"images/combobox-dropdown.png", N,
     picture<&ZrStyle::comboBoxOption, &ZrComboBoxOption::downArrow>},
    {"images/combobox-dropdown-focus.png", H | F,
     picture<&ZrStyle::comboBoxOption, &ZrComboBoxOption::downArrow>},
    {"images/combobox-dropdown-disabled.png", D,
     picture<&ZrStyle::comboBoxOption, &ZrComboBoxOption::downArrow>},
    {"images/checkbox-checked.png", N, picture<CheckBox, Checked>},
    {"images/checkbox-uncheck.png", N, picture<CheckBox, Unchecked>},
    {"images/checkbox-checked-hover.png", H | F, picture<CheckBox, Checked>},
    {"images/checkbox-uncheck-hover.png", H | F, picture<CheckBox, Unchecked>},
    {"images/checkbox-uncheck-disabled.png", D, picture<CheckBox, Unchecked>},
    {"images/checkbox-checked-disabled.png", D, picture<CheckBox, Checked>},
    {"images/common-up-arrow.png", N, picture<SpinBox, &ZrSpinBoxOption::upArrow>},
    {"images/common-down-arrow.png", N, picture<SpinBox, &ZrSpinBoxOption::downArrow>},
    {"images/common-up-arrow-hover.png", H | F, picture<SpinBox, &ZrSpinBoxOption::upArrow>},
    {"images/common-down-arrow-hover.png", H | F, picture<SpinBox, &ZrSpinBoxOption::downArrow>},
    {"images/common-up-arrow-disabled.png", D, picture<SpinBox, &ZrSpinBoxOption::upArrow>},
    {"images/common-down-arrow-disabled.png", D, picture<SpinBox, &ZrSpinBoxOption::downArrow>},
    {"images/radiobutton-uncheck.png", N, picture<RadioButton, Unchecked>},
    {"images/radiobutton-checked.png", N, picture<RadioButton, Checked>},
    {"images/radiobutton-uncheck-hover.png", H | F, picture<RadioButton, Unchecked>},
    {"images/radiobutton-checked-hover.png", H | F, picture<RadioButton, Checked>},
    {"images/radiobutton-disabled-uncheck.png", D, picture<RadioButton, Unchecked>},
    {"images/radiobutton-disabled-check.png", D, picture<RadioButton, Checked>},
    {"images/datetimeedit-down-arrow.png", N,
     picture<&ZrStyle::dateEditOption, &ZrDateEditOption::downArrow>},
    {"images/datetimeedit-down-arrow-focus.png", H | F,
     picture<&ZrStyle::dateEditOption, &ZrDateEditOption::downArrow>},
    {"images/datetimeedit-down-arrow-disabled.png", D,
     picture<&ZrStyle::dateEditOption, &ZrDateEditOption::downArrow>},
};

void loadColors(const ZrIniFile &file, ZrStyle &style)
{
    for (const ColorKeys &keys : Colors)
        for (int state = Normal; state <= LastState; ++state) {
            if (!(keys.states & 1 << state))
                continue;
            ZrString key(keys.prefix);
            if (keys.naming == ColorKeys::ByState)
                key += ZrString(StateWords[state]);
            keys.apply(style, state, file.colorValue(key));
        }
}

void loadWidths(const ZrIniFile &file, ZrStyle &style)
{
    const ZrSides button(file.intValue(ZrString("ZrPushButton/BorderWidth")));
    // Without a colour the border is not drawn; its room keeps the text from moving.
    style.pushButtonOption().borderWidth.set(Normal, button);
    style.pushButtonOption().borderWidth.set(Hover, button);
    style.pushButtonOption().borderWidth.set(Focus, button);
    const int checkBox = file.intValue(ZrString("ZrCheckBox/Border/width"));
    style.checkBoxOption().borderWidth.set(Normal, ZrSides(checkBox));
    const ZrSides table(file.intValue(ZrString("ZrTableWidget/Border/Width")));
    style.tableOption().borderWidth.set(Normal, table);
    style.tableOption().borderWidth.set(Focus, table);
    style.comboBoxOption().popupBorderWidth.set(
        0, file.intValue(ZrString("ZrComboBox/Popup/BorderWidth")));
    style.toolTipOption().borderWidth.set(
        Normal, ZrSides(file.intValue(ZrString("ZrToolTip/BorderWidth"))));
}

void loadImages(ZrStyle &style)
{
    for (const ImageFile &image : Images) {
        const ZrPixmap pixmap(resolveResourcePath(ZrString(image.path)));
        if (pixmap.isNull())
            continue;
        for (int state = Normal; state <= Disabled; ++state)
            if (image.states & 1 << state)
                image.apply(style, state, pixmap);
    }
}

void setFonts(ZrStyle &style)
{
    const ZrFont base(fontUnits(BaseFontUnits));
    style.widgetOption().font.set(Normal, base);
    style.frameOption().font.set(Normal, base);
}

template <typename Option>
void setField(Option &option)
{
    option.padding.set(Normal, ZrSides(0, unitsX(FieldPaddingUnits), 0, unitsX(FieldPaddingUnits)));
    option.align.set(Normal, Zr::AlignLeft | Zr::AlignVCenter);
    option.focusRing.set(0, fontUnits(FocusRingUnits));
}

template <typename Option>
void setIndicator(Option &option)
{
    option.indicatorSize.set(0, ZrSize(fontUnits(IndicatorUnits), fontUnits(IndicatorUnits)));
    option.spacing.set(0, unitsX(SpacingUnits));
    option.padding.set(Normal, ZrSides(fontUnits(FocusRingUnits) * 2));
    option.align.set(Normal, Zr::AlignLeft | Zr::AlignVCenter);
    option.focusRing.set(0, fontUnits(FocusRingUnits));
}

void setSizes(ZrStyle &style)
{
    setField(style.lineEditOption());
    setField(style.comboBoxOption());
    setField(style.spinBoxOption());
    setField(style.dateEditOption());
    setIndicator(style.radioButtonOption());
    setIndicator(style.checkBoxOption());
    style.lineEditOption().cursorWidth.set(0, fontUnits(FocusRingUnits));

    ZrPushButtonOption &button = style.pushButtonOption();
    button.padding.set(Normal,
                       ZrSides(0, unitsX(ButtonPaddingUnits), 0, unitsX(ButtonPaddingUnits)));
    button.spacing.set(0, unitsX(SpacingUnits));
    button.focusRing.set(0, fontUnits(FocusRingUnits));

    ZrSliderOption &slider = style.sliderOption();
    slider.grooveHeight.set(0, fontUnits(GrooveUnits));
    slider.handleSize.set(0, ZrSize(fontUnits(HandleUnits), fontUnits(HandleUnits)));
    slider.focusRing.set(0, fontUnits(FocusRingUnits));

    style.tableOption().focusRing.set(0, fontUnits(FocusRingUnits));
    style.listOption().focusRing.set(0, fontUnits(FocusRingUnits));
    ZrFrameOption &tip = style.toolTipOption();
    tip.padding.set(Normal, ZrSides(unitsY(4), unitsX(8), unitsY(4), unitsX(8)));
}

} // namespace

void loadCommonStyle()
{
    ZrStyle &style = ZrStyle::applicationStyle();
    setFonts(style);
    setSizes(style);
    const ZrIniFile file(resolveResourcePath(ZrString("style/commonstyle.ini")));
    // Without the file every entry stays absent: controls are drawn without colours.
    if (!file.isEmpty()) {
        loadColors(file, style);
        loadWidths(file, style);
    }
    loadImages(style);
}
