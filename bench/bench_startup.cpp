// Cold start seen from outside: ZOR_Palette against a bare main window of the same size with a
// menu bar, started alternately under a private Xvfb. For each start: the time from spawning
// the process to the X server's MapNotify of its window, then the CPU time and peak memory of
// the whole run, which a WM_DELETE_WINDOW sent right after the map ends. Prints medians and
// ratios. A first session of each program comes before the series and lasts until ZOR_Palette has
// kept its decoded pictures, as the user's last session would have; a second series starts it
// with no picture kept, as at its very first start; a third with the palette's pictures moved
// aside, the floor of both. Last, in a process of its own on the offscreen platform, the first
// visit of palettes of 100 pictures that no kept copy holds (as for pictures placed a moment ago),
// until the window has repainted, and apart from it the switch's save of the data file.
// With --against BINARY, another build of ZOR_Palette (the one before a change) takes part in every
// series as well, alternating with the other two. With --prepare DIR it only lays out the full
// store in DIR (for profiling by hand).
#include "FullStore.h"

#include "app/App.h"
#include "palette_window/winMain.h"
#include "pictures/PictureDiskCache.h"
#include "util/AppGlobals.h"
#include "util/FileTools.h"
#include "util/StdFolders.h"
#include "util/StringUtils.h"

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <ctime>
#include <fcntl.h>
#include <functional>
#include <poll.h>
#include <spawn.h>
#include <string>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>
#include <xcb/xcb.h>

extern char** environ;

namespace {
constexpr int kRuns = 31;

double now() {
    timespec t{};
    clock_gettime(CLOCK_MONOTONIC, &t);
    return double(t.tv_sec) * 1e3 + double(t.tv_nsec) / 1e6;
}

double median(std::vector<double> v) {
    std::sort(v.begin(), v.end());
    return v.empty() ? 0 : v[v.size() / 2];
}

constexpr int kCurrent = 3;

// A full store of 100 palettes, with 100 pictures of 64 x 64 in the current one and in each of the
// `others` after it, under `home`.
void prepareHome(const QString& home, int others = 0) {
    for (const char* sub : {"/.local/share", "/.config", "/.cache", "/Desktop"})
        QDir().mkpath(home + sub);
    qputenv("HOME", home.toUtf8());
    qputenv("XDG_DATA_HOME", (home + "/.local/share").toUtf8());
    qputenv("XDG_CONFIG_HOME", (home + "/.config").toUtf8());
    qputenv("XDG_CACHE_HOME", (home + "/.cache").toUtf8());
    const QString support = StdFolders::applicationSupport() + '/' + AppGlobals::kAppFolderName;
    for (int p = kCurrent; p <= kCurrent + others; ++p) {
        const QString folder = support + "/ButtonPictures/P" + StringUtils::twoDigits(p);
        QDir().mkpath(folder);
        for (int i = 0; i < 100; ++i)
            saveButtonPicture(folder + '/' + StringUtils::twoDigits(i) + " button.png", i + 100 * p);
    }
    buildFullStore(kCurrent);
    ZOR::initialWinTop = 60;
    ZOR::initialWinLeft = 60;
    ZOR::initialWinWidth = 640;
    ZOR::initialWinHeight = 700;
    AppGlobals::appSupportFolder = support;
    FileTools::StringToFileItem(ZOR::JSON_CreateData(), "PreserveState", support);
    if (others == 0)
        std::printf("store: %lld bytes, 100 pictures of 64 x 64 in P03\n",
                    qlonglong(QFileInfo(support + "/PreserveState.txt").size()));
}

// The median first visit of `kVisits` palettes whose pictures no copy holds: a switch as the switch
// window makes it, until the window has repainted. Kept copies that the decoding ahead may have
// made meanwhile are deleted before each visit.
int firstVisits(int argc, char** argv) {
    constexpr int kVisits = 15;
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QTemporaryDir home;
    prepareHome(home.path(), kVisits);
    ZOR::resetStore();
    AppGlobals::appSupportFolder.clear();
    QApplication app(argc, argv);
    const std::unique_ptr<winMain> window = App::startPaletteWindow();
    QApplication::processEvents();
    std::vector<double> visits, saves;
    for (int p = kCurrent + 1; p <= kCurrent + kVisits; ++p) {
        QDir(PictureDiskCache::folder()).removeRecursively();
        // The switch's save, on the disk before the window follows, is timed apart: it is the same
        // for every palette, with pictures or without.
        QElapsedTimer t;
        t.start();
        ZOR::saveStore();
        saves.push_back(double(t.nsecsElapsed()) / 1e6);
        ZOR::QuitSavePaletteChanges = false;
        t.restart();
        ZOR::ChangeToPalette(p);
        window->repaint();
        visits.push_back(double(t.nsecsElapsed()) / 1e6);
        ZOR::QuitSavePaletteChanges = true;
        if (window->hasPicture.size() != 100)
            std::printf("  P%02d showed %lld pictures\n", p, qlonglong(window->hasPicture.size()));
    }
    std::printf("%.2f %.2f\n", median(visits), median(saves));
    return 0;
}

pid_t spawn(const std::vector<std::string>& argv, const std::vector<std::string>& env) {
    std::vector<char*> args, vars;
    for (const auto& a : argv)
        args.push_back(const_cast<char*>(a.c_str()));
    for (const auto& v : env)
        vars.push_back(const_cast<char*>(v.c_str()));
    args.push_back(nullptr);
    vars.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, 1, "/dev/null", O_WRONLY, 0);
    posix_spawn_file_actions_addopen(&actions, 2, "/dev/null", O_WRONLY, 0);
    pid_t pid = -1;
    if (posix_spawn(&pid, args[0], &actions, nullptr, args.data(), vars.data()) != 0) pid = -1;
    posix_spawn_file_actions_destroy(&actions);
    return pid;
}

// A private X server on a display of its own choosing.
struct Xserver {
    pid_t pid = -1;
    std::string display;
    bool start() {
        int fds[2];
        if (pipe(fds) != 0) return false;
        posix_spawn_file_actions_t actions;
        posix_spawn_file_actions_init(&actions);
        posix_spawn_file_actions_adddup2(&actions, fds[1], 3);
        posix_spawn_file_actions_addopen(&actions, 2, "/dev/null", O_WRONLY, 0);
        const char* argv[] = {"Xvfb",         "-displayfd", "3",   "-screen", "0",
                              "1280x1024x24", "-nolisten",  "tcp", nullptr};
        const bool ok = posix_spawnp(&pid, "Xvfb", &actions, nullptr, const_cast<char**>(argv), environ) == 0;
        posix_spawn_file_actions_destroy(&actions);
        close(fds[1]);
        char buffer[16] = {};
        if (ok) {
            if (read(fds[0], buffer, sizeof buffer - 1) > 0)
                display.append(":").append(std::to_string(atoi(buffer)));
        }
        close(fds[0]);
        return ok && display.size() > 1;
    }
    ~Xserver() {
        if (pid > 0) kill(pid, SIGTERM), waitpid(pid, nullptr, 0);
    }
};

struct Start {
    double mapMs = -1, cpuMs = 0, rssMiB = 0;
};

class Watcher {
public:
    explicit Watcher(const std::string& display) {
        c = xcb_connect(display.c_str(), nullptr);
        root = xcb_setup_roots_iterator(xcb_get_setup(c)).data->root;
        const uint32_t mask = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
        xcb_change_window_attributes(c, root, XCB_CW_EVENT_MASK, &mask);
        protocols = atom("WM_PROTOCOLS");
        deleteWindow = atom("WM_DELETE_WINDOW");
        xcb_flush(c);
    }
    ~Watcher() { xcb_disconnect(c); }
    bool ok() const { return !xcb_connection_has_error(c); }

    // The first top-level window mapped within `timeoutMs`, or 0.
    xcb_window_t waitForMap(double timeoutMs) {
        const double end = now() + timeoutMs;
        for (;;) {
            while (xcb_generic_event_t* e = xcb_poll_for_event(c)) {
                xcb_window_t mapped = 0;
                if ((e->response_type & 0x7F) == XCB_MAP_NOTIFY) {
                    const auto* map = reinterpret_cast<xcb_map_notify_event_t*>(e);
                    if (!map->override_redirect) mapped = map->window;
                }
                free(e);
                if (mapped) return mapped;
            }
            const double left = end - now();
            if (left <= 0) return 0;
            pollfd p{xcb_get_file_descriptor(c), POLLIN, 0};
            poll(&p, 1, int(left) + 1);
        }
    }

    void close(xcb_window_t window) {
        xcb_client_message_event_t event{};
        event.response_type = XCB_CLIENT_MESSAGE;
        event.format = 32;
        event.window = window;
        event.type = protocols;
        event.data.data32[0] = deleteWindow;
        event.data.data32[1] = XCB_CURRENT_TIME;
        xcb_send_event(c, 0, window, XCB_EVENT_MASK_NO_EVENT, reinterpret_cast<const char*>(&event));
        xcb_flush(c);
    }

    void drain() {
        while (xcb_generic_event_t* e = xcb_poll_for_event(c))
            free(e);
    }

private:
    xcb_atom_t atom(const char* name) {
        xcb_intern_atom_reply_t* r =
            xcb_intern_atom_reply(c, xcb_intern_atom(c, 0, uint16_t(strlen(name)), name), nullptr);
        const xcb_atom_t a = r ? r->atom : 0;
        free(r);
        return a;
    }
    xcb_connection_t* c;
    xcb_window_t root;
    xcb_atom_t protocols = 0, deleteWindow = 0;
};

// One start; with `session` set, the window stays open until it returns true.
Start measure(Watcher& watcher, const std::string& program, const std::vector<std::string>& env,
              const std::function<bool()>& session = {}) {
    Start s;
    watcher.drain();
    const double t0 = now();
    const pid_t pid = spawn({program}, env);
    if (pid < 0) return s;
    const xcb_window_t window = watcher.waitForMap(20000);
    if (window) {
        s.mapMs = now() - t0;
        for (const double end = now() + 20000; session && !session() && now() < end;)
            usleep(20000);
        watcher.close(window);
    } else {
        kill(pid, SIGKILL);
    }
    int status = 0;
    rusage usage{};
    wait4(pid, &status, 0, &usage);
    auto ms = [](const timeval& t) { return double(t.tv_sec) * 1e3 + double(t.tv_usec) / 1e3; };
    s.cpuMs = ms(usage.ru_utime) + ms(usage.ru_stime);
    s.rssMiB = double(usage.ru_maxrss) / 1024.0;
    return s;
}
} // namespace

int main(int argc, char** argv) {
    if (argc == 2 && std::strcmp(argv[1], "--first-visit") == 0) return firstVisits(argc, argv);
    QCoreApplication app(argc, argv);
    const QStringList args = app.arguments();
    if (args.size() == 3 && args[1] == "--prepare") {
        prepareHome(QDir(args[2]).absolutePath());
        return 0;
    }
    const QString against = args.size() == 3 && args[1] == "--against" ? args[2] : QString();
    QTemporaryDir home;
    prepareHome(home.path());
    Xserver x;
    if (!x.start()) {
        std::printf("Xvfb could not be started\n");
        return 1;
    }
    Watcher watcher(x.display);
    if (!watcher.ok()) return 1;

    std::vector<std::string> env;
    for (char** e = environ; *e; ++e)
        if (strncmp(*e, "DISPLAY=", 8) != 0 && strncmp(*e, "QT_QPA_PLATFORM=", 16) != 0) env.emplace_back(*e);
    env.push_back("DISPLAY=" + x.display);

    std::vector<std::string> programs = {ZOR_PALETTE_BINARY, BARE_WINDOW_BINARY};
    if (!against.isEmpty()) programs.push_back(QFile::encodeName(against).toStdString());
    const int n = int(programs.size());
    const QDir kept(home.path() + "/.cache/" + AppGlobals::kAppFolderName + "/ButtonPictures");
    const auto keptAll = [&kept] { return kept.entryList(QDir::Files).size() >= 100; };
    // A first session of each: the system's font and file caches warm up for both alike, and
    // ZOR_Palette keeps its decoded pictures for the starts that follow, as it does for a user.
    // The other build keeps its copies in a cache folder of its own, so that neither build's
    // copies take the place of the other's.
    std::vector<std::string> envs[3] = {env, env, env};
    const QString otherCache = home.path() + "/.cache-against";
    const QDir otherKept(otherCache + '/' + AppGlobals::kAppFolderName + "/ButtonPictures");
    for (std::string& var : envs[2])
        if (var.rfind("XDG_CACHE_HOME=", 0) == 0)
            var = "XDG_CACHE_HOME=" + QFile::encodeName(otherCache).toStdString();
    measure(watcher, programs[0], envs[0], keptAll);
    measure(watcher, programs[1], envs[1]);
    if (n == 3)
        measure(watcher, programs[2], envs[2],
                [&otherKept] { return otherKept.entryList(QDir::Files).size() >= 100; });
    if (!keptAll()) std::printf("  the first session kept no decoded pictures\n");

    // `forget` runs before each start of either build of ZOR_Palette.
    const auto series = [&](const char* title, const char* goal,
                            const std::function<void()>& forget) {
        std::vector<double> map[3], cpu[3], rss[3];
        int failed = 0;
        for (int run = 0; run < kRuns; ++run)
            for (int k = 0; k < n; ++k) {
                const int which = (run + k) % n; // each takes its turn to go first
                if (which != 1 && forget) forget();
                const Start s = measure(watcher, programs[size_t(which)], envs[which]);
                if (s.mapMs < 0) {
                    ++failed;
                    continue;
                }
                map[which].push_back(s.mapMs);
                cpu[which].push_back(s.cpuMs);
                rss[which].push_back(s.rssMiB);
            }
        std::printf("%s, %d alternating runs under Xvfb, medians\n", title, kRuns);
        if (failed) std::printf("  %d starts showed no window within 20 s\n", failed);
        std::printf("                            ZOR_Palette   bare window   ratio / difference\n");
        const double m0 = median(map[0]), m1 = median(map[1]), c0 = median(cpu[0]), c1 = median(cpu[1]);
        const double r0 = median(rss[0]), r1 = median(rss[1]);
        std::printf("  start to window mapped   %8.1f ms   %8.1f ms   %5.2fx   %s\n", m0, m1, m0 / m1, goal);
        std::printf("  CPU of start and quit    %8.1f ms   %8.1f ms   %5.2fx   (+%.1f ms)\n", c0, c1, c0 / c1,
                    c0 - c1);
        std::printf("  peak memory              %8.1f MiB  %8.1f MiB  %+5.1f MiB (goal <= +15 MiB)\n", r0, r1,
                    r0 - r1);
        if (n == 3) {
            const double m2 = median(map[2]), c2 = median(cpu[2]), r2 = median(rss[2]);
            std::printf("  the build --against      %8.1f ms   %5.2fx the bare window; CPU %.1f ms, %.2fx; "
                        "%.1f MiB\n",
                        m2, m2 / m1, c2, c2 / c1, r2);
        }
    };
    series("cold start, pictures kept by an earlier run", "(goal <= 1.15x)", {});
    series("very first start, every picture decoded", "(goal <= 1.25x)", [&] {
        QDir(kept).removeRecursively();
        QDir(otherKept).removeRecursively();
    });
    // The floor of the two above: the window, its menus and the full data file, with no picture.
    const QString pictures = StdFolders::applicationSupport() + '/' + AppGlobals::kAppFolderName +
                             "/ButtonPictures/P" + StringUtils::twoDigits(kCurrent);
    QDir().rename(pictures, pictures + " aside");
    series("start of the same store with no picture at all", "(the floor of both)", {});
    QDir().rename(pictures + " aside", pictures);

    std::string visit;
    if (FILE* child = popen(
            ("'" + QFile::encodeName(app.applicationFilePath()).toStdString() + "' --first-visit").c_str(),
            "r")) {
        char line[256];
        while (fgets(line, sizeof line, child))
            visit = line;
        pclose(child);
    }
    std::printf(
        "first visit of a palette of 100 pictures of 64 x 64 with nothing kept, median of 15: %.2f ms "
        "(goal: one frame, 16 ms)\n",
        std::atof(visit.c_str()));
    const size_t blank = visit.find(' ');
    std::printf("  and the switch's save of the data file before it (flushed to the disk), median: %.2f ms\n",
                blank == std::string::npos ? 0.0 : std::atof(visit.c_str() + blank));
    return 0;
}
