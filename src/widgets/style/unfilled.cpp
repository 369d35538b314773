// Painters whose controls do not stand yet.
#include <zrstyle>

void ZrStyle::drawTable(ZrWidget *, const ZrTableOption *) const {}
