#pragma once
#include "util/Dialogs.h"

#include <QList>
#include <QStringList>
#include <functional>

// Every dialog recorded instead of shown, for the life of the object. Questions take the queued
// answers in order; with none queued, they are cancelled.
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
    QStringList questions() const; // each OK/Cancel and message dialog: "text → what Return presses"
    int beeps() const;
    void clear() { requests.clear(), defaults.clear(); }

    // Sees each built window once recorded; a window the menus open then answers with its result.
    std::function<void(QDialog&)> onWindow;
    QList<Dialogs::Request> requests;
    QStringList defaults; // beside each request: the caption that Return presses, empty if none

private:
    QList<Dialogs::Answer> answers;
};
