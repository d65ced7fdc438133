#include "help/winExplainHTML.h"

#include "help/HelpFit.h"
#include "help/WindowFit.h"
#include "util/Dialogs.h"
#include "util/Guard.h"
#include "util/RtrnString.h"

#include <QPushButton>
#include <QTextBrowser>
#include <QTextDocument>
#include <algorithm>
#include <cmath>

using Guard::Where;

namespace {
constexpr int kMinWidth = 350, kMaxWidth = 2000;
constexpr int kMinHeight = 250, kMaxHeight = 1600;
} // namespace

winExplainHTML::winExplainHTML(QWidget* parent) : QDialog(parent) {
    setWindowTitle(QStringLiteral("Explanation"));
    setModal(true);
    resize(kMinWidth, kMinHeight);
    setMinimumSize(kMinWidth, kMinHeight);
    setMaximumSize(kMaxWidth, kMaxHeight);

    HV_Explain = new QTextBrowser(this);
    HV_Explain->setObjectName(QStringLiteral("HV_Explain"));
    HV_Explain->setGeometry(20, 20, 310, 178);
    HV_Explain->setOpenExternalLinks(true);
    HV_Explain->setFont(QFont(QStringLiteral("Helvetica"), 14));
    HV_Explain->setStyleSheet(QStringLiteral("QTextBrowser { color: #000000; background: #FFFFFF; }"));

    pbDone = WindowFit::pushButton(this, "pbDone", QStringLiteral("Done"), {250, 210, 80, 20});
    pbDone->setDefault(true);

    anchors.toAllSides(HV_Explain);
    anchors.toLowerRight(pbDone);
    connect(pbDone, &QPushButton::clicked, this, [this] { pbDone_Pressed(); });
}

void winExplainHTML::PrepareAndShowWindow(const QString& html, const QString& title, int width, int height) {
    Guard::run(Where::windowMethod("winExplainHTML", "PrepareAndShowWindow"), [&] {
        if (width == 0 || height == 0)
            AdjustWindowSize(html, width, height);
        else
            resize(std::clamp(width, kMinWidth, kMaxWidth), std::clamp(height, kMinHeight, kMaxHeight));
        setWindowTitle(title);
        HV_Explain->setHtml(html);
        growToShowWhole();
        PositionWindow();
        Dialogs::exec(*this, {Dialogs::Kind::ExplainHTML, title, html, html, nullptr});
    });
}

void winExplainHTML::AdjustWindowSize(const QString& html, int width, int height) {
    Guard::run(Where::windowMethod("winExplainHTML", "AdjustWindowSize"), [&] {
        if (width > 0 && height > 0) {
            resize(width, height);
            return;
        }
        const WindowFit::TextHeight heightAt =
            textHeight ? textHeight : WindowFit::helveticaHeight(RtrnString::rsRawTextFromHTML(html), 14);
        resize(HelpFit::fittedSize(heightAt, HelpFit::availableArea()));
    });
}

void winExplainHTML::PositionWindow() {
    Guard::run(Where::windowMethod("winExplainHTML", "PositionWindow"), [&] {
        resize(std::clamp(width(), kMinWidth, kMaxWidth), height());
        move(HelpFit::upperRight(HelpFit::availableArea(), width()));
    });
}

void winExplainHTML::growToShowWhole() {
    // The text wraps at the viewer's width; the window grows in height until all of it is in
    // view, within its maximum and 80% of the screen, where the viewer scrolls.
    anchors.apply(size());
    QTextDocument* text = HV_Explain->document();
    text->setTextWidth(HV_Explain->contentsRect().width());
    const int missing = int(std::ceil(text->size().height())) - HV_Explain->contentsRect().height();
    const int highest = std::min(kMaxHeight, int(HelpFit::availableArea().height() * 0.8));
    if (missing > 0) resize(width(), std::max(height(), std::min(height() + missing, highest)));
}

void winExplainHTML::pbDone_Pressed() {
    Guard::run(Where::controlEvent("winExplainHTML", "pbDone", "Pressed").directForm(),
               [&] { done(QDialog::Accepted); });
}

void winExplainHTML::resizeEvent(QResizeEvent* event) {
    QDialog::resizeEvent(event);
    anchors.apply(size());
}
