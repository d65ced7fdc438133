#pragma once
#include <QList>
#include <QRect>
#include <QSize>
#include <QString>
#include <functional>

class QPushButton;
class QWidget;

// Sizing shared by the message windows: they pick the width at which window and text come
// nearest the golden-ish ratio 1.61, and keep their controls tied to the window's edges.
namespace WindowFit {

// Height of the window's text wrapped at the given width. Tests feed their own.
using TextHeight = std::function<int(int width)>;

// Measures `text` in Helvetica of `pointSize`, as the windows do.
TextHeight helveticaHeight(const QString& text, int pointSize);

// The window width, text chrome included, that comes nearest the ratio.
int BestWidth(const TextHeight& heightAt);

// Size and place for a window on a screen whose free area is `available`; the window's own
// minimum and maximum apply on top.
QRect fittedGeometry(const TextHeight& heightAt, const QRect& available, QSize minimum, QSize maximum);

// Sizes and places `window` on the primary screen.
void AdjustWindowSize(QWidget& window, const TextHeight& heightAt);

// Keeps controls where they were laid out for `designSize`, tied to the window's edges.
class Anchors {
public:
    explicit Anchors(QSize designSize) : design(designSize) {}
    void toAllSides(QWidget* control);
    void toLowerRight(QWidget* control);
    void apply(QSize windowSize) const;

private:
    struct Tie {
        QWidget* control;
        QRect laidOut;
        bool stretch;
    };
    QSize design;
    QList<Tie> ties;
};

// A push button of a window, named and placed as designed.
QPushButton* pushButton(QWidget* window, const char* name, const QString& caption, const QRect& geometry);

} // namespace WindowFit
