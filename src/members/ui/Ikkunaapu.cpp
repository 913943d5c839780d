#include "members/ui/Ikkunaapu.h"
#include "core/ui/Tietueikkuna.h"
#include <QVBoxLayout>
#include <QPushButton>
#include <QHBoxLayout>
#include <QFormLayout>
#include <QDialog>

#include "core/Ilmoitukset.h"
#include "core/MainModule.h"
#include "members/Piirteet.h"
#include "platform/dialogs.h"

#include <QComboBox>

namespace ikkuna {

void TaytaOminaisuusValinta(QComboBox *c, db::Database &db)
{
    c->clear();
    c->addItem(QStringLiteral(" - "), qlonglong(0));
    for (const ListaRivi &r : Maaritykset(db, false))
        c->addItem(r.teksti, r.id);
}

void Piippaa() { dlg::current().beep(); }

KahdenOminaisuudenLomake RakennaKahdenOminaisuudenLomake(QDialog *d, const Valinta &eka, const Valinta &toka,
                                                         const Valinta &toiminto)
{
    KahdenOminaisuudenLomake l;
    l.eka = new QComboBox(d);
    l.eka->setObjectName(QString::fromUtf8(eka.nimi));
    l.toka = new QComboBox(d);
    l.toka->setObjectName(QString::fromUtf8(toka.nimi));
    for (QComboBox *c : {l.eka, l.toka})
        c->setMinimumWidth(260);
    l.toiminto = new QPushButton(toiminto.otsikko, d);
    l.toiminto->setObjectName(QString::fromUtf8(toiminto.nimi));
    l.peru = new QPushButton(QStringLiteral("Peru"), d);
    l.peru->setObjectName(QStringLiteral("cUndo"));

    auto *f = new QFormLayout;
    f->addRow(eka.otsikko, l.eka);
    f->addRow(toka.otsikko, l.toka);
    f->setVerticalSpacing(10);
    auto *napit = new QHBoxLayout;
    napit->addStretch(1);
    napit->addWidget(l.toiminto);
    napit->addWidget(l.peru);
    auto *v = new QVBoxLayout(d);
    v->setContentsMargins(16, 16, 16, 12);
    v->addLayout(f);
    v->addStretch(1);
    v->addSpacing(16);
    v->addLayout(napit);
    d->resize(d->sizeHint().width() + 40, d->sizeHint().height() + 24);

    QObject::connect(l.peru, &QPushButton::clicked, d, &QDialog::reject);
    tietue::Suojattu([&l] {
        auto kanta = tietue::AvaaKanta();
        TaytaOminaisuusValinta(l.eka, *kanta);
        TaytaOminaisuusValinta(l.toka, *kanta);
    });
    return l;
}

} // namespace ikkuna
