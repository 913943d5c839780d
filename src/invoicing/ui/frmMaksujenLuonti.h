// The plain invoice run: one invoice to each chosen person with the same header and up to four
// rows, and the running total.
#pragma once

#include "invoicing/ui/Laskutusikkuna.h"

#include <array>

class frmMaksujenLuonti : public Laskutusikkuna {
    Q_OBJECT
public:
    explicit frmMaksujenLuonti(QWidget *parent = nullptr);

    std::array<QCheckBox *, 4> chkRivi;
    std::array<QLineEdit *, 4> tRiviTeksti, tRiviSumma;
    QLineEdit *tSumma;

    // What the user has typed, as the run reads it.
    MaksujenLuontiLomake lomake() const;

protected:
    // For the sales-type window: the same rows under its own texts.
    frmMaksujenLuonti(QWidget *parent, Asetelma asetelma);

    QWidget *rakennaRivit() override;
    Laskutustulos aja(const Ajo &ajo, bool jasenikkunaAuki) override;
    void lataaRivit(db::Database &d) override;
    void kaytaPohjaa(int indeksi) override;
    // The row grid, for a window that adds a column to it.
    class QGridLayout *m_rivit = nullptr;

private:
    void paivitaSumma();
    void riviValittu(int i);
};

// Opens the window once; refused when no database is set.
void AvaaLaskutus(QWidget *parent);
