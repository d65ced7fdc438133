#include "common/ScriptedDialogs.h"

#include <QDialog>
#include <QPushButton>

ScriptedDialogs::ScriptedDialogs() { Dialogs::installScript(this); }
ScriptedDialogs::~ScriptedDialogs() { Dialogs::installScript(nullptr); }

Dialogs::Answer ScriptedDialogs::answer(const Dialogs::Request& request) {
    Dialogs::Request kept = request;
    kept.dialog = nullptr; // the window does not outlive the call
    requests.append(kept);
    QStringList pressedByReturn;
    if (request.dialog)
        for (const QPushButton* b : request.dialog->findChildren<QPushButton*>())
            if (b->isDefault()) pressedByReturn << b->text();
    defaults.append(pressedByReturn.join('+'));
    using K = Dialogs::Kind;
    const bool question = request.kind == K::OKCancel || request.kind == K::MesDlg || request.kind == K::OpenFile;
    if (request.dialog && onWindow) onWindow(*request.dialog);
    if (request.kind == K::Window && request.dialog && onWindow)
        return {request.dialog->result(), request.dialog->result() == QDialog::Accepted, {}};
    if (!question) return {0, true, {}};
    return answers.isEmpty() ? Dialogs::Answer{} : answers.takeFirst();
}

QStringList ScriptedDialogs::texts() const {
    QStringList out;
    for (const auto& r : requests)
        if (r.kind != Dialogs::Kind::Beep) out << r.text;
    return out;
}

QStringList ScriptedDialogs::texts(Dialogs::Kind kind) const {
    QStringList out;
    for (const auto& r : requests)
        if (r.kind == kind) out << r.text;
    return out;
}

QStringList ScriptedDialogs::titles() const {
    QStringList out;
    for (const auto& r : requests)
        out << r.title;
    return out;
}

int ScriptedDialogs::beeps() const { return int(texts(Dialogs::Kind::Beep).size()); }

QStringList ScriptedDialogs::questions() const {
    QStringList out;
    for (qsizetype i = 0; i < requests.size(); ++i)
        if (requests[i].kind == Dialogs::Kind::OKCancel || requests[i].kind == Dialogs::Kind::MesDlg)
            out << requests[i].text + " → " + defaults[i];
    return out;
}
