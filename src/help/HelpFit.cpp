#include "help/HelpFit.h"

#include "util/FileTools.h"

#include <QFontDatabase>
#include <QFontMetrics>
#include <QGuiApplication>
#include <QScreen>
#include <QWidget>
#include <algorithm>
#include <iterator>

namespace {
constexpr int kWidths[] = {300, 400, 600, 800, 1000};
constexpr int kWorthWidening = 80; // pixels of height a wider window must save
} // namespace

HelpFit::Measure HelpFit::chooseTextWidth(const WindowFit::TextHeight& heightAt) {
    int heights[std::size(kWidths)];
    for (std::size_t i = 0; i < std::size(kWidths); ++i)
        heights[i] = heightAt(kWidths[i]);
    // Each step is tested on its own; a later success overrides an earlier one.
    std::size_t chosen = 0;
    for (std::size_t i = 1; i < std::size(kWidths); ++i)
        if (heights[i - 1] - heights[i] > kWorthWidening) chosen = i;
    return {kWidths[chosen], heights[chosen]};
}

QSize HelpFit::fittedSize(const WindowFit::TextHeight& heightAt, const QRect& available) {
    const Measure m = chooseTextWidth(heightAt);
    // Room for title bar, margins and the Done button; a narrow window needs less of it.
    const int chrome = m.textWidth == 300 ? 180 : 216;
    const int width = m.textWidth + 40;
    const int height = int(m.textHeight * 1.2 + chrome);
    return {std::min(width, int(available.width() * 0.8)), std::min(height, int(available.height() * 0.8))};
}

QPoint HelpFit::upperRight(const QRect& available, int windowWidth) {
    return {available.x() + available.width() - windowWidth - 4, available.top() + 22};
}

void HelpFit::sizeAndPlace(QWidget& window, QSize size, const QRect& available) {
    window.resize(size);
    window.move(upperRight(available, window.width()));
}

void HelpFit::writeWindowSizeInfo(const QWidget& window) {
    const QString line = "Width: " + QString::number(window.width()) +
                         "   Height: " + QString::number(window.height()) +
                         "  Title: " + window.windowTitle();
    FileTools::TextToFile(line, QStringLiteral("WindowSizeInfo"), QStringLiteral("Desktop"), 4);
}

QRect HelpFit::availableArea() {
    const QScreen* screen = QGuiApplication::primaryScreen();
    return screen ? screen->availableGeometry() : QRect(0, 0, 1024, 768);
}

WindowFit::TextHeight HelpFit::systemFontHeight(const QString& text, int pointSize) {
    return [text, pointSize](int width) {
        QFont font = QFontDatabase::systemFont(QFontDatabase::GeneralFont);
        font.setPointSize(pointSize);
        return QFontMetrics(font).boundingRect(QRect(0, 0, width, 1000000), Qt::TextWordWrap, text).height();
    };
}

void HelpFit::sizeHelpWindow(QWidget& window, int width, int height, const WindowFit::TextHeight& heightAt) {
    const QRect available = availableArea();
    sizeAndPlace(window, width > 0 && height > 0 ? QSize(width, height) : fittedSize(heightAt, available), available);
}
