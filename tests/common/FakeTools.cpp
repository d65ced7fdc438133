#include "common/FakeTools.h"

#include <QDir>
#include <QFile>

namespace {
const QStringList kDefaultTools{"osascript", "shortcuts", "open"};

void install(const QString& folder, const QString& tool) {
    const QString target = folder + '/' + tool;
    if (QFile::exists(target)) return;
    QFile::copy(QStringLiteral(ZOR_FAKES_DIR "/fake_tool"), target);
    QFile::setPermissions(target, QFile::permissions(target) | QFileDevice::ExeOwner | QFileDevice::ExeUser);
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

void FakeTools::remove(const QString& tool) const { QFile::remove(dir.path() + '/' + tool); }
