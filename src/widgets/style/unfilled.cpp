// Painters whose controls do not stand yet.
#include <zrstyle>

void ZrStyle::drawComboBox(ZrWidget *, const ZrComboBoxOption *) const {}
void ZrStyle::drawProgressBar(ZrWidget *, const ZrProgressBarOption *) const {}
void ZrStyle::drawDateEdit(ZrWidget *, const ZrDateEditOption *) const {}
void ZrStyle::drawTable(ZrWidget *, const ZrTableOption *) const {}
void ZrStyle::drawSpinBox(ZrWidget *, const ZrSpinBoxOption *) const {}
