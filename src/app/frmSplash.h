// The splash window that carries the whole database start while it is on the screen.
#pragma once

#include <QWidget>

class QEventLoop;
class QFrame;
class QLabel;
class QTimer;

class frmSplash : public QWidget {
    Q_OBJECT
public:
    // `viiveMs`: how long the window stays before the database is opened.
    explicit frmSplash(int viiveMs = 2000, QWidget *parent = nullptr);

    // Shows the window, waits for the timer (or a key or click), checks the currency symbol,
    // lets the user pick the club in several-clubs mode, opens the database and shows the club.
    // Hides the window at the end. False when the program must end at once.
    bool Form_Load();

    QFrame *Frame1;
    QLabel *lblProductName;
    QLabel *lblVersion;
    QLabel *lblRegName;
    QTimer *Timer1;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;

private:
    void lopetaOdotus();
    QEventLoop *m_odotus = nullptr;
};
