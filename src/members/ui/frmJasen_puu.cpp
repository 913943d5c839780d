// The name tree and the list condition: which members the window browses, and in what order.
#include "members/ui/frmJasen.h"
#include "core/ui/Tietueikkuna.h"

#include "members/Nimipuu.h"
#include "members/ui/NimipuuMalli.h"
#include "platform/dialogs.h"

#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTreeView>
#include <QVBoxLayout>

QWidget *frmJasen::RakennaPuuPaneeli()
{
    auto *w = new QWidget;
    auto *v = new QVBoxLayout(w);
    v->setContentsMargins(0, 0, 0, 0);
    cmbListaEhto = new QComboBox(w);
    cmbListaEhto->setObjectName(QStringLiteral("cmbListaEhto"));
    cmbListaEhto->setToolTip(QStringLiteral("Selataan kaikkia jäseniä tai vain valitun ominaisuuden haltijoita"));
    auto *otsikko = new QLabel(QStringLiteral("Rajaus:"), w);
    otsikko->setBuddy(cmbListaEhto);
    v->addWidget(otsikko);
    v->addWidget(cmbListaEhto);

    m_puu = new NimipuuMalli(this);
    tvwNimet = new QTreeView(w);
    tvwNimet->setObjectName(QStringLiteral("tvwNimet"));
    tvwNimet->setHeaderHidden(true);
    tvwNimet->setUniformRowHeights(true);
    tvwNimet->setModel(m_puu);
    tvwNimet->setEditTriggers(QAbstractItemView::NoEditTriggers);
    connect(tvwNimet->selectionModel(), &QItemSelectionModel::currentChanged, this,
            [this](const QModelIndex &i) { tietue::Suojattu([this, i] { PuuValinta(i); }); });
    v->addWidget(tvwNimet, 1);

    cAvaaKaikki = new QPushButton(QStringLiteral("&Avaa kaikki"), w);
    cAvaaKaikki->setObjectName(QStringLiteral("cAvaaKaikki"));
    connect(cAvaaKaikki, &QPushButton::clicked, this, [this] { cAvaaKaikki_Click(); });
    v->addWidget(cAvaaKaikki);
    return w;
}

void frmJasen::RakennaNimipuu(bool henkilotMyos)
{
    const bool ennen = bEiPuunValintaa;
    bEiPuunValintaa = true;
    tvwNimet->setUpdatesEnabled(false);
    Nimipuu puu = ::RakennaNimipuu(*m_db, ListaehdonPiirre());
    if (henkilotMyos)
        m_henkilot->aseta(puu.nimet);
    m_puu->aseta(std::move(puu));
    tvwNimet->setUpdatesEnabled(true);
    bEiPuunValintaa = ennen;
}

void frmJasen::TaytaListaehto()
{
    cmbListaEhto->clear();
    cmbListaEhto->addItem(QStringLiteral(" - Kaikki - "), qint64(0));
    const QVector<PiirreNimi> piirteet = PiirteetNimijarjestyksessa(*m_db);
    for (const PiirreNimi &p : piirteet)
        cmbListaEhto->addItem(p.nimi, p.piId);
    cmbListaEhto->setCurrentIndex(0);
}

qint64 frmJasen::ListaehdonPiirre() const
{
    return cmbListaEhto->currentIndex() < 1 ? 0 : cmbListaEhto->currentData().toLongLong();
}

// The holders are read again only when the database may have changed since: by this window's
// connection (its change count) or by another (the file's data version). A long list is then
// not sorted anew for every move.
QVector<qint64> frmJasen::ListanJasenet()
{
    const qint64 piirre = ListaehdonPiirre();
    const qint64 muutokset = m_db->scalar(QStringLiteral("SELECT total_changes()")).toLongLong();
    const qint64 versio = m_db->scalar(QStringLiteral("PRAGMA data_version")).toLongLong();
    if (m_lista.piirre == piirre && m_lista.muutokset == muutokset && m_lista.versio == versio)
        return m_lista.idt;
    const QVector<NimiRivi> nimet = NimetJarjestyksessa(*m_db, piirre);
    m_lista = {piirre, muutokset, versio, {}};
    m_lista.idt.reserve(nimet.size());
    for (const NimiRivi &r : nimet)
        m_lista.idt.append(r.jrId);
    return m_lista.idt;
}

bool frmJasen::SiirryJaseneen(qint64 jrId) { return m_data1->findFirst(QStringLiteral("jrID = ?"), {jrId}); }

// A move within the list condition's members: -2 first, -1 previous, 1 next, 2 last. Off the
// list, or past its end, the window beeps and stays.
void frmJasen::ListaSiirto(int kohde)
{
    const QVector<qint64> idt = ListanJasenet();
    int i = -1;
    if (kohde == -2)
        i = 0;
    else if (kohde == 2)
        i = int(idt.size()) - 1;
    else if (const int nyt = int(idt.indexOf(NykyinenId())); nyt >= 0)
        i = nyt + kohde;
    if (i < 0 || i >= idt.size() || !SiirryJaseneen(idt[i])) {
        dlg::current().beep();
        return;
    }
    Siirretty();
}

void frmJasen::SiirryListaehtoon()
{
    if (!TallennaKesken())
        return;
    if (ListaehdonPiirre() <= 0) {
        if (m_data1->recordCount() > 0)
            m_data1->moveFirst();
        Siirretty();
        return;
    }
    const QVector<qint64> idt = ListanJasenet();
    if (idt.isEmpty() || !SiirryJaseneen(idt.first())) {
        dlg::current().beep();
        return;
    }
    Siirretty();
}

void frmJasen::cmbListaEhto_LostFocus()
{
    const bool puu = bEiPuunValintaa, siirto = bSiirtoKesken;
    bEiPuunValintaa = bSiirtoKesken = true;
    RakennaNimipuu();
    PaivitaJasenmaara();
    SiirryListaehtoon();
    bEiPuunValintaa = puu;
    bSiirtoKesken = siirto;
}

void frmJasen::cSelaa_Click()
{
    if (!TallennaKesken())
        return;
    RakennaNimipuu();
    tvwNimet->setFocus();
    tvwNimet->setCurrentIndex(m_puu->index(0, 0));
    PaivitaJasenmaara();
}

void frmJasen::cAvaaKaikki_Click()
{
    tvwNimet->setUpdatesEnabled(false);
    tvwNimet->expandAll();
    tvwNimet->setUpdatesEnabled(true);
}

// A member chosen in the tree becomes the one in view. A name whose member is gone (deleted
// since the tree was built) rebuilds the tree instead.
void frmJasen::PuuValinta(const QModelIndex &i)
{
    if (bEiPuunValintaa || !i.isValid())
        return;
    if (!TallennaKesken())
        return;
    const qint64 id = m_puu->jasenId(i);
    if (id == 0)
        return;
    if (!SiirryJaseneen(id)) {
        cSelaa_Click();
        return;
    }
    Siirretty();
}
