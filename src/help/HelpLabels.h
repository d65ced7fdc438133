#pragma once
#include <QColor>
#include <QLabel>

// Labels that make a piece of text in any window a door to the help table. Each knows a help id
// and calls Help::ShowHelp with it when clicked. They take the mouse press, so that the release
// reaches them.
//
// Colours are set through the label's palette (its foreground role); a style sheet colour on
// these labels would hide the hover colours.

// A click shows help; no change on hover. Its text is usually the one character "ⓘ".
class labInfo : public QLabel {
    Q_OBJECT

public:
    explicit labInfo(QWidget* parent = nullptr);

    int ID() const { return helpID; }
    void setID(int id) { helpID = id; }

    void MouseUp(Qt::KeyboardModifiers modifiers);

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    int helpID = 0;
};

// Changes colour while the pointer is over it; a click shows help. With requireShift set, only
// a click with Option or Shift held does, so that a label that also shows changing text (the
// palette window's tip) doesn't open help at a plain click.
class labZor : public QLabel {
    Q_OBJECT

public:
    explicit labZor(QWidget* parent = nullptr);

    int ID() const { return helpID; }
    void setID(int id) { helpID = id; }
    QColor enterColor() const { return enter; }
    void setEnterColor(const QColor& colour) { enter = colour; }
    QColor exitColor() const { return exit; }
    void setExitColor(const QColor& colour); // the resting colour: shown at once
    bool turnBold() const { return bold; }
    void setTurnBold(bool on) { bold = on; }
    bool requireShift() const { return shiftRule; }
    void setRequireShift(bool on) { shiftRule = on; }

    // The colour shown now, without changing the resting colour that the next exit brings back.
    void setTextColour(const QColor& colour);
    QColor textColour() const;

    // Whether a click with these modifier keys opens help.
    bool opensHelp(Qt::KeyboardModifiers modifiers) const;

    void MouseEnter();
    void MouseExit();
    void MouseUp(Qt::KeyboardModifiers modifiers);

signals:
    void mouseEntered();
    void mouseExited();

protected:
    // What a subclass adds to the hover; the defaults tell the instance by the signals above.
    virtual void MouseEnterInstance() { emit mouseEntered(); }
    virtual void MouseExitInstance() { emit mouseExited(); }

    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    int helpID = 0;
    QColor enter{0x00, 0x96, 0xFF};
    QColor exit{0x00, 0x00, 0x00};
    bool bold = false;
    bool shiftRule = false;
};

// A labZor that shows itself on hover when it is empty or hidden: an empty label then shows
// invisibleDefaultText until the pointer leaves. The palette window's shortcut label rests empty
// and shows "*" under the pointer, so that the user finds the door to its help.
class labZorVisible : public labZor {
    Q_OBJECT

public:
    explicit labZorVisible(QWidget* parent = nullptr);

    QString invisibleDefaultText;
    bool statusVisible = true;    // visibility before the pointer came
    bool statusTextEmpty = false; // the text was empty before the pointer came

protected:
    void MouseEnterInstance() override;
    void MouseExitInstance() override;
};
