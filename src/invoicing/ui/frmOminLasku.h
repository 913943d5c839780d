// The attribute run's window: four rows priced from the members' attribute values.
#pragma once

#include "invoicing/Ominaisuuslaskuajo.h"
#include "invoicing/ui/Laskutusikkuna.h"

#include <array>

class frmOminLasku : public Laskutusikkuna {
    Q_OBJECT
public:
    explicit frmOminLasku(QWidget *parent = nullptr);

    std::array<QComboBox *, 4> cmbOminaisuus;
    std::array<QCheckBox *, 4> chkLkm, chkHinta, chkNollat;
    std::array<QLineEdit *, 4> tAHinta, tLkm, tMinimi, tAiheTeksti;
    QCheckBox *chkTulostaNollat;

    OminaisuusAjo lomake() const;

protected:
    QWidget *rakennaRivit() override;
    Laskutustulos aja(const Ajo &ajo, bool jasenikkunaAuki) override;
    void lataaRivit(db::Database &d) override;
    void kaytaPohjaa(int indeksi) override;
};

void AvaaOminaisuuslaskut(QWidget *parent);
