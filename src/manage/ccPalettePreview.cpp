#include "manage/ccPalettePreview.h"

#include "help/MessageCanvas.h"
#include "pictures/ButtonPictureFiles.h"
#include "util/Guard.h"
#include "util/StringUtils.h"

#include <QImageReader>
#include <algorithm>

ccPalettePreview::ccPalettePreview(QWidget* parent, const QString& ownerName)
    : QWidget(parent), owner(ownerName) {
    setObjectName("ccPalettePreview");
    constexpr int side = 64, step = 76;
    resize(2 * step + side, step + side);
    for (size_t cell = 0; cell < kButtons.size(); ++cell) {
        auto* canvas = new MessageCanvas(this);
        canvas->setObjectName("cnBut" + StringUtils::twoDigits(kButtons[cell]));
        canvas->setGeometry(int(cell % 3) * step, int(cell / 3) * step, side, side);
        canvas->setAttribute(Qt::WA_TransparentForMouseEvents);
        canvas->onPaint = [this, cell](QPainter& g) { cnBut_Paint(int(cell), g); };
        cnBut[cell] = canvas;
    }
}

void ccPalettePreview::load(const QString& paletteName) {
    Guard::run(Guard::Where::windowEvent(owner, "Opening"), [&] {
        for (QPixmap& picture : myPict) picture = QPixmap();
        // In the palette window's order: of two files for one button, the later wins.
        for (const auto& [n, path] : buttonPictureFiles(palettePictureFolder(paletteName))) {
            const auto at = std::find(kButtons.begin(), kButtons.end(), n);
            if (at == kButtons.end()) continue;
            QImageReader reader(path);
            reader.setDecideFormatFromContent(true);
            myPict[size_t(at - kButtons.begin())] = QPixmap::fromImageReader(&reader);
        }
        for (MessageCanvas* canvas : cnBut) canvas->update();
    });
}

void ccPalettePreview::cnBut_Paint(int cell, QPainter& g) {
    Guard::run(
        Guard::Where::controlEvent(owner, "cnBut" + StringUtils::twoDigits(kButtons[size_t(cell)]), "Paint"),
        [&] {
            const QPixmap& picture = myPict[size_t(cell)];
            if (picture.isNull()) return;
            g.setOpacity(1.0 - kTransparency[size_t(cell)] / 100.0);
            g.drawPixmap(0, 0, picture);
        });
}
