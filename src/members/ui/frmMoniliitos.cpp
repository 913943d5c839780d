#include "members/ui/frmMoniliitos.h"
#include "core/ui/Tietueikkuna.h"

#include "core/MainModule.h"
#include "core/Ilmoitukset.h"
#include "core/ui/uihelpers.h"
#include "members/PiirreJoukko.h"
#include "platform/ui/Edistymispalkki.h"
#include "members/ui/Ikkunaapu.h"
#include "members/ui/LiitosPohja.h"
#include "core/ui/ListaMalli.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QListView>
#include <QPushButton>
#include <algorithm>

frmMoniliitos::frmMoniliitos(QWidget *parent) : QDialog(parent)
{
    setObjectName(QStringLiteral("frmMoniliitos"));
    setWindowTitle(MainModule::AppName + QStringLiteral(" - Moniliitos"));

    auto *valinta = new QGroupBox(QStringLiteral("Jäsenien valinta"), this);
    lstJR = new QListView(valinta);
    lstJR->setObjectName(QStringLiteral("lstJR"));
    lstJR->setSelectionMode(QAbstractItemView::MultiSelection);
    lstJR->setUniformItemSizes(true);
    m_jasenet = new ListaMalli(this);
    lstJR->setModel(m_jasenet);
    cValitseKaikki = new QPushButton(QStringLiteral("&Kaikki"), valinta);
    cValitseKaikki->setObjectName(QStringLiteral("cValitseKaikki"));
    cEiValintoja = new QPushButton(QStringLiteral("&Ei yht."), valinta);
    cEiValintoja->setObjectName(QStringLiteral("cEiValintoja"));
    auto *vg = new QGridLayout(valinta);
    vg->addWidget(lstJR, 0, 0, 1, 3);
    vg->addWidget(cValitseKaikki, 1, 0);
    vg->addWidget(cEiValintoja, 1, 1);
    vg->setColumnStretch(2, 1);

    auto *maarittely = new QGroupBox(QStringLiteral("Liitettävän ominaisuuden määrittely"), this);
    pohja = new LiitosPohja(maarittely);
    (new QHBoxLayout(maarittely))->addWidget(pohja);

    cLisaa = new QPushButton(QStringLiteral("&Lisää valituille"), this);
    cLisaa->setObjectName(QStringLiteral("cLisaa"));
    cSulje = new QPushButton(QStringLiteral("&Sulje"), this);
    cSulje->setObjectName(QStringLiteral("cSulje"));
    auto *napit = new QHBoxLayout;
    napit->addStretch(1);
    napit->addWidget(cLisaa);
    napit->addWidget(cSulje);

    auto *g = new QGridLayout(this);
    g->addWidget(valinta, 0, 0);
    g->addWidget(maarittely, 0, 1);
    g->addLayout(napit, 1, 0, 1, 2);
    g->setColumnStretch(0, 2);
    g->setColumnStretch(1, 3);
    resize(820, 480);

    connect(cValitseKaikki, &QPushButton::clicked, lstJR, &QListView::selectAll);
    connect(cEiValintoja, &QPushButton::clicked, lstJR, &QListView::clearSelection);
    connect(cLisaa, &QPushButton::clicked, this, [this] { tietue::Suojattu([this] { lisaa(); }); });
    connect(cSulje, &QPushButton::clicked, this, &QDialog::accept);

    tietue::Suojattu([this] {
        auto d = tietue::AvaaKanta();
        m_jasenet->aseta(JasenLista(*d));
    });
    pohja->tayta(true);
}

void frmMoniliitos::lisaa()
{
    const qint64 piID = pohja->valittu();
    if (piID == 0) {
        Ilmoita(QStringLiteral("Valitse ominaisuus ennen lisäystä!"));
        return;
    }
    QVector<int> rivit;
    for (const QModelIndex &i : lstJR->selectionModel()->selectedIndexes())
        rivit.append(i.row());
    std::sort(rivit.begin(), rivit.end());
    QVector<qint64> jasenet;
    jasenet.reserve(rivit.size());
    for (int r : rivit)
        jasenet.append(m_jasenet->id(r));
    {
        cMouseCursor osoitin;
        osoitin.SetCursor(this, Qt::WaitCursor);
        auto d = tietue::AvaaKanta();
        LiitosTulos t;
        if (!AjaEdistyen(this, QStringLiteral("Ominaisuutta lisätään"), [&](Edistyminen *e) {
                t = Moniliitos(Ajo(*d, e), piID, jasenet, pohja->syote(), pohja->vainUusille());
            }))
            return;
        pohja->tyhjenna(t.tyhjenna);
    }
    Ilmoita(QStringLiteral("Ominaisuus lisätty!"));
}

void AvaaMoniliitos(QWidget *parent)
{
    if (!tietue::TietokantaAsetettu())
        return;
    frmMoniliitos f(parent);
    f.exec();
}
