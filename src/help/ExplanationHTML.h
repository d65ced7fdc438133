#pragma once
#include <QString>

namespace GeneralMethods {

// Shows `html` in a modal explanation window with `title`. A width or height of 0 lets the
// window fit itself to the text; other sizes are held within 350 x 250 to 2000 x 1600. The window
// stands at the upper right of the screen.
void ShowExplanationHTML(QString html, QString title, int width, int height);

} // namespace GeneralMethods
