// The member window's menu bar and command buttons. A button shows its menu command, so the
// two share their key, tip and enabled state.
#include "members/ui/frmJasen.h"
#include "core/ui/Tietueikkuna.h"
#include "reports/jasen/ui/frmJasenkortit.h"
#include "reports/jasen/ui/frmRekisteritiedot.h"

#include "members/ui/frmJasenlajit.h"
#include "members/ui/frmJasenryhmat.h"
#include "members/ui/frmPROMyyntilajit.h"
#include "members/ui/frmPostinumerot.h"
#include "core/Ilmoitukset.h"

#include <QAction>
#include <QHBoxLayout>
#include <QMenu>
#include <QMenuBar>
#include <QToolButton>

QAction *frmJasen::Komento(QMenu *menu, const char *nimi, const QString &teksti, void (frmJasen::*kasittelija)(),
                           const QKeySequence &nappain, const QString &vihje)
{
    std::function<void()> toiminto;
    if (kasittelija)
        toiminto = [this, kasittelija] { (this->*kasittelija)(); };
    QAction *a = Komento(menu, nimi, teksti, std::move(toiminto));
    a->setShortcut(nappain);
    if (!vihje.isEmpty())
        a->setToolTip(vihje);
    return a;
}

QAction *frmJasen::Komento(QMenu *menu, const char *nimi, const QString &teksti, std::function<void()> toiminto)
{
    auto *a = new QAction(teksti, this);
    a->setObjectName(QString::fromLatin1(nimi));
    if (toiminto)
        connect(a, &QAction::triggered, this, [this, toiminto] { tietue::Suojattu(toiminto); });
    else {
        a->setEnabled(false);
        m_eiKaytossa.append(a);
    }
    menu->addAction(a);
    m_komennot.append(a);
    return a;
}

QToolButton *frmJasen::Painike(const char *nimi, QAction *komento)
{
    auto *b = new QToolButton;
    b->setObjectName(QString::fromUtf8(nimi));
    b->setDefaultAction(komento);
    b->setToolButtonStyle(Qt::ToolButtonTextOnly);
    b->setAutoRaise(false);
    // A click takes the focus, so the box left behind gets its leaving rules first.
    b->setFocusPolicy(Qt::StrongFocus);
    b->setMinimumWidth(qMax(64, b->sizeHint().width()));
    return b;
}

void frmJasen::RakennaValikot()
{
    QMenuBar *mb = menuBar();
    mTiedosto = mb->addMenu(QStringLiteral("&Tiedosto"));
    mTiedosto->setObjectName(QStringLiteral("mTiedosto"));
    mTietue = mb->addMenu(QStringLiteral("T&ietue"));
    mTietue->setObjectName(QStringLiteral("mTietue"));
    mOminaisuudet = mb->addMenu(QStringLiteral("&Ominaisuudet"));
    mOminaisuudet->setObjectName(QStringLiteral("mOminaisuudet"));
    mRaportit = mb->addMenu(QStringLiteral("&Raportit"));
    mRaportit->setObjectName(QStringLiteral("mRaportit"));
    mTyokalut = mb->addMenu(QStringLiteral("T&yökalut"));
    mTyokalut->setObjectName(QStringLiteral("mTyokalut"));

    mSulje = Komento(mTiedosto, "mSulje", QStringLiteral("&Sulje"), &frmJasen::cSulje_Click, QKeySequence(Qt::ALT | Qt::Key_F4),
                     QStringLiteral("Sulje Jäsenrekisteri [Alt+F4]"));

    mUusi = Komento(mTietue, "mUusi", QStringLiteral("&Uusi"), &frmJasen::cUusi_Click, Qt::Key_F2,
                    QStringLiteral("Lisää uusi jäsen [F2]"));
    mTallenna = Komento(mTietue, "mTallenna", QStringLiteral("&Tallenna"), &frmJasen::cTallenna_Click, Qt::Key_F3,
                        QStringLiteral("Tallenna näytöllä olevan jäsen [F3]"));
    mPoista = Komento(mTietue, "mPoista", QStringLiteral("&Poista"), &frmJasen::cPoista_Click, Qt::Key_F4,
                      QStringLiteral("Poista näytössä oleva jäsen [F4]"));
    mPeru = Komento(mTietue, "mPeru", QStringLiteral("P&eru"), &frmJasen::cPeru_Click, QKeySequence(Qt::CTRL | Qt::Key_Z),
                    QStringLiteral("Peru tehdyt muutokset [Ctrl+Z]"));
    mKopio = Komento(mTietue, "mKopio", QStringLiteral("&Kopio"), &frmJasen::cKopio_Click, Qt::Key_F8,
                     QStringLiteral("Tee uusi jäsen kopioimalla [F8]"));
    mTietue->addSeparator();
    mSelaa = Komento(mTietue, "mSelaa", QStringLiteral("&Selaa"), &frmJasen::cSelaa_Click, Qt::Key_F5,
                     QStringLiteral("Selaa jäsenistöä [F5]"));
    mHaku = Komento(mTietue, "mHaku", QStringLiteral("&Haku"), &frmJasen::cHaku_Click, Qt::Key_F6,
                    QStringLiteral("Hae jäsenrekisteristä [F6]"));
    mNimihaku = Komento(mTietue, "mNimihaku", QStringLiteral("&Nimihaku"), &frmJasen::cNimiHaku_Click, Qt::Key_F9,
                        QStringLiteral("Hae nimellä [F9]"));
    mTietue->addSeparator();
    std::array<QAction *, 4> siirrot{};
    for (size_t i = 0; i < siirrot.size(); ++i) {
        const tietue::SiirtoKomento &k = tietue::SiirtoKomennot()[i];
        siirrot[i] = Komento(mTietue, k.valikko, k.teksti, [this, s = k.siirto] { Siirry(s); });
        siirrot[i]->setShortcut(k.nappain);
        siirrot[i]->setToolTip(k.vihje);
        siirrot[i]->setIconText(k.nuoli);
    }
    mEnsimmainen = siirrot[0];
    mEdellinen = siirrot[1];
    mSeuraava = siirrot[2];
    mViimeinen = siirrot[3];
    mTietue->addSeparator();
    mKopioiYhteystiedot = Komento(mTietue, "mKopioiYhteystiedot", QStringLiteral("Kopioi yhteystiedot"),
                                  &frmJasen::mKopioiYhteystiedot_Click);
    mLiimaaLeikepoydalta = Komento(mTietue, "mLiimaaLeikepoydalta", QStringLiteral("Liimaa leikepöydältä"),
                                   &frmJasen::mLiimaaLeikepoydalta_Click);

    Komento(mOminaisuudet, "mMoniliitos", QStringLiteral("Moniliitos"), &frmJasen::mMoniliitos_Click);
    Komento(mOminaisuudet, "mOminLisaysSP", QStringLiteral("Lisää syntymäpäivän perusteella"), &frmJasen::mOminLisaysSP_Click);
    Komento(mOminaisuudet, "mOminaisuudenPoisto", QStringLiteral("Ominaisuuden poisto"), &frmJasen::mOminaisuudenPoisto_Click);
    Komento(mOminaisuudet, "mOminaisuudenYhdistaminen", QStringLiteral("Ominaisuuden yhdistäminen"),
            &frmJasen::mOminaisuudenYhdistaminen_Click);

    // Reports; the ones still disabled open once their windows and report files exist.
    QMenu *historia = mRaportit->addMenu(QStringLiteral("Maksuhistoria"));
    Komento(historia, "mMaksuhistoriaJasenelle", QStringLiteral("Jäsenelle"), &frmJasen::mMaksuhistoriaJasenelle_Click);
    Komento(historia, "mMaksuhistoriaRyhmalle", QStringLiteral("Ryhmälle"), &frmJasen::mMaksuhistoriaRyhmalle_Click);
    QMenu *perheet = mRaportit->addMenu(QStringLiteral("Perheet"));
    Komento(perheet, "mRapPerheet", QStringLiteral("Luettelo"), &frmJasen::mRapPerheet_Click);
    Komento(perheet, "mRapPerhetarrat", QStringLiteral("Perhetarrat"), &frmJasen::mRapPerhetarrat_Click);
    QMenu *maksamattomat = perheet->addMenu(QStringLiteral("Maksamattomat perheet"));
    Komento(maksamattomat, "mMaksamattomatPerheetLuettelo", QStringLiteral("Luettelo"), &frmJasen::mMaksamattomatPerheetLuettelo_Click);
    Komento(maksamattomat, "mMaksamattomatPerheetOsoitetarrat", QStringLiteral("Osoitetarrat"), &frmJasen::mMaksamattomatPerheetOsoitetarrat_Click);
    QMenu *maksaneet = perheet->addMenu(QStringLiteral("Maksaneet perheet"));
    Komento(maksaneet, "mMaksaneetPerheetLuettelo", QStringLiteral("Luettelo"), &frmJasen::mMaksaneetPerheetLuettelo_Click);
    Komento(maksaneet, "mMaksaneetPerheetOsoitetarrat", QStringLiteral("Osoitetarrat"), &frmJasen::mMaksaneetPerheetOsoitetarrat_Click);
    Komento(mRaportit, "mRapRajausOminaisuudella", QStringLiteral("Luettelot ja tarrat"), &frmJasen::mRapRajausOminaisuudella_Click);
    Komento(mRaportit, "mJasenkortti", QStringLiteral("Jäsenkortit"), [this] {
        if (TallennaKesken())
            AvaaJasenkortit(this);
    });
    QMenu *rekisteritiedot = mRaportit->addMenu(QStringLiteral("Rekisteritiedot"));
    Komento(rekisteritiedot, "mRekisteritiedotEmailiin", QStringLiteral("Sähköpostiin"));
    Komento(rekisteritiedot, "mRekisteritiedotLeikepoydalle", QStringLiteral("Leikepöydälle"), [this] {
        if (!TallennaKesken())
            return;
        if (NykyinenId() == 0)
            Ilmoita(QStringLiteral("Jäsentä ei ole valittuna."));
        else
            AvaaRekisteritiedot(this, NykyinenId());
    });
    mRaportit->addSeparator();
    Komento(mRaportit, "mMuokkaaRaportteja", QStringLiteral("Muokkaa raportteja"));
    mMuokattavaRaportti = {Komento(mRaportit, "mMuokattavaRaporttiX", QStringLiteral("Raportti"),
                                   [this] { mMuokattavaRaportti_Click(0); })};
    mMuokattavaRaportti[0]->setVisible(false);

    mPostinumeroidenTarkistus = Komento(mTyokalut, "mPostinumeroidenTarkistus", QStringLiteral("Postinumeroiden tarkistus"),
                                        &frmJasen::mPostinumeroidenTarkistus_Click);
    mMaksamattomienPoisto = Komento(mTyokalut, "mMaksamattomienPoisto", QStringLiteral("Maksamattomien jäsenien poisto"),
                                    &frmJasen::mMaksamattomienPoisto_Click);
    mTyokalut->addSeparator();
    QMenu *email = mTyokalut->addMenu(QStringLiteral("Sähköposti"));
    Komento(email, "mEmailKaikille", QStringLiteral("Kaikille"));
    Komento(email, "mEmailOminaisuudella", QStringLiteral("Ominaisuuden perusteella"));
    mEmailValitulle = Komento(email, "mEmailValitulle", QStringLiteral("Valitulle jäsenelle"), nullptr, {},
                              QStringLiteral("Lähetä jäsenelle sähköpostia"));
    mEmailValitulle->setIconText(QStringLiteral("Sähköposti"));
    Komento(mTyokalut, "mOsoitetietojenVienti", QStringLiteral("Osoitetietojen vienti"));
    QMenu *koodistot = mTyokalut->addMenu(QStringLiteral("Koodistot"));
    Komento(koodistot, "mJasenlajit", QStringLiteral("Jäsenlajit"), [this] { AvaaJasenlajit(this); });
    Komento(koodistot, "mJasenryhmat", QStringLiteral("Jäsenryhmät"), [this] { AvaaJasenryhmat(this); });
    Komento(koodistot, "mPostinumerot", QStringLiteral("Postinumerot"), [this] { AvaaPostinumerot(this); });
    Komento(koodistot, "mMyyntilajit", QStringLiteral("Myyntilajit"), [this] { AvaaMyyntilajit(this); });
}

QWidget *frmJasen::RakennaPainikkeet()
{
    auto *w = new QWidget;
    w->setObjectName(QStringLiteral("painikkeet"));
    auto *r = new QHBoxLayout(w);
    r->setContentsMargins(0, 0, 0, 0);
    cUusi = Painike("cUusi", mUusi);
    cTallenna = Painike("cTallenna", mTallenna);
    cPoista = Painike("cPoista", mPoista);
    cPeru = Painike("cPeru", mPeru);
    cKopio = Painike("cKopio", mKopio);
    cSelaa = Painike("cSelaa", mSelaa);
    cHaku = Painike("cHaku", mHaku);
    cNimiHaku = Painike("cNimiHaku", mNimihaku);
    cEnsimmainen = Painike(tietue::SiirtoKomennot()[0].painike, mEnsimmainen);
    cEdellinen = Painike(tietue::SiirtoKomennot()[1].painike, mEdellinen);
    cSeuraava = Painike(tietue::SiirtoKomennot()[2].painike, mSeuraava);
    cViimeinen = Painike(tietue::SiirtoKomennot()[3].painike, mViimeinen);
    cEmail = Painike("cEmail", mEmailValitulle);
    cSulje = Painike("cSulje", mSulje);
    for (QToolButton *b : {cEnsimmainen, cEdellinen, cSeuraava, cViimeinen})
        b->setMinimumWidth(qMax(40, b->sizeHint().width()));
    for (QToolButton *b : {cUusi, cTallenna, cPoista, cPeru, cKopio})
        r->addWidget(b);
    r->addSpacing(12);
    for (QToolButton *b : {cSelaa, cHaku, cNimiHaku})
        r->addWidget(b);
    r->addSpacing(12);
    for (QToolButton *b : {cEnsimmainen, cEdellinen, cSeuraava, cViimeinen})
        r->addWidget(b);
    r->addStretch(1);
    r->addWidget(cEmail);
    r->addWidget(cSulje);
    return w;
}
