#include "payments/ui/frmViitemaksut.h"

#include "core/Ilmoitukset.h"
#include "core/MainModule.h"
#include "core/ui/Tietueikkuna.h"
#include "core/ui/uihelpers.h"
#include "payments/Viitemaksulajittelu.h"
#include "payments/Viitemaksut.h"
#include "payments/ui/Viitetiedosto.h"
#include "platform/database.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QMenuBar>
#include <QPointer>
#include <QPushButton>
#include <QTabWidget>
#include <QVBoxLayout>

namespace {

QListWidget *lista(QWidget *parent, const char *nimi)
{
    auto *l = new QListWidget(parent);
    l->setObjectName(QString::fromUtf8(nimi));
    l->setSelectionMode(QAbstractItemView::MultiSelection);
    l->setMinimumSize(520, 260);
    return l;
}

QPushButton *painike(QWidget *parent, const char *nimi, const QString &teksti, const QString &vihje = {})
{
    auto *b = new QPushButton(teksti, parent);
    b->setObjectName(QString::fromUtf8(nimi));
    b->setToolTip(vihje);
    return b;
}

QCheckBox *valinta(QWidget *parent, const char *nimi)
{
    auto *c = new QCheckBox(QStringLiteral("Poista maksettu"), parent);
    c->setObjectName(QString::fromUtf8(nimi));
    return c;
}

void tayta(QListWidget *lista, const QList<ViitemaksuRivi> &rivit)
{
    lista->clear();
    for (const ViitemaksuRivi &r : rivit) {
        auto *i = new QListWidgetItem(r.teksti, lista);
        i->setData(Qt::UserRole, r.jmhID);
    }
}

void valitse(QListWidget *lista, bool valittu)
{
    for (int i = 0; i < lista->count(); ++i)
        lista->item(i)->setSelected(valittu);
}

// The page of a list with its buttons in a row under it.
QWidget *sivu(QWidget *parent, QListWidget *lista, std::initializer_list<QWidget *> napit)
{
    auto *s = new QWidget(parent);
    auto *a = new QVBoxLayout(s);
    a->addWidget(lista, 1);
    if (napit.size()) {
        auto *rivi = new QHBoxLayout;
        for (QWidget *w : napit) {
            if (!w)
                rivi->addStretch(1);
            else
                rivi->addWidget(w);
        }
        a->addLayout(rivi);
    }
    return s;
}

} // namespace

frmViitemaksut::frmViitemaksut(QWidget *parent) : QMainWindow(parent)
{
    setObjectName(QStringLiteral("frmViitemaksut"));
    setWindowTitle(QStringLiteral("Vonari - Viitemaksut"));
    setAttribute(Qt::WA_DeleteOnClose);
    auto *keski = new QWidget(this);
    auto *asettelu = new QVBoxLayout(keski);

    asettelu->addLayout(TiedostoJaEra(keski, lblTiedosto, cmbErat));
    connect(cmbErat, &QComboBox::activated, this, [this](int i) { NaytaEra(i + 1); });

    TabStr1 = new QTabWidget(keski);
    TabStr1->setObjectName(QStringLiteral("TabStr1"));
    TabStr1->addTab(saapuneetSivu(), QStringLiteral("Saapuneet maksut"));
    lstTarkistettavat = lista(TabStr1, "lstTarkistettavat");
    lstTarkistettavat->setSelectionMode(QAbstractItemView::NoSelection);
    TabStr1->addTab(sivu(TabStr1, lstTarkistettavat, {}), QStringLiteral("Tarkistettavat maksut"));
    TabStr1->addTab(virheetSivu(), QStringLiteral("Virheelliset maksut"));
    eratiedot = new Eratiedot(TabStr1);
    TabStr1->addTab(eratiedot, QStringLiteral("Erätiedot"));
    asettelu->addWidget(TabStr1, 1);
    setCentralWidget(keski);

    QMenu *mTiedosto = menuBar()->addMenu(QStringLiteral("&Tiedosto"));
    mTiedosto->setObjectName(QStringLiteral("mTiedosto"));
    QAction *mAvaa = mTiedosto->addAction(QStringLiteral("&Avaa"), this, [this] { mAvaa_Click(); });
    mAvaa->setObjectName(QStringLiteral("mAvaa"));
    mAvaa->setShortcut(QKeySequence::Open);
    QAction *mSulje = mTiedosto->addAction(QStringLiteral("&Sulje"), this, [this] { close(); });
    mSulje->setObjectName(QStringLiteral("mSulje"));
    resize(720, 480);
}

QWidget *frmViitemaksut::saapuneetSivu()
{
    lstSaapuneet = lista(this, "lstSaapuneet");
    cValitseKaikki = painike(this, "cValitseKaikki", QStringLiteral("&Valitse kaikki"));
    cPoistaValinnat = painike(this, "cPoistaValinnat", QStringLiteral("&Poista valinnat"));
    cMaksetuksi = painike(this, "cMaksetuksi", QStringLiteral("&Maksettu"), QStringLiteral("Merkitse valitut maksetuksi"));
    chkPoistamaksettu = valinta(this, "chkPoistamaksettu");
    connect(cValitseKaikki, &QPushButton::clicked, this, [this] { valitse(lstSaapuneet, true); });
    connect(cPoistaValinnat, &QPushButton::clicked, this, [this] { valitse(lstSaapuneet, false); });
    connect(cMaksetuksi, &QPushButton::clicked, this, [this] { cMaksetuksi_Click(); });
    return sivu(this, lstSaapuneet, {cValitseKaikki, cPoistaValinnat, nullptr, chkPoistamaksettu, cMaksetuksi});
}

QWidget *frmViitemaksut::virheetSivu()
{
    lstVirheet = lista(this, "lstVirheet");
    cValitseKaikkiVirheelliset = painike(this, "cValitseKaikkiVirheelliset", QStringLiteral("&Valitse kaikki"));
    cPoistaValinnatVirheelliset = painike(this, "cPoistaValinnatVirheelliset", QStringLiteral("&Poista valinnat"));
    cValitseSuuremmatVirheelliset = painike(this, "cValitseSuuremmatVirheelliset", QStringLiteral("V&alitse suur. suor."));
    cMaksetuksiLiikaaMaksetut = painike(this, "cMaksetuksiLiikaaMaksetut", QStringLiteral("&Maksettu"),
                                        QStringLiteral("Merkitse valitut maksetuksi"));
    chkPoistaMaksettuLiikaa = valinta(this, "chkPoistaMaksettuLiikaa");
    // Marking wrong sums paid is a club's own choice in the settings; without it the list is to read.
    cMaksetuksiLiikaaMaksetut->setVisible(MainModule::SuuretSuorituksetMaksetuksi);
    chkPoistaMaksettuLiikaa->setVisible(MainModule::SuuretSuorituksetMaksetuksi);
    connect(cValitseKaikkiVirheelliset, &QPushButton::clicked, this, [this] { valitse(lstVirheet, true); });
    connect(cPoistaValinnatVirheelliset, &QPushButton::clicked, this, [this] { valitse(lstVirheet, false); });
    connect(cValitseSuuremmatVirheelliset, &QPushButton::clicked, this, [this] { cValitseSuuremmatVirheelliset_Click(); });
    connect(cMaksetuksiLiikaaMaksetut, &QPushButton::clicked, this, [this] { cMaksetuksiLiikaaMaksetut_Click(); });
    return sivu(this, lstVirheet,
                {cValitseKaikkiVirheelliset, cPoistaValinnatVirheelliset, cValitseSuuremmatVirheelliset, nullptr,
                 chkPoistaMaksettuLiikaa, cMaksetuksiLiikaaMaksetut});
}

void frmViitemaksut::mAvaa_Click()
{
    QString polku;
    const auto erat = ValitseViitetiedosto(this, &polku);
    if (!polku.isEmpty())
        lblTiedosto->setText(polku);
    if (erat)
        avaa(polku, *erat);
}

void frmViitemaksut::avaa(const QString &polku, const QList<ViiteEra> &erat)
{
    lblTiedosto->setText(polku);
    m_erat = erat;
    cmbErat->clear();
    for (int i = 0; i < m_erat.size(); ++i)
        cmbErat->addItem(m_erat[i].Paivamaara, i + 1);
    cmbErat->setEnabled(m_erat.size() > 1);
    NaytaEra(1);
}

void frmViitemaksut::NaytaEra(int era)
{
    if (era < 1 || era > m_erat.size())
        return;
    cmbErat->setCurrentIndex(era - 1);
    const ViiteEra &e = m_erat[era - 1];
    eratiedot->nayta(e);
    cMouseCursor odota;
    odota.SetCursor(this, Qt::WaitCursor);
    tietue::Suojattu([&] {
        auto d = tietue::AvaaKanta();
        const ViitemaksujenLajittelu l = LajitteleEra(*d, e, MainModule::SuorituksellaMaksetuksiJosEiLoppusummaa);
        tayta(lstSaapuneet, l.Saapuneet);
        tayta(lstTarkistettavat, l.Tarkistettavat);
        tayta(lstVirheet, l.Virheet);
    });
}

QList<ViitemaksuRivi> frmViitemaksut::valitut(QListWidget *lista) const
{
    QList<ViitemaksuRivi> rivit;
    for (int i = 0; i < lista->count(); ++i)
        if (lista->item(i)->isSelected())
            rivit.append({lista->item(i)->text(), lista->item(i)->data(Qt::UserRole).toLongLong()});
    return rivit;
}

void frmViitemaksut::poistaValitut(QListWidget *lista)
{
    for (int i = lista->count() - 1; i >= 0; --i)
        if (lista->item(i)->isSelected())
            delete lista->takeItem(i);
}

void frmViitemaksut::cMaksetuksi_Click()
{
    const QList<ViitemaksuRivi> rivit = valitut(lstSaapuneet);
    if (rivit.isEmpty())
        return;
    QString viesti;
    {
        cMouseCursor odota;
        odota.SetCursor(this, Qt::WaitCursor);
        tietue::Suojattu([&] {
            auto d = tietue::AvaaKanta();
            viesti = MerkitsemattomatViesti(MerkitseMaksetuiksi(*d, rivit, chkPoistamaksettu->isChecked()));
            poistaValitut(lstSaapuneet);
        });
    }
    if (!viesti.isEmpty())
        Ilmoita(viesti);
}

void frmViitemaksut::cMaksetuksiLiikaaMaksetut_Click()
{
    const QList<ViitemaksuRivi> rivit = valitut(lstVirheet);
    if (rivit.isEmpty() || m_erat.isEmpty())
        return;
    tietue::Suojattu([&] {
        auto d = tietue::AvaaKanta();
        // The log follows the file's first batch, whichever is on screen.
        const auto m = MerkitseYlisuoritukset(*d, m_erat.first(), rivit, chkPoistaMaksettuLiikaa->isChecked());
        if (!m)
            return;
        poistaValitut(lstVirheet);
        if (const QString viesti = MerkitsemattomatViesti(*m); !viesti.isEmpty())
            Ilmoita(viesti);
    });
}

void frmViitemaksut::cValitseSuuremmatVirheelliset_Click()
{
    const int era = cmbErat->currentIndex();
    if (era < 0 || era >= m_erat.size())
        return;
    QList<ViitemaksuRivi> rivit;
    for (int i = 0; i < lstVirheet->count(); ++i)
        rivit.append({lstVirheet->item(i)->text(), lstVirheet->item(i)->data(Qt::UserRole).toLongLong()});
    tietue::Suojattu([&] {
        auto d = tietue::AvaaKanta();
        const QList<bool> suuret = SuuremmatSuoritukset(*d, m_erat[era], rivit);
        for (int i = 0; i < suuret.size(); ++i)
            if (suuret[i])
                lstVirheet->item(i)->setSelected(true);
    });
}

void AvaaViitemaksut(QWidget *parent)
{
    static QPointer<QWidget> auki;
    tietue::AvaaKerran(auki, [parent]() -> QWidget * {
        if (!tietue::TietokantaAsetettu())
            return nullptr;
        return new frmViitemaksut(parent);
    });
}
