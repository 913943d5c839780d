#include "payments/ui/frmViitesuoritukset.h"

#include "core/Ilmoitukset.h"
#include "core/ui/Tietueikkuna.h"
#include "core/ui/uihelpers.h"
#include "payments/Eratiedot.h"
#include "payments/Viitemaksulajittelu.h"
#include "payments/Viitesuoritukset.h"
#include "payments/ui/Viitetiedosto.h"
#include "platform/arvot.h"
#include "platform/database.h"

#include <QComboBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

frmViitesuoritukset::frmViitesuoritukset(QWidget *parent) : QDialog(parent)
{
    setObjectName(QStringLiteral("frmViitesuoritukset"));
    setWindowTitle(QStringLiteral("Vonari - Viitesuoritukset"));
    auto *asettelu = new QVBoxLayout(this);

    asettelu->addLayout(TiedostoJaEra(this, lblTiedosto, cmbErat));
    connect(cmbErat, &QComboBox::activated, this, [this](int i) { NaytaEra(i + 1); });

    lstMaksut = new QTreeWidget(this);
    lstMaksut->setObjectName(QStringLiteral("lstMaksut"));
    lstMaksut->setRootIsDecorated(false);
    lstMaksut->setHeaderLabels({QStringLiteral("Kirjauspäivä"), QStringLiteral("Arkistointitunnus"),
                                QStringLiteral("Viitenumero"), QStringLiteral("Maksaja"), QStringLiteral("Summa")});
    lstMaksut->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    lstMaksut->header()->setSectionResizeMode(3, QHeaderView::Stretch);
    lstMaksut->header()->setStretchLastSection(false);
    lstMaksut->setMinimumSize(760, 220);
    asettelu->addWidget(lstMaksut, 1);

    // The batch's frames and the whole file's totals side by side under the payments.
    auto *kehykset = new QHBoxLayout;
    eratiedot = new Eratiedot(this);
    eratiedot->layout()->setContentsMargins(0, 0, 0, 0);
    kehykset->addWidget(eratiedot, 2);
    kehykset->addWidget(Arvokehys(QStringLiteral("Summatiedot kaikista tiedoston eristä"),
                                  {{"lblSummaTapKPL", QStringLiteral("Tapahtumat kpl:")},
                                   {"lblSummaTapSUM", QStringLiteral("Tapahtumat summa:")},
                                   {"lblSummaOikKPL", QStringLiteral("Oikaisut kpl:")},
                                   {"lblSummaOikSUM", QStringLiteral("Oikaisut summa:")},
                                   {"lblSummaEpaKPL", QStringLiteral("Epäonn. kpl:")},
                                   {"lblSummaEpaSUM", QStringLiteral("Epäonn. summa:")}},
                                  m_summat, this),
                        1, Qt::AlignTop);
    asettelu->addLayout(kehykset);

    cAvaa = new QPushButton(QStringLiteral("&Avaa..."), this);
    cAvaa->setObjectName(QStringLiteral("cAvaa"));
    cAvaa->setToolTip(QStringLiteral("Avaa pankin viitemaksutiedosto"));
    cKirjaaSuoritukset = new QPushButton(QStringLiteral("&Kirjaa"), this);
    cKirjaaSuoritukset->setObjectName(QStringLiteral("cKirjaaSuoritukset"));
    cKirjaaSuoritukset->setToolTip(QStringLiteral("Kirjaa tiedoston kaikki maksut suorituksiksi"));
    cSulje = new QPushButton(QStringLiteral("&Sulje"), this);
    cSulje->setObjectName(QStringLiteral("cSulje"));
    connect(cAvaa, &QPushButton::clicked, this, [this] { cAvaa_Click(); });
    connect(cKirjaaSuoritukset, &QPushButton::clicked, this, [this] { cKirjaaSuoritukset_Click(); });
    connect(cSulje, &QPushButton::clicked, this, &QDialog::reject);
    auto *napit = new QHBoxLayout;
    napit->addWidget(cAvaa);
    napit->addWidget(cKirjaaSuoritukset);
    napit->addStretch(1);
    napit->addWidget(cSulje);
    asettelu->addLayout(napit);
}

void frmViitesuoritukset::cAvaa_Click()
{
    QString polku;
    const auto erat = ValitseViitetiedosto(this, &polku);
    if (!polku.isEmpty())
        lblTiedosto->setText(polku);
    if (erat)
        avaa(polku, *erat);
}

void frmViitesuoritukset::avaa(const QString &polku, const QList<ViiteEra> &erat)
{
    lblTiedosto->setText(polku);
    m_erat = erat;
    cmbErat->clear();
    for (int i = 0; i < m_erat.size(); ++i)
        cmbErat->addItem(m_erat[i].Paivamaara, i + 1);
    cmbErat->setEnabled(m_erat.size() > 1);
    for (const auto &[nimi, arvo] : KaikkienEriensaSummat(m_erat))
        if (QLabel *l = m_summat.value(nimi))
            l->setText(arvo);
    NaytaEra(1);
}

void frmViitesuoritukset::NaytaEra(int era)
{
    if (era < 1 || era > m_erat.size())
        return;
    cmbErat->setCurrentIndex(era - 1);
    const ViiteEra &e = m_erat[era - 1];
    eratiedot->nayta(e);
    lstMaksut->clear();
    for (const ViiteTapahtuma &t : e.Tapahtumat) {
        const QDate paiva = Kirjauspaiva(t);
        auto *rivi = new QTreeWidgetItem(lstMaksut, {paiva.isValid() ? PaivaTekstina(paiva) : t.Kirjauspaiva,
                                                     t.Arkistointitunnus.trimmed(), ViitenumeroLukuna(t.Viitenumero),
                                                     t.Nimi.trimmed(), MuotoileSentit(MaksunSentit(t))});
        rivi->setTextAlignment(4, Qt::AlignRight | Qt::AlignVCenter);
    }
}

void frmViitesuoritukset::cKirjaaSuoritukset_Click()
{
    if (m_erat.isEmpty()) {
        Ilmoita(QStringLiteral("Avaa ensin suoritustiedosto."));
        return;
    }
    QString viesti;
    {
        cMouseCursor odota;
        odota.SetCursor(this, Qt::WaitCursor);
        tietue::Suojattu([&] {
            auto d = tietue::AvaaKanta();
            const ViitesuoritustenKirjaus k = KirjaaSuoritukset(*d, m_erat);
            viesti = KirjausViesti(k);
            if (const QString ohitetut = OhitettujenViesti(k); !ohitetut.isEmpty())
                viesti += QStringLiteral("\n\n") + ohitetut;
        });
    }
    if (!viesti.isEmpty())
        Ilmoita(viesti);
}

void AvaaViitesuoritukset(QWidget *parent)
{
    if (!tietue::TietokantaAsetettu())
        return;
    frmViitesuoritukset w(parent);
    w.exec();
}
