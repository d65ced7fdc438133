#include "help/WindowFit.h"

#include <QPushButton>

#include <QFont>
#include <QFontMetrics>
#include <QGuiApplication>
#include <QScreen>
#include <QWidget>
#include <algorithm>
#include <cmath>

namespace {
constexpr double kRatio = 1.61;
constexpr int kChromeWidth = 115; // what the window needs beside its text
constexpr int kChromeHeight = 102;
} // namespace

WindowFit::TextHeight WindowFit::helveticaHeight(const QString& text, int pointSize) {
    return [text, pointSize](int width) {
        const QFontMetrics metrics(QFont(QStringLiteral("Helvetica"), pointSize));
        return metrics.boundingRect(QRect(0, 0, width, 100000), Qt::TextWordWrap, text).height();
    };
}

int WindowFit::BestWidth(const TextHeight& heightAt) {
    double bestDifference = 100.0;
    int bestTextWidth = 0;
    int bestTextHeight = 0;
    for (int textWidth = 150; textWidth <= 800; textWidth += 50) {
        const int textHeight = heightAt(textWidth);
        const double ratio = double(textWidth + kChromeWidth) / double(textHeight + kChromeHeight);
        const double difference = std::abs(kRatio - ratio);
        if (difference < bestDifference) { // strictly: a tie keeps the narrower width
            bestDifference = difference;
            bestTextWidth = textWidth;
            bestTextHeight = textHeight;
        }
    }
    int windowWidth = bestTextWidth + kChromeWidth;
    const int windowTextHeight = int(windowWidth / kRatio) - kChromeHeight;
    if (bestTextHeight * 1.1 > windowTextHeight) windowWidth = int(windowWidth * 1.1);
    return windowWidth;
}

QRect WindowFit::fittedGeometry(const TextHeight& heightAt, const QRect& available, QSize minimum,
                                QSize maximum) {
    int width = BestWidth(heightAt);
    const int height0 = int(width / kRatio);
    if (width < 300) width = int(width * 1.1);
    int height = std::min(height0, int(available.height() * 0.8));
    width = std::min(width, int(available.width() * 0.8));
    width = std::clamp(width, minimum.width(), maximum.width());
    height = std::clamp(height, minimum.height(), maximum.height());
    // A third of the free room above the window, centred across.
    const int top = int((available.height() - height) / 3.0);
    const int left = int((available.width() - width) / 2.0);
    return {available.left() + left, available.top() + top, width, height};
}

void WindowFit::AdjustWindowSize(QWidget& window, const TextHeight& heightAt) {
    const QScreen* screen = QGuiApplication::primaryScreen();
    const QRect available = screen ? screen->availableGeometry() : QRect(0, 0, 1024, 768);
    const QRect place = fittedGeometry(heightAt, available, window.minimumSize(), window.maximumSize());
    window.resize(place.size());
    window.move(place.topLeft());
}

void WindowFit::Anchors::toAllSides(QWidget* control) {
    ties.append({control, control->geometry(), true});
}
void WindowFit::Anchors::toLowerRight(QWidget* control) {
    ties.append({control, control->geometry(), false});
}

void WindowFit::Anchors::apply(QSize windowSize) const {
    const int dx = windowSize.width() - design.width();
    const int dy = windowSize.height() - design.height();
    for (const Tie& tie : ties) {
        if (tie.stretch) {
            const QRect r = tie.laidOut;
            tie.control->setGeometry(r.x(), r.y(), std::max(0, r.width() + dx), std::max(0, r.height() + dy));
        } else
            tie.control->setGeometry(tie.laidOut.translated(dx, dy));
    }
}

QPushButton* WindowFit::pushButton(QWidget* window, const char* name, const QString& caption,
                                   const QRect& geometry) {
    auto* button = new QPushButton(caption, window);
    button->setObjectName(QString::fromLatin1(name));
    button->setGeometry(geometry);
    return button;
}
