#include "common/Program.h"

#include "app/App.h"
#include "help/GeneralMethods.h"
#include "palette_window/winMain.h"
#include "store/ZOR.h"
#include "util/AppGlobals.h"
#include "util/Clock.h"
#include "util/FileTools.h"
#include "util/StdFolders.h"

#include <QDir>

namespace {
void resetProgramState() {
    ZOR::resetStore();
    AppGlobals::appSupportFolder.clear();
    AppGlobals::folderPathAS.clear();
    AppGlobals::folderPathButFolder.clear();
}
} // namespace

Program::Program() { resetProgramState(); }
Program::~Program() { win.reset(); }

winMain& Program::start() {
    win = App::startPaletteWindow();
    return *win;
}

void Program::quit() {
    if (win) win->close();
}

QString writeStoreFile(int palettes, int rows, int columns, QRect window) {
    resetProgramState();
    ZOR::MakeAlphabetShortcuts();
    ZOR::CreateFirstPalette();
    for (int p = 1; p < palettes; ++p) {
        ZOR::DP.emplace_back();
        ZOR::DefaultValuesPalette(p);
    }
    for (auto& slot : ZOR::DP) slot.i_NumRows = rows, slot.i_NumColumns = columns;
    ZOR::initialWinLeft = window.left();
    ZOR::initialWinTop = window.top();
    ZOR::initialWinWidth = window.width();
    ZOR::initialWinHeight = window.height();
    const QString folder = StdFolders::applicationSupport() + '/' + AppGlobals::kAppFolderName;
    QDir().mkpath(folder);
    FileTools::StringToFileItem(ZOR::JSON_CreateData(), "PreserveState", folder);
    resetProgramState();
    return folder + "/PreserveState.txt";
}

void ProgramFixture::setUpProgram() {
    home = std::make_unique<TempHome>();
    tools = std::make_unique<FakeTools>();
    dialogs = std::make_unique<ScriptedDialogs>();
    program = std::make_unique<Program>();
    GeneralMethods::forgetVersionOS_Major();
}

void ProgramFixture::tearDownProgram() {
    Clock::reset();
    program.reset();
    dialogs.reset();
    tools.reset();
    home.reset();
}

winMain& ProgramFixture::startWith(int palettes, int rows, int columns) {
    writeStoreFile(palettes, rows, columns);
    return program->start();
}

Btn& ProgramFixture::button(int index) { return *(*ZOR::aBtn)[size_t(index)]; }
