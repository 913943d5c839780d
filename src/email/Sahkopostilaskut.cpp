#include "email/Sahkopostilaskut.h"

#include "core/MainModule.h"
#include "platform/arvot.h"
#include "platform/database.h"
#include "platform/files.h"

#include <QFile>
#include <QFileInfo>

namespace M = MainModule;

// Outside any namespace, as the resource initialiser requires.
static void alustaResurssit() { Q_INIT_RESOURCE(resources); }

namespace {

// The open batch and the history hold the same invoice under other column names: "jmHinta" is
// "jmhjmHinta" in the history. The rows hang on the invoice's original id in both.
struct Laskutaulu {
    QString taulu, avain, etu;
    QString sarake(const char *nimi) const { return etu + QLatin1String(nimi); }
};

const Laskutaulu Avoimet{QStringLiteral("jm"), QStringLiteral("jmID"), QStringLiteral("jm")};
const Laskutaulu Historia{QStringLiteral("jmhist"), QStringLiteral("jmhID"), QStringLiteral("jmhjm")};

QString rahana(const QVariant &v) { return v.isNull() ? QString() : NullCurrency(v).toString(2); }
QString paivana(const QVariant &v) { return v.isNull() ? QString() : PaivaTekstina(NullDate(v)); }

QString maksuehto(db::Database &db, qint64 meID)
{
    if (meID == 0)
        return {};
    return NullText(db.scalar(QStringLiteral("SELECT meTeksti FROM me WHERE meID = ?"), {meID}));
}

QList<cInvoiceRow> laskurivit(db::Database &db, qint64 jmID)
{
    QList<cInvoiceRow> rivit;
    db::Statement st(db, QStringLiteral("SELECT jmRPaiva, jmRTeksti, jmRHinta FROM jmRivi WHERE jmRjmID = ? ORDER BY jmRID"), {jmID});
    while (st.next())
        rivit.append({paivana(st.value(0)), NullText(st.value(1)), rahana(st.value(2))});
    return rivit;
}

struct Luettu {
    bool laskuLoytyi = false, jasenLoytyi = false;
    Sahkopostilasku lasku;
    QString email;
    bool emailLasku = false;
};

Luettu lue(db::Database &db, const Laskutaulu &t, qint64 id)
{
    Luettu l;
    const QStringList sarakkeet{t.sarake("jrID"),       t.sarake("meID"),        t.sarake("Laskunumero"),
                                t.sarake("Laskupaiva"), t.sarake("Erapaiva"),    t.sarake("Viitenumero"),
                                t.sarake("Hinta"),      t.sarake("Otsake"),      t.sarake("EiLoppusummaa"),
                                t.sarake("Pankkitili1"), t.sarake("KaytaPankkitili1"), t.sarake("ID")};
    db::Statement st(db, QStringLiteral("SELECT %1 FROM %2 WHERE %3 = ?").arg(sarakkeet.join(QStringLiteral(", ")), t.taulu, t.avain),
                     {id});
    if (!st.next())
        return l;
    l.laskuLoytyi = true;
    LaskunTiedot &lt = l.lasku.lasku;
    lt.laskunumero = st.value(2).isNull() ? QString() : QString::number(NullLong(st.value(2)));
    lt.laskupaiva = paivana(st.value(3));
    lt.erapaiva = paivana(st.value(4));
    lt.viitenumero = NullText(st.value(5));
    lt.loppusumma = NullBoolean(st.value(8)) ? QString() : rahana(st.value(6));
    lt.otsake = NullText(st.value(7));
    if (NullBoolean(st.value(10)))
        l.lasku.tilit = {NullText(st.value(9)), QString()};
    else
        l.lasku.tilit = {M::RegPankkiyhteys1, M::RegPankkiyhteys2};
    l.lasku.lisatieto = maksuehto(db, NullLong(st.value(1)));
    l.lasku.rivit = laskurivit(db, NullLong(st.value(11)));

    db::Statement jasen(db, QStringLiteral("SELECT jrSukunimi, jrEtunimi, jrOsoite, jrPostinumero, jrPostitoimipaikka, jrEmail,"
                                           " jrEmailLasku FROM jr WHERE jrID = ?"),
                        {NullLong(st.value(0))});
    if (jasen.next()) {
        l.jasenLoytyi = true;
        l.lasku.maksaja = {NullText(jasen.value(0)), NullText(jasen.value(1)), NullText(jasen.value(2)),
                           NullText(jasen.value(3)), NullText(jasen.value(4))};
        l.email = NullText(jasen.value(5));
        l.emailLasku = NullBoolean(jasen.value(6));
    }
    return l;
}

Sahkopostiteksti viesti(const QString &teksti)
{
    Sahkopostiteksti s;
    s.viesti = teksti;
    return s;
}

bool onTiedosto(const QString &polku) { return !polku.isEmpty() && QFileInfo(polku).isFile(); }

} // namespace

Laskuttaja SeuranLaskuttaja()
{
    return {M::RegName, M::RegOsoite, M::RegPostinumero, M::RegPostitoimipaikka, M::RegPuhelin, M::RegFax,
            M::RegSeuranEmail, M::RegWWW, M::YTunnus};
}

std::optional<QString> LuePohjatiedosto(const QString &polku)
{
    if (!onTiedosto(polku))
        return std::nullopt;
    QFile f(polku);
    if (!f.open(QIODevice::ReadOnly))
        return std::nullopt;
    return PohjaTekstiksi(f.readAll());
}

Sahkopostiteksti LueLaskupohja()
{
    const std::optional<QString> pohja = LuePohjatiedosto(M::EmailPohja);
    if (!pohja)
        return viesti(QStringLiteral("Laskupohjaa ei voida avata. Tarkista asetukista Email laskupohja."));
    Sahkopostiteksti s;
    s.teksti = *pohja;
    return s;
}

QList<qint64> AvoimetLaskut(db::Database &db)
{
    QList<qint64> idt;
    db::Statement st(db, QStringLiteral("SELECT jmID FROM jm ORDER BY jmID"));
    while (st.next())
        idt.append(NullLong(st.value(0)));
    return idt;
}

Sahkopostilasku AvoinLasku(db::Database &db, qint64 jmID) { return lue(db, Avoimet, jmID).lasku; }

QString AvoimenLaskunTeksti(db::Database &db, const QString &pohja, qint64 jmID)
{
    return YhdistaLasku(pohja, SeuranLaskuttaja(), AvoinLasku(db, jmID));
}

Sahkopostiteksti MuistutuksenTeksti(db::Database &db, qint64 jmhID, bool esikatselu)
{
    // The test looks at the invoice template and the read takes the reminder template, as it
    // always has; a reminder template that cannot be read is refused with the same words.
    const QString eiPohjaa = esikatselu
        ? QStringLiteral("Muistutuspohjaa ei voida avata, tiedostoa ei löydy.\n\nTarkista asetukista Email muistutuspohja.")
        : QStringLiteral("Muistutuspohjaa ei voida avata. Tarkista asetukista Email muistutuspohja.");
    if (!onTiedosto(M::EmailPohja))
        return viesti(eiPohjaa);
    const std::optional<QString> pohja = LuePohjatiedosto(M::EmailKarhupohja);
    if (!pohja)
        return viesti(eiPohjaa);
    const Luettu l = lue(db, Historia, jmhID);
    if (!l.laskuLoytyi)
        return viesti(esikatselu ? QStringLiteral("Laskua ei ole haettu näyttöön.") : QStringLiteral("Laskua ei löydy tietokannasta."));
    if (!l.jasenLoytyi)
        return viesti(esikatselu ? QStringLiteral("Ei löydy lisättyjä laskuja. Luo ensin laskut.")
                                 : QStringLiteral("Virhe jäsentietojen haussa. Käynnistä Vonari uudestaan."));
    if (!esikatselu && !l.emailLasku)
        return viesti(QStringLiteral("Jäsenelle ei ole sallittu sähköpostilaskutusta jäsenrekisterissä."));
    Sahkopostiteksti s;
    s.teksti = YhdistaLasku(*pohja, SeuranLaskuttaja(), l.lasku);
    s.nimi = l.lasku.maksaja.sukunimi + QLatin1Char(' ') + l.lasku.maksaja.etunimi;
    s.email = l.email;
    s.otsake = l.lasku.lasku.otsake;
    return s;
}

bool VarmistaSahkopohjat(const QString &kansio)
{
    alustaResurssit();
    bool kaikki = true;
    for (const char *nimi : {"lasku.txt", "karhu.txt"}) {
        const QString kohde = files::joinPath(kansio, QLatin1String(nimi));
        if (QFileInfo::exists(kohde) || QFileInfo(kohde).isSymLink())
            continue;
        // A copy of a resource is read-only like the resource; the club edits its own.
        if (!QFile::copy(QStringLiteral(":/sahkoposti/") + QLatin1String(nimi), kohde)
            || !QFile::setPermissions(kohde, QFile::permissions(kohde) | QFileDevice::WriteOwner))
            kaikki = false;
    }
    return kaikki;
}
