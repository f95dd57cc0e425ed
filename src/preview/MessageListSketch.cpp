// The list of conversations: six rows below the bar, with photos or closed up without them.
#include "preview/PreviewSketch.h"

using Weight = PreviewText::Weight;

namespace
{
constexpr double rowHeight = 84.0;
constexpr double photoSize = 50.0;
constexpr double photoLeft = 26.0;
constexpr double rightMargin = 14.0;
constexpr double markCenter = 13.0;
constexpr double markRadius = 5.5;
constexpr double nameTop = 12.0; // in a row
constexpr double previewTop = 35.0;

struct Row {
    QString name, preview, time;
    bool unread = false;
};

std::vector<Row> rows()
{
    return {
        {PreviewWords::tr("Picnic"), PreviewWords::tr("On my way"), PreviewWords::tr("10:43")},
        {PreviewWords::tr("Sam"),
         PreviewWords::tr("Did you see the rainbow over the river this morning?"),
         PreviewWords::tr("10:31"), true},
        {PreviewWords::tr("Book Club"),
         PreviewWords::tr("Chapter five is the best so far. Tuesday at seven?"),
         PreviewWords::tr("9:58")},
        {PreviewWords::tr("Robin"),
         PreviewWords::tr("Thank you for the flowers! They look lovely."), PreviewWords::tr("9:12"),
         true},
        {PreviewWords::tr("Casey"), PreviewWords::tr("The seeds have come up, all of them."),
         PreviewWords::tr("Friday")},
        {PreviewWords::tr("Garden"),
         PreviewWords::tr("The gate is mended, and the roses are out. Come and look!"),
         PreviewWords::tr("Friday")},
    };
}

/// A circle with a first letter: a photo that shows nobody.
void sketchPhoto(PreviewSketch &sketch, const Row &row, PreviewInk ink, double top)
{
    const QRectF rect(photoLeft, top + (rowHeight - photoSize) / 2.0, photoSize, photoSize);
    QPainterPath circle;
    circle.addEllipse(rect);
    sketch.fill(ink, circle);
    sketch.area(PreviewElement::ListPhotos, circle);
    const auto letter = PreviewText::laidOut(row.name.left(1), 22, Weight::Normal, photoSize, 1);
    sketch.text(PreviewInk::PhotoText, letter,
                rect.center() - QPointF(letter.size.width(), letter.size.height()) / 2.0);
}

/// Where the photo of a row would be.
void sketchPhotosPlace(PreviewSketch &sketch, double top)
{
    QPainterPath circle;
    circle.addEllipse(QPointF(photoLeft + photoSize / 2.0, top + rowHeight / 2.0), photoSize / 2.0,
                      photoSize / 2.0);
    sketch.effect(PreviewElement::ListPhotos, circle);
}

void sketchRow(PreviewSketch &sketch, const Row &row, double textLeft, double top)
{
    const double right = PreviewSketch::width - rightMargin;
    const auto time = PreviewText::laidOut(row.time, 13, Weight::Normal, 80.0, 1);
    const double timeLeft = right - time.size.width();
    const auto name =
        PreviewText::laidOut(row.name, 17, Weight::Bold, timeLeft - 10.0 - textLeft, 1);
    const auto preview = PreviewText::laidOut(row.preview, 14, Weight::Normal, right - textLeft, 2);
    const auto ink = row.unread ? PreviewInk::UnreadName : PreviewInk::ListName;
    const auto element = row.unread ? PreviewElement::UnreadName : PreviewElement::ListName;
    sketch.text(PreviewInk::ListPreview, PreviewElement::ListPreview, preview,
                {textLeft, top + previewTop});
    sketch.text(ink, element, name, {textLeft, top + nameTop});
    const double baselineShift = (name.size.height() - time.size.height()) / 2.0 + 1.0;
    sketch.text(PreviewInk::ListPreview, PreviewElement::ListPreview, time,
                {timeLeft, top + nameTop + baselineShift});
    if (row.unread) {
        QPainterPath mark;
        mark.addEllipse(QPointF(markCenter, top + rowHeight / 2.0), markRadius, markRadius);
        sketch.fill(PreviewInk::UnreadMark, mark);
        sketch.area(PreviewElement::UnreadIndicator, mark);
    }
}

void sketchBarButtons(PreviewSketch &sketch)
{
    const double middle = (PreviewSketch::statusHeight + PreviewSketch::barBottom) / 2.0;
    const auto edit = PreviewText::laidOut(PreviewWords::tr("Edit"), 16, Weight::Normal, 60.0, 1);
    sketch.text(PreviewInk::BarText, PreviewElement::NavigationTitle, edit,
                {14.0, middle - edit.size.height() / 2.0});
    // A sheet with an open corner, and a pen across it.
    const QPointF center(PreviewSketch::width - 25.0, middle);
    QPainterPath sheet(center + QPointF(1.0, -8.0));
    sheet.lineTo(center + QPointF(-6.0, -8.0));
    sheet.quadTo(center + QPointF(-9.0, -8.0), center + QPointF(-9.0, -5.0));
    sheet.lineTo(center + QPointF(-9.0, 6.0));
    sheet.quadTo(center + QPointF(-9.0, 9.0), center + QPointF(-6.0, 9.0));
    sheet.lineTo(center + QPointF(5.0, 9.0));
    sheet.quadTo(center + QPointF(8.0, 9.0), center + QPointF(8.0, 6.0));
    sheet.lineTo(center + QPointF(8.0, -1.0));
    sketch.stroke(PreviewInk::BarText, sheet, 1.8);
    QPainterPath pen(center + QPointF(-2.5, 2.5));
    pen.lineTo(center + QPointF(8.5, -8.5));
    sketch.stroke(PreviewInk::BarText, pen, 2.8);
    sketch.area(PreviewElement::NavigationTitle,
                QRectF(center - QPointF(13.0, 13.0), QSizeF(26.0, 26.0)), 3.0);
}
} // namespace

PreviewSketch sketchedMessageList(const PreviewPalette &layout)
{
    PreviewSketch sketch;
    const QRectF screen(0.0, 0.0, PreviewSketch::width, PreviewSketch::height);
    sketch.fill(PreviewInk::Ground, screen);
    sketch.area(PreviewElement::ListBackground,
                screen.adjusted(0.0, PreviewSketch::barBottom, 0.0, 0.0));
    const double textLeft = layout.showsPhotos ? photoLeft + photoSize + 12.0 : photoLeft;
    double top = PreviewSketch::barBottom;
    int photo = int(PreviewInk::Photo1);
    for (const Row &row : rows()) {
        if (layout.showsPhotos)
            sketchPhoto(sketch, row, PreviewInk(photo++), top);
        else
            sketchPhotosPlace(sketch, top);
        sketchRow(sketch, row, textLeft, top);
        top += rowHeight;
        if (top < PreviewSketch::height) {
            const double length = PreviewSketch::width - textLeft;
            sketch.fill(PreviewInk::Separator, QRectF(textLeft, top - 1.0, length, 1.0));
            sketch.area(PreviewElement::ListSeparator, QRectF(textLeft, top - 3.0, length, 5.0));
        }
    }
    sketch.bar(PreviewWords::tr("Messages"));
    sketchBarButtons(sketch);
    return sketch;
}
