// Painters whose controls do not stand yet.
#include <zrstyle>

void ZrStyle::drawPushButton(ZrWidget *, const ZrPushButtonOption *) const {}
void ZrStyle::drawRadioButton(ZrWidget *, const ZrIndicatorOption *) const {}
void ZrStyle::drawCheckBox(ZrWidget *, const ZrIndicatorOption *) const {}
void ZrStyle::drawComboBox(ZrWidget *, const ZrComboBoxOption *) const {}
void ZrStyle::drawProgressBar(ZrWidget *, const ZrProgressBarOption *) const {}
void ZrStyle::drawScrollBar(ZrWidget *, const ZrScrollBarOption *) const {}
void ZrStyle::drawDateEdit(ZrWidget *, const ZrDateEditOption *) const {}
void ZrStyle::drawSlider(ZrWidget *, const ZrSliderOption *) const {}
void ZrStyle::drawTable(ZrWidget *, const ZrTableOption *) const {}
void ZrStyle::drawSpinBox(ZrWidget *, const ZrSpinBoxOption *) const {}
