#pragma once
#include <QLabel>
#include <QUrl>
#include <functional>

// A label that behaves as a web link: blue and underlined, purple under the pointer, red while
// pressed; a click opens its URL in the browser.
class StaticURL : public QLabel {
    Q_OBJECT
    Q_PROPERTY(QString URL READ URL WRITE setURL)

public:
    explicit StaticURL(QWidget* parent = nullptr);

    QString URL() const { return url; }
    void setURL(const QString& address) { url = address; }

    // Colours the link, runs the instance's own handler, then settles the text: an empty text
    // shows the address, and a link with no address is hidden.
    void Opening();
    std::function<void()> onOpening;

    QColor textColour() const;

    // Where a click goes. Empty: the system browser. Tests put a recorder here.
    static std::function<void(const QUrl&)> opener;

    static constexpr QRgb kLink = 0x0000FF;
    static constexpr QRgb kHover = 0x800080;
    static constexpr QRgb kPressed = 0xFF0000;

protected:
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    void setTextColour(QRgb rgb);
    QString handlerOwner() const;

    QString url;
};
