#include "pages.h"

#include "ui/text_ids.h"

const PageKind Pages[] = {
    {"buttons", Text::GalleryButtons, fillButtons}, {"choices", Text::GalleryChoices, fillChoices},
    {"entry", Text::GalleryEntry, fillEntry},       {"numbers", Text::GalleryNumbers, fillNumbers},
    {"lists", Text::GalleryLists, fillLists},       {"sliders", Text::GallerySliders, fillSliders},
    {"labels", Text::GalleryLabels, fillLabels},    {"tables", Text::GalleryTables, fillTables},
    {"dialogs", Text::GalleryDialogs, fillDialogs},
};
const int PageCount = int(sizeof Pages / sizeof *Pages);
