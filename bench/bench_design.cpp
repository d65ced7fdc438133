// The design window beside the palette window, in one run, on a 10 x 10 palette:
//  - opening Grid Construct until it is painted (goal: under 50 ms);
//  - one RefreshAllCells until the 100 cells are repainted (goal: one frame, 16 ms);
//  - the palette window's own full repaint, as the yardstick of this machine at this moment.
#include "app/App.h"
#include "design/winConstruct.h"
#include "palette_window/winMain.h"
#include "store/ZOR.h"
#include "util/AppGlobals.h"
#include "util/FileTools.h"
#include "util/StdFolders.h"

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QTemporaryDir>
#include <algorithm>
#include <cstdio>
#include <vector>

namespace {
double median(std::vector<double> v) {
    std::sort(v.begin(), v.end());
    return v[v.size() / 2];
}

template <class F> double timeMs(F&& f) {
    QElapsedTimer t;
    t.start();
    f();
    return double(t.nsecsElapsed()) / 1e6;
}
} // namespace

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("DISPLAY")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QTemporaryDir home;
    qputenv("HOME", home.path().toUtf8());
    qputenv("XDG_DATA_HOME", (home.path() + "/share").toUtf8());
    QApplication app(argc, argv);

    const QString support = StdFolders::applicationSupport() + '/' + AppGlobals::kAppFolderName;
    QDir().mkpath(support);
    ZOR::MakeAlphabetShortcuts();
    ZOR::CreateFirstPalette();
    // Every cell draws all it can: a kind mark, a letter, a tip mark.
    for (int i = 0; i < 100; ++i) {
        Btn& b = *(*ZOR::DP[0].a_Btn)[size_t(i)];
        if (i % 4 == 1) b.ASfile = "Mail";
        if (i % 4 == 2) b.SCname = "Day";
        if (i % 4 == 3) b.PaletteGo = "01";
        b.Tip = "tip";
        if (i % 2) b.Info = "info";
        b.ShortcutShow = i % 3 == 0;
    }
    AppGlobals::appSupportFolder = support;
    FileTools::StringToFileItem(ZOR::JSON_CreateData(), "PreserveState", support);
    ZOR::resetStore();
    AppGlobals::appSupportFolder.clear();

    const std::unique_ptr<winMain> started = App::startPaletteWindow();
    winMain& window = *started;
    QApplication::processEvents();

    constexpr int kRuns = 41;
    std::vector<double> opens, refreshes, paletteRepaints;
    for (int i = 0; i < kRuns; ++i) {
        auto design = std::make_unique<winConstruct>(&window);
        design->hide();
        QApplication::processEvents();
        design.reset();
        opens.push_back(timeMs([&] {
            design = std::make_unique<winConstruct>(&window);
            design->show();
            // A window not yet exposed defers its paint to the event loop; rendering it whole
            // here counts the full first paint without the loop's waiting.
            (void)design->grab();
        }));
        // Let the first exposure of the new window settle, so that it is not charged to the refresh.
        for (int settle = 0; settle < 3; ++settle)
            QApplication::processEvents();
        refreshes.push_back(timeMs([&] {
            design->RefreshAllCells();
            // The next paint of the marked cells, made at once rather than left to the event
            // loop, which would also charge whatever else it has pending to the refresh.
            design->repaint(QRect(20, 200, 550, 550));
        }));
        paletteRepaints.push_back(timeMs([&] { window.repaint(); }));
        design->close();
    }
    const double op = median(opens), rf = median(refreshes), pr = median(paletteRepaints);
    std::printf("design window, %d runs, medians (10 x 10 palette, every cell marked)\n", kRuns);
    std::printf("  open Grid Construct until painted   %8.2f ms   (goal: under 50 ms)\n", op);
    std::printf("  RefreshAllCells until repainted     %8.2f ms   (goal: one frame, 16 ms)\n", rf);
    std::printf("  palette window's own full repaint   %8.2f ms   (refresh costs %.1fx, opening %.1fx)\n", pr,
                rf / pr, op / pr);
    return 0;
}
