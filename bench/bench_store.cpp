// Load and save of a full store of 100 palettes (10,101 objects), side by side with Python's
// json module on the same file in the same run, its runs taking turns with ours. Prints medians
// and ratios. The load checks the whole file and builds each palette's buttons when first asked
// for; the load with every palette built is what json.loads does. The save is timed twice: the
// text alone, and the whole save as a completed change makes it (the text, written and synced to
// the disk and renamed over the file).
#include "FullStore.h"
#include "util/AppGlobals.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <algorithm>
#include <cstdio>
#include <vector>

namespace {
constexpr int kRuns = 31;

double median(std::vector<double> v) {
    std::sort(v.begin(), v.end());
    return v[v.size() / 2];
}

} // namespace

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    buildFullStore(3);
    QTemporaryDir dir;
    AppGlobals::appSupportFolder = dir.path();
    const QString path = dir.filePath("PreserveState.txt");
    const QByteArray bytes = ZOR::JSON_CreateData().toUtf8();
    {
        QFile f(path);
        if (!f.open(QIODevice::WriteOnly)) return 1;
        f.write(bytes);
    }

    // Python answers each line on its input with one load and one save of the file: its runs
    // alternate with ours, so that a slow moment of the machine falls on both alike.
    const char* python = R"(
import json, sys, time
text = open(sys.argv[1], encoding='utf-8').read()
for _ in sys.stdin:
    t = time.perf_counter(); data = json.loads(text); loaded = time.perf_counter() - t
    t = time.perf_counter(); json.dumps(data); dumped = time.perf_counter() - t
    print(loaded * 1000, dumped * 1000, flush=True)
)";
    QProcess py;
    py.start("python3", {"-c", python, path});
    bool withPython = py.waitForStarted(10000);

    std::vector<double> load, build, save, saveToDisk, pyLoads, pySaves;
    for (int i = 0; i < kRuns; ++i) {
        ZOR::DP.clear();
        QElapsedTimer t;
        t.start();
        ZOR::JSON_ParseData(std::string_view(bytes.constData(), size_t(bytes.size())));
        load.push_back(double(t.nsecsElapsed()) / 1e6);
        t.restart();
        for (const PaletteDict& slot : ZOR::DP) slot.a_Btn.get();
        build.push_back(double(t.nsecsElapsed()) / 1e6);
        t.restart();
        const QString text = ZOR::JSON_CreateData();
        save.push_back(double(t.nsecsElapsed()) / 1e6);
        if (text.size() < 20) return 1;
        t.restart();
        if (!ZOR::writeDataFile(ZOR::JSON_CreateData())) return 1;
        saveToDisk.push_back(double(t.nsecsElapsed()) / 1e6);

        if (!withPython) continue;
        py.write("go\n");
        while (withPython && !py.canReadLine()) withPython = py.waitForReadyRead(60000);
        const QStringList figures = QString::fromUtf8(py.readLine()).split(' ', Qt::SkipEmptyParts);
        withPython = withPython && figures.size() == 2;
        if (withPython) {
            pyLoads.push_back(figures[0].toDouble());
            pySaves.push_back(figures[1].toDouble());
        }
    }
    py.closeWriteChannel();
    py.waitForFinished(10000);

    std::vector<double> loadAndBuild;
    for (int i = 0; i < kRuns; ++i) loadAndBuild.push_back(load[size_t(i)] + build[size_t(i)]);
    const double ourLoad = median(load), ourFull = median(loadAndBuild), ourSave = median(save);
    std::printf("store: %zu palettes, %lld bytes, %d runs, medians\n", ZOR::DP.size(), qlonglong(bytes.size()), kRuns);
    std::printf("  ZOR::JSON_ParseData                     %8.2f ms\n", ourLoad);
    std::printf("  the same, then every palette's buttons  %8.2f ms\n", ourFull);
    std::printf("  ZOR::JSON_CreateData                    %8.2f ms\n", ourSave);
    std::printf("  the same, written to the disk           %8.2f ms\n", median(saveToDisk));
    if (withPython) {
        const double pyLoad = median(pyLoads), pySave = median(pySaves);
        std::printf("  python json.loads                       %8.2f ms   (load %.1fx faster, with every palette built %.1fx)\n",
                    pyLoad, pyLoad / ourLoad, pyLoad / ourFull);
        std::printf("  python json.dumps                       %8.2f ms   (save %.1fx faster)\n", pySave, pySave / ourSave);
    } else {
        std::printf("  python3 not available: no reference figures\n");
    }
    return 0;
}
