#include "members/ui/LiitosPohja.h"
#include "core/ui/Tietueikkuna.h"

#include "members/Piirteet.h"
#include "members/ui/ArvoPaneeli.h"
#include "members/ui/Ikkunaapu.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QLabel>
#include <QListWidget>

LiitosPohja::LiitosPohja(QWidget *parent) : QWidget(parent)
{
    auto *lblOminaisuus = new QLabel(QStringLiteral("Ominaisuus:"), this);
    lstAllPt = new QListWidget(this);
    lstAllPt->setObjectName(QStringLiteral("lstAllPt"));
    lblOminaisuus->setBuddy(lstAllPt);
    arvot = new ArvoPaneeli(this);
    chkEstaToistot = new QCheckBox(QStringLiteral("Vain uusille:"), this);
    chkEstaToistot->setObjectName(QStringLiteral("chkEstaToistot"));
    chkEstaToistot->setLayoutDirection(Qt::RightToLeft);
    chkEstaToistot->setToolTip(
        QStringLiteral("Rastittuna ominaisuus lisätään vain niille, joilla ei valittua ominaisuutta vielä ole."));

    auto *g = new QGridLayout(this);
    g->setContentsMargins(0, 0, 0, 0);
    g->addWidget(lblOminaisuus, 0, 0);
    g->addWidget(lstAllPt, 1, 0, 2, 1);
    g->addWidget(arvot, 1, 1);
    g->addWidget(chkEstaToistot, 2, 1, Qt::AlignLeft);
    g->setColumnStretch(0, 2);
    g->setColumnStretch(1, 3);

    connect(lstAllPt, &QListWidget::currentRowChanged, this, [this] { tietue::Suojattu([this] { lstAllPt_Click(); }); });
}

void LiitosPohja::tayta(bool poistaTyhjat)
{
    lstAllPt->clear();
    arvot->TyhjennaArvot();
    tietue::Suojattu([&] {
        auto d = tietue::AvaaKanta();
        for (const ListaRivi &r : Maaritykset(*d, poistaTyhjat)) {
            auto *i = new QListWidgetItem(r.teksti, lstAllPt);
            i->setData(Qt::UserRole, r.id);
        }
    });
}

qint64 LiitosPohja::valittu() const
{
    const QListWidgetItem *i = lstAllPt->currentItem();
    return i && i->isSelected() ? i->data(Qt::UserRole).toLongLong() : 0;
}

ArvoSyote LiitosPohja::syote() const { return arvot->syote(); }

bool LiitosPohja::vainUusille() const { return chkEstaToistot->isChecked(); }

void LiitosPohja::tyhjenna(const std::array<bool, ArvoTyyppeja> &mitka) { arvot->tyhjenna(mitka); }

void LiitosPohja::lstAllPt_Click()
{
    arvot->TyhjennaArvot();
    const QListWidgetItem *i = lstAllPt->currentItem();
    if (!i)
        return;
    auto d = tietue::AvaaKanta();
    const auto m = LueMaaritys(*d, i->data(Qt::UserRole).toLongLong());
    if (!m)
        return;
    arvot->naytaKuvaus(m->kuvaus);
    ArvoSyote s;
    for (ArvoTyyppi t : KaikkiTyypit) {
        s.kaytossa[size_t(t)] = m->kaytossa[size_t(t)];
        s.teksti[size_t(t)] = ArvoTekstiksi(t, m->oletus[size_t(t)]);
    }
    arvot->naytaArvot(s);
}
