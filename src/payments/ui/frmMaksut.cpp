#include "payments/ui/frmMaksut.h"

#include "core/Ilmoitukset.h"
#include "core/ui/Tietueikkuna.h"
#include "email/Sahkopostilaskut.h"
#include "email/ui/frmEmailPreview.h"
#include "invoicing/Laskukopiot.h"
#include "invoicing/ui/frmLaskumalli.h"
#include "payments/Laskulistat.h"
#include "payments/Maksukirja.h"
#include "payments/Muistutukset.h"
#include "payments/ui/frmLaskulistarajaus.h"
#include "payments/ui/frmViitemaksut.h"
#include "payments/ui/frmViitesuoritukset.h"
#include "platform/arvot.h"
#include "platform/database.h"
#include "reports/RaporttiVirhe.h"
#include "reports/Tulostus.h"
#include "reports/ui/frmTulostus.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QEvent>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QPointer>
#include <QTimer>
#include <QToolButton>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace {

QLabel *arvo(QWidget *parent, const char *nimi)
{
    auto *l = new QLabel(parent);
    l->setObjectName(QString::fromUtf8(nimi));
    l->setTextInteractionFlags(Qt::TextSelectableByMouse);
    l->setMinimumWidth(160);
    return l;
}

// A history report to the destination chosen in the print settings.
void kohde(Raporttiajo &r)
{
    r.Destination = TulostusLaite;
    r.CopiesToPrinter = Kopiot;
}

Tulostuskysymykset kysymykset(QWidget *ikkuna)
{
    Tulostuskysymykset k;
    k.laskumalli = [ikkuna] { return KysyLaskumalli(ikkuna); };
    k.tulostusasetukset = [ikkuna] {
        if (!NaytaTulostusasetukset(false, ikkuna))
            return Tulostuspaikka::Peruttu;
        return TulostusLaite == Raporttiajo::Tulostin ? Tulostuspaikka::Tulostin : Tulostuspaikka::Asiakirja;
    };
    return k;
}

// A print of the history with its own progress window; a report's fault is told.
template <class F>
void tulostaHistoriasta(const QString &otsikko, F &&tyo)
{
    tietue::Suojattu([&] {
        auto d = tietue::AvaaKanta();
        std::unique_ptr<Edistyminen> edistys = UusiEdistyminen(otsikko);
        Ajo ajo(*d, edistys.get());
        try {
            tyo(ajo);
        } catch (const RaporttiVirhe &e) {
            IlmoitaVirhe(QStringLiteral("Virhe tulostettaessa raporttia: ") + e.viesti());
        } catch (const Keskeytetty &) {
        }
    });
}

} // namespace

frmMaksut::frmMaksut(QWidget *parent) : QMainWindow(parent)
{
    setObjectName(QStringLiteral("frmMaksut"));
    setWindowTitle(QStringLiteral("Vonari - Maksukirja"));
    setAttribute(Qt::WA_DeleteOnClose);
    auto *keski = new QWidget(this);
    auto *asettelu = new QVBoxLayout(keski);

    auto *haku = new QHBoxLayout;
    tViitenumero = new QLineEdit(keski);
    tViitenumero->setObjectName(QStringLiteral("tViitenumero"));
    tViitenumero->setMaxLength(30);
    tViitenumero->setMinimumWidth(220);
    tViitenumero->installEventFilter(this);
    connect(tViitenumero, &QLineEdit::returnPressed, this, [this] { cHaeTiedot_Click(); });
    auto *otsikko = new QLabel(QStringLiteral("Viitenumero:"), keski);
    otsikko->setBuddy(tViitenumero);
    chkPoistamaksettu = new QCheckBox(QStringLiteral("Poista maksettu"), keski);
    chkPoistamaksettu->setObjectName(QStringLiteral("chkPoistamaksettu"));
    haku->addWidget(otsikko);
    haku->addWidget(tViitenumero);
    haku->addSpacing(16);
    haku->addWidget(chkPoistamaksettu);
    haku->addStretch(1);
    asettelu->addLayout(haku);
    asettelu->addWidget(rakennaTiedot(), 1);

    using tietue::KomentoPainike;
    cHaeTiedot = KomentoPainike(this, m_komennot, "cHaeTiedot", QStringLiteral("Hae"), QStringLiteral("Hae laskun tiedot [F2]"),
                                Qt::Key_F2, [this] { cHaeTiedot_Click(); });
    cMaksetuksi = KomentoPainike(this, m_komennot, "cMaksetuksi", QStringLiteral("Maksetuksi"),
                                 QStringLiteral("Merkitse maksetuksi [F3]"), Qt::Key_F3, [this] { cMaksetuksi_Click(); });
    cViitteeksi = KomentoPainike(this, m_komennot, "cViitteeksi", QStringLiteral("Viitteeksi"),
                                 QStringLiteral("Lisää viitetarkiste [F4]"), Qt::Key_F4, [this] { cViitteeksi_Click(); });
    cTulosta = KomentoPainike(this, m_komennot, "cTulosta", QStringLiteral("Tulosta"),
                              QStringLiteral("Tulosta lasku uudestaan [F7]"), Qt::Key_F7, [this] { cTulosta_Click(); });
    cKopiot = KomentoPainike(this, m_komennot, "cKopiot", QStringLiteral("Kopiot"),
                             QStringLiteral("Tulosta maksamattomista laskuista laskukopiot laskunumeroväliltä"), {},
                             [this] { cKopiot_Click(); });
    cMuistutukset = KomentoPainike(this, m_komennot, "cMuistutukset", QStringLiteral("Muistutukset"),
                                   QStringLiteral("Tulosta maksamattomista laskuista muistutuslaskut laskunumeroväliltä"), {},
                                   [this] { cMuistutukset_Click(); });
    cEmail = KomentoPainike(this, m_komennot, "cEmail", QStringLiteral("Sähköposti"),
                            QStringLiteral("Lähetä muistutuslasku sähköpostitse [F8]"), Qt::Key_F8, [this] { cEmail_Click(); });
    cEmailPreview = KomentoPainike(this, m_komennot, "cEmailPreview", QStringLiteral("Esikatselu"),
                                   QStringLiteral("Esikatsele muistutuslaskua"), {}, [this] { cEmailPreview_Click(); });
    cSulje = KomentoPainike(this, m_komennot, "cSulje", QStringLiteral("Sulje"), QStringLiteral("Sulje Maksukirja [Alt+F4]"), {},
                            [this] { close(); });
    auto *napit = new QHBoxLayout;
    for (QToolButton *b : {cHaeTiedot, cMaksetuksi, cViitteeksi, cTulosta, cKopiot, cMuistutukset, cEmail, cEmailPreview})
        napit->addWidget(b);
    napit->addStretch(1);
    napit->addWidget(cSulje);
    asettelu->addLayout(napit);
    setCentralWidget(keski);
    rakennaValikot();
    tyhjenna();
    resize(760, 560);
}

QWidget *frmMaksut::rakennaTiedot()
{
    auto *tiedot = new QWidget(this);
    auto *rivi = new QHBoxLayout(tiedot);
    rivi->setContentsMargins(0, 0, 0, 0);
    auto *lasku = new QGroupBox(QStringLiteral("Lasku"), tiedot);
    auto *f = new QFormLayout(lasku);
    const auto lisaa = [&](const QString &teksti, QLabel *&l, const char *nimi) {
        l = arvo(lasku, nimi);
        f->addRow(teksti, l);
    };
    lisaa(QStringLiteral("Nimi:"), lblNimi, "lblNimi");
    lisaa(QStringLiteral("Otsake:"), lblOtsake, "lblOtsake");
    lisaa(QStringLiteral("Laskunumero:"), lblLaskunumero, "lblLaskunumero");
    lisaa(QStringLiteral("Viitenumero:"), lblViitenumero, "lblViitenumero");
    lisaa(QStringLiteral("Laskupäivä:"), lblLaskupaiva, "lblLaskupaiva");
    lisaa(QStringLiteral("Eräpäivä:"), lblErapaiva, "lblErapaiva");
    lisaa(QStringLiteral("Summa:"), lblHinta, "lblHinta");
    lisaa(QStringLiteral("Teksti:"), lblTeksti, "lblTeksti");
    lblTeksti->setWordWrap(true);
    lisaa(QStringLiteral("Maksettu:"), lblMaksettu, "lblMaksettu");
    lisaa(QStringLiteral("Perhemaksu:"), lblPerhemaksu, "lblPerhemaksu");
    lisaa(QStringLiteral("Ominaisuusmaksu:"), lblOminaisuusmaksu, "lblOminaisuusmaksu");
    lisaa(QStringLiteral("Jäsenmaksu:"), lblJasenmaksu, "lblJasenmaksu");

    auto *suoritukset = new QGroupBox(QStringLiteral("Kirjatut suoritukset"), tiedot);
    auto *s = new QVBoxLayout(suoritukset);
    cntPaymentRow = new QTreeWidget(suoritukset);
    cntPaymentRow->setObjectName(QStringLiteral("cntPaymentRow"));
    cntPaymentRow->setHeaderLabels({QStringLiteral("Päivä"), QStringLiteral("Summa"), QStringLiteral("Arkistointitunnus")});
    cntPaymentRow->setRootIsDecorated(false);
    cntPaymentRow->setSelectionMode(QAbstractItemView::NoSelection);
    cntPaymentRow->header()->setStretchLastSection(true);
    cntPaymentRow->setColumnWidth(0, 90);
    cntPaymentRow->setColumnWidth(1, 90);
    s->addWidget(cntPaymentRow, 1);
    auto *yht = new QFormLayout;
    lblSuoritettu = arvo(suoritukset, "lblSuoritettu");
    lblAvoinna = arvo(suoritukset, "lblAvoinna");
    yht->addRow(QStringLiteral("Maksettu yhteensä:"), lblSuoritettu);
    yht->addRow(QStringLiteral("Avoinna:"), lblAvoinna);
    s->addLayout(yht);
    rivi->addWidget(lasku, 1);
    rivi->addWidget(suoritukset, 1);
    return tiedot;
}

void frmMaksut::rakennaValikot()
{
    mLasku = menuBar()->addMenu(QStringLiteral("&Lasku"));
    mLasku->setObjectName(QStringLiteral("mLasku"));
    const auto twin = [this](const char *nimi, QToolButton *painike, const QString &teksti) {
        QAction *a = mLasku->addAction(teksti);
        a->setObjectName(QString::fromUtf8(nimi));
        QAction *komento = painike->defaultAction();
        a->setEnabled(komento->isEnabled());
        connect(a, &QAction::triggered, komento, &QAction::trigger);
    };
    twin("mHae", cHaeTiedot, QStringLiteral("&Hae viitenumerolla"));
    twin("mMaksetuksi", cMaksetuksi, QStringLiteral("&Merkitse maksetuksi"));
    twin("mViitteeksi", cViitteeksi, QStringLiteral("Täydennä &viitenumeroksi"));
    mLasku->addSeparator();
    twin("mTulosta", cTulosta, QStringLiteral("&Tulosta lasku uudestaan"));
    twin("mKopiot", cKopiot, QStringLiteral("Tulosta laskukopiot"));
    twin("mMuistutukset", cMuistutukset, QStringLiteral("Tulosta maksumuistutukset"));
    twin("mEmail", cEmail, QStringLiteral("Muistutuslasku sähköpostitse"));
    twin("mEmailPreview", cEmailPreview, QStringLiteral("Sähköpostimuistutuksen esikatselu"));
    mLasku->addSeparator();
    QAction *lue = mLasku->addAction(QStringLiteral("Lue viitemaksutiedosto"), this, [this] { AvaaViitemaksut(this); });
    lue->setObjectName(QStringLiteral("mLueViitemaksut"));
    QAction *kirjaa = mLasku->addAction(QStringLiteral("Kirjaa viitesuoritukset"), this, [this] { AvaaViitesuoritukset(this); });
    kirjaa->setObjectName(QStringLiteral("mKirjaaViitesuoritukset"));
    mLasku->addSeparator();
    twin("mSulje", cSulje, QStringLiteral("&Sulje"));

    mPoista = menuBar()->addMenu(QStringLiteral("Poista"));
    mPoista->setObjectName(QStringLiteral("mPoista"));
    const auto poisto = [this](const char *nimi, const QString &teksti, int (*f)(db::Database &)) {
        QAction *a = mPoista->addAction(teksti);
        a->setObjectName(QString::fromUtf8(nimi));
        connect(a, &QAction::triggered, this, [this, f] { poista(f); });
    };
    poisto("mPoistaYksittainen", QStringLiteral("Yksittäinen"), PoistaYksittainenHistoriasta);
    poisto("mPoistaMaksetut", QStringLiteral("Maksetut"), PoistaMaksetutHistoriasta);
    poisto("mPoistaLaskunumerolla", QStringLiteral("Laskunumerolla"), PoistaHistoriastaLaskunumerolla);
    poisto("mPoistaKaikki", QStringLiteral("Kaikki"), PoistaKaikkiHistoriasta);

    mRaportit = menuBar()->addMenu(QStringLiteral("&Raportit"));
    mRaportit->setObjectName(QStringLiteral("mRaportit"));
    const std::vector<Laskulista> &listat = Laskulistat();
    for (int i = 0; i < int(listat.size()); ++i) {
        if (i == 5)
            mRaportit->addSeparator();
        QAction *a = mRaportit->addAction(listat[size_t(i)].teksti);
        a->setObjectName(QString::fromUtf8(listat[size_t(i)].valikko));
        connect(a, &QAction::triggered, this, [this, i] { tulostaLista(i); });
    }
}

bool frmMaksut::eventFilter(QObject *kohde, QEvent *e)
{
    // The key box selects its whole text when the focus comes to it, after the click has placed the cursor.
    if (kohde == tViitenumero && e->type() == QEvent::FocusIn)
        QTimer::singleShot(0, tViitenumero, &QLineEdit::selectAll);
    return QMainWindow::eventFilter(kohde, e);
}

void frmMaksut::tyhjenna()
{
    tViitenumero->clear();
    nayta(nullptr);
}

void frmMaksut::nayta(const HistorianLasku *l)
{
    m_jmhID = l ? l->jmhID : 0;
    m_jrID = l ? l->jrID : 0;
    const std::pair<QLabel *, QString> tekstit[] = {
        {lblNimi, l ? l->nimi : QString()}, {lblOtsake, l ? l->otsake : QString()},
        {lblErapaiva, l ? l->erapaiva : QString()}, {lblLaskupaiva, l ? l->laskupaiva : QString()},
        {lblLaskunumero, l ? l->laskunumero : QString()}, {lblViitenumero, l ? l->viitenumero : QString()},
        {lblHinta, l ? l->hinta : QString()}, {lblTeksti, l ? l->teksti : QString()},
        {lblMaksettu, l ? l->maksettu : QString()}, {lblPerhemaksu, l ? l->perhemaksu : QString()},
        {lblOminaisuusmaksu, l ? l->ominaisuusmaksu : QString()}, {lblJasenmaksu, l ? l->jasenmaksu : QString()}};
    for (const auto &[label, teksti] : tekstit)
        label->setText(teksti);
    cntPaymentRow->clear();
    lblSuoritettu->clear();
    lblAvoinna->clear();
    if (!l)
        return;
    auto d = tietue::AvaaKanta();
    const LaskunSuoritukset s = HaeSuoritukset(*d, l->jmhID);
    for (const Suoritusrivi &r : s.rivit) {
        auto *rivi = new QTreeWidgetItem(cntPaymentRow, {PaivaTekstina(r.paiva), RahaKenttaan(r.summa), r.arkistointitunnus});
        rivi->setTextAlignment(1, Qt::AlignRight | Qt::AlignVCenter);
    }
    lblSuoritettu->setText(RahaKenttaan(s.maksettu));
    lblAvoinna->setText(RahaKenttaan(s.avoinna));
}

void frmMaksut::cHaeTiedot_Click()
{
    tietue::Suojattu([this] {
        auto d = tietue::AvaaKanta();
        const auto l = HaeLasku(*d, tViitenumero->text());
        nayta(l ? &*l : nullptr);
    });
}

void frmMaksut::cMaksetuksi_Click()
{
    tietue::Suojattu([this] {
        auto d = tietue::AvaaKanta();
        const auto l = HaeLasku(*d, tViitenumero->text());
        if (!l)
            return;
        MerkitseMaksetuksi(*d, l->jmhID, chkPoistamaksettu->isChecked());
        if (chkPoistamaksettu->isChecked())
            tyhjenna();
        else
            cHaeTiedot_Click();
    });
}

void frmMaksut::cViitteeksi_Click()
{
    tViitenumero->setText(TaydennaViitteeksi(tViitenumero->text()));
}

void frmMaksut::cTulosta_Click()
{
    const qint64 jmhID = m_jrID >= 1 ? m_jmhID : 0;
    tulostaHistoriasta(QStringLiteral("Laskua tulostetaan"), [&](const Ajo &ajo) {
        const QString avain = QStringLiteral("{jmhist.jmhID}");
        TulostaLaskuUudestaan(ajo, jmhID, kysymykset(this), LaskuraportinTulostajat(Raportti(), ajo, kohde, avain, avain));
    });
}

void frmMaksut::cKopiot_Click()
{
    tulostaHistoriasta(QStringLiteral("Laskukopioita tulostetaan"), [&](const Ajo &ajo) {
        const QString avain = QStringLiteral("{jmhist.jmhID}");
        Tulostuskysymykset k = kysymykset(this);
        k.laskumalli = nullptr; // the copies are always the Finnish giro form
        TulostaLaskukopiot(ajo, k, LaskuraportinTulostajat(Raportti(), ajo, kohde, avain, avain, {KopioKaava()}));
    });
}

void frmMaksut::cMuistutukset_Click()
{
    tulostaHistoriasta(QStringLiteral("Maksumuistutuksia lasketaan ja tulostetaan"), [&](const Ajo &ajo) {
        const QString avain = QStringLiteral("{jmhist.jmhID}");
        Tulostuskysymykset k = kysymykset(this);
        k.laskumalli = nullptr;
        TulostaMuistutukset(ajo, k, LaskuraportinTulostajat(Raportti(), ajo, kohde, avain, avain, MuistutusKaavat()));
    });
}

void frmMaksut::poista(int (*poisto)(db::Database &))
{
    tietue::Suojattu([poisto] {
        auto d = tietue::AvaaKanta();
        poisto(*d);
    });
}

void frmMaksut::tulostaLista(int lista)
{
    Laskulistakysymykset k;
    k.rajaus = [this] {
        frmLaskulistarajaus w(this);
        w.exec();
        return w.valinta();
    };
    k.tulostusasetukset = [this] { return NaytaTulostusasetukset(false, this); };
    try {
        TulostaLaskulista(Laskulistat()[size_t(lista)], k);
    } catch (const RaporttiVirhe &e) {
        IlmoitaVirhe(QStringLiteral("Virhe tulostettaessa raporttia: ") + e.viesti());
    }
}

void AvaaMaksukirja(QWidget *parent)
{
    static QPointer<QWidget> auki;
    tietue::AvaaKerran(auki, [parent]() -> QWidget * {
        if (!tietue::TietokantaAsetettu())
            return nullptr;
        return new frmMaksut(parent);
    });
}

void frmMaksut::cEmail_Click()
{
    const qint64 jmhID = m_jrID >= 1 ? m_jmhID : 0;
    tietue::Suojattu([jmhID] {
        auto d = tietue::AvaaKanta();
        QString viesti;
        {
            struct Odotus {
                Odotus() { QApplication::setOverrideCursor(Qt::WaitCursor); }
                ~Odotus() { QApplication::restoreOverrideCursor(); }
            } odotus;
            viesti = LahetaMuistutus(*d, jmhID);
        }
        Ilmoita(viesti);
    });
}

void frmMaksut::cEmailPreview_Click()
{
    tietue::Suojattu([this] {
        const Sahkopostiteksti t = MuistutuksenTeksti(*tietue::AvaaKanta(), m_jmhID, true);
        if (!t.onnistui())
            Ilmoita(t.viesti);
        else
            frmEmailPreview::NaytaTeksti(this, t.teksti);
    });
}
