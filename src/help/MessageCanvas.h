#pragma once
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QWidget>
#include <functional>

// A plain drawing surface whose paint and mouse events go to handlers of the window it sits in.
class MessageCanvas : public QWidget {
public:
    using QWidget::QWidget;

    std::function<void(QPainter&)> onPaint;
    std::function<bool()> onMouseDown; // true claims the press, so that the release arrives
    std::function<void()> onMouseUp;

protected:
    void paintEvent(QPaintEvent*) override {
        if (!onPaint) return;
        QPainter painter(this);
        onPaint(painter);
    }
    void mousePressEvent(QMouseEvent* event) override {
        if (onMouseDown && onMouseDown())
            event->accept();
        else
            event->ignore();
    }
    void mouseReleaseEvent(QMouseEvent* event) override {
        if (onMouseUp) onMouseUp();
        event->accept();
    }
};
