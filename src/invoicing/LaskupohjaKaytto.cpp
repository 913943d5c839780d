#include "invoicing/LaskupohjaKaytto.h"

#include "core/Ilmoitukset.h"
#include "invoicing/Laskupohja.h"
#include "platform/arvot.h"
#include "platform/kello.h"


namespace {

void kaytaPaivat(const cLaskupohja &p, LaskunYlatiedot &l)
{
    if (p.LaskunPaivamaara() == laskupohja::PaivaTyhja)
        l.tLaskunPaiva.clear();
    else if (p.LaskunPaivamaara() == laskupohja::PaivaLisayspaiva)
        l.tLaskunPaiva = PaivaTekstina(kello::tanaan());
    if (p.LaskunErapaiva() > -1) {
        const QDate paiva = ParsePaiva(l.tLaskunPaiva);
        l.tLaskunErapaiva = paiva.isValid() ? PaivaTekstina(paiva.addDays(p.LaskunErapaiva())) : QString();
    }
}

void kaytaTili(const cLaskupohja &p, LaskunYlatiedot &l)
{
    const int paikka = int(l.cmbTilinumerot.indexOf(p.Pankkitili1()));
    if (paikka >= 0) {
        l.cmbTilinumerotValinta = paikka;
        return;
    }
    l.cmbTilinumerotValinta = 0;
    if (!p.Pankkitili1().isEmpty())
        Ilmoita(QStringLiteral("Laskupohjaan määriteltyä tilinumeroa ei löydy. Tarkista tilinumero."));
}

void kaytaYlatiedot(const cLaskupohja &p, LaskunYlatiedot &l)
{
    l.cmbMaksunOtsake = p.LaskunOtsake();
    kaytaPaivat(p, l);
    l.tAiheTeksti = p.TilisiirronTeksti();
    l.tLisatietoja = p.Lisatietoja();
    l.chkJasenmaksu = p.Jasenmaksu();
    l.chkHenkKohtViite = p.HenkilokohtainenViite();
    l.chkEiViitetta = p.IlmanViitetta();
    l.chkEiLoppusummaa = p.IlmanLoppusummaa();
    l.chkVainValittuTilinumero = p.KaytaPankkitili1();
    kaytaTili(p, l);
}

// A family template row in a free row of the window.
void lisariviksi(const cLaskupohjaRivi &r, PerusLaskurivi &kohde)
{
    kohde.chkRivi = r.PerhePaalla();
    kohde.tRiviSumma = RahaKenttaan(r.PerheAhinta());
    kohde.tRiviTeksti = r.PerheAiheteksti();
}

// Reads the templates of the kind again and gives the one at the index, or null after the message.
template <class Lomake, class Kayta>
bool kaytaValittua(const QString &tietokanta, int laskutyyppi, int indeksi, Lomake &lomake, Kayta kayta)
{
    cLaskupohjat pohjat;
    pohjat.Lataa(tietokanta, laskutyyppi);
    if (indeksi < 0 || indeksi >= pohjat.Count()) {
        Ilmoita(QStringLiteral("Laskupohjaa ei löydy."));
        return false;
    }
    kayta(pohjat.Item(indeksi), lomake);
    return true;
}

} // namespace

void KaytaLaskupohjaa(const cLaskupohja &pohja, MaksujenLuontiLomake &lomake)
{
    kaytaYlatiedot(pohja, lomake);
    for (int i = 0; i < int(lomake.rivit.size()); ++i) {
        const cLaskupohjaRivi &r = pohja.PerusLaskupohjarivi(i);
        PerusLaskurivi &k = lomake.rivit[size_t(i)];
        k.chkRivi = r.Paalla();
        k.tRiviTeksti = r.Aiheteksti();
        k.tRiviSumma = RahaKenttaan(r.Hinta());
    }
}

void KaytaLaskupohjaa(const cLaskupohja &pohja, PerheLomake &lomake)
{
    kaytaYlatiedot(pohja, lomake);
    // The window keeps the one price per family last (index 8) and the classes before it.
    for (int j = 0; j <= 8; ++j) {
        const cLaskupohjaRivi &r = pohja.PerheLaskupohjarivi(j);
        PerheLuokkarivi &k = lomake.luokat[size_t(j == 0 ? 8 : j - 1)];
        k.chkPerheLuokka = r.PerhePaalla();
        k.tSumma = RahaKenttaan(r.PerheAhinta());
        k.tAiheTeksti = r.PerheAiheteksti();
        k.chkNimet = r.PerheNimet();
        k.chkNollat = r.PerheNollat();
    }
    lisariviksi(pohja.PerheLaskupohjarivi(9), lomake.lisarivit[0]);
    lisariviksi(pohja.PerheLaskupohjarivi(10), lomake.lisarivit[1]);
}

void KaytaLaskupohjaa(const cLaskupohja &pohja, OminaisuusLomake &lomake, const QVector<qint64> &piIdt)
{
    kaytaYlatiedot(pohja, lomake);
    for (int i = 0; i < int(lomake.rivit.size()); ++i) {
        const cLaskupohjaRivi &r = pohja.OminaisuusLaskupohjarivi(i);
        OminaisuusLaskurivi &k = lomake.rivit[size_t(i)];
        k.cmbOminaisuus = piIdt.contains(r.OmPiId()) ? r.OmPiId() : 0;
        k.chkLkm = r.OmLkm();
        k.chkHinta = r.OmHinta();
        k.chkNollat = r.OmNollat();
        k.tAHinta = RahaKenttaan(r.OmAhinta());
        k.tLkm = LukuKenttaan(r.OmLkmMaara());
        k.tMinimi = RahaKenttaan(r.OmMinimi());
        k.tAiheTeksti = r.OmAiheteksti();
    }
}

bool KaytaValittuaLaskupohjaa(const QString &tietokanta, int indeksi, MaksujenLuontiLomake &lomake)
{
    return kaytaValittua(tietokanta, laskupohja::Perus, indeksi, lomake,
                         [](const cLaskupohja &p, MaksujenLuontiLomake &l) { KaytaLaskupohjaa(p, l); });
}

bool KaytaValittuaLaskupohjaa(const QString &tietokanta, int indeksi, PerheLomake &lomake)
{
    return kaytaValittua(tietokanta, laskupohja::Perhe, indeksi, lomake,
                         [](const cLaskupohja &p, PerheLomake &l) { KaytaLaskupohjaa(p, l); });
}

bool KaytaValittuaLaskupohjaa(const QString &tietokanta, int indeksi, OminaisuusLomake &lomake, const QVector<qint64> &piIdt)
{
    return kaytaValittua(tietokanta, laskupohja::Ominaisuus, indeksi, lomake,
                         [&piIdt](const cLaskupohja &p, OminaisuusLomake &l) { KaytaLaskupohjaa(p, l, piIdt); });
}
