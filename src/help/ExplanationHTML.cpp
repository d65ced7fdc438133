#include "help/ExplanationHTML.h"

#include "help/winExplainHTML.h"
#include "util/Guard.h"

void GeneralMethods::ShowExplanationHTML(QString html, QString title, int width, int height) {
    Guard::run(Guard::Where::module("GeneralMethods", "ShowExplanationHTML"), [&] {
        winExplainHTML window;
        window.PrepareAndShowWindow(html, title, width, height);
        window.close();
    });
}
