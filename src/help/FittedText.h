#pragma once
#include <QString>

class QLabel;

// A user's text in a label of fixed width: shown whole when it fits, else cut at the label's
// width with "…" (never inside a character) and shown whole in the label's tooltip.
namespace FittedText {
void set(QLabel* label, const QString& text);
}
