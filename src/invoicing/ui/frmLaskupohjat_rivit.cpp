// The three row panels of the template window: what each row control shows and where its edits go.
#include "platform/arvot.h"
#include "core/Schema.h"
#include "invoicing/Laskupohja.h"
#include "invoicing/LaskupohjaKaytto.h"
#include "invoicing/LaskupohjaSyote.h"
#include "invoicing/ui/frmLaskupohjat.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>

namespace {

QLabel *sarakeotsikko(QWidget *w, const QString &teksti)
{
    auto *l = new QLabel(teksti, w);
    QFont f = l->font();
    f.setBold(true);
    l->setFont(f);
    return l;
}

// A money or quantity box: narrow, numbers to the right.
QLineEdit *lukulaatikko(QWidget *w, const QString &nimi)
{
    auto *t = new QLineEdit(w);
    t->setObjectName(nimi);
    t->setAlignment(Qt::AlignRight);
    t->setFixedWidth(t->fontMetrics().horizontalAdvance(QStringLiteral("0000000,00")) + 16);
    return t;
}

QLineEdit *tekstilaatikko(QWidget *w, const QString &nimi)
{
    auto *t = new QLineEdit(w);
    t->setObjectName(nimi);
    t->setMaxLength(Schema::leveys(QStringLiteral("Laskupohjarivit"), QStringLiteral("Aiheteksti")));
    t->setMinimumWidth(t->fontMetrics().horizontalAdvance(QString(24, QLatin1Char('x'))));
    return t;
}

QCheckBox *valintaruutu(QWidget *w, const QString &nimi, const QString &teksti = {})
{
    auto *c = new QCheckBox(teksti, w);
    c->setObjectName(nimi);
    return c;
}

QString nimi(const char *perus, int i) { return QLatin1String(perus) + QString::number(i); }

} // namespace

QWidget *frmLaskupohjat::rakennaPerusrivit()
{
    auto *w = new QWidget;
    auto *g = new QGridLayout(w);
    g->addWidget(sarakeotsikko(w, QStringLiteral("Rivin teksti")), 0, 1);
    g->addWidget(sarakeotsikko(w, QStringLiteral("Hinta")), 0, 2);
    for (int i = 0; i < 4; ++i) {
        chkPerusPaalla << valintaruutu(w, nimi("chkPerusPaalla", i), QStringLiteral("Laskurivi %1:").arg(i + 1));
        tPerusAiheteksti << tekstilaatikko(w, nimi("tPerusAiheteksti", i));
        tPerusHinta << lukulaatikko(w, nimi("tPerusHinta", i));
        g->addWidget(chkPerusPaalla[i], i + 1, 0);
        g->addWidget(tPerusAiheteksti[i], i + 1, 1);
        g->addWidget(tPerusHinta[i], i + 1, 2);
        kun(chkPerusPaalla[i], [this, i](bool b) { pohja().PerusLaskupohjarivi(i).setPaalla(b); });
        kun(tPerusAiheteksti[i], [this, i](const QString &s) { pohja().PerusLaskupohjarivi(i).setAiheteksti(s); });
        kun(tPerusHinta[i], [this, i](const QString &s) { pohja().PerusLaskupohjarivi(i).setHinta(RahaSyotteesta(s)); });
    }
    g->setColumnStretch(1, 1);
    return w;
}

QWidget *frmLaskupohjat::rakennaPerherivit()
{
    static const char *const nimikkeet[] = {"Perhe",     "Aikuinen",  "Nuoriso",   "Lapsi",      "Sisarus 1", "Sisarus 2",
                                            "Sisarus 3", "Sisarus 4", "Sisarus 5", "Lisärivi 1", "Lisärivi 2"};
    auto *w = new QWidget;
    auto *g = new QGridLayout(w);
    g->setVerticalSpacing(3);
    g->addWidget(sarakeotsikko(w, QStringLiteral("Rivin teksti")), 0, 1);
    g->addWidget(sarakeotsikko(w, QStringLiteral("A-hinta")), 0, 2);
    g->addWidget(sarakeotsikko(w, QStringLiteral("Nimet")), 0, 3);
    g->addWidget(sarakeotsikko(w, QStringLiteral("Nollarivit")), 0, 4);
    for (int j = 0; j < 11; ++j) {
        chkPerhePaalla << valintaruutu(w, nimi("chkPerhePaalla", j), QString::fromUtf8(nimikkeet[j]));
        tPerheAiheTeksti << tekstilaatikko(w, nimi("tPerheAiheTeksti", j));
        tPerheAhinta << lukulaatikko(w, nimi("tPerheAhinta", j));
        chkPerheNimet << valintaruutu(w, nimi("chkPerheNimet", j));
        chkPerheNimet[j]->setToolTip(QStringLiteral("Lisää henkilöiden nimet rivin tekstiin"));
        chkPerheNollat << valintaruutu(w, nimi("chkPerheNollat", j));
        chkPerheNollat[j]->setToolTip(QStringLiteral("Tulosta rivi, vaikka sen summa on nolla"));
        // The free rows take a text and a price only.
        const bool lisarivi = j >= 9;
        chkPerheNimet[j]->setVisible(!lisarivi);
        chkPerheNollat[j]->setVisible(!lisarivi);
        const int r = j + 1 + (lisarivi ? 1 : 0);
        g->addWidget(chkPerhePaalla[j], r, 0);
        g->addWidget(tPerheAiheTeksti[j], r, 1);
        g->addWidget(tPerheAhinta[j], r, 2);
        g->addWidget(chkPerheNimet[j], r, 3, Qt::AlignHCenter);
        g->addWidget(chkPerheNollat[j], r, 4, Qt::AlignHCenter);
        kun(chkPerhePaalla[j], [this, j](bool b) { pohja().PerheLaskupohjarivi(j).setPerhePaalla(b); });
        kun(tPerheAiheTeksti[j], [this, j](const QString &s) { pohja().PerheLaskupohjarivi(j).setPerheAiheteksti(s); });
        kun(tPerheAhinta[j], [this, j](const QString &s) { pohja().PerheLaskupohjarivi(j).setPerheAhinta(RahaSyotteesta(s)); });
        kun(chkPerheNimet[j], [this, j](bool b) { pohja().PerheLaskupohjarivi(j).setPerheNimet(b); });
        kun(chkPerheNollat[j], [this, j](bool b) { pohja().PerheLaskupohjarivi(j).setPerheNollat(b); });
    }
    g->setRowMinimumHeight(10, 8); // a gap before the free rows
    g->setColumnStretch(1, 1);
    return w;
}

QWidget *frmLaskupohjat::rakennaOminaisuusrivit()
{
    auto *w = new QWidget;
    auto *g = new QGridLayout(w);
    const QString otsikot[] = {QStringLiteral("Ominaisuus"), QStringLiteral("Rivin teksti"), QStringLiteral("Määrä"),
                               QString(),                    QStringLiteral("A-hinta"),      QString(),
                               QStringLiteral("Minimi"),     QStringLiteral("Nollarivit")};
    for (int s = 0; s < 8; ++s)
        if (!otsikot[s].isEmpty())
            g->addWidget(sarakeotsikko(w, otsikot[s]), 0, s);
    for (int i = 0; i < 4; ++i) {
        auto *c = new QComboBox(w);
        c->setObjectName(nimi("cmbOminaisuus", i));
        c->setMinimumContentsLength(14);
        c->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
        cmbOminaisuus << c;
        tOmAiheTeksti << tekstilaatikko(w, nimi("tOmAiheTeksti", i));
        tOmLkmMaara << lukulaatikko(w, nimi("tOmLkmMaara", i));
        chkOmLkm << valintaruutu(w, nimi("chkOmLkm", i), QStringLiteral("arvosta"));
        chkOmLkm[i]->setToolTip(QStringLiteral("Määrä jäsenen ominaisuuden arvosta"));
        tOmAHinta << lukulaatikko(w, nimi("tOmAHinta", i));
        chkOmHinta << valintaruutu(w, nimi("chkOmHinta", i), QStringLiteral("arvosta"));
        chkOmHinta[i]->setToolTip(QStringLiteral("Hinta jäsenen ominaisuuden arvosta"));
        tOmMinimi << lukulaatikko(w, nimi("tOmMinimi", i));
        chkOmNollat << valintaruutu(w, nimi("chkOmNollat", i));
        chkOmNollat[i]->setToolTip(QStringLiteral("Tulosta rivi, vaikka sen summa on nolla"));
        QWidget *sarakkeet[] = {c, tOmAiheTeksti[i], tOmLkmMaara[i], chkOmLkm[i], tOmAHinta[i], chkOmHinta[i], tOmMinimi[i]};
        for (int s = 0; s < 7; ++s)
            g->addWidget(sarakkeet[s], i + 1, s);
        g->addWidget(chkOmNollat[i], i + 1, 7, Qt::AlignHCenter);

        connect(c, &QComboBox::activated, this, [this, i, c](int k) {
            pohja().OminaisuusLaskupohjarivi(i).setOmPiId(c->itemData(k).toLongLong());
            paivitaPainikkeet();
        });
        kun(tOmAiheTeksti[i], [this, i](const QString &s) { pohja().OminaisuusLaskupohjarivi(i).setOmAiheteksti(s); });
        kun(tOmLkmMaara[i], [this, i](const QString &s) { pohja().OminaisuusLaskupohjarivi(i).setOmLkmMaara(LukuSyotteesta(s)); });
        kun(chkOmLkm[i], [this, i](bool b) { pohja().OminaisuusLaskupohjarivi(i).setOmLkm(b); });
        kun(tOmAHinta[i], [this, i](const QString &s) { pohja().OminaisuusLaskupohjarivi(i).setOmAhinta(RahaSyotteesta(s)); });
        kun(chkOmHinta[i], [this, i](bool b) { pohja().OminaisuusLaskupohjarivi(i).setOmHinta(b); });
        kun(tOmMinimi[i], [this, i](const QString &s) { pohja().OminaisuusLaskupohjarivi(i).setOmMinimi(RahaSyotteesta(s)); });
        kun(chkOmNollat[i], [this, i](bool b) { pohja().OminaisuusLaskupohjarivi(i).setOmNollat(b); });
    }
    g->setColumnStretch(1, 1);
    return w;
}

// Every row of every kind is shown, whatever the template's kind: a switch of kind keeps what
// was typed under the others.
void frmLaskupohjat::naytaRivit()
{
    const cLaskupohja &p = pohja();
    for (int i = 0; i < 4; ++i) {
        const cLaskupohjaRivi &r = p.PerusLaskupohjarivi(i);
        chkPerusPaalla[i]->setChecked(r.Paalla());
        tPerusAiheteksti[i]->setText(r.Aiheteksti());
        tPerusHinta[i]->setText(RahaKenttaan(r.Hinta()));
    }
    for (int j = 0; j < 11; ++j) {
        const cLaskupohjaRivi &r = p.PerheLaskupohjarivi(j);
        chkPerhePaalla[j]->setChecked(r.PerhePaalla());
        tPerheAiheTeksti[j]->setText(r.PerheAiheteksti());
        tPerheAhinta[j]->setText(RahaKenttaan(r.PerheAhinta()));
        chkPerheNimet[j]->setChecked(r.PerheNimet());
        chkPerheNollat[j]->setChecked(r.PerheNollat());
    }
    for (int i = 0; i < 4; ++i) {
        const cLaskupohjaRivi &r = p.OminaisuusLaskupohjarivi(i);
        const int k = cmbOminaisuus[i]->findData(qlonglong(r.OmPiId()));
        cmbOminaisuus[i]->setCurrentIndex(k >= 0 ? k : 0);
        tOmAiheTeksti[i]->setText(r.OmAiheteksti());
        tOmLkmMaara[i]->setText(LukuKenttaan(r.OmLkmMaara()));
        chkOmLkm[i]->setChecked(r.OmLkm());
        tOmAHinta[i]->setText(RahaKenttaan(r.OmAhinta()));
        chkOmHinta[i]->setChecked(r.OmHinta());
        tOmMinimi[i]->setText(RahaKenttaan(r.OmMinimi()));
        chkOmNollat[i]->setChecked(r.OmNollat());
    }
}
