// "Vonari - Laskumalli": which invoice layout prints — the giro form, the general invoice or the
// member-card invoice — in Finnish or in both languages. The choice is remembered until the
// program closes.
#pragma once

#include "invoicing/Laskujentulostus.h"

#include <QDialog>
#include <QVector>

class QPushButton;
class QRadioButton;

class frmLaskumalli : public QDialog {
    Q_OBJECT
public:
    explicit frmLaskumalli(QWidget *parent = nullptr);

    QVector<QRadioButton *> optLaskumalli; // 0 "Tilisiirto", 1 "Yleislasku", 2 "Jäsenkortti"
    QVector<QRadioButton *> optKieli;      // 0 "Suomeksi", 1 "Kaksikielinen"
    QPushButton *cSeuraava;

    Laskumallivalinta valinta() const;

private:
    void cSeuraava_Click();
};

// Shows the window modally; nothing when the user closed it without "Seuraava >>".
std::optional<Laskumallivalinta> KysyLaskumalli(QWidget *parent);
