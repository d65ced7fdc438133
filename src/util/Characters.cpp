#include "util/Characters.h"

#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMimeData>
#include <QTextBoundaryFinder>
#include <QValidator>
#include <algorithm>

namespace {
// Takes `n` characters away just before `position`: those that were just typed or pasted there.
void cutBefore(QString& text, int& position, qsizetype n) {
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text);
    finder.setPosition(position);
    qsizetype start = position;
    for (; n > 0; --n) {
        const qsizetype boundary = finder.toPreviousBoundary();
        if (boundary < 0) break;
        start = boundary;
    }
    text.remove(start, position - start);
    position = int(start);
}

// A QLineEdit runs its validator on every change, the user's and the program's alike; only the
// user's make the field count as modified until the program next sets its text.
class LimitValidator : public QValidator {
public:
    LimitValidator(QLineEdit* field, qsizetype limit) : QValidator(field), field(field), limit(limit) {}

    State validate(QString& input, int& position) const override {
        if (field->isModified()) {
            const qsizetype allowed = std::max(limit, Characters::count(previous));
            const qsizetype n = Characters::count(input);
            if (n > allowed) {
                cutBefore(input, position, n - allowed);
                // Nothing of it fits: refused, and the field puts back its text and cursor.
                if (input == previous) return Invalid;
            }
        }
        previous = input;
        return Acceptable;
    }

private:
    QLineEdit* field;
    qsizetype limit;
    mutable QString previous; // the text before the change being validated
};
} // namespace

qsizetype Characters::count(QStringView text) {
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text);
    qsizetype n = 0;
    while (finder.toNextBoundary() >= 0)
        ++n;
    return n;
}

QString Characters::left(const QString& text, qsizetype n) {
    if (n <= 0) return {};
    if (text.size() <= n) return text; // a character is at least one unit
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text);
    qsizetype end = 0;
    for (; n > 0; --n) {
        const qsizetype boundary = finder.toNextBoundary();
        if (boundary < 0) return text;
        end = boundary;
    }
    return text.left(end);
}

void Characters::limit(QLineEdit* field, qsizetype limit) {
    field->setValidator(new LimitValidator(field, limit));
}

QString LimitedTextArea::fitting(const QString& typed) const {
    if (characterLimit < 0) return typed;
    const QString text = toPlainText();
    const QTextCursor cursor = textCursor();
    const QString kept = text.left(cursor.selectionStart()) + text.mid(cursor.selectionEnd());
    const qsizetype allowed = std::max(characterLimit, Characters::count(text));
    return Characters::left(typed, allowed - Characters::count(kept));
}

void LimitedTextArea::keyPressEvent(QKeyEvent* event) {
    const bool newLine = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    const QString typed = newLine ? QStringLiteral("\n") : event->text();
    const char32_t first = typed.isEmpty() ? 0 : typed.toUcs4().front();
    const bool inserts = first == '\n' || first == '\t' || QChar::isPrint(first);
    if (inserts && fitting(typed).isEmpty()) {
        event->accept(); // refused: the text and the cursor stay as they are
        return;
    }
    QPlainTextEdit::keyPressEvent(event);
}

void LimitedTextArea::inputMethodEvent(QInputMethodEvent* event) {
    if (event->commitString().isEmpty()) return QPlainTextEdit::inputMethodEvent(event);
    QInputMethodEvent cut(event->preeditString(), event->attributes());
    cut.setCommitString(fitting(event->commitString()), event->replacementStart(),
                        event->replacementLength());
    QPlainTextEdit::inputMethodEvent(&cut);
}

void LimitedTextArea::insertFromMimeData(const QMimeData* source) {
    if (!source->hasText()) return QPlainTextEdit::insertFromMimeData(source);
    QMimeData cut;
    cut.setText(fitting(source->text()));
    QPlainTextEdit::insertFromMimeData(&cut);
}
