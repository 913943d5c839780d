// The attachment template of the attaching dialogs: the attribute to attach, the values it is
// given in this run (the definition's defaults to start with), and the repeat guard.
#pragma once

#include "members/PiirreArvot.h"

#include <QWidget>

class ArvoPaneeli;
class QCheckBox;
class QListWidget;

class LiitosPohja : public QWidget {
    Q_OBJECT
public:
    explicit LiitosPohja(QWidget *parent = nullptr);

    // The definitions by name; with `poistaTyhjat` the blank ones are deleted first, as the
    // hand-picking dialog does.
    void tayta(bool poistaTyhjat);
    // The chosen attribute's piID, 0 when none is chosen.
    qint64 valittu() const;
    ArvoSyote syote() const;
    bool vainUusille() const;
    // Empties the boxes whose values were refused in the run.
    void tyhjenna(const std::array<bool, ArvoTyyppeja> &mitka);

    QListWidget *lstAllPt;
    ArvoPaneeli *arvot;
    QCheckBox *chkEstaToistot;

private:
    void lstAllPt_Click();
};
