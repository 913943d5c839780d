#include "members/Rekisteritiedot.h"

#include "core/MainModule.h"
#include "platform/currency.h"

#include <QDate>

namespace {

const QString Rivinvaihto = QStringLiteral("\n");
const QString Viivat = QStringLiteral("-------------------------------");
const QString Tuplaviivat = QStringLiteral("===============================");
const QString Erotin = QStringLiteral(" --- --- ");

QString teksti(const QVariant &v) { return v.isNull() ? QString() : v.toString(); }

QString paiva(const QVariant &v)
{
    const QDate p = QDate::fromString(teksti(v).left(10), Qt::ISODate);
    return p.isValid() ? p.toString(QStringLiteral("d.M.yyyy")) : teksti(v);
}

QString raha(const QVariant &v) { return v.isNull() ? QString() : Currency::fromRaw(v.toLongLong()).toString(2); }

QString kyllaEi(const QString &otsake, const QVariant &v)
{
    if (v.isNull())
        return otsake;
    return otsake + (v.toBool() ? QStringLiteral("Kyllä") : QStringLiteral("Ei"));
}

QString nimi(db::Database &d, const QVariant &jrID)
{
    db::Statement s(d, QStringLiteral("SELECT jrSukunimi, jrEtunimi FROM jr WHERE jrID = ?"), {jrID});
    if (!s.next())
        return QString();
    return teksti(s.value(0)) + QStringLiteral(" ") + teksti(s.value(1));
}

QString yhteystiedot(db::Database &d, qint64 jrID)
{
    db::Statement s(d, QStringLiteral("SELECT * FROM jr WHERE jrID = ?"), {jrID});
    if (!s.next())
        return QString();
    struct Rivi {
        const char *otsake, *kentta;
        bool paiva;
    };
    static const Rivi rivit[] = {
        {"Jäsennumero: ", "jrJasennumero", false},         {"Titteli: ", "jrTitteli", false},
        {"Sukunimi: ", "jrSukunimi", false},               {"Etunimi: ", "jrEtunimi", false},
        {"Osoite: ", "jrOsoite", false},                   {"Postinumero: ", "jrPostinumero", false},
        {"Postitoimipaikka: ", "jrPostitoimipaikka", false}, {"Kotipaikka: ", "jrKotipaikka", false},
        {"Maa: ", "jrMaa", false},                         {"Puhelin: ", "jrPuhelin", false},
        {"Matkapuhelin: ", "jrMatkapuhelin", false},       {"Email: ", "jrEmail", false},
        {"Syntymäpäivä: ", "jrSyntyma", true},             {"Liittymispäivä: ", "jrLiittyma", true},
        {"Viitenumero: ", "jrViitenumero", false},         {"Lisätieto 1: ", "jrLisatieto1", false},
        {"Lisätieto 2: ", "jrLisatieto2", false},          {"Muistio: ", "jrMuistio", false},
    };
    QString t;
    for (const Rivi &r : rivit) {
        const QVariant v = s.value(QString::fromLatin1(r.kentta));
        t += QString::fromUtf8(r.otsake) + (r.paiva ? paiva(v) : teksti(v)) + Rivinvaihto;
    }
    t += kyllaEi(QStringLiteral("Email lasku: "), s.value(QStringLiteral("jrEmailLasku"))) + Rivinvaihto;
    t += kyllaEi(QStringLiteral("Jäsenmaksu OK: "), s.value(QStringLiteral("jrJasenmaksu"))) + Rivinvaihto;
    t += kyllaEi(QStringLiteral("Perheen laskutettava: "), s.value(QStringLiteral("jrPerheenLaskutettava"))) + Rivinvaihto;
    return t;
}

QString ominaisuudet(db::Database &d, qint64 jrID)
{
    QString t;
    db::Statement s(d, QStringLiteral("SELECT * FROM pt WHERE ptjrID = ? ORDER BY ptID"), {jrID});
    while (s.next()) {
        const QVariant piID = s.value(QStringLiteral("ptpiID"));
        db::Statement pi(d, QStringLiteral("SELECT piNimi, piKuvaus FROM pi WHERE piID = ?"),
                         {piID.isNull() ? QVariant(0) : piID});
        QString piNimi, piKuvaus;
        if (pi.next()) {
            piNimi = teksti(pi.value(0));
            piKuvaus = teksti(pi.value(1));
        }
        t += piNimi + Rivinvaihto;
        t += QStringLiteral("(") + piKuvaus + QStringLiteral(")") + Rivinvaihto;
        t += QStringLiteral("Päivämäärä: ") + paiva(s.value(QStringLiteral("ptValDate"))) + Rivinvaihto;
        t += QStringLiteral("Luku: ") + teksti(s.value(QStringLiteral("ptValLong"))) + Rivinvaihto;
        t += QStringLiteral("Arvo: ") + raha(s.value(QStringLiteral("ptValCurrency"))) + Rivinvaihto;
        t += QStringLiteral("Muistio: ") + teksti(s.value(QStringLiteral("ptValMemo"))) + Rivinvaihto;
        t += Erotin + Rivinvaihto;
    }
    return t;
}

QString perhe(db::Database &d, qint64 jrID)
{
    const QVariant paa = d.scalar(QStringLiteral("SELECT jrPerheenLaskutettava FROM jr WHERE jrID = ?"), {jrID});
    if (!paa.isNull() && paa.toBool()) {
        QString t = QStringLiteral("Perheeseen kuuluvat: ") + Rivinvaihto;
        db::Statement s(d, QStringLiteral("SELECT jrPSubID FROM jrPerhe WHERE jrPMID = ? ORDER BY jrPID"), {jrID});
        while (s.next())
            t += nimi(d, s.value(0)) + Rivinvaihto;
        return t;
    }
    db::Statement s(d, QStringLiteral("SELECT jrPMID FROM jrPerhe WHERE jrPSubID = ? ORDER BY jrPID"), {jrID});
    if (s.next())
        return QStringLiteral("Kuuluu perheeseen: ") + nimi(d, s.value(0)) + Rivinvaihto;
    return QStringLiteral("Ei perhetietoja") + Rivinvaihto;
}

QString maksut(db::Database &d, qint64 jrID)
{
    QString t;
    db::Statement s(d, QStringLiteral("SELECT * FROM jmhist WHERE jmhjmjrID = ? ORDER BY jmhjmLaskupaiva, jmhID"), {jrID});
    auto kentta = [&s](const char *n) { return s.value(QString::fromLatin1(n)); };
    while (s.next()) {
        t += teksti(kentta("jmhjmOtsake")) + Rivinvaihto;
        t += QStringLiteral("Aihe: ") + teksti(kentta("jmhjmTeksti")) + Rivinvaihto;
        t += QStringLiteral("Laskupäivä: ") + paiva(kentta("jmhjmLaskupaiva")) + Rivinvaihto;
        t += QStringLiteral("Eräpäivä: ") + paiva(kentta("jmhjmErapaiva")) + Rivinvaihto;
        t += QStringLiteral("Loppusumma: ") + raha(kentta("jmhjmHinta")) + Rivinvaihto;
        t += QStringLiteral("Laskunumero: ") + teksti(kentta("jmhjmLaskunumero")) + Rivinvaihto;
        t += QStringLiteral("Viitenumero: ") + teksti(kentta("jmhjmViitenumero")) + Rivinvaihto;
        t += (kentta("jmhjmMaksettu").toBool() ? QStringLiteral("Maksettu: Kyllä") : QStringLiteral("Maksettu: Ei"))
             + Rivinvaihto;
        t += Erotin + Rivinvaihto;
    }
    return t;
}

QString osio(const QString &otsake, const QString &rivit)
{
    return otsake + Rivinvaihto + Viivat + Rivinvaihto + rivit + Tuplaviivat;
}

} // namespace

QString KoostaRekisteritiedot(db::Database &d, qint64 jrID, bool yhteys, bool omin, bool perh, bool maks)
{
    // The contact section heads the text even when not asked for: the text always tells whose it is.
    Q_UNUSED(yhteys);
    QString t = osio(QStringLiteral("Yhteystiedot:"), yhteystiedot(d, jrID));
    if (omin)
        t += Rivinvaihto + osio(QStringLiteral("Ominaisuustiedot:"), ominaisuudet(d, jrID));
    if (perh)
        t += Rivinvaihto + osio(QStringLiteral("Perhetiedot:"), perhe(d, jrID));
    if (maks)
        t += Rivinvaihto + osio(QStringLiteral("Maksutiedot:"), maksut(d, jrID));
    return t;
}

QString KoostaRekisteritiedot(qint64 jrID, bool yhteys, bool omin, bool perh, bool maks)
{
    auto d = db::Database::open(MainModule::DatabasePath);
    return KoostaRekisteritiedot(*d, jrID, yhteys, omin, perh, maks);
}

void TaytaRekisteritiedot(const Ajo &ajo, const cRekisteritietovalinta &v)
{
    db::Database &d = ajo.kanta;
    db::Transaction t(d);
    d.execute(QStringLiteral("DELETE FROM Rekisteritiedot"));
    QVector<qint64> idt;
    {
        db::Statement s(d, QStringLiteral("SELECT jrID FROM jr ORDER BY jrID"));
        while (s.next())
            idt << s.value(0).toLongLong();
    }
    for (qsizetype i = 0; i < idt.size(); ++i) {
        ajo.askel(i, idt.size());
        const qint64 id = idt[i];
        d.execute(QStringLiteral("INSERT INTO Rekisteritiedot (jrID, Tiedot) VALUES (?, ?)"),
                  {id, KoostaRekisteritiedot(d, id, v.Yhteystiedot, v.Ominaisuustiedot, v.Perhetiedot, v.Maksutiedot)});
    }
    t.commit();
}
