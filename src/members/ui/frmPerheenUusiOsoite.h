// The new address of a family: asked once, then written to every member of the family.
#pragma once

#include "members/Perhe.h"

#include <QDialog>

class QLineEdit;

class frmPerheenUusiOsoite : public QDialog {
    Q_OBJECT

public:
    explicit frmPerheenUusiOsoite(QWidget *parent = nullptr);
    // The fields start from the member's own address.
    void Aseta(const PerheenOsoite &osoite);

    // The result: left Cancelled unless "Tallenna" was pressed.
    bool Cancelled = true;
    QString Osoite, Postinumero, Postitoimipaikka, Maa;

    QLineEdit *tOsoite = nullptr, *tPostinumero = nullptr, *tPostitoimipaikka = nullptr, *tMaa = nullptr;

protected:
    bool eventFilter(QObject *o, QEvent *e) override;

private:
    void cTallenna_Click();
};
