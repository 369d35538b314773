// Painters whose controls do not stand yet.
#include <zrstyle>

void ZrStyle::drawDateEdit(ZrWidget *, const ZrDateEditOption *) const {}
void ZrStyle::drawTable(ZrWidget *, const ZrTableOption *) const {}
