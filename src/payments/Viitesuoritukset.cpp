#include "payments/Viitesuoritukset.h"

#include "payments/Eratiedot.h"
#include "payments/Viitemaksulajittelu.h"
#include "platform/arvot.h"
#include "platform/database.h"

#include <QDate>
#include <QLocale>

namespace {

QString Nimetty(const ViiteTapahtuma &t, const QString &syy)
{
    return MuotoileSentit(MaksunSentit(t)) + QStringLiteral(" - ") + ViitenumeroLukuna(t.Viitenumero) + QStringLiteral(" - ")
           + t.Nimi.trimmed() + QStringLiteral(" (") + syy + QLatin1Char(')');
}

QString Euroina(const Currency &c)
{
    return QLocale(QLocale::Finnish, QLocale::Finland).toCurrencyString(c.toDouble(), QStringLiteral("€"));
}

// The statements of a posting run, prepared once for the whole file.
struct Kirjaaja {
    explicit Kirjaaja(db::Database &db)
        : db(db),
          onJo(db, QStringLiteral("SELECT 1 FROM Suoritukset WHERE Paiva = ? AND Arkistointitunnus = ? LIMIT 1"), {0, 0}),
          lasku(db, QStringLiteral("SELECT jmhID, jmhjmHinta FROM jmhist WHERE jmhjmViitenumero = ? ORDER BY jmhID LIMIT 1"),
                {QString()}),
          summa(db, QStringLiteral("SELECT SUM(Summa) FROM Suoritukset WHERE jmhID = ?"), {0})
    {
    }

    enum Tulos { Kirjattu, JoKirjattu, Ohitettu };

    Tulos kirjaa(const ViiteTapahtuma &t, const Currency &maara, QString *syy)
    {
        const QDate paiva = Kirjauspaiva(t);
        if (!paiva.isValid()) {
            *syy = QStringLiteral("kirjauspäivä %1 ei ole päivämäärä").arg(t.Kirjauspaiva.trimmed());
            return Ohitettu;
        }
        const QString arkisto = t.Arkistointitunnus.trimmed().left(ArkistointitunnuksenPituus);
        onJo.reset({DbPaiva(paiva), arkisto});
        if (onJo.next())
            return JoKirjattu; // not named: reading a file again is no fault
        const QString viite = PoistaEtunollat(t.Viitenumero.trimmed());
        lasku.reset({viite});
        if (viite.isEmpty() || !lasku.next()) {
            *syy = QStringLiteral("viitenumerolla ei löydy laskua");
            return Ohitettu;
        }
        const qint64 jmhID = NullLong(lasku.value(0));
        const QVariant hinta = lasku.value(1);
        db.execute(QStringLiteral("INSERT INTO Suoritukset (Paiva, jmhID, Summa, Arkistointitunnus) VALUES (?, ?, ?, ?)"),
                   {DbPaiva(paiva), jmhID, maara.toVariant(), arkisto});
        summa.reset({jmhID});
        summa.next();
        const Currency maksettu = NullCurrency(summa.value(0));
        if (maksettu >= (hinta.isNull() ? Currency::fromUnits(-1) : NullCurrency(hinta)))
            db.execute(QStringLiteral("UPDATE jmhist SET jmhjmMaksettu = 1, jmhMaksuPaiva = ? WHERE jmhID = ?"),
                       {DbPaiva(paiva), jmhID});
        return Kirjattu;
    }

    db::Database &db;
    db::Statement onJo, lasku, summa;
};

} // namespace

QDate Kirjauspaiva(const ViiteTapahtuma &t)
{
    const QString p = t.Kirjauspaiva.trimmed();
    if (p.size() != 6)
        return {};
    for (QChar c : p)
        if (c < u'0' || c > u'9')
            return {};
    return QDate(2000 + p.left(2).toInt(), p.mid(2, 2).toInt(), p.right(2).toInt());
}

ViitesuoritustenKirjaus KirjaaSuoritukset(db::Database &db, const QList<ViiteEra> &erat)
{
    ViitesuoritustenKirjaus k;
    db::Transaction tx(db);
    Kirjaaja kirjaaja(db);
    for (const ViiteEra &era : erat) {
        // The ledger is in euros: a markka batch's amounts would be posted as so many euros.
        const bool markkoja = Rahayksikko(era.Rahayksikko) == QLatin1String("Markka");
        for (const ViiteTapahtuma &t : era.Tapahtumat) {
            ++k.nahty;
            const Currency maara = Currency::fromRaw(MaksunSentit(t) * (Currency::Scale / 100));
            k.nahtySumma += maara;
            if (markkoja) {
                k.ohitetut << Nimetty(t, QStringLiteral("erän rahayksikkö on markka"));
                continue;
            }
            QString syy;
            Kirjaaja::Tulos tulos = Kirjaaja::Ohitettu;
            try {
                db::Transaction rivi(db); // a payment that fails leaves nothing of itself, the others go on
                tulos = kirjaaja.kirjaa(t, maara, &syy);
                rivi.commit();
            } catch (const db::DbError &e) {
                syy = e.message();
            }
            switch (tulos) {
            case Kirjaaja::Kirjattu:
                ++k.kirjattu;
                k.kirjattuSumma += maara;
                break;
            case Kirjaaja::JoKirjattu:
                break;
            case Kirjaaja::Ohitettu:
                k.ohitetut << Nimetty(t, syy);
                break;
            }
        }
    }
    tx.commit();
    return k;
}

QString KirjausViesti(const ViitesuoritustenKirjaus &k)
{
    return QStringLiteral("Kirjattu %1 / %2\n").arg(k.kirjattu).arg(k.nahty) + Euroina(k.kirjattuSumma) + QStringLiteral(" / ")
           + Euroina(k.nahtySumma);
}

QString OhitettujenViesti(const ViitesuoritustenKirjaus &k)
{
    if (k.ohitetut.isEmpty())
        return {};
    return QStringLiteral("Näitä maksuja ei kirjattu:\n") + k.ohitetut.join(QLatin1Char('\n'));
}
