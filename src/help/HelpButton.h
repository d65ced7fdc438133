#pragma once
#include <QRect>
#include <QString>

class QPushButton;
class QWidget;

// The round help button with a question mark, one look in every window.
namespace HelpButton {
QPushButton* round(QWidget* parent, const char* name, const QRect& geometry);
// A round button in the window's top right corner whose press shows the help record `helpID`.
// `owner` names the window in failure reports.
QPushButton* make(QWidget* window, const char* name, int helpID, const QString& owner);
} // namespace HelpButton
