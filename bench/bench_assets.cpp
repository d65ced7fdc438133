// The opening audit of Button Pictures over 100 palette folders of 100 pictures each (10,000
// files; the current palette's 100 measured from their headers), side by side with a plain
// recursive listing of the same tree in the same run. Prints medians and their ratio.
#include "assets/winButtonPics.h"
#include "store/ZOR.h"
#include "util/AppGlobals.h"
#include "util/StdFolders.h"
#include "util/StringUtils.h"

#include <QApplication>
#include <QBuffer>
#include <QDir>
#include <QDirIterator>
#include <QElapsedTimer>
#include <QFile>
#include <QImage>
#include <QTemporaryDir>
#include <QTreeView>
#include <algorithm>
#include <cstdio>
#include <memory>
#include <vector>

namespace {
constexpr int kRuns = 21;

double median(std::vector<double> v) {
    std::sort(v.begin(), v.end());
    return v[v.size() / 2];
}

QByteArray png64() {
    QImage image(64, 64, QImage::Format_RGB32);
    image.fill(Qt::darkCyan);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return bytes;
}
} // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    QTemporaryDir home;
    StdFolders::setHomeForTests(home.path());
    QDir().mkpath(StdFolders::desktop());
    AppGlobals::appSupportFolder = home.filePath("support");
    const QString tree = AppGlobals::appSupportFolder + "/ButtonPictures";
    const QByteArray picture = png64();
    for (int p = 0; p < 100; ++p) {
        const QString folder = tree + "/P" + StringUtils::twoDigits(p);
        QDir().mkpath(folder);
        for (int b = 0; b < 100; ++b) {
            QFile f(folder + '/' + StringUtils::twoDigits(b) + " button.png");
            if (!f.open(QIODevice::WriteOnly)) return 1;
            f.write(picture);
        }
    }
    ZOR::paleName = "P42";
    ZOR::paleAlias = "Benchmark";
    ZOR::paleWinTitle = "ZOR P42";

    std::vector<double> audit, listing;
    int rows = 0, listed = 0;
    for (int i = 0; i < kRuns; ++i) {
        QElapsedTimer t;
        t.start();
        auto window = std::make_unique<winButtonPics>();
        window->Event_Opening();
        rows = window->lbAllButton->model()->rowCount();
        audit.push_back(double(t.nsecsElapsed()) / 1e6);
        window.reset(); // closing the window is not part of the opening
        t.restart();
        QStringList names;
        QDirIterator it(tree, QDir::AllEntries | QDir::NoDotAndDotDot, QDirIterator::Subdirectories);
        while (it.hasNext())
            names << it.next();
        listed = int(names.size());
        listing.push_back(double(t.nsecsElapsed()) / 1e6);
    }
    const double a = median(audit), l = median(listing);
    std::printf("button picture audit, %d pictures listed: median %.1f ms\n", rows, a);
    std::printf("plain recursive listing, %d entries:     median %.1f ms\n", listed, l);
    std::printf("ratio audit / listing: %.2f\n", a / l);
    return rows == 10000 ? 0 : 1;
}
