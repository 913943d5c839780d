#include "invoicing/ui/frmLaskupohjat.h"

#include "core/Ilmoitukset.h"
#include "core/MainModule.h"
#include "core/Schema.h"
#include "core/ui/Tietueikkuna.h"
#include "core/ui/uihelpers.h"
#include "invoicing/Laskupohja.h"
#include "invoicing/LaskupohjaSyote.h"
#include "members/Piirteet.h"
#include "platform/dialogs.h"

#include <QAction>
#include <QButtonGroup>
#include <QCheckBox>
#include <QCloseEvent>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPointer>
#include <QRadioButton>
#include <QStackedWidget>
#include <QToolButton>
#include <QTreeWidget>
#include <QVBoxLayout>

frmLaskupohjat::frmLaskupohjat(QWidget *parent) : QDialog(parent), m_pohja(std::make_unique<cLaskupohja>())
{
    setObjectName(QStringLiteral("frmLaskupohjat"));
    setWindowTitle(MainModule::AppName + QStringLiteral(" - Laskupohjat"));
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    rakenna();
    connect(m_pohja.get(), &cLaskupohja::FieldChanged, this, [this](const QString &kentta) {
        if (kentta == QLatin1String("Laskupohja_Nimi"))
            nimiMuuttui();
    });
}

frmLaskupohjat::~frmLaskupohjat()
{
    // The template goes first, while the window it tells of its changes still stands.
    disconnect(m_pohja.get(), nullptr, this, nullptr);
    m_pohja.reset();
}

QToolButton *frmLaskupohjat::komento(const char *nimi, const QString &teksti, const QString &vihje, const QKeySequence &nappain,
                                     std::function<void()> toiminto)
{
    return tietue::KomentoPainike(this, m_komennot, nimi, teksti, vihje, nappain, std::move(toiminto));
}

void frmLaskupohjat::rakenna()
{
    cUusi = komento("cUusi", QStringLiteral("Uusi"), QStringLiteral("Tee uusi laskupohja [F2]"), Qt::Key_F2, [this] { uusi(); });
    cTallenna = komento("cTallenna", QStringLiteral("Tallenna"), QStringLiteral("Tallenna näytöllä oleva laskupohja [F3]"),
                        Qt::Key_F3, [this] { tallenna(); });
    cPoista = komento("cPoista", QStringLiteral("Poista"), QStringLiteral("Poista näytössä oleva laskupohja [F4]"), Qt::Key_F4,
                      [this] { poista(); });
    cSelaa = komento("cSelaa", QStringLiteral("Selaa"), QStringLiteral("Selaa laskupohjia [F5]"), Qt::Key_F5,
                     [this] { tvwLista->setFocus(); });
    cPeru = komento("cPeru", QStringLiteral("Peru"), QStringLiteral("Peru tehdyt muutokset [Ctrl+Z]"),
                    QKeySequence(Qt::CTRL | Qt::Key_Z), [this] { peru(); });
    const auto siirrot = tietue::SiirtoPainikkeet(this, m_komennot, [this](tietue::Siirto s) { siirry(s); });
    cEnsimmainen = siirrot[0];
    cEdellinen = siirrot[1];
    cSeuraava = siirrot[2];
    cViimeinen = siirrot[3];
    cSulje = komento("cSulje", QStringLiteral("Sulje"), QStringLiteral("Sulje laskupohjat [Alt+F4]"),
                     QKeySequence(Qt::ALT | Qt::Key_F4), [this] { close(); });

    tvwLista = new QTreeWidget(this);
    tvwLista->setObjectName(QStringLiteral("tvwLista"));
    tvwLista->setHeaderHidden(true);
    tvwLista->setRootIsDecorated(false);
    tvwLista->setMinimumWidth(200);
    // Queued, so that the tree has finished its own change before a save rebuilds it.
    connect(tvwLista, &QTreeWidget::currentItemChanged, this, [this] { puustaValittu(tvwLista->currentItem()); },
            Qt::QueuedConnection);

    QHBoxLayout *napit = tietue::KomentoRivi({cUusi, cTallenna, cPoista, cSelaa, cPeru},
                                              {cEnsimmainen, cEdellinen, cSeuraava, cViimeinen}, cSulje);

    frameLaskutyypit = new QStackedWidget(this);
    frameLaskutyyppi = {rakennaPerusrivit(), rakennaPerherivit(), rakennaOminaisuusrivit()};
    const QString otsikot[] = {QStringLiteral("Laskurivit"), QStringLiteral("Perheen laskurivit"),
                               QStringLiteral("Ominaisuuksien laskurivit")};
    for (int i = 0; i < 3; ++i) {
        auto *kehys = new QGroupBox(otsikot[i]);
        kehys->setObjectName(QStringLiteral("frameLaskutyyppi%1").arg(i));
        auto *v = new QVBoxLayout(kehys);
        v->addWidget(frameLaskutyyppi[size_t(i)]);
        v->addStretch(1);
        frameLaskutyypit->addWidget(kehys);
    }

    auto *oikea = new QVBoxLayout;
    oikea->addWidget(rakennaYlatiedot());
    oikea->addWidget(frameLaskutyypit, 1);
    auto *runko = new QHBoxLayout;
    runko->addWidget(tvwLista, 1);
    runko->addSpacing(6);
    runko->addLayout(oikea, 4);
    auto *ylin = new QVBoxLayout(this);
    ylin->addLayout(napit);
    ylin->addLayout(runko, 1);
    resize(1180, 760);
    asetaSarkainjarjestys();
    new tietue::EditorinNappaimet(this);
}

// Tab goes as the eye reads: the tree, the header from the top, then the rows line by line.
void frmLaskupohjat::asetaSarkainjarjestys()
{
    QList<QWidget *> j{tvwLista, tNimi, tLaskunOtsake, cmbPaivamaara, tErapaiva, tTilisiirronTeksti, cmbTilinumerot,
                       chkVainValittuTilinumero, chkJasenmaksu, chkIlmanViitetta, chkHenkilokohtainenViite,
                       chkIlmanLoppusummaa, tLisatietoja};
    for (QRadioButton *o : optLaskutyyppi)
        j << o;
    for (int i = 0; i < chkPerusPaalla.size(); ++i)
        j << chkPerusPaalla[i] << tPerusAiheteksti[i] << tPerusHinta[i];
    for (int i = 0; i < chkPerhePaalla.size(); ++i)
        j << chkPerhePaalla[i] << tPerheAiheTeksti[i] << tPerheAhinta[i] << chkPerheNimet[i] << chkPerheNollat[i];
    for (int i = 0; i < cmbOminaisuus.size(); ++i)
        j << cmbOminaisuus[i] << tOmAiheTeksti[i] << tOmLkmMaara[i] << chkOmLkm[i] << tOmAHinta[i] << chkOmHinta[i]
          << tOmMinimi[i] << chkOmNollat[i];
    for (int i = 1; i < j.size(); ++i)
        setTabOrder(j[i - 1], j[i]);
}

void frmLaskupohjat::kun(QLineEdit *t, std::function<void(const QString &)> kirjoita)
{
    connect(t, &QLineEdit::textChanged, this, [this, kirjoita = std::move(kirjoita)](const QString &s) {
        if (m_naytetaan)
            return;
        tietue::Suojattu([&] { kirjoita(s); });
        paivitaPainikkeet();
    });
}

void frmLaskupohjat::kun(QCheckBox *c, std::function<void(bool)> kirjoita)
{
    connect(c, &QCheckBox::toggled, this, [this, kirjoita = std::move(kirjoita)](bool paalla) {
        if (m_naytetaan)
            return;
        tietue::Suojattu([&] { kirjoita(paalla); });
        paivitaPainikkeet();
    });
}

QWidget *frmLaskupohjat::rakennaYlatiedot()
{
    auto *w = new QWidget(this);
    auto rivi = [w](const char *nimi, const char *sarake) {
        auto *t = new QLineEdit(w);
        t->setObjectName(QLatin1String(nimi));
        if (sarake)
            t->setMaxLength(Schema::leveys(QStringLiteral("Laskupohjat"), QLatin1String(sarake)));
        return t;
    };
    auto valinta = [w](const char *nimi, const QString &teksti) {
        auto *c = new QCheckBox(teksti, w);
        c->setObjectName(QLatin1String(nimi));
        return c;
    };
    tNimi = rivi("tNimi", "Laskupohja_Nimi");
    tLaskunOtsake = rivi("tLaskunOtsake", "LaskunOtsake");
    tErapaiva = rivi("tErapaiva", nullptr);
    tErapaiva->setMaxLength(6);
    tErapaiva->setMaximumWidth(tErapaiva->fontMetrics().horizontalAdvance(QStringLiteral("0000000")) + 16);
    tErapaiva->setToolTip(QStringLiteral("Päiviä laskun päivämäärästä eräpäivään; tyhjä jättää eräpäivän ennalleen"));
    tTilisiirronTeksti = rivi("tTilisiirronTeksti", "TilisiirronTeksti");
    cmbPaivamaara = new QComboBox(w);
    cmbPaivamaara->setObjectName(QStringLiteral("cmbPaivamaara"));
    cmbPaivamaara->addItem(QStringLiteral("Tyhjä"), laskupohja::PaivaTyhja);
    cmbPaivamaara->addItem(QStringLiteral("Lisäyspäivä"), laskupohja::PaivaLisayspaiva);
    cmbTilinumerot = new QComboBox(w);
    cmbTilinumerot->setObjectName(QStringLiteral("cmbTilinumerot"));
    cmbTilinumerot->setMinimumContentsLength(24);
    chkVainValittuTilinumero = valinta("chkVainValittuTilinumero", QStringLiteral("Vain valittu tilinumero"));
    chkJasenmaksu = valinta("chkJasenmaksu", QStringLiteral("Tee jäsenmaksuna"));
    chkHenkilokohtainenViite = valinta("chkHenkilokohtainenViite", QStringLiteral("Käytä henkilökohtaista viitettä"));
    chkIlmanViitetta = valinta("chkIlmanViitetta", QStringLiteral("Tulosta ilman viitettä"));
    chkIlmanLoppusummaa = valinta("chkIlmanLoppusummaa", QStringLiteral("Tulosta ilman loppusummaa"));
    tLisatietoja = new QPlainTextEdit(w);
    tLisatietoja->setObjectName(QStringLiteral("tLisatietoja"));
    tLisatietoja->setTabChangesFocus(true);
    tLisatietoja->setFixedHeight(tLisatietoja->fontMetrics().lineSpacing() * 3 + 14);

    auto *tyypit = new QGroupBox(QStringLiteral("Laskutyyppi"), w);
    auto *th = new QHBoxLayout(tyypit);
    auto *ryhma = new QButtonGroup(this);
    const QString tyyppinimet[] = {QStringLiteral("Perus"), QStringLiteral("Perhe"), QStringLiteral("Ominaisuus")};
    for (int i = 0; i < 3; ++i) {
        auto *o = new QRadioButton(tyyppinimet[i], tyypit);
        o->setObjectName(QStringLiteral("optLaskutyyppi%1").arg(i));
        ryhma->addButton(o, i);
        th->addWidget(o);
        optLaskutyyppi[size_t(i)] = o;
    }
    th->addStretch(1);

    auto *g = new QGridLayout(w);
    g->setContentsMargins(0, 0, 0, 0);
    int r = 0;
    auto nimike = [w](const QString &t) { return new QLabel(t, w); };
    g->addWidget(nimike(QStringLiteral("Nimi:")), r, 0);
    g->addWidget(tNimi, r++, 1, 1, 3);
    g->addWidget(nimike(QStringLiteral("Laskun otsake:")), r, 0);
    g->addWidget(tLaskunOtsake, r++, 1, 1, 3);
    g->addWidget(nimike(QStringLiteral("Laskun päivämäärä:")), r, 0);
    g->addWidget(cmbPaivamaara, r, 1);
    auto *era = new QHBoxLayout;
    era->addWidget(nimike(QStringLiteral("Eräpäivä:")));
    era->addWidget(tErapaiva);
    era->addWidget(nimike(QStringLiteral("päivän päästä")));
    era->addStretch(1);
    g->addLayout(era, r++, 2, 1, 2);
    g->addWidget(nimike(QStringLiteral("Tilisiirron teksti:")), r, 0);
    g->addWidget(tTilisiirronTeksti, r++, 1, 1, 3);
    g->addWidget(nimike(QStringLiteral("Tilinumero:")), r, 0);
    g->addWidget(cmbTilinumerot, r, 1);
    g->addWidget(chkVainValittuTilinumero, r++, 2, 1, 2);
    g->addWidget(chkJasenmaksu, r, 1);
    g->addWidget(chkIlmanViitetta, r++, 2, 1, 2);
    g->addWidget(chkHenkilokohtainenViite, r, 1);
    g->addWidget(chkIlmanLoppusummaa, r++, 2, 1, 2);
    g->addWidget(nimike(QStringLiteral("Lisätietoja:")), r, 0, Qt::AlignTop);
    g->addWidget(tLisatietoja, r++, 1, 1, 3);
    g->addWidget(tyypit, r++, 0, 1, 4);
    g->setColumnStretch(1, 1);
    g->setColumnStretch(3, 1);

    kun(tNimi, [this](const QString &s) { m_pohja->setNimi(s); });
    kun(tLaskunOtsake, [this](const QString &s) { m_pohja->setLaskunOtsake(s); });
    kun(tErapaiva, [this](const QString &s) { m_pohja->setLaskunErapaiva(ErapaivaSyotteesta(s)); });
    kun(tTilisiirronTeksti, [this](const QString &s) { m_pohja->setTilisiirronTeksti(s); });
    kun(chkJasenmaksu, [this](bool b) { m_pohja->setJasenmaksu(b); });
    kun(chkHenkilokohtainenViite, [this](bool b) { m_pohja->setHenkilokohtainenViite(b); });
    kun(chkIlmanViitetta, [this](bool b) { m_pohja->setIlmanViitetta(b); });
    kun(chkIlmanLoppusummaa, [this](bool b) { m_pohja->setIlmanLoppusummaa(b); });
    kun(chkVainValittuTilinumero, [this](bool b) { m_pohja->setKaytaPankkitili1(b); });
    connect(tLisatietoja, &QPlainTextEdit::textChanged, this, [this] {
        if (m_naytetaan)
            return;
        m_pohja->setLisatietoja(tLisatietoja->toPlainText());
        paivitaPainikkeet();
    });
    connect(cmbPaivamaara, &QComboBox::activated, this, [this](int i) {
        m_pohja->setLaskunPaivamaara(cmbPaivamaara->itemData(i).toInt());
        paivitaPainikkeet();
    });
    connect(cmbTilinumerot, &QComboBox::activated, this, [this](int i) {
        m_pohja->setPankkitili1(cmbTilinumerot->itemText(i));
        paivitaPainikkeet();
    });
    // The kind is stored at once, and its rows come to view.
    connect(ryhma, &QButtonGroup::idClicked, this, [this](int tyyppi) {
        m_pohja->setLaskutyyppi(tyyppi);
        naytaLaji(tyyppi);
        paivitaPainikkeet();
    });
    return w;
}

// ---- Loading and showing -------------------------------------------------------------------

bool frmLaskupohjat::lataa()
{
    if (!tietue::TietokantaAsetettu())
        return false;
    m_pohja->setTietokanta(MainModule::DatabasePath);
    return tietue::Suojattu([this] {
        cmbTilinumerot->clear();
        cmbTilinumerot->addItems({QString(), MainModule::RegPankkiyhteys1, MainModule::RegPankkiyhteys2});
        auto d = tietue::AvaaKanta();
        const QVector<ListaRivi> piirteet = Maaritykset(*d, false);
        d.reset();
        for (QComboBox *c : cmbOminaisuus) {
            c->clear();
            c->addItem(QStringLiteral("---"), qlonglong(0));
            for (const ListaRivi &p : piirteet)
                c->addItem(p.teksti, qlonglong(p.id));
        }
        rakennaPuu();
        m_pohja->GetFirst();
        nayta(true);
    });
}

void frmLaskupohjat::nayta(bool tarkistaTili)
{
    m_naytetaan = true;
    naytaYlatiedot();
    naytaRivit();
    m_naytetaan = false;
    valitseSolmu();
    paivitaPainikkeet();
    naytaTili(tarkistaTili && !m_pohja->Tyhja());
}

void frmLaskupohjat::naytaYlatiedot()
{
    const cLaskupohja &p = *m_pohja;
    tNimi->setText(p.Nimi() == QLatin1String(" ") ? QString() : p.Nimi());
    tLaskunOtsake->setText(p.LaskunOtsake());
    cmbPaivamaara->setCurrentIndex(cmbPaivamaara->findData(p.LaskunPaivamaara()));
    tErapaiva->setText(ErapaivaTekstina(p.LaskunErapaiva()));
    tTilisiirronTeksti->setText(p.TilisiirronTeksti());
    chkJasenmaksu->setChecked(p.Jasenmaksu());
    chkHenkilokohtainenViite->setChecked(p.HenkilokohtainenViite());
    chkIlmanViitetta->setChecked(p.IlmanViitetta());
    chkIlmanLoppusummaa->setChecked(p.IlmanLoppusummaa());
    chkVainValittuTilinumero->setChecked(p.KaytaPankkitili1());
    tLisatietoja->setPlainText(p.Lisatietoja());
    const int tyyppi = std::clamp(p.Laskutyyppi(), 0, 2);
    optLaskutyyppi[size_t(tyyppi)]->setChecked(true);
    naytaLaji(tyyppi);
}

// The account is chosen by its exact text; one that the settings no longer have is told about,
// and the template keeps it until the user chooses another.
void frmLaskupohjat::naytaTili(bool tarkista)
{
    const int paikka = cmbTilinumerot->findText(m_pohja->Pankkitili1(), Qt::MatchExactly | Qt::MatchCaseSensitive);
    cmbTilinumerot->setCurrentIndex(paikka >= 0 ? paikka : 0);
    if (tarkista && paikka < 0 && !m_pohja->Pankkitili1().isEmpty())
        Ilmoita(QStringLiteral("Laskupohjaan määriteltyä tilinumeroa ei löydy. Tarkista tilinumero!"));
}

void frmLaskupohjat::naytaLaji(int laskutyyppi) { frameLaskutyypit->setCurrentIndex(laskutyyppi); }

void frmLaskupohjat::paivitaPainikkeet()
{
    const bool muuttunut = m_pohja->RivejaMuuttunut();
    cTallenna->setEnabled(muuttunut);
    cPeru->setEnabled(muuttunut);
    cPoista->setEnabled(m_pohja->ID() != 0);
}

// ---- The tree ------------------------------------------------------------------------------

void frmLaskupohjat::rakennaPuu()
{
    const bool naytetaan = m_naytetaan;
    m_naytetaan = true;
    tvwLista->clear();
    try {
        cLaskupohjat kaikki;
        kaikki.Lataa(MainModule::DatabasePath, -1);
        QVector<QPair<QVariant, QString>> rivit;
        for (int i = 0; i < kaikki.Count(); ++i)
            rivit.append({qlonglong(kaikki.Item(i).ID()), kaikki.Item(i).Nimi()});
        tietue::TaytaLuettelo(tvwLista, rivit);
    } catch (const std::exception &) {
        Ilmoita(QStringLiteral("Virhe luotaessa hakemistopuuta laskupohjista."));
    }
    m_naytetaan = naytetaan;
}

void frmLaskupohjat::valitseSolmu()
{
    m_naytetaan = true;
    tietue::NaytaLuettelossa(tvwLista, m_pohja->ID() != 0 ? QVariant(qlonglong(m_pohja->ID())) : QVariant());
    m_naytetaan = false;
}

void frmLaskupohjat::nimiMuuttui()
{
    if (m_pohja->ID() == 0)
        return;
    if (QTreeWidgetItem *s = tietue::LuettelonSolmu(tvwLista, qlonglong(m_pohja->ID())))
        s->setText(0, m_pohja->Nimi());
}

void frmLaskupohjat::puustaValittu(QTreeWidgetItem *s)
{
    if (m_naytetaan || !s)
        return;
    const qint64 id = s->data(0, Qt::UserRole).toLongLong();
    if (id == m_pohja->ID())
        return;
    if (!tallennaKesken()) {
        valitseSolmu();
        return;
    }
    tietue::Suojattu([this, id] {
        m_pohja->ReadById(id);
        nayta(true);
    });
}

// ---- Commands ------------------------------------------------------------------------------

bool frmLaskupohjat::tallennaKesken()
{
    if (!m_pohja->RivejaMuuttunut())
        return true;
    const bool uusi = m_pohja->ID() == 0;
    if (!tietue::Suojattu([this] { m_pohja->Save(); }))
        return false;
    if (uusi)
        rakennaPuu();
    return true;
}

void frmLaskupohjat::uusi()
{
    if (!tallennaKesken())
        return;
    m_pohja->Uusi();
    nayta();
    tNimi->setFocus();
}

void frmLaskupohjat::tallenna()
{
    m_pohja->Save();
    rakennaPuu();
    nayta();
}

void frmLaskupohjat::peru()
{
    m_pohja->Cancel();
    nayta();
}

void frmLaskupohjat::poista()
{
    if (m_pohja->ID() == 0 || !Kysy(QStringLiteral("Haluatko varmasti poistaa valitun laskupohjan?")))
        return;
    cMouseCursor odota;
    odota.SetCursor(this, Qt::WaitCursor);
    const qint64 id = m_pohja->ID();
    m_pohja->Delete();
    delete tietue::LuettelonSolmu(tvwLista, qlonglong(id));
    m_pohja->GetFirst();
    nayta(true);
}

void frmLaskupohjat::siirry(tietue::Siirto s)
{
    if (!tallennaKesken())
        return;
    const qint64 lahto = m_pohja->ID();
    using S = tietue::Siirto;
    bool loytyi = false;
    switch (s) {
    case S::Ensimmainen: loytyi = m_pohja->GetFirst(); break;
    case S::Edellinen: loytyi = m_pohja->GetPrevious(); break;
    case S::Seuraava: loytyi = m_pohja->GetNext(); break;
    case S::Viimeinen: loytyi = m_pohja->GetLast(); break;
    }
    if (!loytyi) {
        // Past the end the window stays where it was.
        if (lahto != 0)
            m_pohja->ReadById(lahto);
        dlg::current().beep();
    }
    nayta(loytyi);
}

void frmLaskupohjat::reject()
{
    if (tallennaKesken())
        QDialog::reject();
}

void AvaaLaskupohjat(QWidget *parent)
{
    // The window exists once: a second opening while it is up only brings it forward.
    static QPointer<frmLaskupohjat> auki;
    if (auki) {
        auki->raise();
        auki->activateWindow();
        return;
    }
    frmLaskupohjat w(parent);
    if (!w.lataa())
        return;
    auki = &w;
    w.exec();
}
