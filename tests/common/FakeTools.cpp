#include "common/FakeTools.h"

#include <QDir>
#include <QFile>

namespace {
// Every tool the program calls: on a Mac the real ones stand later on PATH, and must never answer.
const QStringList kDefaultTools{"osascript", "shortcuts", "open", "sw_vers"};

void makeExecutable(const QString& file) {
    QFile::setPermissions(file, QFile::permissions(file) | QFileDevice::ExeOwner | QFileDevice::ExeUser);
}

void install(const QString& folder, const QString& tool) {
    const QString target = folder + '/' + tool;
    QFile::remove(target); // also a tool removed before
    QFile::copy(QStringLiteral(ZOR_FAKES_DIR "/fake_tool"), target);
    makeExecutable(target);
}
} // namespace

FakeTools::FakeTools() : oldPath(qgetenv("PATH")) {
    QDir(dir.path()).mkpath("answers");
    for (const auto& tool : kDefaultTools) install(dir.path(), tool);
    qputenv("PATH", dir.path().toUtf8() + ':' + oldPath);
}

FakeTools::~FakeTools() { qputenv("PATH", oldPath); }

QStringList FakeTools::log() const {
    QFile file(logPath());
    if (!file.open(QIODevice::ReadOnly)) return {};
    return QString::fromUtf8(file.readAll()).split('\n', Qt::SkipEmptyParts);
}

void FakeTools::setAnswer(const QString& key, const QString& text) const {
    install(dir.path(), key.section(':', 0, 0) == "running" ? "osascript" : key);
    QFile file(dir.path() + "/answers/" + key);
    if (file.open(QIODevice::WriteOnly)) file.write(text.toUtf8());
}

void FakeTools::remove(const QString& tool) const {
    // Found on PATH ahead of any real one, yet it cannot be started: its interpreter does not exist.
    const QString target = dir.path() + '/' + tool;
    QFile::remove(target);
    QFile file(target);
    if (file.open(QIODevice::WriteOnly)) file.write("#!/nonexistent/zor-removed-tool\n");
    file.close();
    makeExecutable(target);
}
