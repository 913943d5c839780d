// The "Maksut" page: the member's invoices in the history, and marking one paid by hand.
#include "members/ui/frmJasen.h"
#include "core/ui/Tietueikkuna.h"

#include "core/Ilmoitukset.h"
#include "platform/arvot.h"
#include "members/JasenMaksut.h"

#include <QCheckBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

QWidget *frmJasen::RakennaMaksut()
{
    auto *sivu = new QWidget;
    auto *vaaka = new QHBoxLayout(sivu);
    auto *vasen = new QVBoxLayout;
    lstMaksut = new QListWidget(sivu);
    lstMaksut->setObjectName(QStringLiteral("lstMaksut"));
    connect(lstMaksut, &QListWidget::currentRowChanged, this, [this] {
        if (!m_lataa)
            tietue::Suojattu([this] { lstMaksut_Click(); });
    });
    auto *otsikko = new QLabel(QStringLiteral("Laskut:"), sivu);
    otsikko->setBuddy(lstMaksut);
    vasen->addWidget(otsikko);
    vasen->addWidget(lstMaksut, 1);
    vaaka->addLayout(vasen, 3);

    auto *oikea = new QVBoxLayout;
    auto *tiedot = new QFormLayout;
    auto rivi = [&](QLabel *&l, const char *nimi, const QString &otsikko) {
        l = new QLabel(sivu);
        l->setObjectName(QString::fromLatin1(nimi));
        l->setTextInteractionFlags(Qt::TextSelectableByMouse);
        tiedot->addRow(otsikko, l);
    };
    rivi(lbljmhjmID, "lbljmhjmID", QStringLiteral("Laskun tunnus:"));
    rivi(lblOtsake, "lblOtsake", QStringLiteral("Otsake:"));
    rivi(lblLaskunumero, "lblLaskunumero", QStringLiteral("Laskunumero:"));
    rivi(lblLaskupaiva, "lblLaskupaiva", QStringLiteral("Laskupäivä:"));
    rivi(lblErapaiva, "lblErapaiva", QStringLiteral("Eräpäivä:"));
    rivi(lblViitenumero, "lblViitenumero", QStringLiteral("Viitenumero:"));
    rivi(lblHinta, "lblHinta", QStringLiteral("Summa:"));
    rivi(lblTeksti, "lblTeksti", QStringLiteral("Teksti:"));
    rivi(lblJasenmaksu, "lblJasenmaksu", QStringLiteral("Jäsenmaksu:"));
    rivi(lblPerhemaksu, "lblPerhemaksu", QStringLiteral("Perhemaksu:"));
    rivi(lblOminaisuusmaksu, "lblOminaisuusmaksu", QStringLiteral("Ominaisuusmaksu:"));
    rivi(lblMaksettu, "lblMaksettu", QStringLiteral("Maksettu:"));
    lblTeksti->setWordWrap(true);
    oikea->addSpacing(otsikko->sizeHint().height());
    oikea->addLayout(tiedot);
    oikea->addStretch(1);

    cMaksetuksi = new QPushButton(QStringLiteral("Maksetuksi"), sivu);
    cMaksetuksi->setObjectName(QStringLiteral("cMaksetuksi"));
    cMaksetuksi->setToolTip(QStringLiteral("Merkitse valittu lasku maksetuksi"));
    connect(cMaksetuksi, &QPushButton::clicked, this, [this] { tietue::Suojattu([this] { cMaksetuksi_Click(); }); });
    oikea->addWidget(cMaksetuksi, 0, Qt::AlignLeft);
    vaaka->addLayout(oikea, 2);
    return sivu;
}

namespace {

void naytaLasku(const std::array<QLabel *, 12> &l, const LaskunTiedot &t)
{
    const QString arvot[12] = {t.jmhjmID,     t.otsake, t.laskunumero, t.laskupaiva, t.erapaiva,        t.viitenumero,
                               t.hinta,       t.teksti, t.jasenmaksu,  t.perhemaksu, t.ominaisuusmaksu, t.maksettu};
    for (int i = 0; i < 12; ++i)
        l[size_t(i)]->setText(arvot[i]);
}

} // namespace

void frmJasen::LataaMaksut()
{
    m_lataa = true;
    lstMaksut->clear();
    const qint64 id = NykyinenId();
    if (id != 0) {
        const QVector<LaskuRivi> laskut = JasenenLaskut(*m_db, id);
        for (const LaskuRivi &r : laskut) {
            auto *rivi = new QListWidgetItem(r.teksti, lstMaksut);
            rivi->setData(Qt::UserRole, r.jmhID);
        }
    }
    m_lataa = false;
    naytaLasku({lbljmhjmID, lblOtsake, lblLaskunumero, lblLaskupaiva, lblErapaiva, lblViitenumero, lblHinta, lblTeksti,
                lblJasenmaksu, lblPerhemaksu, lblOminaisuusmaksu, lblMaksettu},
               {});
}

void frmJasen::lstMaksut_Click()
{
    const QListWidgetItem *rivi = lstMaksut->currentItem();
    if (!rivi)
        return;
    naytaLasku({lbljmhjmID, lblOtsake, lblLaskunumero, lblLaskupaiva, lblErapaiva, lblViitenumero, lblHinta, lblTeksti,
                lblJasenmaksu, lblPerhemaksu, lblOminaisuusmaksu, lblMaksettu},
               LueLasku(*m_db, rivi->data(Qt::UserRole).toLongLong()));
}

void frmJasen::cMaksetuksi_Click()
{
    if (!OnNumeerinen(lbljmhjmID->text()))
        return;
    const MaksetuksiTulos t = MerkitseLaskuMaksetuksi(*m_db, qint64(NumeroArvo(lbljmhjmID->text())));
    if (!t.loytyi) {
        Ilmoita(LaskuaEiLoydyViesti(lblViitenumero->text()));
        return;
    }
    if (t.jasenmaksu)
        chkJasenmaksu->setChecked(true);
    lstMaksut_Click();
}
