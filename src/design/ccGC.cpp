#include "design/ccGC.h"

#include "store/ZOR.h"
#include "util/Fonts.h"
#include "util/Guard.h"

#include <QFontDatabase>
#include <QMimeData>
#include <QMouseEvent>
#include <QPainter>

#include <algorithm>

namespace {
const QColor kGhost(0xE6, 0xE6, 0xE6);

QString kindMark(const Btn& b) {
    if (!b.ASfile.isEmpty()) return "AS";
    if (!b.SCname.isEmpty()) return "SC";
    if (!b.PaletteGo.isEmpty()) return "PS";
    return "KM";
}

QColor kindColour(const QString& mark) {
    if (mark == "AS") return {0xFF, 0x00, 0x00};
    if (mark == "SC") return {0x00, 0x80, 0x80};
    if (mark == "PS") return {0x80, 0x00, 0xFF};
    return {0xCF, 0xCF, 0xCF};
}

// The tip mark and where it starts.
// The letter's place in the top right corner: a wide mark such as ␀ moves left rather than being cut.
qreal letterX(const QPainter& g, const QString& letter) {
    return std::min<qreal>(42, ccGC::kSize - 3 - g.fontMetrics().horizontalAdvance(letter));
}

std::pair<QString, int> tipMark(const Btn& b) {
    if (!b.Tip.isEmpty() && !b.Info.isEmpty()) return {"tip info", 5};
    if (!b.Tip.isEmpty()) return {"tip", 19};
    if (!b.Info.isEmpty()) return {"info", 17};
    return {};
}

// The one local file of a drag, or empty.
QString droppedFile(const QMimeData* data) {
    const QList<QUrl> urls = data->urls();
    return urls.size() == 1 && urls.front().isLocalFile() ? urls.front().toLocalFile() : QString();
}
} // namespace

ccGC::ccGC(QWidget* parent) : QWidget(parent) {
    resize(kSize, kSize);
    setAttribute(Qt::WA_OpaquePaintEvent, false);
    setAcceptDrops(true);
}

QFont ccGC::gridFont(int pixels) {
    static const QString family = [] {
        const QStringList installed = QFontDatabase::families();
        for (const char* candidate : {"SF Pro", "SF Pro Text", "Helvetica Neue", "Helvetica", "Arial",
                                      "Liberation Sans", "DejaVu Sans Condensed"})
            if (installed.contains(QString::fromLatin1(candidate))) return QString::fromLatin1(candidate);
        return QStringLiteral("System");
    }();
    return Fonts::sized(family, pixels);
}

ccGC::Look ccGC::currentLook() const {
    const int n = butID.toInt();
    if (n == ZOR::idxCurrentBtn) return Look::Selected;
    if (n / 10 >= ZOR::numRows || n % 10 >= ZOR::numColumns) return Look::Outside;
    return Look::Used;
}

void ccGC::paintEvent(QPaintEvent*) {
    QPainter g(this);
    Guard::run(Guard::Where::controlEvent("ccGC", "cnvGC", "Paint"), [&] { cnvGC_Paint(g); });
}

void ccGC::cnvGC_Paint(QPainter& g) {
    const int n = butID.toInt();
    if (butID.isEmpty() || n < 0 || size_t(n) >= ZOR::aBtn->size()) return;
    const Btn& b = *(*ZOR::aBtn)[size_t(n)];
    const Look look = currentLook();
    g.setRenderHint(QPainter::Antialiasing);
    g.setRenderHint(QPainter::TextAntialiasing);

    QColor fill(0xFF, 0xFF, 0xFF), frame(0x7F, 0x7F, 0x7F);
    QRectF box(0.5, 0.5, width() - 1, height() - 1);
    if (look == Look::Outside) frame = QColor(0xCF, 0xCF, 0xCF);
    if (look == Look::Used && !b.Vis) fill = QColor(0xCD, 0xFF, 0xF2);
    if (look == Look::Selected) {
        fill = QColor(0x66, 0x66, 0xFF);
        frame = QColor(0xCC, 0xCC, 0xCC);
        box.adjust(1, 1, -1, -1);
    }
    g.setPen(QPen(frame, 1));
    g.setBrush(fill);
    g.drawRoundedRect(box, 5, 5);

    if (look == Look::Selected) {
        static const QFont large = gridFont(22);
        g.setFont(large);
        g.setPen(kGhost);
        g.drawText(QPointF(16, 35), butID);
        return;
    }
    static const QFont small = gridFont(14); // looked up once: a refresh paints 100 cells
    g.setFont(small);
    if (look == Look::Outside) {
        g.setPen(kGhost);
        g.drawText(QPointF(5, 16), "KM");
        g.drawText(QPointF(letterX(g, b.Shortcut), 16), b.Shortcut);
        g.drawText(QPointF(20, 32), butID);
        g.drawText(QPointF(5, 49), "tip info");
        return;
    }
    const QString mark = kindMark(b);
    g.setPen(kindColour(mark));
    g.drawText(QPointF(5, 16), mark);
    g.setPen(b.ShortcutShow ? QColor(0xDC, 0x6E, 0x00) : QColor(0xA9, 0xA9, 0xA9));
    g.drawText(QPointF(letterX(g, b.Shortcut), 16), b.Shortcut);
    g.setPen(Qt::black);
    g.drawText(QPointF(20, 32), butID);
    const auto [tip, x] = tipMark(b);
    g.setPen(QColor(0x00, 0x00, 0xFF));
    if (!tip.isEmpty()) g.drawText(QPointF(x, 49), tip);
}

void ccGC::mousePressEvent(QMouseEvent* event) {
    event->accept(); // so that the release comes here
}

void ccGC::mouseReleaseEvent(QMouseEvent* event) {
    // Where the pointer was let go does not matter: a press dragged off the cell still counts.
    if (event->button() == Qt::LeftButton) emit MouseUp(butID.toInt());
}

void ccGC::dragEnterEvent(QDragEnterEvent* event) {
    if (!droppedFile(event->mimeData()).isEmpty()) event->acceptProposedAction();
}

void ccGC::dropEvent(QDropEvent* event) {
    const QString file = droppedFile(event->mimeData());
    if (file.isEmpty()) return;
    event->acceptProposedAction();
    emit PictureDropped(butID.toInt(), file);
}
