#include "util/MenuBars.h"

#include <QApplication>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QTextEdit>

namespace {
std::optional<bool> forced;

// Qt's Ctrl is the Command key on the Mac.
QKeySequence cmd(Qt::Key key) {
    return QKeySequence(Qt::CTRL | key);
}

// The Edit items act on whichever text control has the focus, in any window.
void sendToFocus(const char* slot) {
    if (QWidget* focus = QApplication::focusWidget()) QMetaObject::invokeMethod(focus, slot);
}

// Delete takes away the selection only, as on the Mac; the text controls' own clear() empties them.
void deleteSelection() {
    QWidget* focus = QApplication::focusWidget();
    if (auto* line = qobject_cast<QLineEdit*>(focus)) {
        if (line->hasSelectedText()) line->del();
    } else if (auto* plain = qobject_cast<QPlainTextEdit*>(focus)) {
        plain->textCursor().removeSelectedText();
    } else if (auto* rich = qobject_cast<QTextEdit*>(focus)) {
        rich->textCursor().removeSelectedText();
    }
}

QAction* item(QMenu* menu, const char* name, const QString& text, const QKeySequence& shortcut = {}) {
    QAction* action = menu->addAction(text);
    action->setObjectName(name);
    action->setShortcut(shortcut);
    return action;
}
} // namespace

namespace {
bool macPlatform() {
    return forced ? *forced : QGuiApplication::platformName() == QLatin1String("cocoa");
}
} // namespace

bool MenuBars::global() {
    if (forced) return *forced;
    return macPlatform() && !QCoreApplication::testAttribute(Qt::AA_DontUseNativeMenuBar);
}

Qt::KeyboardModifier MenuBars::controlKey() {
    const bool swapped = macPlatform() && !QCoreApplication::testAttribute(Qt::AA_MacDontSwapCtrlAndMeta);
    return swapped ? Qt::MetaModifier : Qt::ControlModifier;
}

void MenuBars::setGlobalForTesting(std::optional<bool> global) {
    forced = global;
}

QMenu* MenuBars::addEditMenu(QMenuBar& bar) {
    QMenu* menu = bar.addMenu("&Edit");
    menu->setObjectName("EditMenu");
    const auto add = [menu](const char* name, const QString& text, const QKeySequence& keys, auto act) {
        QObject::connect(item(menu, name, text, keys), &QAction::triggered, menu, act);
    };
    add("EditUndo", "&Undo", cmd(Qt::Key_Z), [] { sendToFocus("undo"); });
    menu->addSeparator()->setObjectName("EditSeparator1");
    add("EditCut", "Cu&t", cmd(Qt::Key_X), [] { sendToFocus("cut"); });
    add("EditCopy", "&Copy", cmd(Qt::Key_C), [] { sendToFocus("copy"); });
    add("EditPaste", "&Paste", cmd(Qt::Key_V), [] { sendToFocus("paste"); });
    add("EditClear", "&Delete", {}, deleteSelection);
    menu->addSeparator()->setObjectName("EditSeparator2");
    add("EditSelectAll", "Select &All", cmd(Qt::Key_A), [] { sendToFocus("selectAll"); });
    return menu;
}

void MenuBars::giveEditMenu(QWidget& window) {
    if (!global() || window.findChild<QMenuBar*>()) return;
    const bool textFields = window.findChild<QLineEdit*>() || window.findChild<QPlainTextEdit*>() ||
                            window.findChild<QTextEdit*>();
    if (!textFields) return;
    auto* bar = new QMenuBar(&window);
    bar->setObjectName("EditMenuBar");
    addEditMenu(*bar);
}
