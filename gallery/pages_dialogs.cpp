// Labels, and buttons that open dialogs.
#include "pages.h"

#include "samples.h"
#include "ui/controls/legendlabel.h"
#include "ui/scale.h"
#include "ui/text_ids.h"

#include <zrpushbutton>
#include <zrtranslation>

void fillLabels(GalleryPage &page)
{
    page.beginRow(Text::GalleryLargeTitle);
    auto *title = page.add(new ZrLabel(tr(Text::GalleryLargeTitle)), 540);
    title->setFont(ZrFont(fontUnits(20)), 0);
    title->setAlignment(Zr::AlignLeft | Zr::AlignVCenter);
    page.beginRow(Text::GallerySmallHint);
    auto *hint = page.add(new ZrLabel(tr(Text::GallerySmallHint)), 540);
    hint->setFont(ZrFont(fontUnits(13)), 0);
    hint->setAlignment(Zr::AlignLeft | Zr::AlignVCenter);
    page.beginRow(Text::GalleryLabels, 100);
    auto *paragraph = page.add(new ZrLabel(tr(Text::GalleryLongText)), 540);
    paragraph->setWordWrap(true);
    paragraph->setAlignment(Zr::AlignLeft | Zr::AlignTop);
    page.beginRow(Text::GalleryLabels);
    page.add(new ZrLabel(tr(Text::GalleryLongText)), 300)->setElided(true);
    page.beginRow(Text::GalleryLabels);
    const ZrColor colors[] = {ZrColor(56, 160, 248), ZrColor(0, 176, 72), ZrColor(248, 184, 48)};
    int number = 0;
    for (const ZrColor &color : colors)
        page.add(new LegendLabel(color, tr(Text::GalleryEntryNumber).arg(++number), &page), 160);
    page.beginRow(Text::GalleryTip);
    page.add(new ZrPushButton(tr(Text::GalleryTip)), 200)->setToolTip(tr(Text::GalleryTip));
}

void fillDialogs(GalleryPage &page)
{
    for (int i = 0; i < SampleCount; ++i) {
        page.beginRow(Samples[i].title);
        auto *button = page.add(new SampleButton(Samples[i]), 300);
        button->setText(tr(Samples[i].title));
    }
    page.beginRow(Text::GalleryShowSlow);
    page.add(new SlowButton, 300)->setText(tr(Text::GalleryShowSlow));
}
