#include "help/GeneralMethods.h"

#include "help/winOKCancel.h"
#include "help/winShowText.h"
#include "help/winTimed.h"
#include "util/AppGlobals.h"
#include "util/Dialogs.h"
#include "util/Guard.h"
#include "util/PlatformTools.h"

#include <QLabel>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <memory>
#include <optional>

using Guard::Where;

namespace {
constexpr auto kActionRole = QMessageBox::AcceptRole;
constexpr auto kAlternateRole = QMessageBox::DestructiveRole;

std::unique_ptr<QMessageBox> buildMesDlg(const QString& message, const QString& explanation,
                                         const QString& actionCaption, bool showCancel,
                                         const QString& alternateCaption) {
    auto box = std::make_unique<QMessageBox>();
    box->setIcon(QMessageBox::Information);
    box->setText(message);
    box->setInformativeText(explanation);
    QPushButton* action =
        box->addButton(actionCaption.isEmpty() ? QStringLiteral("OK") : actionCaption, kActionRole);
    if (!alternateCaption.isEmpty()) box->addButton(alternateCaption, kAlternateRole);
    if (showCancel) box->addButton(QMessageBox::Cancel);
    box->setDefaultButton(action);
    // Both texts often carry a user's names: "<b>x</b>" is shown as typed, not in bold.
    for (QLabel* label : box->findChildren<QLabel*>()) label->setTextFormat(Qt::PlainText);
    return box;
}
} // namespace

int GeneralMethods::mesDlgButtonNumber(QMessageBox& box, QAbstractButton* clicked) {
    if (!clicked) return 0;
    switch (box.buttonRole(clicked)) {
    case kActionRole:
        return 1;
    case kAlternateRole:
        return 2;
    default:
        return 0;
    }
}

int GeneralMethods::MesDlg(QString message, QString explanation, QString actionCaption, bool showCancel,
                           QString alternateCaption) {
    return Guard::run(Where::module("GeneralMethods", "MesDlg"), [&] {
        auto box = buildMesDlg(message, explanation, actionCaption, showCancel, alternateCaption);
        const Dialogs::Answer answer =
            Dialogs::exec(*box, {Dialogs::Kind::MesDlg, {}, message, explanation, nullptr});
        if (Dialogs::installedScript()) return answer.button;
        return mesDlgButtonNumber(*box, box->clickedButton());
    });
}

void GeneralMethods::ShowText(QString text, QString title) {
    Guard::run(Where::module("GeneralMethods", "ShowText").directForm(), [&] {
        winShowText window;
        window.taShow->setPlainText(text);
        window.setWindowTitle(title);
        window.AdjustWindowSize();
        Dialogs::exec(window, {Dialogs::Kind::ShowText, title, text, {}, nullptr});
        window.close();
    });
}

void GeneralMethods::ShowTimed(QString message, QString title, bool edge, int seconds) {
    Guard::run(Where::module("GeneralMethods", "ShowTimed").directForm(), [&] {
        AppGlobals::iGlobalInteger = seconds;
        AppGlobals::fGlobalBoolean = edge;
        winTimed window;
        window.taMessage->setPlainText(message);
        window.setWindowTitle(title);
        window.AdjustWindowSize();
        Dialogs::exec(window, {Dialogs::Kind::ShowTimed, title, message, {}, nullptr});
    });
}

namespace {
std::optional<int> osMajor; // asked once per run
} // namespace

void GeneralMethods::forgetVersionOS_Major() { osMajor.reset(); }

int GeneralMethods::VersionOS_Major() {
    return Guard::run(Where::module("GeneralMethods", "VersionOS_Major"), [] {
        if (osMajor) return *osMajor;
        const auto result = PlatformTools::run(QStringLiteral("sw_vers"), {QStringLiteral("-productVersion")});
        const int major = result.started && result.exitCode == 0 ? result.out.trimmed().section('.', 0, 0).toInt() : 0;
        // Only a real answer is kept: one failed call must not refuse Shortcuts for the whole run.
        if (major > 0) osMajor = major;
        return major;
    });
}

bool RtrnBoolean::rbOKCancel(QString message, int defaultButton, QString title) {
    return Guard::run(Where::module("RtrnBoolean", "rbOKCancel"), [&] {
        winOKCancel window;
        window.labMessage->setText(message);
        window.setWindowTitle(title);
        window.pbOK->setDefault(defaultButton == 1);
        window.pbCancel->setDefault(defaultButton == 2);
        window.AdjustWindowSize();
        AppGlobals::fGlobalBoolean = false; // a window ended any other way answers Cancel
        const Dialogs::Answer answer =
            Dialogs::exec(window, {Dialogs::Kind::OKCancel, title, message, {}, nullptr});
        if (Dialogs::installedScript()) AppGlobals::fGlobalBoolean = answer.accepted;
        const bool ok = AppGlobals::fGlobalBoolean;
        window.close();
        return ok;
    });
}
