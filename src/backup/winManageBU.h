#pragma once
#include <QDialog>

class QFrame;
class QLabel;
class QPushButton;

// Making and restoring backups of PreserveState.txt. Make Backup and a restore that succeeded close
// the window with kQuitProgram: whoever opened it then quits the program.
class winManageBU : public QDialog {
    Q_OBJECT

public:
    static constexpr int kQuitProgram = 2;

    explicit winManageBU(QWidget* parent = nullptr);

    QLabel* labPath;
    QLabel* labPreserveStatePath;
    QLabel* labPreserveState;
    QLabel* labBackUp;
    QLabel* labRestore;
    QLabel* labExplainBU;
    QLabel* labExplainRestore;
    QFrame* rectTwoHalf;
    QPushButton* pbMakeBU;
    QPushButton* pbCancel;
    QPushButton* pbCopyEmergency;
    QPushButton* pbRestoreBU;

    void pbMakeBU_Pressed();
    void pbCancel_Pressed();
    void pbCopyEmergency_Pressed();
    void pbRestoreBU_Pressed();

    // Builds the window and runs it modally; true when the program is to quit now.
    static bool showModal();
};
