// The member window's record commands: new, copy, save, cancel, delete, the moves, and the
// register-wide tools of its menus.
#include "members/ui/frmJasen.h"
#include "core/ui/Tietueikkuna.h"

#include "core/MainModule.h"
#include "core/Ilmoitukset.h"
#include "members/ui/NimipuuMalli.h"
#include "members/ui/frmHaku.h"
#include "members/ui/frmJasenOminaisuudet.h"
#include "members/ui/frmNimiHaku.h"
#include "platform/dialogs.h"

#include <QCheckBox>
#include <QClipboard>
#include <QGuiApplication>
#include <QLineEdit>
#include <QTabWidget>

using EditMode = db::Recordset::EditMode;

void frmJasen::cUusi_Click()
{
    if (OnTyhja())
        AsetaTyhjaTila(false);
    if (!TallennaKesken())
        return;
    m_ominaisuusSivu->palaaSelaukseen();
    m_data1->addNew();
    Siirretty();
    if (MainModule::AutoJasennumero)
        tYhteystiedot[iJasennumero]->setText(AnnaJasennumero(*m_db));
    TabStr1->setCurrentIndex(0);
    tYhteystiedot[iSukunimi]->setFocus();
    PaivitaJasenmaara();
}

// The quick way to add a person at the same address: the name and contact fields come along,
// the first name to be typed over.
void frmJasen::cKopio_Click()
{
    const JasenLomake vanha = KopioitavatTiedot(*m_db, NykyinenId());
    cUusi_Click();
    if (m_data1->editMode() != EditMode::AddNew)
        return;
    for (int i = iSukunimi; i <= iEmail; ++i)
        tYhteystiedot[i]->setText(vanha.tYhteystiedot[i]);
    tYhteystiedot[iSukunimi]->setFocus();
}

void frmJasen::cTallenna_Click()
{
    if (!TallennaKesken())
        return;
    PaivitaKontrollit();
    PaivitaJasenmaara();
}

void frmJasen::cSulje_Click() { close(); }

void frmJasen::cPeru_Click()
{
    // The attribute value typed is dropped too, before the page is shown again (which would store it).
    PeruPiirre();
    const bool lisays = m_data1->editMode() == EditMode::AddNew;
    if (m_data1->editMode() != EditMode::None)
        m_data1->cancelUpdate();
    if (lisays) {
        // The row in view is the one before the add again.
        Siirretty();
    } else {
        PaivitaKontrollit();
        NaytaOminaisuudet(NykyinenId());
    }
    PaivitaJasenmaara();
    if (m_data1->recordCount() == 0)
        AsetaTyhjaTila(true);
}

void frmJasen::cPoista_Click()
{
    if (!TallennaValilehdet())
        return;
    m_ominaisuusSivu->palaaSelaukseen();
    // A row being edited is written first. If that fails, the user is told and the row stays as
    // typed, not deleted.
    const bool lisays = m_data1->editMode() == EditMode::AddNew;
    if (!KirjoitaRivi(lisays)) {
        // The new member never reached the database: deleting him is dropping the add.
        if (lisays && Kysy(QStringLiteral("Poistetaanko näytössä oleva jäsen?")))
            cPeru_Click();
        return;
    }
    if (NykyinenId() != 0 && Kysy(QStringLiteral("Poistetaanko näytössä oleva jäsen?"))) {
        const qint64 id = NykyinenId();
        PoistaJasen(*m_db, id);
        m_data1->requery();
        m_puu->poistaJasen(id);
    }
    const bool ennen = bEiPuunValintaa;
    bEiPuunValintaa = true;
    PaivitaJasenmaara();
    SiirryListaehtoon();
    bEiPuunValintaa = ennen;
    if (m_data1->recordCount() == 0)
        AsetaTyhjaTila(true);
}

// Plain moves follow the table's own order; with a list condition, the holders' name order.
void frmJasen::Siirry(tietue::Siirto s)
{
    if (!TallennaKesken())
        return;
    if (ListaehdonPiirre() > 0) {
        using S = tietue::Siirto;
        const int kohde = s == S::Ensimmainen ? -2 : s == S::Edellinen ? -1 : s == S::Seuraava ? 1 : 2;
        return ListaSiirto(kohde);
    }
    tietue::Siirry(*m_data1, s);
    Siirretty();
}

void frmJasen::cHaku_Click()
{
    if (!TallennaKesken())
        return;
    const bool ennen = bSiirtoKesken;
    bSiirtoKesken = true;
    if (const qint64 id = frmHaku::hae(this); id != 0)
        SiirryLoydettyyn(id, QStringLiteral("Jäsennumerolla ei löydy jäsentä."));
    bSiirtoKesken = ennen;
}

void frmJasen::cNimiHaku_Click()
{
    if (!TallennaKesken())
        return;
    const bool ennen = bSiirtoKesken;
    bSiirtoKesken = true;
    if (const qint64 id = frmNimiHaku::hae(this); id != 0)
        SiirryLoydettyyn(id, QStringLiteral("Jäsentä ei löydy."));
    bSiirtoKesken = ennen;
}

// The found member may have been deleted meanwhile, or be outside the rows this window holds.
void frmJasen::SiirryLoydettyyn(qint64 jrId, const QString &eiLoydy)
{
    const bool oliRivi = m_data1->absolutePosition() >= 0;
    const db::Recordset::Bookmark oli = oliRivi ? m_data1->bookmark() : 0;
    if (SiirryJaseneen(jrId)) {
        Siirretty();
        return;
    }
    Ilmoita(eiLoydy);
    if (oliRivi)
        m_data1->setBookmark(oli);
}

void frmJasen::mKopioiYhteystiedot_Click() { QGuiApplication::clipboard()->setText(YhteystiedotLeikepoydalle(Lomake())); }

void frmJasen::mLiimaaLeikepoydalta_Click()
{
    const QString teksti = QGuiApplication::clipboard()->text();
    if (teksti.isEmpty()) {
        Ilmoita(QStringLiteral("Leikepöydällä ei ole tekstiä."));
        return;
    }
    cUusi_Click();
    if (m_data1->editMode() != EditMode::AddNew)
        return;
    const Liimaus l = LueLiimaus(teksti);
    if (l.osat.isEmpty())
        return;
    for (int i = 0; i < l.osat.size(); ++i)
        tYhteystiedot[i]->setText(l.osat[i]);
    chkJasenmaksu->setChecked(l.jasenmaksu);
    chkEmailLasku->setChecked(l.emailLasku);
}

void frmJasen::mMaksamattomienPoisto_Click()
{
    if (!TallennaKesken())
        return;
    if (!Kysy(QStringLiteral("Poistetaanko kaikki jäsenmaksua maksamattomat jäsenet tietokannasta?\n\nToimenpidettä ei voi perua!")))
        return;
    const int maara = MaksamattomienMaara(*m_db);
    if (!Kysy(QStringLiteral("Poistetaan %1 jäsentä. Haluatko poistaa?").arg(maara)))
        return;
    const qint64 oli = NykyinenId();
    PoistaMaksamattomat(*m_db);
    PaivitaJasenmaara();
    // The rows are gone under the window: it stays on its member if he is left.
    m_data1->requery();
    if (oli == 0 || !m_data1->findFirst(QStringLiteral("jrID = ?"), {oli}))
        SiirryListaehtoon();
    else
        Siirretty();
    if (m_data1->recordCount() == 0)
        AsetaTyhjaTila(true);
}

void frmJasen::mPostinumeroidenTarkistus_Click()
{
    Ilmoita(PostinumeroOhje());
    const QVector<Postinumerovirhe> virheet = TarkistaPostinumerot(*m_db);
    for (const Postinumerovirhe &v : virheet)
        Ilmoita(PostinumerovirheViesti(v));
    Ilmoita(virheet.isEmpty() ? QStringLiteral("Tarkistus valmis, postinumerot kunnossa.") : QStringLiteral("Tarkistus valmis."));
}
