// The report menu of the member window: each command asks what it needs, lets JasenRaportit
// decide the report, and runs it. A report error is told and the window goes on.
#include "members/ui/frmJasen.h"

#include "core/Ilmoitukset.h"
#include "members/Hakuehdot.h"
#include "members/JasenRaportit.h"
#include "members/Perhetarrat.h"
#include "members/Rekisteritiedot.h"
#include "members/ui/frmHakuehdot.h"
#include "reports/RaporttiVirhe.h"
#include "reports/Tulostus.h"
#include "reports/jasen/ui/frmRekisteritiedot.h"
#include "reports/ui/frmTulostus.h"
#include "reports/jasen/ui/frmTulostusmuodonvalinta.h"
#include "platform/ui/Edistymispalkki.h"

namespace {
void Tulostusvirhe(const QString &teksti) { IlmoitaVirhe(QStringLiteral("Virhe tulostettaessa raporttia: ") + teksti); }
} // namespace

void frmJasen::AjaJasenRaportti(const JasenRaportti &r)
{
    try {
        ValmisteleJasenRaportti(r);
        Raportti().setAction(1);
    } catch (const RaporttiVirhe &e) {
        Tulostusvirhe(e.viesti());
    } catch (const HakuehtoVirhe &e) {
        Tulostusvirhe(e.viesti());
    }
}

void frmJasen::TulostaJasenRaportti(const JasenRaportti &r)
{
    if (!TallennaKesken() || !NaytaTulostusasetukset(false, this))
        return;
    AjaJasenRaportti(r);
}

void frmJasen::mMaksuhistoriaJasenelle_Click()
{
    if (NykyinenId() == 0) {
        Ilmoita(QStringLiteral("Jäsentä ei ole valittuna."));
        return;
    }
    TulostaJasenRaportti(MaksuhistoriaJasenelle(NykyinenId()));
}

void frmJasen::mMaksuhistoriaRyhmalle_Click() { TulostaJasenRaportti(MaksuhistoriaRyhmalle(ListaehdonPiirre())); }
void frmJasen::mRapPerheet_Click() { TulostaJasenRaportti(PerheLuettelo()); }
void frmJasen::mMaksamattomatPerheetLuettelo_Click() { TulostaJasenRaportti(MaksamattomatPerheet(false)); }
void frmJasen::mMaksamattomatPerheetOsoitetarrat_Click() { TulostaJasenRaportti(MaksamattomatPerheet(true)); }
void frmJasen::mMaksaneetPerheetLuettelo_Click() { TulostaJasenRaportti(MaksaneetPerheet(false)); }
void frmJasen::mMaksaneetPerheetOsoitetarrat_Click() { TulostaJasenRaportti(MaksaneetPerheet(true)); }

void frmJasen::mRapPerhetarrat_Click()
{
    if (!TallennaKesken() || !NaytaHakuehdot(this) || !NaytaTulostusasetukset(false, this))
        return;
    try {
        AsetaMukaan(*m_db);
        TeePerhetarrat(*m_db);
    } catch (const HakuehtoVirhe &e) {
        Tulostusvirhe(e.viesti());
        return;
    } catch (const db::DbError &e) {
        Tulostusvirhe(e.message());
        return;
    }
    AjaJasenRaportti(Perhetarrat());
}

void frmJasen::mRapRajausOminaisuudella_Click()
{
    if (!TallennaKesken())
        return;
    frmTulostusmuodonvalinta valinta(Haku.iTulJarj, Haku.iPrintType, this);
    valinta.exec();
    if (valinta.Cancelled)
        return;
    Haku.iTulJarj = valinta.iTulJarj;
    Haku.iPrintType = valinta.iPrintType;
    if (!NaytaHakuehdot(this))
        return;
    // The register information asks its sections; the table is filled only once nothing more can
    // be cancelled.
    cRekisteritietovalinta osiot;
    if (Haku.iPrintType == 7 && !KysyRekisteritietovalinta(this, osiot))
        return;
    if (!NaytaTulostusasetukset(false, this))
        return;
    try {
        const JasenRaportti r = ListaRaportti(Haku.iPrintType, Haku.iTulJarj, KoostaValintakaava(*m_db),
                                              KoostaRajausteksti(*m_db));
        if (Haku.iPrintType == 7
            && !AjaEdistyen(this, QStringLiteral("Rekisteritietoja kootaan"),
                            [&](Edistyminen *e) { TaytaRekisteritiedot(Ajo(*m_db, e), osiot); }))
            return;
        if (Haku.iPrintType == 8)
            PaivitaKadut(*m_db);
        AjaJasenRaportti(r);
    } catch (const HakuehtoVirhe &e) {
        Tulostusvirhe(e.viesti());
    } catch (const db::DbError &e) {
        Tulostusvirhe(e.message());
    }
}
