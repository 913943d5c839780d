// Moniliitos: attaches an attribute to the members ticked by hand.
#pragma once

#include <QDialog>

class ListaMalli;
class LiitosPohja;
class QListView;
class QPushButton;

class frmMoniliitos : public QDialog {
    Q_OBJECT
public:
    explicit frmMoniliitos(QWidget *parent = nullptr);

    QListView *lstJR;
    QPushButton *cValitseKaikki, *cEiValintoja, *cLisaa, *cSulje;
    LiitosPohja *pohja;

private:
    void lisaa();
    ListaMalli *m_jasenet;
};

// Opens the dialog modally over the member window.
void AvaaMoniliitos(QWidget *parent);
