#pragma once
#include "util/Dialogs.h"

#include <QList>
#include <QStringList>
#include <functional>

// Installed for the life of the object: every dialog is recorded instead of shown. Questions
// (OK/Cancel, MesDlg, open-file) take the queued answers in order; a question with none queued
// is answered as cancelled.
class ScriptedDialogs : public Dialogs::Script {
public:
    ScriptedDialogs();
    ~ScriptedDialogs() override;

    Dialogs::Answer answer(const Dialogs::Request& request) override;

    void queue(Dialogs::Answer answer) { answers.append(std::move(answer)); }
    void queueOK(bool ok) { queue({ok ? 1 : 0, ok, {}}); }
    void queueFile(const QString& path) { queue({1, !path.isEmpty(), path}); }

    QStringList texts() const;           // every text shown, in order
    QStringList titles() const;          // every title, in order
    QStringList texts(Dialogs::Kind kind) const;
    int beeps() const;
    void clear() { requests.clear(); }

    // Called with each built window once it is recorded, to look at it or to press its buttons;
    // a window of the menus then answers with its own result.
    std::function<void(QDialog&)> onWindow;
    QList<Dialogs::Request> requests;

private:
    QList<Dialogs::Answer> answers;
};
