// The plain run with a sales type on each row ("Laskutus Pro").
#pragma once

#include "invoicing/ui/frmMaksujenLuonti.h"

class frmPROMaksujenLuonti : public frmMaksujenLuonti {
    Q_OBJECT
public:
    explicit frmPROMaksujenLuonti(QWidget *parent = nullptr);

    std::array<QComboBox *, 4> cmbMyyntiLaji;

    ProMaksujenLuontiLomake proLomake() const;

protected:
    QWidget *rakennaRivit() override;
    Laskutustulos aja(const Ajo &ajo, bool jasenikkunaAuki) override;
    void lataaRivit(db::Database &d) override;
    // Coming back from the sales-type list shows its changes in the rows' boxes.
    bool event(QEvent *e) override;

private:
    void taytaMyyntilajit(db::Database &d);
};

void AvaaLaskutusPro(QWidget *parent);
