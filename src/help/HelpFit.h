#pragma once
#include "help/WindowFit.h"

#include <QPoint>
#include <QRect>
#include <QSize>
#include <QString>

class QWidget;

// Sizing and placing of the help windows. A help text stays 300 pixels wide unless widening it
// saves real height: each step to the next width (400, 600, 800, 1000) is taken when it makes the
// text more than 80 pixels shorter.
namespace HelpFit {

struct Measure {
    int textWidth = 300; // the width at which the text is laid out
    int textHeight = 0;  // its height there
};

// The text width from the heights of the text wrapped at 300, 400, 600, 800 and 1000.
Measure chooseTextWidth(const WindowFit::TextHeight& heightAt);

// Window size for a text that no record sizes, cut to 80% of the available area.
QSize fittedSize(const WindowFit::TextHeight& heightAt, const QRect& available);

// Help stands at the upper right of the screen, where it hides the palette least.
QPoint upperRight(const QRect& available, int windowWidth);

// Resizes `window` (its minimum and maximum apply) and puts it at the upper right.
void sizeAndPlace(QWidget& window, QSize size, const QRect& available);

// A help window's sizing: the record's own size when it has one, else the size fitted to its
// text; then placed at the upper right of the main screen.
void sizeHelpWindow(QWidget& window, int width, int height, const WindowFit::TextHeight& heightAt);

// With Option held at Done: the window's size and title go to the Desktop file WindowSizeInfo,
// so that the author of the table can size a help window by hand and copy the numbers.
void writeWindowSizeInfo(const QWidget& window);

// The available area of the main screen.
QRect availableArea();

// Heights of a text in the system's user-interface font of `pointSize`.
WindowFit::TextHeight systemFontHeight(const QString& text, int pointSize);

} // namespace HelpFit
