#pragma once
#include <QString>
#include <QStringList>

#include <memory>

class QDialog;
class QMessageBox;

// The one door through which the program talks to the user modally: message boxes, the beep,
// its own modal windows and the open-file dialog. By default each shows the real thing. A test
// installs a Script, which sees every request verbatim and answers it, so nothing ever waits in
// a modal loop.
namespace Dialogs {

enum class Kind {
    Message,     // the plain message box with one string
    MesDlg,      // native message dialog with up to three buttons
    OKCancel,    // winOKCancel
    ShowText,    // winShowText
    ShowTimed,   // winTimed
    ExplainHTML, // winExplainHTML
    Help,        // help windows
    Window,      // any other modal window of the menus
    OpenFile,    // open-file dialog
    Beep,
};

struct Request {
    Kind kind = Kind::Message;
    QString title;
    QString text;
    QString detail;      // explanation, HTML, filter or start folder, depending on the kind
    QDialog* dialog = nullptr; // the built window, for scripts that want to look at it
};

struct Answer {
    int button = 0;        // MesDlg: 1 action, 2 alternate, 0 cancel; QDialog result otherwise
    bool accepted = false; // OK pressed (OKCancel), file chosen (OpenFile)
    QString file;          // OpenFile: the chosen path
};

class Script {
public:
    virtual ~Script() = default;
    virtual Answer answer(const Request& request) = 0;
};

void installScript(Script* script); // nullptr brings back the real dialogs
Script* installedScript();

void message(const QString& text); // the plain message box
// That box, built: its text is shown as written, never as HTML, for it often carries a user's names.
std::unique_ptr<QMessageBox> plainMessageBox(const QString& text);
void beep();
// Runs a built modal window, or hands it to the script. Returns the script's answer, or the
// window's result code in `button` and `accepted` for QDialog::Accepted. Where the menu bar is the
// Mac's, a window with text fields first gets its own Edit menu (MenuBars::giveEditMenu).
Answer exec(QDialog& dialog, Request request);
// The open-file dialog; empty when cancelled.
QString openFile(const QString& prompt, const QString& nameFilter, const QString& startFolder);

} // namespace Dialogs
