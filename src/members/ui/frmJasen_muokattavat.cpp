// The user's own column reports in the report menu: a row for each stored definition, and the
// print of the chosen one for the members the search conditions select.
#include "members/ui/frmJasen.h"
#include "core/ui/Tietueikkuna.h"

#include "core/MainModule.h"
#include "core/Ilmoitukset.h"
#include "members/Hakuehdot.h"
#include "members/ui/frmHakuehdot.h"
#include "reports/jasen/RapMaaritys.h"
#include "reports/RaporttiVirhe.h"
#include "reports/jasen/Sarakeraportti.h"
#include "reports/Tulostus.h"
#include "reports/jasen/ui/frmTulJarjValinta.h"
#include "reports/ui/frmTulostus.h"

#include <QAction>
#include <QMenu>

using namespace Qt::Literals::StringLiterals;

namespace {

const QString Virhe = u"Virhe tulostettaessa raporttia: "_s;

} // namespace

void frmJasen::PaivitaMuokattavatRaportit()
{
    QVector<MuokattavaRaportti> raportit;
    try {
        if (m_db)
            raportit = MuokattavatRaportit(*m_db);
    } catch (const db::DbError &e) {
        IlmoitaVirhe(e.message());
    }
    while (mMuokattavaRaportti.size() > 1)
        delete mMuokattavaRaportti.takeLast();
    QAction *ensimmainen = mMuokattavaRaportti[0];
    ensimmainen->setVisible(!raportit.isEmpty());
    const QList<QAction *> valikko = mRaportit->actions();
    QAction *jalkeen = valikko.value(valikko.indexOf(ensimmainen) + 1, nullptr);
    for (int n = 0; n < raportit.size(); ++n) {
        QAction *a = ensimmainen;
        if (n > 0) {
            a = new QAction(this);
            a->setObjectName(u"mMuokattavaRaportti%1"_s.arg(n));
            connect(a, &QAction::triggered, this, [this, n] { tietue::Suojattu([this, n] { mMuokattavaRaportti_Click(n); }); });
            mRaportit->insertAction(jalkeen, a);
            mMuokattavaRaportti.append(a);
        }
        // "&" would make a shortcut letter of a name such as "Hallitus & toimikunnat".
        a->setText(QString(raportit[n].nimi).replace(u'&', u"&&"_s));
        a->setData(raportit[n].rpID);
    }
}

void frmJasen::mMuokattavaRaportti_Click(int n)
{
    if (!TallennaKesken() || n < 0 || n >= mMuokattavaRaportti.size())
        return;
    cRapMaaritys rap(*m_db);
    if (!rap.ReadById(mMuokattavaRaportti[n]->data().toLongLong())) {
        Ilmoita(u"Raporttipohjaa ei enää ole. Raporttien luettelo päivitetään."_s);
        PaivitaMuokattavatRaportit();
        return;
    }
    if (!rap.LukuVirhe().isEmpty()) {
        IlmoitaVirhe(Virhe + rap.LukuVirhe());
        return;
    }
    try {
        const QString kentat = rap.oRepSettings.Kenttalista();
        if (kentat.isEmpty()) {
            Ilmoita(u"Raporttipohjassa ei ole yhtään kenttää tulostettavaksi."_s);
            return;
        }
        if (!NaytaHakuehdot(this))
            return;
        frmTulJarjValinta jarjestys(Haku.iTulJarj, this);
        jarjestys.exec();
        if (jarjestys.Cancelled)
            return;
        Haku.iTulJarj = jarjestys.iTulJarj;

        SarakeraportinAjo ajo;
        ajo.rajaus = KoostaRajausteksti(*m_db);
        const ValintaSql valinta = KoostaValintaSql(*m_db, kentat);
        ajo.sql = valinta.sql;
        ajo.arvot = valinta.arvot;
        if (!NaytaTulostusasetukset(false, this))
            return;

        ResetReportFormulas();
        Raporttiajo &r = Raportti();
        r.Destination = TulostusLaite;
        r.CopiesToPrinter = Kopiot;
        ajo.seura = MainModule::RegName;
        ajo.fontti = MainModule::Fontti;
        ajo.koko = MainModule::FonttiKoko;
        ajo.reunat = QMarginsF(r.MarginLeft, r.MarginTop, r.MarginRight, r.MarginBottom);
        r.Toimita(LaadiSarakeraportti(*m_db, rap.oRepSettings, ajo));
    } catch (const RaporttiVirhe &e) {
        IlmoitaVirhe(Virhe + e.viesti());
    } catch (const HakuehtoVirhe &e) {
        IlmoitaVirhe(Virhe + e.viesti());
    }
}
