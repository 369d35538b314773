// The pages of the gallery, in the order of its menu.
#pragma once

#include "gallerypage.h"

struct PageKind {
    const char *name; // of its picture files
    int title;        // the text's number
    void (*fill)(GalleryPage &page);
};

extern const PageKind Pages[];
extern const int PageCount;

void fillButtons(GalleryPage &page);
void fillChoices(GalleryPage &page);
void fillEntry(GalleryPage &page);
void fillKeyboards(GalleryPage &page);
void fillNumbers(GalleryPage &page);
void fillLists(GalleryPage &page);
void fillSliders(GalleryPage &page);
void fillTabs(GalleryPage &page);
void fillLabels(GalleryPage &page);
void fillTables(GalleryPage &page);
void fillDialogs(GalleryPage &page);
