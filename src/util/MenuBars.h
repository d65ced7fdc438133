#pragma once
#include <QtCore/qnamespace.h>
#include <optional>

class QMenu;
class QMenuBar;
class QWidget;

// Where menus stand: in one bar at the top of the screen for the whole program (the Mac's), or in
// a bar inside each window (elsewhere). Decided from the platform the program runs on, not from the
// system it was built for: the Mac's tests run on Qt's offscreen platform, which has no global bar.
namespace MenuBars {

bool global();
// Tests answer as the Mac does (true) or as elsewhere (false); nullopt asks the platform again.
// It answers controlKey() as well.
void setGlobalForTesting(std::optional<bool> global);

// The Control key as Qt reports it: on the Mac's platform Qt calls Command "Control" and Control
// "Meta"; elsewhere Control is Control.
Qt::KeyboardModifier controlKey();

// The Edit menu (Undo, Cut, Copy, Paste, Delete, Select All, with the Mac's keys): its items act on
// the text control that has the focus, in whichever window it stands.
QMenu* addEditMenu(QMenuBar& bar);

// On the Mac, Qt greys the program's bar while a modal window is in front, and shows the front
// window's own bar instead: a window with text fields gets one, holding the Edit menu. Elsewhere,
// and for a window without text fields, nothing is added.
void giveEditMenu(QWidget& window);

} // namespace MenuBars
