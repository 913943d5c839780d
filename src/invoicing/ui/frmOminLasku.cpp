#include "invoicing/ui/frmOminLasku.h"

#include "core/MainModule.h"
#include "core/ui/Tietueikkuna.h"
#include "invoicing/LaskupohjaKaytto.h"
#include "invoicing/Laskutuslistat.h"
#include "invoicing/ui/Lomakekentat.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>

using lomake::kentta;
using lomake::ruutu;

frmOminLasku::frmOminLasku(QWidget *parent)
    : Laskutusikkuna(parent, {"frmOminLasku", QStringLiteral("Ominaisuuslaskutus"), Laskuikkuna::Ominaisuus,
                              QStringLiteral("Laskutettavat:"), false, true, true, true, "tTilisiirtoteksti"})
{
    rakenna();
    resize(1000, 640);
}

QWidget *frmOminLasku::rakennaRivit()
{
    auto *ryhma = new QGroupBox(QStringLiteral("Laskurivit"), this);
    auto *g = new QGridLayout(ryhma);
    int sarake = 0;
    for (const char *o : {"Ominaisuus", "Lkm", "á hinta", "Hinta", "Lkm", "Minimi", "Nollat", "Rivin teksti:"})
        g->addWidget(new QLabel(QString::fromUtf8(o), ryhma), 0, sarake++);
    for (int i = 0; i < 4; ++i) {
        cmbOminaisuus[i] = new QComboBox(ryhma);
        cmbOminaisuus[i]->setObjectName(QStringLiteral("cmbOminaisuus%1").arg(i));
        cmbOminaisuus[i]->setMinimumContentsLength(16);
        cmbOminaisuus[i]->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
        chkLkm[i] = ruutu(ryhma, QStringLiteral("chkLkm%1").arg(i), {}, QStringLiteral("Lukumäärä jäsenen ominaisuudesta, hinta tästä"));
        tAHinta[i] = kentta(ryhma, QStringLiteral("tAHinta%1").arg(i), 20, 90);
        chkHinta[i] = ruutu(ryhma, QStringLiteral("chkHinta%1").arg(i), {}, QStringLiteral("Hinta jäsenen ominaisuudesta, lukumäärä tästä"));
        tLkm[i] = kentta(ryhma, QStringLiteral("tLkm%1").arg(i), 20, 70);
        tMinimi[i] = kentta(ryhma, QStringLiteral("tMinimi%1").arg(i), 20, 90);
        chkNollat[i] = ruutu(ryhma, QStringLiteral("chkNollat%1").arg(i), {}, QStringLiteral("Tee rivi myös, kun sen summa on nolla"));
        tAiheTeksti[i] = kentta(ryhma, QStringLiteral("tAiheTeksti%1").arg(i), 255);
        tAiheTeksti[i]->setToolTip(QStringLiteral("<OM.LKM:0> tuo tekstiin jäsenen lukumäärän ja <OM.ARVO:0> arvon"));
        const int r = i + 1;
        g->addWidget(cmbOminaisuus[i], r, 0);
        g->addWidget(chkLkm[i], r, 1, Qt::AlignCenter);
        g->addWidget(tAHinta[i], r, 2);
        g->addWidget(chkHinta[i], r, 3, Qt::AlignCenter);
        g->addWidget(tLkm[i], r, 4);
        g->addWidget(tMinimi[i], r, 5);
        g->addWidget(chkNollat[i], r, 6, Qt::AlignCenter);
        g->addWidget(tAiheTeksti[i], r, 7);
    }
    chkTulostaNollat = new QCheckBox(QStringLiteral("Tulosta nolla summaiset laskut"), ryhma);
    chkTulostaNollat->setObjectName(QStringLiteral("chkTulostaNollat"));
    g->addWidget(chkTulostaNollat, 5, 0, 1, 4);
    g->setColumnStretch(7, 1);
    return ryhma;
}

void frmOminLasku::lataaRivit(db::Database &d)
{
    const QVector<ListaRivi> valinnat = OminaisuusValinnat(d);
    for (QComboBox *c : cmbOminaisuus) {
        c->clear();
        for (const ListaRivi &r : valinnat)
            c->addItem(r.teksti, r.id);
    }
}

OminaisuusAjo frmOminLasku::lomake() const
{
    OminaisuusAjo l;
    static_cast<LaskunYlatiedot &>(l) = ylatiedot();
    for (int i = 0; i < 4; ++i)
        l.rivit[i] = {cmbOminaisuus[i]->currentData().toLongLong(), chkLkm[i]->isChecked(), chkHinta[i]->isChecked(),
                      chkNollat[i]->isChecked(), tAHinta[i]->text(), tLkm[i]->text(), tMinimi[i]->text(),
                      tAiheTeksti[i]->text()};
    l.chkTulostaNollat = chkTulostaNollat->isChecked();
    l.saajat = saajat();
    return l;
}

void frmOminLasku::kaytaPohjaa(int indeksi)
{
    OminaisuusAjo l = lomake();
    QVector<qint64> piIdt;
    for (int i = 0; i < cmbOminaisuus[0]->count(); ++i)
        piIdt << cmbOminaisuus[0]->itemData(i).toLongLong();
    if (!KaytaValittuaLaskupohjaa(MainModule::DatabasePath, indeksi, l, piIdt))
        return;
    kirjoitaYlatiedot(l);
    for (int i = 0; i < 4; ++i) {
        const OminaisuusLaskurivi &r = l.rivit[i];
        cmbOminaisuus[i]->setCurrentIndex(std::max(0, cmbOminaisuus[i]->findData(r.cmbOminaisuus)));
        chkLkm[i]->setChecked(r.chkLkm);
        chkHinta[i]->setChecked(r.chkHinta);
        chkNollat[i]->setChecked(r.chkNollat);
        tAHinta[i]->setText(r.tAHinta);
        tLkm[i]->setText(r.tLkm);
        tMinimi[i]->setText(r.tMinimi);
        tAiheTeksti[i]->setText(r.tAiheTeksti);
    }
}

Laskutustulos frmOminLasku::aja(const Ajo &ajo, bool jasenikkunaAuki)
{
    return LisaaOminaisuuslaskut(ajo, lomake(), jasenikkunaAuki);
}

void AvaaOminaisuuslaskut(QWidget *parent)
{
    static QPointer<QWidget> auki;
    tietue::AvaaKerran(auki, [parent]() -> QWidget * {
        auto w = std::make_unique<frmOminLasku>(parent);
        return w->Lataa() ? w.release() : nullptr;
    });
}
