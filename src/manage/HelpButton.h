#pragma once
#include <QString>

class QPushButton;
class QWidget;

namespace HelpButton {
// The round help button without caption in the window's top right corner; a press shows the
// help record `helpID`. `owner` names the window in failure reports.
QPushButton* Make(QWidget* window, const char* name, int helpID, const QString& owner);
} // namespace HelpButton
