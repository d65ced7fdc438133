#include "util/Dialogs.h"

#include "util/MenuBars.h"

#include <QApplication>
#include <QDialog>
#include <QFileDialog>
#include <QMessageBox>

namespace {
Dialogs::Script* current = nullptr;
}

void Dialogs::installScript(Script* script) { current = script; }
Dialogs::Script* Dialogs::installedScript() { return current; }

void Dialogs::message(const QString& text) {
    if (current) {
        current->answer({Kind::Message, {}, text, {}, nullptr});
        return;
    }
    plainMessageBox(text)->exec();
}

std::unique_ptr<QMessageBox> Dialogs::plainMessageBox(const QString& text) {
    auto box = std::make_unique<QMessageBox>(QMessageBox::NoIcon, QStringLiteral("ZOR_Palette"), text, QMessageBox::Ok);
    box->setTextFormat(Qt::PlainText);
    return box;
}

void Dialogs::beep() {
    if (current) {
        current->answer({Kind::Beep, {}, {}, {}, nullptr});
        return;
    }
    QApplication::beep();
}

Dialogs::Answer Dialogs::exec(QDialog& dialog, Request request) {
    MenuBars::giveEditMenu(dialog);
    request.dialog = &dialog;
    if (current) return current->answer(request);
    const int result = dialog.exec();
    return {result, result == QDialog::Accepted, {}};
}

QString Dialogs::openFile(const QString& prompt, const QString& nameFilter, const QString& startFolder) {
    if (current) return current->answer({Kind::OpenFile, prompt, {}, startFolder, nullptr}).file;
    return QFileDialog::getOpenFileName(nullptr, prompt, startFolder, nameFilter);
}
