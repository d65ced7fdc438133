#pragma once
#include <QPlainTextEdit>
#include <QString>
#include <QStringView>

class QLineEdit;

// What a user sees as one character: a letter with its accents, an emoji with its skin tone, a
// flag, a family joined into one picture. Every limit of a field and every cut of a text counts
// these, never the 16-bit units of a QString, so that a cut never splits what was typed as one.
namespace Characters {

qsizetype count(QStringView text);
// The first `n` characters of `text`.
QString left(const QString& text, qsizetype n);

// Holds what the user types or pastes into `field` to `limit` characters: a key past the limit is
// refused with the cursor where it was, and a paste is cut to what still fits. A text that the
// program puts into the field is kept whole, however long: the user may shorten it, not lengthen it.
void limit(QLineEdit* field, qsizetype limit);

} // namespace Characters

// A plain text area that holds the user's typing and pasting to a number of characters, as
// Characters::limit holds a field. Text set by the program is kept whole.
class LimitedTextArea : public QPlainTextEdit {
    Q_OBJECT
public:
    explicit LimitedTextArea(QWidget* parent = nullptr) : QPlainTextEdit(parent) {}
    void setCharacterLimit(qsizetype limit) { characterLimit = limit; }
    qsizetype limit() const { return characterLimit; }

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void insertFromMimeData(const QMimeData* source) override;

private:
    // `typed` as much of it as fits in place of the selection; empty when nothing fits.
    QString fitting(const QString& typed) const;
    qsizetype characterLimit = -1; // none
};
