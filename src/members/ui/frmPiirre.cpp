#include "members/ui/frmPiirre.h"
#include "core/ui/Tietueikkuna.h"

#include "core/MainModule.h"
#include "core/Ilmoitukset.h"
#include "platform/arvot.h"
#include "core/Schema.h"
#include "core/ui/uihelpers.h"
#include "members/Piirteet.h"
#include "platform/recordset.h"
#include "reports/RaporttiVirhe.h"
#include "reports/ui/Raporttitulostus.h"

#include <QAction>
#include <QCheckBox>
#include <QCloseEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QPointer>
#include <QToolButton>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace {

const QString puuAvain = QStringLiteral("ID");

} // namespace

frmPiirre::frmPiirre(QWidget *parent) : QWidget(parent, Qt::Window)
{
    setObjectName(QStringLiteral("frmPiirre"));
    setWindowTitle(MainModule::AppName + QStringLiteral(" - Ominaisuudet"));
    rakenna();
}

frmPiirre::~frmPiirre() = default;

QToolButton *frmPiirre::komento(const char *nimi, const QString &teksti, const QString &vihje, const QKeySequence &nappain,
                                std::function<void()> toiminto)
{
    return tietue::KomentoPainike(this, m_komennot, nimi, teksti, vihje, nappain, std::move(toiminto));
}

void frmPiirre::rakenna()
{
    cUusi = komento("cUusi", QStringLiteral("Uusi"), QStringLiteral("Tee uusi ominaisuus [F2]"), Qt::Key_F2, [this] { uusi(); });
    cTallenna = komento("cTallenna", QStringLiteral("Tallenna"), QStringLiteral("Tallenna näytöllä oleva ominaisuus [F3]"),
                        Qt::Key_F3, [this] { tallenna(); });
    cPoista = komento("cPoista", QStringLiteral("Poista"), QStringLiteral("Poista näytössä oleva ominaisuus [F4]"), Qt::Key_F4,
                      [this] { poista(); });
    cSelaa = komento("cSelaa", QStringLiteral("Selaa"), QStringLiteral("Selaa ominaisuusluetteloa [F5]"), Qt::Key_F5,
                     [this] { selaa(); });
    cPeru = komento("cPeru", QStringLiteral("Peru"), QStringLiteral("Peru tekemäsi muutokset [Ctrl+Z]"),
                    QKeySequence(Qt::CTRL | Qt::Key_Z), [this] { peru(); });
    const auto siirrot = tietue::SiirtoPainikkeet(this, m_komennot, [this](tietue::Siirto s) { siirry(s); });
    cEnsimmainen = siirrot[0];
    cEdellinen = siirrot[1];
    cSeuraava = siirrot[2];
    cViimeinen = siirrot[3];
    cSulje = komento("cSulje", QStringLiteral("Sulje"), QStringLiteral("Sulje Ominaisuudet [Alt+F4]"),
                     QKeySequence(Qt::ALT | Qt::Key_F4), [this] { close(); });

    auto *valikot = new QMenuBar(this);
    QMenu *mTyokalut = valikot->addMenu(QStringLiteral("Työkalut"));
    mSiivoaVanhatOminaisuudet = mTyokalut->addAction(QStringLiteral("Siivoa vanhat ominaisuudet"));
    mSiivoaVanhatOminaisuudet->setObjectName(QStringLiteral("mSiivoaVanhatOminaisuudet"));
    connect(mSiivoaVanhatOminaisuudet, &QAction::triggered, this, [this] { tietue::Suojattu([this] { siivoa(); }); });
    QMenu *mRaportit = valikot->addMenu(QStringLiteral("Raportit"));
    mRapLuettelo = mRaportit->addAction(QStringLiteral("Luettelo ominaisuuksista"));
    mRapLuettelo->setObjectName(QStringLiteral("mRapLuettelo"));
    connect(mRapLuettelo, &QAction::triggered, this, [this] { tulostaLuettelo(); });

    tvwPiirteet = new QTreeWidget(this);
    tvwPiirteet->setObjectName(QStringLiteral("tvwPiirteet"));
    tvwPiirteet->setHeaderHidden(true);
    tvwPiirteet->setMinimumWidth(220);

    auto rivi = [this](const char *nimi) {
        auto *t = new QLineEdit(this);
        t->setObjectName(QLatin1String(nimi));
        return t;
    };
    tNimi = rivi("tNimi");
    tNimi->setMaxLength(Schema::leveys(QStringLiteral("pi"), QStringLiteral("piNimi")));
    tKuvaus = rivi("tKuvaus");
    tKuvaus->setMaxLength(Schema::leveys(QStringLiteral("pi"), QStringLiteral("piKuvaus")));
    tDate = rivi("tDate");
    tLong = rivi("tLong");
    tCurrency = rivi("tCurrency");
    tMemo = new QPlainTextEdit(this);
    tMemo->setObjectName(QStringLiteral("tMemo"));
    tMemo->setTabChangesFocus(true);
    auto valinta = [this](const char *nimi, const QString &teksti) {
        auto *c = new QCheckBox(teksti, this);
        c->setObjectName(QLatin1String(nimi));
        return c;
    };
    chkDate = valinta("chkDate", QStringLiteral("Päivämäärä:"));
    chkLong = valinta("chkLong", QStringLiteral("Luku:"));
    chkCurrency = valinta("chkCurrency", QStringLiteral("Arvo:"));
    chkMemo = valinta("chkMemo", QStringLiteral("Muistio:"));

    auto *oletukset = new QGroupBox(QStringLiteral("Oletusarvot"), this);
    auto *og = new QGridLayout(oletukset);
    QCheckBox *valinnat[] = {chkDate, chkLong, chkCurrency, chkMemo};
    QWidget *laatikot[] = {tDate, tLong, tCurrency, tMemo};
    for (int i = 0; i < ArvoTyyppeja; ++i) {
        og->addWidget(valinnat[i], i, 0, i == 3 ? Qt::AlignTop : Qt::Alignment());
        og->addWidget(laatikot[i], i, 1);
    }
    og->setColumnStretch(1, 1);
    og->setRowStretch(3, 1);

    auto *kentat = new QGridLayout;
    kentat->addWidget(new QLabel(QStringLiteral("Nimi:"), this), 0, 0);
    kentat->addWidget(tNimi, 0, 1);
    kentat->addWidget(new QLabel(QStringLiteral("Kuvaus:"), this), 1, 0);
    kentat->addWidget(tKuvaus, 1, 1);
    kentat->addWidget(oletukset, 2, 0, 1, 2);
    kentat->setRowStretch(2, 1);

    QHBoxLayout *napit = tietue::KomentoRivi({cUusi, cTallenna, cPoista, cSelaa, cPeru},
                                              {cEnsimmainen, cEdellinen, cSeuraava, cViimeinen}, cSulje);

    auto *runko = new QHBoxLayout;
    runko->addWidget(tvwPiirteet, 2);
    runko->addLayout(kentat, 3);
    auto *v = new QVBoxLayout(this);
    v->setMenuBar(valikot);
    v->addLayout(napit);
    v->addLayout(runko, 1);
    resize(780, 460);

    connect(tNimi, &QLineEdit::textEdited, this, &frmPiirre::nimiMuuttui);
    for (QLineEdit *t : {tKuvaus, tDate, tLong, tCurrency})
        connect(t, &QLineEdit::textEdited, this, &frmPiirre::aloitaMuokkaus);
    connect(tMemo, &QPlainTextEdit::textChanged, this, &frmPiirre::aloitaMuokkaus);
    connect(tDate, &QLineEdit::editingFinished, this, [this] {
        const QDate d = ParsePaiva(tDate->text());
        if (d.isValid() && PaivaTekstina(d) != tDate->text())
            tDate->setText(PaivaTekstina(d));
    });
    QCheckBox *kaikki[] = {chkDate, chkLong, chkCurrency, chkMemo};
    for (int tyyppi = 0; tyyppi < ArvoTyyppeja; ++tyyppi)
        connect(kaikki[tyyppi], &QCheckBox::clicked, this, [this, tyyppi](bool paalla) {
            tietue::Suojattu([&] { valintaMuuttui(tyyppi, paalla); });
        });
    connect(tvwPiirteet, &QTreeWidget::currentItemChanged, this, [this](QTreeWidgetItem *solmu) {
        if (!m_lataa)
            tietue::Suojattu([&] { puustaValittu(solmu); });
    });
    new tietue::EditorinNappaimet(this);
}

// ---- The row on screen ---------------------------------------------------------------------

bool frmPiirre::onRivi() const
{
    return Data1 && (Data1->editMode() != db::Recordset::EditMode::None || (!Data1->bof() && !Data1->eof()));
}

void frmPiirre::naytaRivi()
{
    if (!onRivi()) {
        tyhjennaKentat();
        return;
    }
    const MaaritysNakyma n = LueMaaritysRivi(*Data1);
    m_lataa = true;
    tNimi->setText(n.lomake.tNimi);
    tKuvaus->setText(n.lomake.tKuvaus);
    tDate->setText(n.lomake.tDate);
    tLong->setText(n.lomake.tLong);
    tCurrency->setText(n.lomake.tCurrency);
    tMemo->setPlainText(n.lomake.tMemo);
    QCheckBox *valinnat[] = {chkDate, chkLong, chkCurrency, chkMemo};
    QWidget *laatikot[] = {tDate, tLong, tCurrency, tMemo};
    // A Null flag says nothing: the box and its check stay as they were.
    for (int i = 0; i < ArvoTyyppeja; ++i) {
        if (const auto k = n.kaytossa[size_t(i)]) {
            valinnat[i]->setChecked(*k);
            laatikot[i]->setEnabled(*k);
        }
    }
    m_lataa = false;
    m_muutettu = false;
}

void frmPiirre::naytaNykyinen()
{
    const bool rivejaOn = Data1->recordCount() > 0 || Data1->editMode() == db::Recordset::EditMode::AddNew;
    asetaKaytossa(rivejaOn);
    if (rivejaOn && Data1->editMode() == db::Recordset::EditMode::None && (Data1->bof() || Data1->eof()))
        Data1->moveFirst();
    naytaRivi();
}

void frmPiirre::tyhjennaKentat()
{
    m_lataa = true;
    for (QLineEdit *t : {tNimi, tKuvaus, tDate, tLong, tCurrency})
        t->clear();
    tMemo->clear();
    for (QCheckBox *c : {chkDate, chkLong, chkCurrency, chkMemo})
        c->setChecked(false);
    m_lataa = false;
    m_muutettu = false;
}

void frmPiirre::asetaKaytossa(bool kaytossa)
{
    for (QWidget *w : std::initializer_list<QWidget *>{tvwPiirteet, tNimi, tKuvaus, tDate, tLong, tCurrency, tMemo, chkDate,
                                                       chkLong, chkCurrency, chkMemo})
        w->setEnabled(kaytossa);
    for (QToolButton *b : {cTallenna, cPoista, cSelaa, cPeru, cEnsimmainen, cEdellinen, cSeuraava, cViimeinen})
        b->defaultAction()->setEnabled(kaytossa);
}

void frmPiirre::aloitaMuokkaus()
{
    if (m_lataa || !onRivi())
        return;
    if (Data1->editMode() == db::Recordset::EditMode::None)
        Data1->edit();
    m_muutettu = true;
}

bool frmPiirre::kirjoitaKesken(bool *kirjoitettu)
{
    if (kirjoitettu)
        *kirjoitettu = false;
    if (!Data1 || Data1->editMode() == db::Recordset::EditMode::None)
        return true;
    // A new row nobody typed in is dropped, as a move away from an untouched new record does.
    if (!m_muutettu) {
        Data1->cancelUpdate();
        return true;
    }
    return tietue::Suojattu([&] {
        KirjoitaMaaritysRivi(*Data1, {tNimi->text(), tKuvaus->text(), tDate->text(), tLong->text(), tCurrency->text(),
                                      tMemo->toPlainText()});
        Data1->update();
        m_muutettu = false;
        if (kirjoitettu)
            *kirjoitettu = true;
    });
}

// The list of attributes shows what is stored, so a pending edit is written first.
void frmPiirre::tulostaLuettelo()
{
    if (!kirjoitaKesken())
        return;
    try {
        PrintRaport(QStringLiteral("pilista.rpt"), this);
    } catch (const RaporttiVirhe &e) {
        IlmoitaVirhe(QStringLiteral("Virhe tulostettaessa raporttia: ") + e.viesti());
    }
}

void frmPiirre::paivitaMaara()
{
    setWindowTitle(MainModule::AppName + QStringLiteral(" - Ominaisuudet - ") + QString::number(PiirteidenMaara(*m_db)));
}

void frmPiirre::rakennaPuu()
{
    m_lataa = true;
    tvwPiirteet->clear();
    auto *juuri = new QTreeWidgetItem(tvwPiirteet, {QStringLiteral("Ominaisuudet")});
    for (const PuunKirjain &k : PiirrePuu(*m_db)) {
        auto *kirjain = new QTreeWidgetItem(juuri, {k.kirjain});
        kirjain->setData(0, Qt::UserRole, k.kirjain);
        for (const ListaRivi &r : k.rivit) {
            auto *s = new QTreeWidgetItem(kirjain, {r.teksti});
            s->setData(0, Qt::UserRole, QString::number(r.id) + puuAvain);
        }
    }
    tvwPiirteet->expandAll();
    m_lataa = false;
}

// ---- Commands ------------------------------------------------------------------------------

bool frmPiirre::lataa()
{
    return tietue::Suojattu([this] {
        m_db = tietue::AvaaKanta();
        Data1 = db::Recordset::openTable(*m_db, QStringLiteral("pi"));
        if (Data1->recordCount() > 0) {
            Data1->moveLast();
            Data1->moveFirst();
        }
        paivitaMaara();
        rakennaPuu();
        naytaNykyinen();
        if (Data1->recordCount() == 0)
            Ilmoita(QStringLiteral("Ominaisuuksia ei vielä ole.\nLisää uusi ominaisuus klikkaamalla Uusi painiketta."));
    });
}

void frmPiirre::uusi()
{
    if (!kirjoitaKesken())
        return;
    Data1->requery();
    Data1->addNew();
    // Each type starts unused, as a new check box is unticked.
    for (ArvoTyyppi t : KaikkiTyypit)
        Data1->setValue(KaytossaSarake(t), false);
    naytaNykyinen();
    paivitaMaara();
    tNimi->setFocus();
}

void frmPiirre::tallenna()
{
    const bool lisays = Data1->editMode() == db::Recordset::EditMode::AddNew;
    bool kirjoitettu = false;
    if (!kirjoitaKesken(&kirjoitettu))
        return;
    if (kirjoitettu) {
        Data1->setBookmark(Data1->lastModified());
        if (lisays)
            Data1->moveLast();
        // The tree follows every save, so a new or renamed attribute shows at once.
        rakennaPuu();
        paivitaMaara();
    }
    naytaNykyinen();
}

void frmPiirre::poista()
{
    if (!onRivi())
        return;
    if (!Kysy(QStringLiteral("Poistetaanko näytössä oleva ominaisuus?")))
        return;
    const bool lisays = Data1->editMode() == db::Recordset::EditMode::AddNew;
    const qint64 piID = NullLong(Data1->value(QStringLiteral("piID")));
    Data1->cancelUpdate();
    m_muutettu = false;
    if (!lisays) {
        PoistaPiirre(*m_db, piID);
        Data1->requery();
        const QString avain = QString::number(piID) + puuAvain;
        for (QTreeWidgetItemIterator it(tvwPiirteet); *it; ++it) {
            if ((*it)->data(0, Qt::UserRole).toString() == avain) {
                m_lataa = true;
                delete *it;
                m_lataa = false;
                break;
            }
        }
        paivitaMaara();
    }
    naytaNykyinen();
}

void frmPiirre::selaa()
{
    if (!kirjoitaKesken())
        return;
    naytaNykyinen();
    tvwPiirteet->setFocus();
}

void frmPiirre::peru()
{
    Data1->cancelUpdate();
    m_muutettu = false;
    naytaNykyinen();
}

void frmPiirre::siirry(tietue::Siirto s)
{
    if (!kirjoitaKesken())
        return;
    tietue::Siirry(*Data1, s);
    naytaRivi();
}

void frmPiirre::puustaValittu(QTreeWidgetItem *solmu)
{
    const QString avain = solmu ? solmu->data(0, Qt::UserRole).toString() : QString();
    if (!avain.endsWith(puuAvain))
        return;
    if (!kirjoitaKesken())
        return;
    if (!Data1->findFirst(QStringLiteral("piID = ?"), {avain.chopped(puuAvain.size()).toLongLong()}))
        Ilmoita(QStringLiteral("No match"));
    naytaNykyinen();
}

void frmPiirre::siivoa()
{
    cMouseCursor osoitin;
    osoitin.SetCursor(this, Qt::WaitCursor);
    SiivoaVanhatOminaisuudet(*m_db);
}

void frmPiirre::nimiMuuttui(const QString &teksti)
{
    aloitaMuokkaus();
    // A warning only: the name stays as typed, and the tree will not show it.
    if (!NimiKelpaaPuuhun(teksti))
        Ilmoita(QStringLiteral("Ominaisuuden nimen tulee alkaa kirjaimella."));
}

void frmPiirre::valintaMuuttui(int tyyppi, bool paalla)
{
    aloitaMuokkaus();
    if (!onRivi())
        return;
    QWidget *laatikot[] = {tDate, tLong, tCurrency, tMemo};
    QWidget *laatikko = laatikot[tyyppi];
    laatikko->setEnabled(paalla);
    // An unticked type keeps no default.
    if (!paalla) {
        m_lataa = true;
        if (auto *t = qobject_cast<QLineEdit *>(laatikko))
            t->clear();
        else
            tMemo->clear();
        m_lataa = false;
    }
    Data1->setValue(KaytossaSarake(ArvoTyyppi(tyyppi)), paalla);
}

void frmPiirre::closeEvent(QCloseEvent *e)
{
    if (!kirjoitaKesken()) {
        e->ignore();
        return;
    }
    TallennaIkkunanPaikka(this);
    e->accept();
}

void AvaaOminaisuudet(QWidget *parent)
{
    static QPointer<QWidget> auki;
    tietue::AvaaKerran(auki, [parent]() -> QWidget * {
        if (!tietue::TietokantaAsetettu())
            return nullptr;
        auto f = std::make_unique<frmPiirre>(parent);
        if (!f->lataa())
            return nullptr;
        LataaIkkunanPaikka(f.get());
        return f.release();
    });
}
