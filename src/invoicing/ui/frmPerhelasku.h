// The family run's window: one invoice to each family's payer, a price per member of each class
// and one per family, and two free rows.
#pragma once

#include "invoicing/ui/Laskutusikkuna.h"

#include <array>

class frmPerhelasku : public Laskutusikkuna {
    Q_OBJECT
public:
    explicit frmPerhelasku(QWidget *parent = nullptr);

    // The classes at 0 to 7 and the family's own row at 8.
    std::array<QCheckBox *, 9> chkPerheLuokka, chkNimet, chkNollat;
    std::array<QLineEdit *, 9> tSumma, tAiheTeksti;
    std::array<QCheckBox *, 2> chkRivi;
    std::array<QLineEdit *, 2> tRiviTeksti, tRiviSumma;

    PerheLomake lomake() const;

protected:
    QWidget *rakennaRivit() override;
    Laskutustulos aja(const Ajo &ajo, bool jasenikkunaAuki) override;
    QVector<ListaRivi> nimet(db::Database &d) override;
    void kaytaPohjaa(int indeksi) override;
};

void AvaaPerhelaskut(QWidget *parent);
