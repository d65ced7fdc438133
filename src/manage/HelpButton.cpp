#include "manage/HelpButton.h"

#include "help/Help.h"
#include "util/Guard.h"

#include <QPushButton>

QPushButton* HelpButton::Make(QWidget* window, const char* name, int helpID, const QString& owner) {
    constexpr int side = 22;
    auto* button = new QPushButton(QStringLiteral("?"), window);
    button->setObjectName(name);
    button->setGeometry(window->width() - side - 10, 10, side, side);
    button->setAutoDefault(false);
    button->setFocusPolicy(Qt::NoFocus);
    button->setToolTip(QStringLiteral("Help"));
    button->setStyleSheet(QStringLiteral(
        "QPushButton { border: 1px solid #A0A0A0; border-radius: 11px; color: #303030; font-weight: bold;"
        " background: qlineargradient(x1:0, y1:0, x2:0, y2:1, stop:0 #FFFFFF, stop:1 #E4E4E4); }"
        "QPushButton:pressed { background: #C8C8C8; }"));
    QObject::connect(button, &QPushButton::clicked, button, [helpID, owner, control = QString(name)] {
        const auto where = Guard::Where::controlEvent(owner, control, "Pressed");
        Guard::run(where, [helpID] { Help::ShowHelp(helpID); });
    });
    return button;
}
