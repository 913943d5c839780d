#include "invoicing/ui/frmPerhelasku.h"

#include "core/MainModule.h"
#include "core/ui/Tietueikkuna.h"
#include "invoicing/LaskupohjaKaytto.h"
#include "invoicing/Laskutuslistat.h"
#include "invoicing/ui/Lomakekentat.h"
#include "invoicing/Perhelaskuajo.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>

using lomake::kentta;
using lomake::ruutu;

frmPerhelasku::frmPerhelasku(QWidget *parent)
    : Laskutusikkuna(parent, {"frmPerhelasku", QStringLiteral("Perhelaskutus"), Laskuikkuna::Perhe, QStringLiteral("Perhe:"),
                              false, true, true, true, "tTilisiirtoteksti"})
{
    rakenna();
    resize(940, 720);
}

QWidget *frmPerhelasku::rakennaRivit()
{
    static const char *const otsikot[9] = {"Aikuinen", "Nuoriso", "Lapsi", "Sisarus 1", "Sisarus 2",
                                           "Sisarus 3", "Sisarus 4", "Sisarus 5", "Perhe"};
    auto *ryhma = new QGroupBox(QStringLiteral("Laskurivit"), this);
    auto *g = new QGridLayout(ryhma);
    int sarake = 1;
    for (const char *o : {"Á-hinta", "Aiheteksti", "Nimet", "Nollat"})
        g->addWidget(new QLabel(QString::fromUtf8(o), ryhma), 0, sarake++);
    for (int i = 0; i < 9; ++i) {
        chkPerheLuokka[i] = ruutu(ryhma, QStringLiteral("chkPerheLuokka%1").arg(i), QString::fromUtf8(otsikot[i]));
        tSumma[i] = kentta(ryhma, QStringLiteral("tSumma%1").arg(i), 20, 110);
        tAiheTeksti[i] = kentta(ryhma, QStringLiteral("tAiheTeksti%1").arg(i), 255);
        chkNimet[i] = ruutu(ryhma, QStringLiteral("chkNimet%1").arg(i));
        chkNollat[i] = ruutu(ryhma, QStringLiteral("chkNollat%1").arg(i));
        chkNimet[i]->setToolTip(QStringLiteral("Lisää rivin tekstiin perheenjäsenten nimet"));
        chkNollat[i]->setToolTip(QStringLiteral("Tee rivi myös, kun sen summa on nolla"));
        const int r = i + 1;
        g->addWidget(chkPerheLuokka[i], r, 0);
        g->addWidget(tSumma[i], r, 1);
        g->addWidget(tAiheTeksti[i], r, 2);
        g->addWidget(chkNimet[i], r, 3, Qt::AlignCenter);
        g->addWidget(chkNollat[i], r, 4, Qt::AlignCenter);
    }
    g->addWidget(new QLabel(QStringLiteral("Hinta"), ryhma), 10, 1);
    g->addWidget(new QLabel(QStringLiteral("Aiheteksti"), ryhma), 10, 2);
    for (int i = 0; i < 2; ++i) {
        chkRivi[i] = ruutu(ryhma, QStringLiteral("chkRivi%1").arg(i), QStringLiteral("Lisärivi %1").arg(i + 1));
        tRiviSumma[i] = kentta(ryhma, QStringLiteral("tRiviSumma%1").arg(i), 20, 110);
        tRiviTeksti[i] = kentta(ryhma, QStringLiteral("tRiviTeksti%1").arg(i), 255);
        g->addWidget(chkRivi[i], 11 + i, 0);
        g->addWidget(tRiviSumma[i], 11 + i, 1);
        g->addWidget(tRiviTeksti[i], 11 + i, 2);
    }
    g->setColumnStretch(2, 1);
    return ryhma;
}

QVector<ListaRivi> frmPerhelasku::nimet(db::Database &d) { return PerhelaskuNimet(d); }

PerheLomake frmPerhelasku::lomake() const
{
    PerheLomake l;
    static_cast<LaskunYlatiedot &>(l) = ylatiedot();
    for (int i = 0; i < 9; ++i)
        l.luokat[i] = {chkPerheLuokka[i]->isChecked(), tSumma[i]->text(), tAiheTeksti[i]->text(), chkNimet[i]->isChecked(),
                       chkNollat[i]->isChecked()};
    for (int i = 0; i < 2; ++i)
        l.lisarivit[i] = {chkRivi[i]->isChecked(), tRiviTeksti[i]->text(), tRiviSumma[i]->text()};
    l.saajat = saajat();
    return l;
}

void frmPerhelasku::kaytaPohjaa(int indeksi)
{
    PerheLomake l = lomake();
    if (!KaytaValittuaLaskupohjaa(MainModule::DatabasePath, indeksi, l))
        return;
    kirjoitaYlatiedot(l);
    for (int i = 0; i < 9; ++i) {
        chkPerheLuokka[i]->setChecked(l.luokat[i].chkPerheLuokka);
        tSumma[i]->setText(l.luokat[i].tSumma);
        tAiheTeksti[i]->setText(l.luokat[i].tAiheTeksti);
        chkNimet[i]->setChecked(l.luokat[i].chkNimet);
        chkNollat[i]->setChecked(l.luokat[i].chkNollat);
    }
    for (int i = 0; i < 2; ++i) {
        chkRivi[i]->setChecked(l.lisarivit[i].chkRivi);
        tRiviTeksti[i]->setText(l.lisarivit[i].tRiviTeksti);
        tRiviSumma[i]->setText(l.lisarivit[i].tRiviSumma);
    }
}

Laskutustulos frmPerhelasku::aja(const Ajo &ajo, bool jasenikkunaAuki)
{
    return LisaaPerhelaskut(ajo, lomake(), jasenikkunaAuki);
}

void AvaaPerhelaskut(QWidget *parent)
{
    static QPointer<QWidget> auki;
    tietue::AvaaKerran(auki, [parent]() -> QWidget * {
        auto w = std::make_unique<frmPerhelasku>(parent);
        return w->Lataa() ? w.release() : nullptr;
    });
}
