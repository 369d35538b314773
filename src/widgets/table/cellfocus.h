// The ring of the current cell, in the rows and in the title row.
#pragma once

#include <zrpainter>
#include <zrstyleoption>

void paintCellFocus(ZrPainter &painter, const ZrTableOption &group, const ZrRect &cell);
