#pragma once
#include <QString>

class QAbstractButton;
class QMessageBox;

// What the program says to the user outside its working windows.
namespace GeneralMethods {

// A native message dialog: 1 for the action button, 2 for the alternate, 0 for Cancel.
// The cancel button shows only when asked for, the alternate only when it has a caption.
int MesDlg(QString message, QString explanation, QString actionCaption, bool showCancel,
           QString alternateCaption);
// MesDlg's number for a button of its box.
int mesDlgButtonNumber(QMessageBox& box, QAbstractButton* clicked);

// A long text in a modal, scrolling window.
void ShowText(QString text, QString title);
// A modal message that closes by itself after `seconds`; `edge` picks the look of its disk.
void ShowTimed(QString message, QString title, bool edge, int seconds);

// The major version of macOS; 0 where it cannot be told. Asked once per run.
int VersionOS_Major();
void forgetVersionOS_Major(); // the next call asks the system again

} // namespace GeneralMethods

namespace RtrnBoolean {
// Asks an OK or Cancel question; true for OK. `defaultButton` 1 makes OK the default, 2 Cancel,
// anything else neither.
bool rbOKCancel(QString message, int defaultButton, QString title);
} // namespace RtrnBoolean
