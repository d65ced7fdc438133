#pragma once
#include <QDate>
#include <QDialog>
#include <QIcon>
#include <QLocale>

class MessageCanvas;
class QLabel;
class QPainter;
class QPlainTextEdit;
class QPushButton;
class StaticURL;

// The program's name, version, release date, purpose, credits and home page.
class winAboutBox : public QDialog {
    Q_OBJECT

public:
    explicit winAboutBox(QWidget* parent = nullptr);

    MessageCanvas* Icon64;
    QPushButton* pbDone;
    QLabel* labName;
    QLabel* labVersion;
    QLabel* labDescription;
    QPlainTextEdit* taCredits;
    QLabel* labReleaseDate;
    QLabel* labCopyright;
    StaticURL* suHomePage;

    void Icon64_Paint(QPainter& g);
    void pbDone_Pressed();
    void labVersion_Opening();
    void labDescription_Opening();
    void taCredits_Opening();
    void labReleaseDate_Opening();
    void labCopyright_Opening();
    void suHomePage_Opening();

    // "Version 1.4", and the version string after a blank when there is one.
    static QString versionText(const QString& applicationVersion, const QString& versionString);
    static QString descriptionText(const QString& description);
    static QString releaseDateText(const QDate& built, const QLocale& locale = QLocale());
    // The compiler's "Mmm dd yyyy" date stamp; invalid when it cannot be read.
    static QDate compilerDate(const char* stamp);
    static QDate buildDate();

    static const QString kCopyright;
    static const QString kHomePage;
};

// The application's picture for the windows' title bars where the system does not give one.
QIcon applicationIcon();

// Builds the about window and shows it modally.
void showAboutBox();
